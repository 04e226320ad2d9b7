"""The manual page names every subcommand and option that macroctl --help shows, no others, and is sound."""

import re
import shutil
import unittest

from cli_support import CliTest, SOURCE_DIR
from help_text import SUBCOMMANDS, options_of

PAGE = SOURCE_DIR / "docs/man/macroctl.1"


class ManPageTest(CliTest):
    def setUp(self) -> None:
        super().setUp()
        self.text = PAGE.read_text(encoding="utf-8").replace("\\-", "-")

    def entries(self, text: str) -> list[str]:
        """The options that a part of the page begins paragraphs with."""
        heads = re.findall(r"^\.T[PQ]\n(\..*)$", text, re.MULTILINE)
        return [option for head in heads for option in re.findall(r"(?<=[ \"])--?[a-z][a-z-]*", head)]

    def test_subcommands(self) -> None:
        self.assertEqual(re.findall(r"^\.SS (.+)$", self.text, re.MULTILINE), SUBCOMMANDS)
        self.assertEqual(sorted(set(re.findall(r'^\.SY "macroctl (\S+)"$', self.text, re.MULTILINE))),
                         sorted(SUBCOMMANDS))

    def test_general_options(self) -> None:
        self.assertEqual(self.entries(self.text.partition(".SH SUBCOMMANDS")[0]), options_of())

    def test_options_of_each_subcommand(self) -> None:
        for subcommand in SUBCOMMANDS:
            with self.subTest(subcommand):
                part = re.search(rf"^\.SS {subcommand}$(.*?)^\.S[SH] ", self.text, re.MULTILINE | re.DOTALL)[1]
                expected = [option for option in options_of(subcommand) if option not in ("-h", "--help")]
                self.assertEqual(self.entries(part), expected)

    @unittest.skipUnless(shutil.which("groff"), "needs groff")
    def test_groff_has_nothing_to_say(self) -> None:
        self.assert_result(self.execute("groff", "-man", "-Tutf8", "-ww", "-z", str(PAGE)), 0)


if __name__ == "__main__":
    unittest.main()
