"""What the documents show is true: their macros and programs are there, and give the output that is shown.

    ```macro NAME       a file of that name, for the commands that follow in the same document; one of the project's
                        own when it has a file of that name
    ```file NAME        the same for a file that is no macro
    ```cpp PATH         the text of a file of the project, or a part of it
    ```cmake PATH       the same
    ```console          lines that begin with "$ ", each followed by what it prints

What is marked "installed" instead runs with the installed library: see tests/package/documents_test.py.
"""

import pathlib
import re
import shlex
import subprocess
import textwrap
import unittest

import documents
from cli_support import IS_WINDOWS, MACROCTL_COMMAND, SOURCE_DIR, TIMEOUT_SECONDS, CliTest


def is_part(part: str, whole: str) -> bool:
    """Whether the lines of the part follow each other in the whole, perhaps with a deeper indentation."""
    return any(f"\n{textwrap.indent(part, ' ' * depth)}" in f"\n{whole}" for depth in range(0, 20, 4))


class DocumentationTest(CliTest):
    def test_examples_are_true(self) -> None:
        for document in documents.documents():
            for block in documents.blocks(document):
                with self.subTest(document=document.name, block=block.name or block.text.splitlines()[0]):
                    self.check(block)

    def test_links_lead_somewhere(self) -> None:
        for document in documents.documents():
            for path, anchor in documents.links(document):
                with self.subTest(document=document.name, link=f"{path}#{anchor}"):
                    target = document.parent / path if path else document
                    self.assertTrue(target.exists())
                    if anchor:
                        self.assertIn(anchor, documents.anchors(target))

    def test_each_document_is_linked(self) -> None:
        linked: dict[pathlib.Path, set[pathlib.Path]] = {}
        for document in documents.documents():
            for path, _ in documents.links(document):
                linked.setdefault((document.parent / path).resolve(), set()).add(document.resolve())
        readme = (SOURCE_DIR / "README.md").resolve()
        for document in documents.documents():
            if document.resolve() != readme:
                with self.subTest(document=document.name):
                    linking = linked.get(document.resolve(), set()) - {document.resolve()}
                    self.assertIn(readme, linking)
                    if document.parent != SOURCE_DIR:
                        self.assertGreater(len(linking), 1, "no other document leads here")

    def check(self, block: documents.Block) -> None:
        if block.name == "installed":
            return
        if block.kind == "console":
            self.check_console(block.text)
        elif block.name and block.kind in ("macro", "file"):
            original = SOURCE_DIR / block.name
            if original.exists():
                self.assertEqual(block.text, documents.read(original))
            self.write(block.name, block.text)
        elif block.name and block.kind in ("cpp", "cmake"):
            self.assertTrue(is_part(block.text, documents.read(SOURCE_DIR / block.name)), block.text)

    def starts_programs(self, name: str) -> bool:
        path = self.folder / name
        return path.is_file() and "system.command_exec" in path.read_text(encoding="utf-8")

    def check_console(self, text: str) -> None:
        for part in re.split(r"^\$ ", text, flags=re.MULTILINE)[1:]:
            line, _, output = part.partition("\n")
            command = shlex.split(line)
            self.assertEqual(command[0], "macroctl", line)
            if IS_WINDOWS and self.starts_programs(command[-1]):
                self.skipTest("the macro starts programs of POSIX")
            done = subprocess.run(
                [*MACROCTL_COMMAND, *command[1:]], cwd=self.folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                stderr=subprocess.STDOUT, encoding="utf-8", timeout=TIMEOUT_SECONDS, check=False)
            self.assertEqual(done.stdout, output, line)


if __name__ == "__main__":
    unittest.main()
