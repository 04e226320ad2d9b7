"""Wrong usage ends with status 2 and a word about the reason; help and version are no errors."""

import os
import re
import shutil
import subprocess
import unittest

from cli_support import MACROCTL, SOURCE_DIR, TIMEOUT_SECONDS, CliTest

# Of the example that shows it.
TRACE = ("bus 2-wire write 0x0010 <- 0xA3\nbus 2-wire read 0x0010 -> 0xA3\n"
         "bus 2-wire write 0x0010 <- 0xA5\nbus 2-wire read 0x0010 -> 0xA5\n")


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
                                 "--keep-going", "--trace-bus", "--max-statements", "--max-seconds", "--max-memory", "--format",
                                 "bus 2-wire write 0x0010 <- 0x3C"]),
            (["check", "--help"], ["FILE", "--namespace", "--plugin", "--board", "--registers", "--format"]),
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

    @unittest.skipIf(MACROCTL.suffix == ".exe", "the examples are lines of a POSIX shell")
    def test_the_examples_of_the_help_run(self) -> None:
        examples = SOURCE_DIR / "examples"
        for file in [*(examples / "scripts").iterdir(), examples / "registers" / "amplifier.rgi"]:
            shutil.copy(file, self.folder)
        for edition in ["amplifier-1.rgi", "amplifier-2.rgi"]:
            shutil.copy(self.folder / "amplifier.rgi", self.folder / edition)
        search = {"PATH": f"{MACROCTL.parent}{os.pathsep}{os.environ['PATH']}"}
        for subcommand in ["", "run", "check", "registers", "diff", "encode", "decode"]:
            text = self.macroctl(*subcommand.split(), "--help").out
            found = re.search(r"^Examples?:\n((?:  .*\n)+)", text, re.MULTILINE)
            self.assertIsNotNone(found, text)
            for line in found[1].splitlines():
                with self.subTest(line):
                    self.assertIn(f"macroctl {subcommand}", line)
                    done = subprocess.run(
                        line, shell=True, cwd=self.folder, env={**os.environ, **search}, capture_output=True,
                        encoding="utf-8", timeout=TIMEOUT_SECONDS, check=False)
                    self.assertEqual((done.returncode, done.stderr.replace(TRACE, "")), (0, ""))

    def test_a_mistyped_word_is_answered_with_the_one_that_may_be_meant(self) -> None:
        for arguments, reason in [
            (["chekc", "a.mac"], 'there is no subcommand chekc, did you mean "check"?'),
            (["Run", "a.mac"], 'there is no subcommand Run, did you mean "run"?'),
            (["regsiters", "--merge"], 'there is no subcommand regsiters, did you mean "registers"?'),
            (["run", "--bord", "a.mac"], 'there is no option --bord, did you mean "--board"?'),
            (["run", "a.mac", "--keepgoing"], 'there is no option --keepgoing, did you mean "--keep-going"?'),
            (["check", "--namspace=lab", "a.mac"], 'there is no option --namspace, did you mean "--namespace"?'),
            (["--verson"], 'there is no option --verson, did you mean "--version"?'),
            (["run", "--format", "jsno", "a.mac"], '--format: there is no format named jsno, did you mean "json"?'),
            (["walk"], "there is no subcommand walk"),
            (["help", "run"], "there is no subcommand help"),
            (["-x"], "there is no option -x"),
            (["run", "a.mac", "--loud"], "there is no option --loud"),
            (["run", "a.mac", "b.mac"], "The following argument was not expected: b.mac"),
            (["run", "a.mac", "check"], "The following argument was not expected: check"),
            (["=x"], "The following argument was not expected: =x"),
        ]:
            with self.subTest(arguments):
                self.assert_result(
                    self.macroctl(*arguments), 2, err=f"macroctl: {reason}\nRun with --help for more information.\n")

    def test_the_reason_names_what_is_wrong(self) -> None:
        for arguments, reason in [
            (["--board=1"], "--board takes no value"),
            (["--namespace"], "--namespace needs a value, NS"),
            (["--format", "json", "--format", "text"], "--format is given more than once"),
            (["--max-statements", "1e3"], "--max-statements: 1e3 is no whole number from 0 on"),
            (["--max-statements", "-1"], "--max-statements: -1 is no whole number from 0 on"),
            (["--max-seconds", "soon"], "--max-seconds: soon is no number from 0 on"),
            (["--max-seconds", "nan"], "--max-seconds: nan is no number from 0 on"),
            (["--max-memory", "64XB"], "--max-memory: 64XB is no size such as 65536, 64KB or 64MB"),
            (["--max-memory", "-5"], "--max-memory: -5 is no size such as 65536, 64KB or 64MB"),
            (["--max-memory", "99999999999999999999"],
             "--max-memory: 99999999999999999999 is no size such as 65536, 64KB or 64MB"),
        ]:
            with self.subTest(arguments):
                self.assert_result(
                    self.macroctl("run", "a.mac", *arguments), 2,
                    err=f"macroctl: {reason}\nRun with --help for more information.\n")

    def test_an_argument_of_any_length_is_refused_with_its_reason(self) -> None:
        word = "x" * (20000 if MACROCTL.suffix == ".exe" else 100000)
        for option, reason in [("--format", f"there is no format named {word}"),
                               ("--max-seconds", f"{word} is no number from 0 on")]:
            with self.subTest(option):
                self.assert_result(
                    self.macroctl("run", "a.mac", option, word), 2,
                    err=f"macroctl: {option}: {reason}\nRun with --help for more information.\n")

    def test_the_help_fits_a_terminal(self) -> None:
        for subcommand in ["", "run", "check", "registers", "diff", "encode", "decode"]:
            with self.subTest(subcommand):
                text = self.macroctl(*subcommand.split(), "--help").out
                self.assertEqual([line for line in text.splitlines() if len(line) > 80], [])

    def test_options_may_stand_before_and_behind_the_file(self) -> None:
        name = self.write("a.mac", 'board.print("x")\n')
        self.assert_result(self.macroctl("run", "--board", name), 0, "x\n")
        self.assert_result(self.macroctl("run", name, "--board"), 0, "x\n")
        self.assert_result(self.macroctl("run", "--board", "--", name), 0, "x\n")

    def test_the_manual_names_every_option(self) -> None:
        manual = (SOURCE_DIR / "docs" / "macroctl.md").read_text(encoding="utf-8")
        for option in ["--work-dir", "--namespace", "--plugin", "--board", "--registers", "--keep-going", "--trace-bus",
                       "--max-statements", "--max-seconds", "--max-memory", "--format", "--psc", "--merge", "--version"]:
            self.assertIn(option, manual)


if __name__ == "__main__":
    unittest.main()
