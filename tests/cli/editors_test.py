"""What the editors' files take for granted about macroctl and the language is so."""

import json
import re
import unittest

from cli_support import SOURCE_DIR, CliTest

EXTENSION = SOURCE_DIR / "editors" / "vscode"


def read_json(name: str):
    return json.loads((EXTENSION / name).read_text(encoding="utf-8"))


def expanded(snippet: dict) -> str:
    """The text of a snippet when every proposal is taken."""
    text = "\n".join(snippet["body"]) + "\n"
    return re.sub(r"\$\{\d+:([^}]*)\}|\$\d+", lambda field: field[1] or "", text)


class EditorsTest(CliTest):
    def test_every_snippet_compiles(self) -> None:
        self.write("file.mac", "x = 1\n")
        for name, snippet in read_json("snippets/macro.json").items():
            with self.subTest(name):
                self.assert_result(self.macroctl("check", "--board", self.write("a.mac", expanded(snippet))), 0)

    def test_the_problem_matcher_takes_error_lines_apart(self) -> None:
        matcher = read_json("package.json")["contributes"]["problemMatchers"][0]["pattern"]
        self.write("my macros (1).mac", "a = 1\nb = )\n")
        line = self.macroctl("check", "my macros (1).mac").err.rstrip("\n")
        found = re.match(matcher["regexp"], line)
        self.assertEqual(
            [found[matcher[part]] for part in ["file", "line", "severity", "message"]],
            ["my macros (1).mac", "2", "error", "syntax error ')'. Can't find Variable or value."])

    def test_the_extension_has_the_version_of_macroctl(self) -> None:
        self.assertEqual(self.macroctl("--version").out, f"macroctl {read_json('package.json')['version']}\n")

    def test_the_lock_file_names_no_place_to_download_from(self) -> None:
        for name, package in read_json("package-lock.json")["packages"].items():
            self.assertNotIn("resolved", package, name)


if __name__ == "__main__":
    unittest.main()
