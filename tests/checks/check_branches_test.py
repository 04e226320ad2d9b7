"""scripts/check_branches names each line with an untaken branch that the document does not explain."""

import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "check_branches"

SOURCE = "int f(bool a) {\n    if (a) return 1;\n    return a || f(a) ? 2 : 3;\n}\n"


def line(number: int, *counts: int, noncode: bool = False) -> dict[str, object]:
    return {"line_number": number, "gcovr/noncode": noncode, "branches": [{"count": count} for count in counts]}


class CheckBranchesTest(unittest.TestCase):
    def check(self, lines: list[dict[str, object]], document: str) -> subprocess.CompletedProcess[str]:
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            (folder / "src/room").mkdir(parents=True)
            (folder / "src/room/File.cpp").write_text(SOURCE)
            (folder / "counts.json").write_text(
                json.dumps({"files": [{"file": "src/room/File.cpp", "lines": lines}]}))
            (folder / "document.md").write_text(document)
            return subprocess.run([sys.executable, SCRIPT, "counts.json", "document.md"], cwd=folder,
                                  capture_output=True, text=True, check=False)

    def test_what_is_taken_or_explained_is_fine(self) -> None:
        document = "### `room/File.cpp`\n\n- `return a || f(a) ? 2 : 3;` kind\n- `int gone;` token\n"
        done = self.check([line(1, noncode=True), line(2, 5, 1), line(3, 0, 7, 0)], document)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def test_what_is_not_explained_is_named(self) -> None:
        document = "### `room/Other.cpp`\n\n- `if (a) return 1;` kind\n"
        done = self.check([line(2, 5, 0), line(3, 0, 7, 0)], document)
        self.assertEqual((done.returncode, done.stderr), (1, ""))
        self.assertEqual(
            done.stdout,
            "document.md lacks\n### `room/File.cpp`\n- `if (a) return 1;` REASON (1)\n"
            "- `return a || f(a) ? 2 : 3;` REASON (2)\n")

    def test_an_item_without_a_reason_explains_nothing(self) -> None:
        done = self.check([line(2, 5, 0)], "### `room/File.cpp`\n\n- `if (a) return 1;`\n")
        self.assertEqual(done.returncode, 1)


if __name__ == "__main__":
    unittest.main()
