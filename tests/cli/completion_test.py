"""The completion for bash offers the subcommands, options and formats of macroctl, and file names elsewhere."""

import subprocess
import unittest

from cli_support import CliTest, MACROCTL, SOURCE_DIR
from help_text import SUBCOMMANDS, options_of

COMPLETION = SOURCE_DIR / "tools/macroctl/completion/macroctl.bash"

# Completes the last of the words and prints what bash would offer, then the kind of names that it adds by itself.
# compopt works only inside of a real completion.
SCRIPT = """
source "$1"
shift
compopt() { echo "$2 names"; }
COMP_WORDS=("$@")
COMP_CWORD=$(($# - 1))
_macroctl_complete
printf '%s\\n' "${COMPREPLY[@]}"
"""


@unittest.skipIf(MACROCTL.suffix == ".exe", "bash completion is for systems where macroctl runs by itself")
class CompletionTest(CliTest):
    def complete(self, *words: str) -> list[str]:
        result = self.execute("bash", "-c", SCRIPT, "bash", str(COMPLETION), str(MACROCTL), *words)
        self.assertEqual((result.status, result.err), (0, ""))
        return result.out.split("\n")[:-1] if result.out.strip() else []

    def test_subcommands(self) -> None:
        self.assertEqual(self.complete(""), SUBCOMMANDS)
        self.assertEqual(self.complete("r"), [name for name in SUBCOMMANDS if name.startswith("r")])
        self.assertEqual(self.complete("walk"), [])

    def test_options_before_a_subcommand(self) -> None:
        self.assertEqual(self.complete("-"), ["-h", "--help", "--version"])

    def test_every_option_of_each_subcommand(self) -> None:
        for subcommand in SUBCOMMANDS:
            with self.subTest(subcommand):
                self.assertEqual(sorted(self.complete(subcommand, "-")), sorted(options_of(subcommand)))

    def test_an_option_that_has_begun(self) -> None:
        self.assertEqual(self.complete("run", "a.mac", "--keep"), ["--keep-going"])
        self.assertEqual(self.complete("encode", "--keep"), [])

    def test_formats(self) -> None:
        self.assertEqual(self.complete("registers", "--format", "c"), ["csv", "c-header"])
        for subcommand in ["run", "check", "diff"]:
            self.assertEqual(self.complete(subcommand, "--format", ""), ["text", "json"])

    def test_every_format_is_one_that_macroctl_knows(self) -> None:
        self.write("a.rgi", "[REGISTER]\nREGISTER_NAME, ADDRESS_2WIRE, LSB, LENGTH, RW\nA, 0x01, 0, 8, RW\n")
        self.write("a.mac", "x = 1\n")
        for arguments in [("run", "a.mac"), ("check", "a.mac"), ("registers", "a.rgi"), ("diff", "a.rgi", "a.rgi")]:
            for name in self.complete(arguments[0], "--format", ""):
                with self.subTest(name):
                    self.assertEqual(self.macroctl(*arguments, "--format", name).status, 0)

    def test_names_of_files_and_folders(self) -> None:
        self.assertEqual(self.complete("run", ""), ["default names", ""])
        self.assertEqual(self.complete("run", "--plugin", ""), ["default names", ""])
        self.assertEqual(self.complete("run", "--work-dir", ""), ["dirnames names", ""])
        self.assertEqual(self.complete("run", "--namespace", ""), [])

    def test_it_is_registered_for_macroctl(self) -> None:
        done = subprocess.run(["bash", "-c", 'source "$1" && complete -p macroctl', "bash", str(COMPLETION)],
                              capture_output=True, text=True, check=False)
        self.assertEqual(done.stdout, "complete -F _macroctl_complete macroctl\n")


if __name__ == "__main__":
    unittest.main()
