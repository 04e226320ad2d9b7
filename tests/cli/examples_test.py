"""The examples do what they show. Their whole outputs stand in the folder golden/examples; with REFRESH_GOLDENS in the
environment the tests write them anew, to be looked at before they are committed."""

import os
import pathlib
import re
import shutil
import unittest

from cli_support import MACROCTL, SOURCE_DIR, CliTest, plugin, program

GOLDEN = pathlib.Path(__file__).with_name("golden") / "examples"
EXAMPLES = SOURCE_DIR / "examples"

DEVICE = ("--registers", "examples/registers/amplifier.rgi")

# How each macro is run.
SCRIPTS = {
    "bringup.mac": DEVICE,
    "calibrate.mac": DEVICE,
    "external_program.mac": ("--board",),
    "register_bits.mac": ("--board",),
    "report.mac": DEVICE,
    "sweep.mac": DEVICE,
}

# What runs a shell script.
POSIX_SCRIPTS = {"external_program.mac"}

# What only makes sense when another one includes it.
PARTS = {"bringup_settings.mac", "time_stamp.mac"}

TIME = re.compile(r"\d{4}-\d{2}-\d{2} \d{2}:\d{2}:\d{2}")


class ExamplesTest(CliTest):
    def setUp(self) -> None:
        super().setUp()
        # A copy: some macros write files beside themselves.
        shutil.copytree(EXAMPLES, self.folder / "examples", ignore=shutil.ignore_patterns("results"))

    def assert_golden(self, name: str, text: str) -> None:
        path = GOLDEN / name
        if "REFRESH_GOLDENS" in os.environ:
            path.write_text(text, encoding="utf-8")
        self.assertEqual(text, path.read_text(encoding="utf-8"))

    def outcome(self, script: str) -> str:
        """What a run prints and writes, with times of day made alike."""
        result = self.macroctl("run", *SCRIPTS[script], f"examples/scripts/{script}")
        self.assertEqual((result.status, result.err), (0, ""))
        written = self.folder / "examples" / "scripts" / "results"
        files = sorted(written.iterdir()) if written.exists() else []
        parts = [result.out] + [f"-- {file.name}\n{file.read_text(encoding='utf-8')}" for file in files]
        return TIME.sub("YYYY-MM-DD hh:mm:ss", "".join(parts))

    def test_scripts(self) -> None:
        is_windows = MACROCTL.suffix == ".exe"
        for script in SCRIPTS.keys() - (POSIX_SCRIPTS if is_windows else set()):
            with self.subTest(script=script):
                self.assert_golden(f"{script}.expected", self.outcome(script))
                shutil.rmtree(self.folder / "examples" / "scripts" / "results", ignore_errors=True)

    def test_each_script_says_how_it_is_run(self) -> None:
        for script, options in SCRIPTS.items():
            line = " ".join(("macroctl run", *options, f"examples/scripts/{script}"))
            self.assertIn(f"//     {line}\n", (EXAMPLES / "scripts" / script).read_text(encoding="utf-8"))

    def test_each_script_is_run(self) -> None:
        self.assertEqual({file.name for file in (EXAMPLES / "scripts").glob("*.mac")}, SCRIPTS.keys() | PARTS)

    def test_bringup_traced(self) -> None:
        result = self.macroctl("run", *DEVICE, "--trace-bus", "examples/scripts/bringup.mac")
        self.assertEqual(result.status, 0)
        lines = result.err.splitlines()
        self.assertEqual(lines[0], "bus 2-wire write 0x0003 <- 0x80")
        self.assertEqual(lines[-1], "bus 2-wire write 0x0023 <- 0x5B")

    def test_scripts_compile(self) -> None:
        scripts = sorted(f"examples/scripts/{script}" for script in SCRIPTS.keys() | PARTS)
        self.assert_result(self.macroctl("check", *DEVICE, *scripts), 0)

    def test_register_files(self) -> None:
        files = sorted((EXAMPLES / "registers").iterdir())
        self.assertGreater(len(files), 3)
        for file in files:
            with self.subTest(file=file.name):
                result = self.macroctl("registers", f"examples/registers/{file.name}")
                self.assertEqual((result.status, result.err), (0, ""))
                self.assert_golden(f"{file.name}.expected", result.out)

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

    def test_embedding(self) -> None:
        host = program("example_embedding")
        name = self.write("a.mac", 'lot = system.variable("LOT")\ntext = "lot " + lot\nlog.add(text)\nlog.add(lot)\n')
        self.assert_result(
            self.execute(host, name, "60000"), 1,
            "log: lot 4711\na.mac(4): error : log.add() argument error. (argument[0] type isn't string)\n"
            "a.mac(4): error : run time error !\n")
        self.assert_result(self.execute(host), 2, "usage: example_embedding FILE MILLISECONDS\n")

    def test_embedding_ends_what_takes_too_long(self) -> None:
        name = self.write("endless.mac", "x = 1\nloop x == 1\nendloop\n")
        result = self.execute(program("example_embedding"), name, "50")
        self.assertEqual((result.status, result.err), (1, ""))
        self.assertRegex(result.out, r"\A(endless\.mac\([23]\): )?error : Macro aborted\.\n\Z")

    def test_register_list(self) -> None:
        self.assert_result(
            self.execute(program("example_register_list"), "examples/registers/converter.rgi"), 0, """\
0x0010 POWER_DOWN
0x0010 GAIN
0x0011 RESET
0x001F FUSE
0x0100 FILTER_0
0x0102 FILTER_1
0x0104 FILTER_2
""")


if __name__ == "__main__":
    unittest.main()
