"""What the documents show is true: their macros and programs are there, and give the output that is shown.

    ```macro NAME     a file of that name, for the commands that follow in the same document
    ```file NAME      the same for a file that is no macro
    ```cpp PATH       the very text of a file of the project
    ```console        lines that begin with "$ ", each followed by what it prints
"""

import pathlib
import re
import shlex
import subprocess
import unittest

from cli_support import MACROCTL, SOURCE_DIR, TIMEOUT_SECONDS, CliTest

BLOCK = re.compile(r"^```(macro|file|cpp|console)(?: (\S+))?\n(.*?)^```$", re.MULTILINE | re.DOTALL)


class DocumentationTest(CliTest):
    def test_documents(self) -> None:
        for document in [SOURCE_DIR / "README.md", *sorted((SOURCE_DIR / "docs").glob("*.md"))]:
            for kind, name, text in BLOCK.findall(document.read_text(encoding="utf-8")):
                with self.subTest(document=document.name, kind=kind, name=name or text.splitlines()[0]):
                    if kind == "console":
                        self.check_console(text)
                    elif name and kind in ("macro", "file"):
                        self.write(name, text)
                    elif name:
                        self.assertEqual(text, (SOURCE_DIR / name).read_text(encoding="utf-8"))

    def test_local_links_lead_somewhere(self) -> None:
        for document in [SOURCE_DIR / "README.md", *sorted((SOURCE_DIR / "docs").glob("*.md"))]:
            for link in re.findall(r"\]\(([^)#]+)", document.read_text(encoding="utf-8")):
                if "://" not in link:
                    self.assertTrue((document.parent / link).exists(), f"{document.name}: {link}")

    def check_console(self, text: str) -> None:
        for part in re.split(r"^\$ ", text, flags=re.MULTILINE)[1:]:
            line, _, output = part.partition("\n")
            command = shlex.split(line)
            self.assertEqual(command[0], "macroctl", line)
            done = subprocess.run(
                [str(MACROCTL), *command[1:]], cwd=self.folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                stderr=subprocess.STDOUT, encoding="utf-8", timeout=TIMEOUT_SECONDS, check=False)
            self.assertEqual(done.stdout, output, line)


if __name__ == "__main__":
    unittest.main()
