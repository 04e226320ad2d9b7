"""Wrong usage ends with status 2 and a word about the reason; help and version are no errors."""

import unittest

from cli_support import CliTest, SOURCE_DIR


class UsageTest(CliTest):
    def test_wrong_usage(self) -> None:
        self.write("a.mac", "x = 1\n")
        for arguments, reason in [
            ([], "subcommand"),
            (["a.mac"], "a.mac"),
            (["walk", "a.mac"], "walk"),
            (["run"], "FILE"),
            (["check"], "FILE"),
            (["run", "a.mac", "b.mac"], "b.mac"),
            (["run", "--nosuch", "a.mac"], "--nosuch"),
            (["--nosuch", "run", "a.mac"], "--nosuch"),
            (["run", "a.mac", "--plugin"], "--plugin"),
            (["run", "a.mac", "--work-dir"], "--work-dir"),
            (["run", "a.mac", "--trace-bus"], "--board"),
            (["check", "a.mac", "--keep-going"], "--keep-going"),
            (["check", "a.mac", "--trace-bus"], "--trace-bus"),
            (["check", "a.mac", "--work-dir", "."], "--work-dir"),
            (["run", "a.mac", "check", "a.mac"], "check"),
            (["run", "--board=3", "a.mac"], "board"),
            (["run", "a.mac", "--registers"], "--registers"),
            (["registers"], "FILE"),
            (["registers", "--format", "xml", "a.rgi"], "there is no format named xml"),
            (["registers", "--nosuch", "a.rgi"], "--nosuch"),
            (["diff"], "OLD"),
            (["diff", "a.rgi"], "NEW"),
            (["diff", "a.rgi", "b.rgi", "c.rgi"], "c.rgi"),
            (["diff", "--format", "csv", "a.rgi", "b.rgi"], "there is no format named csv"),
            (["encode", "a.mac"], "OUT"),
            (["decode"], "IN"),
        ]:
            with self.subTest(arguments):
                result = self.macroctl(*arguments)
                self.assertEqual((result.status, result.out), (2, ""), result.err)
                first, *rest = result.err.splitlines()
                self.assertTrue(first.startswith("macroctl: "), first)
                self.assertIn(reason, first)
                self.assertEqual(rest, ["Run with --help for more information."])

    def test_version(self) -> None:
        result = self.macroctl("--version")
        self.assertEqual((result.status, result.err), (0, ""))
        self.assertRegex(result.out, r"\Amacroctl \d+\.\d+\.\d+\n\Z")

    def test_help_names_every_option_and_status(self) -> None:
        for arguments, words in [
            (["--help"], ["run", "check", "registers", "diff", "encode", "decode", "--version", "Exit status",
                          "aborted"]),
            (["run", "--help"], ["FILE", "--work-dir", "--namespace", "--plugin", "--board", "--registers",
                                 "--keep-going", "--trace-bus", "bus 2-wire write 0x0010 <- 0x3C"]),
            (["check", "--help"], ["FILE", "--namespace", "--plugin", "--board", "--registers"]),
            (["registers", "--help"], ["FILE", "--format", "table", "listing", "csv", "json", "markdown", "html",
                                       "c-header", "svd", "--psc", "--merge", "Exit status"]),
            (["diff", "--help"], ["OLD", "NEW", "--format", "json", "--psc", "Exit status", "breaking"]),
            (["encode", "--help"], ["IN", "OUT"]),
            (["decode", "--help"], ["IN", "OUT"]),
        ]:
            with self.subTest(arguments):
                result = self.macroctl(*arguments)
                self.assertEqual((result.status, result.err), (0, ""))
                for word in words:
                    self.assertIn(word, result.out)
                if len(arguments) == 2:
                    self.assertRegex(result.out, rf"Examples?:\n  macroctl {arguments[0]} ")

    def test_options_may_stand_before_and_behind_the_file(self) -> None:
        name = self.write("a.mac", 'board.print("x")\n')
        self.assert_result(self.macroctl("run", "--board", name), 0, "x\n")
        self.assert_result(self.macroctl("run", name, "--board"), 0, "x\n")
        self.assert_result(self.macroctl("run", "--board", "--", name), 0, "x\n")

    def test_the_manual_names_every_option(self) -> None:
        manual = (SOURCE_DIR / "docs" / "macroctl.md").read_text(encoding="utf-8")
        for option in ["--work-dir", "--namespace", "--plugin", "--board", "--registers", "--keep-going", "--trace-bus",
                       "--format", "--psc", "--merge", "--version"]:
            self.assertIn(option, manual)


if __name__ == "__main__":
    unittest.main()
