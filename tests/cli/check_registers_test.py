"""`macroctl check --registers` finds in the text of a macro what a run would refuse."""

import unittest

from cli_support import SOURCE_DIR, CliTest

DEVICE = """\
[REGISTER]
REGISTER_NAME, ADDRESS_2WIRE, LSB, LENGTH, RW
STATUS, 0x01, 0, 1, RO
GAIN, 0x10, 4, 10, RW
COMMAND, 0x20, 0, 4, WO
FUSE, 0x21, 0, 8, NC
"""


class CheckRegistersTest(CliTest):
    def setUp(self) -> None:
        super().setUp()
        self.write("device.rgi", DEVICE)

    def assert_findings(self, macro: str, *findings: str) -> None:
        self.write("a.mac", macro)
        self.assert_result(
            self.macroctl("check", "--registers", "device.rgi", "a.mac"), int(bool(findings)),
            err="".join(finding + "\n" for finding in findings))

    def test_a_good_macro(self) -> None:
        self.assert_findings(
            'board.write("GAIN", 1023)\nx = board.read("STATUS")\nboard.write("COMMAND", 0xF)\n'
            'board.preset("STATUS", 1)\n'
            'board.write(0x10, 255)\nx = board.read(0x7FFF)\nboard.print("GIAN", 1024)\nboard.expect(x, 1, "GIAN")\n')

    def test_each_finding_in_the_order_of_the_program(self) -> None:
        self.assert_findings(
            'x = board.read("GIAN")\n'
            'board.write("GAIN", 1024)\n'
            'board.write("STATUS", 2)\n'
            'if x == 1\n'
            '    x = board.read("COMMAND")\n'
            'else\n'
            '    board.write("FUSE", 1)\n'
            'endif\n'
            'loop x == 0\n'
            '    board.write(0x01, 1)\n'
            '    x = board.read(0x20)\n'
            'endloop\n'
            'x = board.read3("GAIN")\n'
            'board.write(0x10, 256)\n'
            'x = board.read(0x10000)\n'
            'board.preset("STATUS", 2)\n'
            'board.preset("NOSUCH", 2)\n',
            'a.mac(1): error : board.read() unknown register "GIAN", did you mean "GAIN"?',
            'a.mac(2): error : board.write() value 1024 does not fit register "GAIN" of 10 bits (0 to 1023)',
            'a.mac(3): error : board.write() register "STATUS" is read only (RO)',
            'a.mac(3): error : board.write() value 2 does not fit register "STATUS" of 1 bit (0 to 1)',
            'a.mac(5): error : board.read() register "COMMAND" is write only (WO)',
            'a.mac(7): error : board.write() register "FUSE" is not connected (NC)',
            'a.mac(10): error : board.write() register "STATUS" at 0x0001 is read only (RO)',
            'a.mac(11): error : board.read() register "COMMAND" at 0x0020 is write only (WO)',
            'a.mac(13): error : board.read3() register "GAIN" has no three-wire address',
            "a.mac(14): error : board.write() argument error. (argument[1] is out of range.)",
            "a.mac(15): error : board.read() argument error. (argument[0] is out of range.)",
            'a.mac(16): error : board.preset() value 2 does not fit register "STATUS" of 1 bit (0 to 1)',
            'a.mac(17): error : board.preset() unknown register "NOSUCH"')

    def test_a_finding_has_the_words_of_the_run(self) -> None:
        for call in ['board.write("GIAN", 1)', 'board.write("GAIN", -1)', 'board.write("STATUS", 0)',
                     'board.write(1, 0)', 'board.write(0x10, 256)', 'board.read("COMMAND")', 'board.read(0x20)',
                     'board.read3("GAIN")', 'board.read(0x10000)', 'board.preset("STATUS", 2)']:
            with self.subTest(call):
                self.write("a.mac", call + "\n")
                run = self.macroctl("run", "--registers", "device.rgi", "a.mac")
                check = self.macroctl("check", "--registers", "device.rgi", "a.mac")
                self.assertEqual((run.status, check.status), (1, 1))
                self.assertEqual(run.err, check.err + "a.mac(1): error : run time error !\n")

    def test_what_is_known_only_at_the_run_is_passed_over(self) -> None:
        self.assert_findings(
            'name = "GIAN"\nvalue = 4711\nboard.write(name, value)\nboard.write("GAIN", value)\n'
            'x = board.read(value)\n')
        self.assert_findings(
            'name = "GIAN"\nboard.write(name, 4711)\nvalue = 1\nboard.write("GIAN", value)\n',
            'a.mac(4): error : board.write() unknown register "GIAN", did you mean "GAIN"?')

    def test_a_defined_name_is_a_literal(self) -> None:
        self.assert_findings(
            '#define REGISTER "GIAN"\n#define VALUE 1024\nboard.write(REGISTER, 1)\nboard.write("GAIN", VALUE)\n',
            'a.mac(3): error : board.write() unknown register "GIAN", did you mean "GAIN"?',
            'a.mac(4): error : board.write() value 1024 does not fit register "GAIN" of 10 bits (0 to 1023)')

    def test_included_files(self) -> None:
        self.write("sub/inner.mac", 'x = 1\nboard.write("STATUS", 1)\n')
        self.assert_findings(
            'board.write("GIAN", 1)\n#include "sub/inner.mac"\nx = board.read("COMMAND")\n',
            'a.mac(1): error : board.write() unknown register "GIAN", did you mean "GAIN"?',
            'sub/inner.mac(2): error : board.write() register "STATUS" is read only (RO)',
            'a.mac(3): error : board.read() register "COMMAND" is write only (WO)')

    def test_all_files_are_checked(self) -> None:
        self.write("bad.mac", "x = *\n")
        self.write("good.mac", "x = 1\n")
        self.write("names.mac", 'x = board.read("GIAN")\n')
        self.assert_result(
            self.macroctl("check", "--registers", "device.rgi", "names.mac", "bad.mac", "good.mac"), 1,
            err='names.mac(1): error : board.read() unknown register "GIAN", did you mean "GAIN"?\n'
                "bad.mac(1): error : syntax error '*'. Can't find Variable or value.\n")

    def test_without_a_register_file_nothing_of_it_is_found(self) -> None:
        self.write("a.mac", 'x = board.read("GIAN")\nboard.write(0x10, 256)\n')
        self.assert_result(self.macroctl("check", "--board", "a.mac"), 0)

    def test_other_categories_may_have_commands_of_these_names(self) -> None:
        self.assert_findings('t = string.int2hex(1024, 2)\nwait_ms(1)\n')

    def test_the_example(self) -> None:
        self.assert_result(
            self.macroctl("check", "--registers", "examples/registers/amplifier.rgi", "examples/scripts/bringup.mac",
                          cwd=SOURCE_DIR), 0)


if __name__ == "__main__":
    unittest.main()
