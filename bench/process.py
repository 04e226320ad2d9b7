"""Runs programs and tells what they took."""

import dataclasses
import os
import pathlib
import platform
import shutil
import subprocess
import sys
import tempfile

BUILD_FOLDER = pathlib.Path(__file__).resolve().parent.parent / "build" / "release"
MACROCTL = BUILD_FOLDER / "bin" / "macroctl"


class Failure(Exception):
    """A program that did not do what it was started for. The text is for the user."""


@dataclasses.dataclass
class Usage:
    output: str
    seconds: float  # of the processor, in the program and in the system for it
    peak: int = 0  # bytes of memory, where that was asked for


def run(command: list[str], environment: dict[str, str] | None = None) -> Usage:
    """Runs a program to its end. Its processor time counts, however many others want the processor."""
    with tempfile.TemporaryFile() as output:
        process = subprocess.Popen(
            command, stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.STDOUT,
            env={**os.environ, **(environment or {})})
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        output.seek(0)
        text = output.read().decode("utf-8", "replace").strip()
    if process.returncode != 0:
        raise Failure(f"{' '.join(command)} ended with status {process.returncode}:\n{text}")
    return Usage(text, usage.ru_utime + usage.ru_stime)


def run_with_peak(command: list[str], environment: dict[str, str] | None = None) -> Usage:
    """As run, and also tells the most memory that was taken.

    A process is born with the memory of the one that starts it, which counts as its own. GNU time is small, Python is
    not.
    """
    time = find("time")
    if time is None:
        raise Failure("GNU time is missing: scripts/install_dependencies bench installs it")
    with tempfile.NamedTemporaryFile("r", encoding="ascii") as peak:
        usage = run([time, "-f", "%M", "-o", peak.name, *command], environment)
        usage.peak = int(peak.read().split()[-1]) * 1024
    return usage


def find(*names: str) -> str | None:
    """The path of the first of these programs that is installed; those of the system count first."""
    path = "/usr/bin" + os.pathsep + os.environ.get("PATH", os.defpath)
    return next((found for found in (shutil.which(name, path=path) for name in names) if found), None)


def describe_machine() -> str:
    """The processor and the system, in a line."""
    processor = platform.processor() or platform.machine()
    try:
        for line in pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8").splitlines():
            if line.startswith("model name"):
                processor = line.split(":", 1)[1].strip()
                break
    except OSError:
        pass
    return f"{processor}, {os.cpu_count()} cores, {platform.system()} {platform.release()}"


def exit_with(main) -> None:
    """Runs a main function; a failure is told in a line, not in a traceback."""
    try:
        sys.exit(main())
    except Failure as failure:
        sys.exit(f"{pathlib.Path(sys.argv[0]).name}: {failure}")
    except KeyboardInterrupt:
        sys.exit(130)
