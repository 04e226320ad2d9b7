"""The simulated board, as far as it shows outside of the macro: its trace and its place in the language."""

import subprocess
import unittest

from cli_support import MACROCTL_COMMAND, CliTest

TRANSACTIONS = """\
board.write(0x10, 0x3C)
x = board.read(0x10)
board.print(x)
board.write3(65535, 255)
y = board.read3(65535)
z = board.read3(0x10)
board.print(y, z)
"""


class BoardTest(CliTest):
    def test_the_trace_goes_to_standard_error(self) -> None:
        name = self.write("a.mac", TRANSACTIONS)
        self.assert_result(
            self.macroctl("run", "--board", "--trace-bus", name), 0, "60\n255 0\n",
            "bus 2-wire write 0x0010 <- 0x3C\n"
            "bus 2-wire read 0x0010 -> 0x3C\n"
            "bus 3-wire write 0xFFFF <- 0xFF\n"
            "bus 3-wire read 0xFFFF -> 0xFF\n"
            "bus 3-wire read 0x0010 -> 0x00\n")

    def test_there_is_no_trace_unless_asked_for(self) -> None:
        self.assert_result(self.macroctl("run", "--board", self.write("a.mac", TRANSACTIONS)), 0, "60\n255 0\n")

    def test_trace_and_output_keep_their_order_in_one_stream(self) -> None:
        self.write("a.mac", TRANSACTIONS)
        done = subprocess.run(
            [*MACROCTL_COMMAND, "run", "--board", "--trace-bus", "a.mac"], cwd=self.folder, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, encoding="utf-8", timeout=60, check=False)
        self.assertEqual(
            [line.split()[0] for line in done.stdout.splitlines()],
            ["bus", "bus", "60", "bus", "bus", "bus", "255"])

    def test_a_refused_transaction_is_not_traced(self) -> None:
        name = self.write("a.mac", "board.write(0x10000, 1)\n")
        self.assert_result(
            self.macroctl("run", "--board", "--trace-bus", name), 1,
            err="a.mac(1): error : board.write() argument error. (argument[0] is out of range.)\n"
                "a.mac(1): error : run time error !\n")

    def test_the_category_exists_only_with_the_option(self) -> None:
        name = self.write("a.mac", "#if exist board\nx = 1\n#else\nx = 2\n#endif\nx = x - 1\ny = 1 / x\n")
        self.assert_result(self.macroctl("run", name), 0)
        self.assert_result(
            self.macroctl("run", "--board", name), 1,
            err="a.mac(7): error : 0 division.\na.mac(7): error : run time error !\n")


if __name__ == "__main__":
    unittest.main()
