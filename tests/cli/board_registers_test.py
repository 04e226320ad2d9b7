"""The board with the registers of a device, as far as it shows outside of the macro."""

import unittest

from cli_support import CliTest

HEADER = "[REGISTER]\nREGISTER_NAME, ADDRESS_2WIRE, LSB, LENGTH, RW\n"
DEVICE = HEADER + "STATUS, 0x01, 0, 1, RO\nMODE, 0x01, 4, 3, RW\nGAIN, 0x10, 4, 10, RW\nCOMMAND, 0x20, 0, 4, WO\n"


class BoardRegistersTest(CliTest):
    def setUp(self) -> None:
        super().setUp()
        self.write("device.rgi", DEVICE)

    def test_the_option_brings_the_board(self) -> None:
        name = self.write("a.mac", 'board.write("GAIN", 5)\nx = board.read("GAIN")\nboard.print(x)\n')
        for arguments in (["--registers", "device.rgi"], ["--board", "--registers", "device.rgi"],
                          ["--registers=device.rgi"]):
            self.assert_result(self.macroctl("run", *arguments, name), 0, "5\n")
        self.assert_result(self.macroctl("run", name, "--registers", "device.rgi"), 0, "5\n")

    def test_the_plain_board_has_no_names(self) -> None:
        name = self.write("a.mac", 'board.write("GAIN", 5)\n')
        self.assert_result(
            self.macroctl("run", "--board", name), 1,
            err="a.mac(1): error : board.write() argument error. (argument[0] type isn't interger)\n"
                "a.mac(1): error : run time error !\n")

    def test_preset_belongs_to_a_device(self) -> None:
        name = self.write(
            "a.mac", '#if exist board.preset\nboard.print("device")\n#else\nboard.print("plain")\n#endif\n')
        self.assert_result(self.macroctl("run", "--board", name), 0, "plain\n")
        self.assert_result(self.macroctl("run", "--registers", "device.rgi", name), 0, "device\n")

    def test_the_trace_shows_bytes(self) -> None:
        name = self.write("a.mac", 'board.preset("STATUS", 1)\nboard.write("MODE", 5)\nboard.write("GAIN", 0x2A5)\n'
                                   'x = board.read("GAIN")\nboard.write("COMMAND", 3)\nx = board.read("STATUS")\n')
        self.assert_result(
            self.macroctl("run", "--registers", "device.rgi", "--trace-bus", name), 0, "",
            "bus 2-wire write 0x0001 <- 0x51\n"
            "bus 2-wire write 0x0010 <- 0x2A\n"
            "bus 2-wire write 0x0011 <- 0x50\n"
            "bus 2-wire read 0x0010 -> 0x2A\n"
            "bus 2-wire read 0x0011 -> 0x50\n"
            "bus 2-wire write 0x0020 <- 0x03\n"
            "bus 2-wire read 0x0001 -> 0x51\n")

    def test_a_refused_transaction_is_not_traced(self) -> None:
        name = self.write("a.mac", 'board.write("STATUS", 1)\n')
        self.assert_result(
            self.macroctl("run", "--registers", "device.rgi", "--trace-bus", name), 1,
            err='a.mac(1): error : board.write() register "STATUS" is read only (RO)\n'
                "a.mac(1): error : run time error !\n")

    def test_a_register_without_an_address_on_the_bus(self) -> None:
        name = self.write("a.mac", 'x = board.read3("GAIN")\n')
        self.assert_result(
            self.macroctl("run", "--registers", "device.rgi", name), 1,
            err='a.mac(1): error : board.read3() register "GAIN" has no three-wire address\n'
                "a.mac(1): error : run time error !\n")

    def test_the_first_of_one_name_counts(self) -> None:
        self.write("twice.rgi", HEADER + "A, 1, 0, 8, RW\nA, 2, 0, 8, RO\n")
        name = self.write("a.mac", 'board.write("A", 7)\nx = board.read(1)\nboard.print(x)\n')
        self.assert_result(self.macroctl("run", "--registers", "twice.rgi", name), 0, "7\n")

    def test_registers_that_share_an_address(self) -> None:
        # What is written to the command is read as the status.
        self.write("shared.rgi", HEADER + "STATUS, 1, 0, 8, RO\nCOMMAND, 1, 0, 8, WO\n")
        name = self.write(
            "a.mac", 'board.write(1, 7)\nx = board.read(1)\ny = board.read("STATUS")\nboard.print(x, y)\n')
        self.assert_result(self.macroctl("run", "--registers", "shared.rgi", name), 0, "7 7\n")

    def test_an_encoded_device_file(self) -> None:
        self.assert_result(self.macroctl("encode", "device.rgi", "device.iod"), 0)
        name = self.write("a.mac", 'board.write("GAIN", 5)\n')
        self.assert_result(self.macroctl("run", "--registers", "device.iod", name), 0)

    def test_a_device_file_with_errors_runs_nothing(self) -> None:
        self.write("bad.rgi", DEVICE + "X, 0, 0, 8, RX\n")
        name = self.write("a.mac", 'board.print("not run")\n')
        for command in ("run", "check"):
            self.assert_result(
                self.macroctl(command, "--registers", "bad.rgi", name), 1,
                err="bad.rgi(7): error : RW filed is invalid keyword.\n")
            self.assert_result(
                self.macroctl(command, "--registers", "no.rgi", name), 1, err="error : File open error. (no.rgi)\n")


if __name__ == "__main__":
    unittest.main()
