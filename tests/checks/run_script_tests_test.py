"""scripts/run_script_tests reads the expectations in a macro's comments and reports what differs from them."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "run_script_tests"

# Stands in for macroctl: prints the lines that begin with "out " and "err ", leaves with the status of "exit ".
MACROCTL = f"""#!{sys.executable}
import sys
arguments, name = sys.argv[1:-1], sys.argv[-1]
status = 0
for line in open(name):
    word, _, text = line.split(" //")[0].rstrip("\\n").partition(" ")
    if word == "out": print(text)
    if word == "err": print(f"{{name}}: {{text}}", file=sys.stderr)
    if word == "exit": status = int(text)
    if word == "arguments": print(*arguments)
sys.exit(status)
"""

GOOD_SCRIPTS = {
    "silent.mac": "",
    "own_line.mac": "// expect: one\n// expect:  two\nout one\nout  two\n",
    "behind.mac": "out one // expect: one\nout // expect:\n",
    "error.mac": "err bad // error: {file}: bad\nexit 1\n",
    "status.mac": "// status: 3\nexit 3\n",
    "defaults.mac": "arguments // expect: run --board\n",
    "arguments.mac": "// args: --set 'a b'\narguments // expect: run --set a b\n",
    "folder/line.mac": "\nerr 2 // error: {file}: {line}\nexit 1\n",
    "include/helper.mac": "out never run\n",
}

# Each with a line of the report.
BAD_SCRIPTS = [
    ("// expect: one\n", "-one"),
    ("out one\n", "+one"),
    ("out one // expect: one \n", "-one "),
    ("out b // expect: a\nout a // expect: b\n", "+b"),
    ("err bad\n", "+bad.mac: bad"),
    ("err bad // error: {file}: bad\n", "bad.mac: expected exit status 1, actual 0"),
    ("exit 2\n", "bad.mac: expected exit status 0, actual 2"),
]


@unittest.skipIf(os.name == "nt", "the stand-in needs a first line that names its interpreter")
class RunScriptTests(unittest.TestCase):
    def run_scripts(self, scripts: dict[str, str]) -> subprocess.CompletedProcess[str]:
        with tempfile.TemporaryDirectory() as root:
            macroctl = pathlib.Path(root, "macroctl")
            macroctl.write_text(MACROCTL, encoding="utf-8")
            macroctl.chmod(0o755)
            for name, text in scripts.items():
                file = pathlib.Path(root, "scripts", name)
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text, encoding="utf-8")
            return subprocess.run(
                [sys.executable, str(SCRIPT), "--scripts", str(pathlib.Path(root, "scripts")), str(macroctl)],
                capture_output=True, text=True, check=False)

    def test_good_scripts(self) -> None:
        result = self.run_scripts(GOOD_SCRIPTS)
        self.assertEqual((result.stdout, result.returncode), ("8 of 8 scripts passed\n", 0))

    def test_bad_scripts(self) -> None:
        for text, line in BAD_SCRIPTS:
            with self.subTest(text=text):
                result = self.run_scripts({"bad.mac": text, "good.mac": ""})
                self.assertEqual(result.returncode, 1)
                self.assertIn(line, result.stdout.splitlines())
                self.assertIn("1 of 2 scripts passed", result.stdout)


if __name__ == "__main__":
    unittest.main()
