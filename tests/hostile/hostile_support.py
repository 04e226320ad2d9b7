"""What the hostile tests share: a host with little memory and little time."""

import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "cli"))
from cli_support import MACROCTL, CliTest, Result, program  # pylint: disable=wrong-import-position

__all__ = ["MACROCTL", "HostileTest", "Result"]

PROCESSOR_SECONDS = 10


class HostileTest(CliTest):
    """Runs programs that the system ends when they take more than their share."""

    def limited(self, mebibytes: int, *command: str) -> Result:
        limits = f'ulimit -v {mebibytes * 1024}; ulimit -t {PROCESSOR_SECONDS}; ulimit -c 0; exec "$@"'
        return self.execute("/bin/sh", "-c", limits, "sh", *command)

    def run_macro(self, text: str, *options: str, mebibytes: int = 512) -> Result:
        self.write("a.mac", text)
        return self.limited(mebibytes, str(MACROCTL), "run", "--board", *options, "a.mac")

    def read_registers(self, name: str, text: str, mebibytes: int = 512) -> Result:
        self.write(name, text)
        return self.limited(mebibytes, program("read_registers"), name)

    def assert_refused(self, result: Result, message: str) -> None:
        """The file is not loaded, with one error line."""
        self.assert_result(result, 1, err=message + "\n")

    def assert_fails(self, result: Result, place: str, message: str, out: str = "") -> None:
        """The run ends at a statement."""
        self.assert_result(result, 1, out, f"{place}: error : {message}\n{place}: error : run time error !\n")
