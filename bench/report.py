"""What the measuring programs print, and its place in docs/performance.md."""

import pathlib
import re

import process

DOCUMENT = pathlib.Path(__file__).resolve().parent.parent / "docs" / "performance.md"


def format_table(table: list[list[str]], markdown: bool) -> str:
    """Rows of cells, the head first. The first column is flush left, all others flush right."""
    widths = [max(len(row[column]) for row in table) for column in range(len(table[0]))]
    rows = [[cell.ljust(width) if column == 0 else cell.rjust(width)
             for column, (cell, width) in enumerate(zip(row, widths))] for row in table]
    if not markdown:
        return "\n".join("  ".join(row).rstrip() for row in rows)
    rule = ["-" * widths[0], *("-" * (width - 1) + ":" for width in widths[1:])]
    return "\n".join("| " + " | ".join(row) + " |" for row in [rows[0], rule, *rows[1:]])


def write_to_document(name: str, text: str) -> None:
    """Puts a text between the marks of that name."""
    begin, end = f"<!-- begin {name} -->\n", f"<!-- end {name} -->"
    document = DOCUMENT.read_text(encoding="utf-8")
    document, count = re.subn(
        re.escape(begin) + ".*?" + re.escape(end), lambda _: f"{begin}\n{text}\n\n{end}", document, flags=re.DOTALL)
    if count != 1:
        raise process.Failure(f"{DOCUMENT} has no place for {name}")
    DOCUMENT.write_text(document, encoding="utf-8")
