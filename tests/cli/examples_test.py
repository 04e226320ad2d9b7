"""The examples do what they show."""

import pathlib
import unittest

from cli_support import SOURCE_DIR, CliTest, plugin, program

BRINGUP = "examples/scripts/bringup.mac"
DEVICE = ("--registers", "examples/registers/amplifier.rgi")


class ExamplesTest(CliTest):
    def test_bringup(self) -> None:
        golden = pathlib.Path(__file__).with_name("bringup.expected").read_text(encoding="utf-8")
        self.assert_result(self.macroctl("run", *DEVICE, BRINGUP, cwd=SOURCE_DIR), 0, golden)

    def test_bringup_traced(self) -> None:
        result = self.macroctl("run", *DEVICE, "--trace-bus", BRINGUP, cwd=SOURCE_DIR)
        self.assertEqual(result.status, 0)
        lines = result.err.splitlines()
        self.assertEqual(lines[0], "bus 2-wire write 0x0003 <- 0x80")
        self.assertEqual(lines[-1], "bus 2-wire write 0x0023 <- 0x5B")

    def test_scripts_compile(self) -> None:
        scripts = sorted(str(file) for file in (SOURCE_DIR / "examples" / "scripts").glob("*.mac"))
        self.assert_result(self.macroctl("check", *DEVICE, *scripts, cwd=SOURCE_DIR), 0)

    def test_register_files_are_read_without_a_word(self) -> None:
        files = sorted(str(file) for file in (SOURCE_DIR / "examples" / "registers").iterdir())
        result = self.macroctl("registers", *files)
        self.assertEqual((result.status, result.err), (0, ""))

    def test_plugin(self) -> None:
        name = self.write("a.mac", """\
x = math.sqrt(2)
samples = array.init(1.5, 2.5, 5.0)
y = math.mean(samples)
counts = array.init(1, 2, 4, 4)
z = math.mean(counts)
board.print(x, y, z)
x = math.sqrt(-1)
""")
        self.assert_result(
            self.macroctl("run", "--board", "--plugin", plugin("example_plugin"), name), 1, "1.41421 3 2.75\n",
            "a.mac(7): error : math.sqrt() argument error. (argument[0] is out of range.)\n"
            "a.mac(7): error : run time error !\n")

    def test_plugin_refuses_what_is_no_array_of_numbers(self) -> None:
        name = self.write("a.mac", 'x = math.mean(1)\ntexts = array.init("a")\nx = math.mean(texts)\n')
        self.assert_result(
            self.macroctl("run", "--keep-going", "--plugin", plugin("example_plugin"), name), 1,
            err="a.mac(1): error : math.mean() argument error. (argument[0] is not array)\n"
                "a.mac(1): error : run time error !\n"
                "a.mac(3): error : math.mean() argument error. (argument[0] is array, but elements is not floating)\n"
                "a.mac(3): error : run time error !\n")

    def test_host(self) -> None:
        host = program("example_host")
        self.assert_result(self.execute(host, self.write("good.mac", "x = 1\n")), 0)
        self.assert_result(
            self.execute(host, self.write("bad.mac", "x = y\n")), 1,
            "bad.mac(1): error : Didn't define valiable name[y]\nbad.mac(1): error : run time error !\n")
        self.assert_result(self.execute(host), 2, "usage: example_host FILE\n")


if __name__ == "__main__":
    unittest.main()
