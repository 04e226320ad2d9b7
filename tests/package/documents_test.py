"""What the documents tell of building against the installed library works as it is written.

    ```sh installed         commands that succeed
    ```console installed    lines that begin with "$ ", each followed by what it prints

They run in a copy of the installed examples, with the installed tree at $PREFIX.
"""

import os
import re
import shutil
import subprocess
import unittest

import documents
from cli_support import CliTest

BUILD_DIR = os.environ["BUILD_DIR"]
TIMEOUT_SECONDS = 100


class DocumentsTest(CliTest):
    def setUp(self) -> None:
        super().setUp()
        prefix = self.folder / "installed"
        subprocess.run(
            ["cmake", "--install", BUILD_DIR, "--prefix", str(prefix)], check=True, stdout=subprocess.DEVNULL,
            timeout=TIMEOUT_SECONDS)
        shutil.copytree(prefix / "share/doc/macroengine/examples", self.folder / "examples")
        self.environment = {**os.environ, "PREFIX": str(prefix)}

    def execute_shell(self, script: str) -> tuple[int, str]:
        done = subprocess.run(
            ["sh", "-e", "-c", script], cwd=self.folder, env=self.environment, stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8", timeout=TIMEOUT_SECONDS, check=False)
        return done.returncode, done.stdout

    def test_commands_work(self) -> None:
        count = 0
        for document in documents.documents():
            for block in documents.blocks(document):
                with self.subTest(document=document.name, block=block.text):
                    if block.kind == "macro" and block.name:
                        self.write(block.name, block.text)
                    elif (block.kind, block.name) == ("sh", "installed"):
                        count += 1
                        status, output = self.execute_shell(block.text)
                        self.assertEqual(status, 0, output)
                    elif (block.kind, block.name) == ("console", "installed"):
                        count += 1
                        for part in re.split(r"^\$ ", block.text, flags=re.MULTILINE)[1:]:
                            line, _, expected = part.partition("\n")
                            self.assertEqual(self.execute_shell(line)[1], expected)
        self.assertGreater(count, 3)


if __name__ == "__main__":
    unittest.main()
