"""What macroctl --help says, taken apart: the subcommands and the options of each."""

import re
import subprocess

from cli_support import MACROCTL_COMMAND


def _section(title: str, *arguments: str) -> list[str]:
    """The first words of the entries in one section of the help text."""
    text = subprocess.run(
        [*MACROCTL_COMMAND, *arguments, "--help"], capture_output=True, text=True, check=True, timeout=60).stdout
    found = re.search(rf"^{title}:\n(.*?)(?:\n\n|\Z)", text, re.MULTILINE | re.DOTALL)
    return re.findall(r"^ {1,8}(\S+)", found[1], re.MULTILINE) if found else []


def options_of(*subcommand: str) -> list[str]:
    return [option for entry in _section("Options", *subcommand) for option in entry.split(",")]


SUBCOMMANDS = _section("Subcommands")
