"""`-` stands for standard input, in run and in check."""

import os
import unittest

from cli_support import MACROCTL, CliTest, plugin

if MACROCTL.suffix != ".exe":
    from pseudo_terminal import TerminalRun


class StandardInputTest(CliTest):
    def tearDown(self) -> None:
        self.assertEqual([file.name for file in self.folder.iterdir() if file.name.startswith(".")], [])

    def test_run(self) -> None:
        self.assert_result(self.macroctl("run", "--board", "-", text='board.print("hello")\n'), 0, "hello\n")

    def test_check(self) -> None:
        self.write("good.mac", "x = 1\n")
        self.assert_result(
            self.macroctl("check", "good.mac", "-", text="a = 1\nb = )\n"), 1,
            err="<stdin>(2): error : syntax error ')'. Can't find Variable or value.\n")

    def test_errors_name_standard_input(self) -> None:
        self.assert_result(
            self.macroctl("run", "-", text="a = 1\nb = c\n"), 1,
            err="<stdin>(2): error : Didn't define valiable name[c]\n<stdin>(2): error : run time error !\n")
        self.assert_result(self.macroctl("run", "-"), 1, err="error : File read error. (<stdin>)\n")
        self.assert_result(
            self.macroctl("run", "-", text="x[1.5] = 1\n"), 1, err="<stdin>: error : the file can't be compiled.\n")

    def test_findings_name_standard_input(self) -> None:
        self.write("device.rgi", "[REGISTER]\nREGISTER_NAME, ADDRESS_2WIRE, LSB, LENGTH, RW\nGAIN, 1, 0, 8, RO\n")
        self.assert_result(
            self.macroctl("check", "--registers", "device.rgi", "-", text='board.write("GAIN", 1)\n'), 1,
            err='<stdin>(1): error : board.write() register "GAIN" is read only (RO)\n')

    def test_the_current_folder_is_the_macros_folder(self) -> None:
        self.write("inner.mac", 'board.print("inner")\n')
        text = '#include "inner.mac"\nx = greet.folder()\nboard.print(x)\n'
        self.write("a.mac", text)
        expected = self.macroctl("run", "--board", "--plugin", plugin("good_plugin"), "a.mac")
        self.assertEqual(expected.status, 0)
        self.assertEqual(self.macroctl("run", "--board", "--plugin", plugin("good_plugin"), "-", text=text), expected)

    def test_a_file_of_that_name(self) -> None:
        self.write("-", 'board.print("file")\n')
        self.assert_result(self.macroctl("run", "--board", "./-", text='board.print("input")\n'), 0, "file\n")

    @unittest.skipIf(os.name == "nt" or os.geteuid() == 0, "needs a folder that can't be written")
    def test_a_current_folder_that_cannot_be_written(self) -> None:
        os.chmod(self.folder, 0o500)
        self.addCleanup(os.chmod, self.folder, 0o700)
        self.assert_result(
            self.macroctl("run", "-", text="x = 1\n"), 1,
            err="error : can't write to the current folder, where standard input is kept for the engine\n")

    @unittest.skipIf(MACROCTL.suffix == ".exe", "needs pseudo-terminals")
    def test_the_line_on_a_terminal(self) -> None:
        run = TerminalRun(self.folder, "run", "-", text="a = 1\nb = c\n")
        self.assertEqual((run.finish(), run.seen()), (1, """\
<stdin>(2): error : Didn't define valiable name[c]
    2 | b = c
      |     ^
<stdin>(2): error : run time error !
"""))


if __name__ == "__main__":
    unittest.main()
