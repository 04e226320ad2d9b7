"""Every message of the library is explained in the documents, and every message that they explain is in the library.

A message is explained in a table whose first column is headed "Message". What differs from case to case stands there as
a word in capitals: `File open error. (PATH)`.
"""

import re
import unittest
from collections.abc import Iterator

from cli_support import SOURCE_DIR, CliTest

COMMENT_OR_LITERAL = re.compile(
    r"""//[^\n]*|/\*.*?\*/|'(?:\\.|[^'\\])'|static_assert\(.*?\);|\#include[^\n]*"""
    r"""|(?P<literal>"(?:\\.|[^"\\\n])*"(?:\s*"(?:\\.|[^"\\\n])*")*)""", re.DOTALL)
TABLE = re.compile(r"^\| Message \|.*\n\|[-|]+\|\n((?:\|.*\n)+)", re.MULTILINE)
PLACEHOLDER = re.compile(r"[A-Z]+")


def literals() -> set[str]:
    found = set()
    for file in sorted((SOURCE_DIR / "src").rglob("*")):
        if file.suffix not in (".cpp", ".h"):
            continue
        for match in COMMENT_OR_LITERAL.finditer(file.read_text(encoding="utf-8")):
            if match["literal"]:
                pieces = re.findall(r'"((?:\\.|[^"\\])*)"', match["literal"])
                found.add("".join(pieces).encode("latin-1").decode("unicode_escape"))
    return found


def explained() -> Iterator[tuple[str, str]]:
    """Each explained message, with the document that explains it."""
    for document in sorted((SOURCE_DIR / "docs").glob("*.md")):
        for rows in TABLE.findall(document.read_text(encoding="utf-8")):
            for row in rows.splitlines():
                cell = re.split(r"(?<!\\)\|", row)[1].replace(r"\|", "|")
                for message in re.findall(r"`` (.+?) ``|`([^`]+)`", cell):
                    yield "".join(message), document.name


class MessagesDocumentTest(CliTest):
    def test_each_message_is_explained(self) -> None:
        messages = [message for message, _ in explained()]
        # A text with a blank behind a word is a message or a part of one, save for what stands before each message.
        parts = sorted({text.strip() for text in literals() if re.search(r"\w\S*\s+\S", text)} - {": error :"})
        self.assertGreater(len(parts), 100)
        missing = [part for part in parts if not any(part in message for message in messages)]
        self.assertEqual(missing, [])

    def test_each_explained_message_exists(self) -> None:
        parts = sorted((text for text in literals() if len(text) > 2 or not text.isalnum()), key=len, reverse=True)
        for message, document in explained():
            rest = message
            for part in parts:
                if part:
                    rest = rest.replace(part, "\0")
            for word in rest.split("\0"):
                with self.subTest(document=document, message=message):
                    self.assertRegex(word, rf"\A(?:{PLACEHOLDER.pattern})?\Z")


if __name__ == "__main__":
    unittest.main()
