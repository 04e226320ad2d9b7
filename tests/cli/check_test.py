"""`macroctl check` compiles files and runs nothing."""

import unittest

from cli_support import CliTest, plugin

GOOD = 'board.print("never run")\nboard.write(0, 256)\n'


class CheckTest(CliTest):
    def test_good_files_are_passed_in_silence(self) -> None:
        self.write("a.mac", GOOD)
        self.write("b.mac", GOOD)
        self.assert_result(self.macroctl("check", "--board", "a.mac"), 0)
        self.assert_result(self.macroctl("check", "--board", "a.mac", "b.mac", "a.mac"), 0)

    def test_all_files_are_checked_though_one_is_bad(self) -> None:
        self.write("a.mac", GOOD)
        self.write("bad.mac", "x = 1\ny = *\n")
        self.write("worse.mac", "endif\n")
        self.assert_result(
            self.macroctl("check", "--board", "bad.mac", "a.mac", "no.mac", "worse.mac"), 1,
            err="bad.mac(2): error : syntax error '*'. Can't find Variable or value.\n"
                "error : File open error. (no.mac)\n"
                "worse.mac(1): error : syntax error 'endif'\n"
                "worse.mac(1): error : syntax error (can't find EOF).\n")

    def test_each_file_stands_alone(self) -> None:
        self.write("a.mac", "#define N 1\n")
        self.write("b.mac", "#define N 2\nx = N\n")
        self.assert_result(self.macroctl("check", "a.mac", "b.mac"), 0)

    def test_a_failure_without_a_line_of_the_engine(self) -> None:
        self.write("a.mac", "x[1.5] = 1\n")
        self.assert_result(self.macroctl("check", "a.mac"), 1, err="a.mac: error : the file can't be compiled.\n")

    def test_commands_have_to_be_known(self) -> None:
        self.write("a.mac", 'x = greet.hello("you")\n')
        self.assert_result(
            self.macroctl("check", "a.mac"), 1, err='a.mac(1): error : "greet" is not category operand.\n')
        good = plugin("good_plugin")
        self.assert_result(self.macroctl("check", "--plugin", good, "a.mac", "a.mac"), 0)
        self.assert_result(self.macroctl("check", "a.mac", "--namespace", "any", "--plugin", good), 0)


if __name__ == "__main__":
    unittest.main()
