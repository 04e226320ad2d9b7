"""The version stands in the project line of CMakeLists.txt and nowhere else, save where a page records what was true of a
version. The changelog's newest section is that version's."""

import os
import pathlib
import re
import unittest

SOURCE_DIR = pathlib.Path(os.environ["SOURCE_DIR"])

# What has a version of its own: the editors' extensions.
FOREIGN = {"editors"}

# What tells of the past, and stays as it is when the version changes: changes, and what was measured.
RECORDS = {"CHANGELOG.md", "docs/performance.md"}


def sources() -> list[pathlib.Path]:
    """All text files of the project, without what a build has made."""
    found = []
    for entry in sorted(SOURCE_DIR.iterdir()):
        if entry.name.startswith(("build", ".git")) or entry.name in FOREIGN:
            continue
        found += [entry] if entry.is_file() else [file for file in sorted(entry.rglob("*")) if file.is_file()]
    return [file for file in found if not {"__pycache__", "node_modules"} & set(file.parts)]


class VersionTest(unittest.TestCase):
    def setUp(self) -> None:
        project = re.search(r"^project\(macroengine VERSION (\d+\.\d+\.\d+)",
                            (SOURCE_DIR / "CMakeLists.txt").read_text(encoding="utf-8"), re.MULTILINE)
        self.assertIsNotNone(project)
        self.version = project[1]

    def test_version_stands_in_one_place(self) -> None:
        pattern = re.compile(rb"(?<![\d.])" + re.escape(self.version).encode() + rb"(?![\d.])")
        found = {file.relative_to(SOURCE_DIR).as_posix() for file in sources() if pattern.search(file.read_bytes())}
        self.assertEqual(found - RECORDS, {"CMakeLists.txt"})

    def test_changelog_begins_with_the_version(self) -> None:
        changelog = (SOURCE_DIR / "CHANGELOG.md").read_text(encoding="utf-8")
        self.assertEqual(re.search(r"^## \[(.*?)\] - \d{4}-\d{2}-\d{2}$", changelog, re.MULTILINE)[1], self.version)


if __name__ == "__main__":
    unittest.main()
