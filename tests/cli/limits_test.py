"""Runs that have limits."""

import json
import unittest

from cli_support import CliTest

ENDLESS = "i = 0\nloop i < 1\n  a = i\nendloop\n"


class LimitsTest(CliTest):
    def test_statements(self) -> None:
        self.write("a.mac", ENDLESS)
        self.assert_result(self.macroctl("run", "--max-statements", "1000", "a.mac"), 3, "",
                           "a.mac(4): error : Macro aborted. (limit of 1000 statements)\n")

    def test_seconds(self) -> None:
        self.write("a.mac", ENDLESS)
        result = self.macroctl("run", "--max-seconds", "0.05", "a.mac")
        self.assertEqual(result.status, 3)
        self.assertRegex(result.err, r"\Aa\.mac\([234]\): error : Macro aborted\. \(limit of 0\.05 seconds\)\n\Z")

    def test_memory(self) -> None:
        self.write("a.mac", "a[1000000] = 1\n")
        self.assert_result(self.macroctl("run", "--max-memory", "1MB", "a.mac"), 3, "",
                           "a.mac(1): error : Macro aborted. (limit of 1048576 bytes of values)\n")
        self.assert_result(self.macroctl("run", "--max-memory", "100MB", "a.mac"), 0, "", "")

    def test_programs_are_told_of_an_abort(self) -> None:
        self.write("a.mac", ENDLESS)
        result = self.macroctl("run", "--format", "json", "--max-statements", "3", "a.mac")
        self.assertEqual(json.loads(result.out)["result"], "aborted")

    def test_what_is_no_limit_is_refused(self) -> None:
        self.write("a.mac", ENDLESS)
        for arguments in [["--max-statements", "-1"], ["--max-seconds", "-1"], ["--max-seconds", "soon"],
                          ["--max-memory", "much"]]:
            with self.subTest(arguments):
                self.assertEqual(self.macroctl("run", *arguments, "a.mac").status, 2)


if __name__ == "__main__":
    unittest.main()
