"""Ctrl-C aborts the run; a second one ends the process at once."""

import signal
import time
import unittest

from cli_support import IS_WINDOWS, CliTest, Result, interrupt, plugin

ENDLESS = 'board.print("started")\nloop 1 == 1\n    x = 1\nendloop\n'
HANGING = 'board.print("started")\ngreet.hang()\n'


@unittest.skipIf(IS_WINDOWS, "a process can't be sent Ctrl-C alone")
class InterruptTest(CliTest):
    def start_and_wait(self, text: str, *arguments: str):
        process = self.start("run", "--board", *arguments, self.write("a.mac", text))
        self.assertEqual(process.stdout.readline(), "started\n")
        return process

    def test_once(self) -> None:
        for arguments in ([], ["--keep-going"]):
            with self.subTest(arguments):
                process = self.start_and_wait(ENDLESS, *arguments)
                interrupt(process)
                out, err = process.communicate(timeout=20)
                # Where the macro was just then decides whether the line has a place.
                self.assertRegex(err, r"\A(a\.mac\([234]\): )?error : Macro aborted\.\n\Z")
                self.assertEqual((process.returncode, out), (3, ""))

    def test_errors_passed_over_come_before_the_abort(self) -> None:
        process = self.start_and_wait("a = missing\n" + ENDLESS, "--keep-going")
        interrupt(process)
        _, err = process.communicate(timeout=20)
        lines = err.splitlines()
        self.assertEqual(
            lines[:2], ["a.mac(1): error : Didn't define valiable name[missing]", "a.mac(1): error : run time error !"])
        self.assertRegex(lines[2], r"error : Macro aborted\.\Z")
        self.assertEqual((process.returncode, len(lines)), (3, 3))

    def test_twice(self) -> None:
        process = self.start_and_wait(HANGING, "--plugin", plugin("good_plugin"))
        interrupt(process)
        time.sleep(0.3)
        self.assertIsNone(process.poll(), "the first Ctrl-C waits for the statement")
        interrupt(process)
        out, err = process.communicate(timeout=20)
        self.assertEqual((process.returncode, out, err), (-signal.SIGINT, "", ""))

    def test_a_macro_that_prints_its_abort_line_itself_was_not_aborted(self) -> None:
        name = self.write("a.mac", 'system.abort("Macro aborted.")\n')
        expected = Result(1, "", "a.mac(1): error : Macro aborted.\na.mac(1): error : run time error !\n")
        self.assertEqual(self.macroctl("run", name), expected)


if __name__ == "__main__":
    unittest.main()
