"""What the tests of macroctl share: where things are, and a test case with a folder of its own."""

import dataclasses
import os
import pathlib
import signal
import subprocess
import tempfile
import unittest

MACROCTL = pathlib.Path(os.environ["MACROCTL"])
PLUGIN_DIR = pathlib.Path(os.environ["PLUGIN_DIR"])
SOURCE_DIR = pathlib.Path(os.environ["SOURCE_DIR"])

# What the command line of a built program begins with, and whether those are programs for Windows.
EMULATOR = [os.environ["EMULATOR"]] if "EMULATOR" in os.environ else []
IS_WINDOWS = MACROCTL.suffix == ".exe"
MACROCTL_COMMAND = [*EMULATOR, str(MACROCTL)]

TIMEOUT_SECONDS = 60


@dataclasses.dataclass
class Result:
    status: int
    out: str
    err: str


def plugin(name: str) -> str:
    """The path of a built plug-in, whatever its platform calls it."""
    found = [file for file in PLUGIN_DIR.glob(name + ".*") if file.suffix in (".so", ".dll", ".dylib")]
    assert len(found) == 1, f"{name} in {PLUGIN_DIR}: {found}"
    return str(found[0])


def program(name: str) -> str:
    """The path of a program that is built beside macroctl."""
    return str(MACROCTL.with_name(name + MACROCTL.suffix))


class CliTest(unittest.TestCase):
    """Runs macroctl in a temporary folder, so that a macro's name in a message is what the test wrote."""

    maxDiff = None

    def setUp(self) -> None:
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(os.path.realpath(temporary.name))

    def write(self, name: str, text: str) -> str:
        """Writes a macro file of the test's folder and gives its name back."""
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        return name

    def macroctl(self, *arguments: str, **options) -> Result:
        return self.execute(str(MACROCTL), *arguments, **options)

    def execute(self, *command: str, cwd: pathlib.Path | None = None, text: str = "") -> Result:
        """Runs a built program, or one of this system, with the text as its standard input."""
        is_built = pathlib.Path(command[0]).parent == MACROCTL.parent
        done = subprocess.run(
            [*(EMULATOR if is_built else []), *command], cwd=cwd or self.folder, input=text, capture_output=True,
            encoding="utf-8", timeout=TIMEOUT_SECONDS, check=False)
        return Result(done.returncode, done.stdout, done.stderr)

    def start(self, *arguments: str) -> subprocess.Popen[str]:
        """Starts macroctl and leaves it running. It is killed at the test's end at the latest."""
        process = subprocess.Popen(
            [*MACROCTL_COMMAND, *arguments], cwd=self.folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            stderr=subprocess.PIPE, encoding="utf-8")
        self.addCleanup(self._end, process)
        return process

    @staticmethod
    def _end(process: subprocess.Popen[str]) -> None:
        if process.poll() is None:
            process.kill()
        process.communicate()

    def assert_result(self, result: Result, status: int, out: str = "", err: str = "") -> None:
        """Compares whole texts; all three in one message when they differ."""
        self.assertEqual(
            f"status {result.status}\n-- out\n{result.out}-- err\n{result.err}",
            f"status {status}\n-- out\n{out}-- err\n{err}")


def interrupt(process: subprocess.Popen[str]) -> None:
    process.send_signal(signal.SIGINT)
