"""Runs macroctl as a person at a terminal does."""

import fcntl
import os
import pathlib
import pty
import select
import struct
import subprocess
import termios
import time

from cli_support import MACROCTL, TIMEOUT_SECONDS


class TerminalRun:
    """A macroctl whose output and errors go to a terminal, and whose standard input is a text."""

    def __init__(self, folder: pathlib.Path, *arguments: str, columns: int = 80, colours: bool = False, text: str = "",
                 **environment: str) -> None:
        self._master, terminal = pty.openpty()
        fcntl.ioctl(terminal, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        variables = {name: value for name, value in os.environ.items() if name not in ("NO_COLOR", "TERM")}
        variables.update(TERM="xterm", **({} if colours else {"NO_COLOR": "1"}))
        variables.update(environment)
        self._process = subprocess.Popen(
            [str(MACROCTL), *arguments], cwd=folder, env=variables, stdin=subprocess.PIPE, stdout=terminal,
            stderr=terminal)
        os.close(terminal)
        self._process.stdin.write(text.encode())
        self._process.stdin.close()
        self.written = ""

    def wait_for(self, text: str) -> None:
        """Reads until the text has been written."""
        end = time.monotonic() + TIMEOUT_SECONDS
        while text not in self.written:
            if time.monotonic() > end or not self._read():
                raise AssertionError(f"{text!r} is not in {self.written!r}")

    def finish(self) -> int:
        """Reads to the end. The exit status."""
        while self._read():
            pass
        os.close(self._master)
        return self._process.wait(TIMEOUT_SECONDS)

    def seen(self) -> str:
        """What stands on the screen: what is written over something else replaces it."""
        lines = []
        for line in self.written.replace("\r\n", "\n").split("\n"):
            shown = ""
            for part in line.split("\r"):
                shown = part + shown[len(part):]
            lines.append(shown.rstrip() if "\r" in line else shown)
        return "\n".join(lines)

    def _read(self) -> bool:
        readable, _, _ = select.select([self._master], [], [], TIMEOUT_SECONDS)
        if not readable:
            self._process.kill()
            raise AssertionError(f"nothing follows {self.written!r}")
        try:
            data = os.read(self._master, 4096)
        except OSError:  # Linux says so when the other side has been closed
            return False
        self.written += data.decode("utf-8")
        return bool(data)
