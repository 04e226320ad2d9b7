"""What the tests of the documents share: which documents there are, and what stands in them."""

import dataclasses
import pathlib
import re
from collections.abc import Iterator

from cli_support import SOURCE_DIR

FENCE = re.compile(r"^```(\w*)(?: (\S+))?\n(.*?)^```$", re.MULTILINE | re.DOTALL)


@dataclasses.dataclass
class Block:
    kind: str
    name: str  # what stands behind the kind
    text: str


def documents() -> list[pathlib.Path]:
    return [*sorted(SOURCE_DIR.glob("*.md")), *sorted((SOURCE_DIR / "docs").glob("*.md"))]


def read(document: pathlib.Path) -> str:
    return document.read_text(encoding="utf-8")


def blocks(document: pathlib.Path) -> Iterator[Block]:
    for kind, name, text in FENCE.findall(read(document)):
        yield Block(kind, name, text)


def prose(document: pathlib.Path) -> str:
    """A document without its blocks."""
    return FENCE.sub("", read(document))


def anchors(document: pathlib.Path) -> set[str]:
    """What a link into the document may name: its headings, as GitHub spells them."""
    found: set[str] = set()
    for heading in re.findall(r"^#+ (.*)$", prose(document), re.MULTILINE):
        slug = re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")
        number = 0
        while (anchor := f"{slug}-{number}" if number else slug) in found:
            number += 1
        found.add(anchor)
    return found


def links(document: pathlib.Path) -> Iterator[tuple[str, str]]:
    """Each link to a place of the project: the path, empty for the document itself, and the anchor."""
    for path, anchor in re.findall(r"\]\(([^)#\s]*)(?:#([^)]*))?\)", prose(document)):
        if "://" not in path:
            yield path, anchor
