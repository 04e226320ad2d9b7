"""Programs that a macro starts with system.command_exec, real ones."""

import os
import pathlib
import shutil
import signal
import subprocess
import time
import unittest

from cli_support import IS_WINDOWS, MACROCTL, MACROCTL_COMMAND, TIMEOUT_SECONDS, CliTest, program


def macro_text(text: str) -> str:
    """A text literal of the macro language."""
    return '"' + text.replace('"', '\\"') + '"'


@unittest.skipIf(IS_WINDOWS, "the programs are scripts of the POSIX shell")
class CommandExecTest(CliTest):
    def script(self, name: str, text: str, mode: int = 0o755) -> pathlib.Path:
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("#!/bin/sh\n" + text + "\n", encoding="utf-8")
        path.chmod(mode)
        return path

    def call(self, command: str, *parameters: str, folder: str = "", seconds: int = 0) -> str:
        """The macro line that runs a program and prints its exit code."""
        arguments = ", ".join([str(seconds), *map(macro_text, [folder, command, *parameters])])
        return f"code = system.command_exec({arguments})\nboard.print(code)\n"

    def run_macro(self, text: str):
        return self.macroctl("run", "--board", self.write("a.mac", text))

    def assert_refused(self, text: str, message: str) -> None:
        self.assert_result(
            self.run_macro(text), 1,
            err=f"a.mac(1): error : system.command_exec() : {message}\na.mac(1): error : run time error !\n")

    def test_exit_codes(self) -> None:
        self.script("tool", "exit $1")
        codes = ["0", "1", "7", "127", "255"]
        text = "".join(self.call("tool", code) for code in codes)
        self.assert_result(self.run_macro(text), 0, "".join(f"{code}\n" for code in codes))

    def test_a_program_that_a_signal_ends(self) -> None:
        self.script("tool", "kill -TERM $$")
        self.assert_result(self.run_macro(self.call("tool")), 0, f"{128 + signal.SIGTERM}\n")

    def test_parameters_with_blanks_and_quotes(self) -> None:
        self.script("tool", "for parameter; do printf '<%s>' \"$parameter\"; done; echo")
        for parameters, arguments in [
            ([], ""),
            (["one", "two"], "<one><two>"),
            # Blanks separate, also inside one parameter.
            (["one two"], "<one><two>"),
            (['"one two"', "three"], "<one two><three>"),
            (['"a  b"c', '""', "d"], "<a  bc><><d>"),
            (["'one two'"], "<'one><two'>"),
            # In quotes, two are one.
            (['"say ""hi"""'], '<say "hi">'),
            (['""""'], '<">'),
            (["$HOME", "*", "a;b", "`id`"], "<$HOME><*><a;b><`id`>"),
        ]:
            with self.subTest(parameters):
                self.assert_result(self.run_macro(self.call("tool", *parameters)), 0, f"{arguments}\n0\n")

    def test_parameters_of_other_kinds_are_left_out(self) -> None:
        self.script("tool", "echo \"$# $*\"")
        text = 'a = array.init("x")\ncode = system.command_exec(0, "", "tool", 1, "two", 3.5, a, "four")\n'
        self.assert_result(self.run_macro(text), 0, "2 two four\n")

    def test_a_working_directory_with_blanks(self) -> None:
        self.script("my tools/the tool", "pwd -P")
        for folder in ["my tools", r".\my tools", str(self.folder / "my tools")]:
            with self.subTest(folder):
                self.assert_result(
                    self.run_macro(self.call("the tool", folder=folder)), 0, f"{self.folder / 'my tools'}\n0\n")

    def test_the_work_folder_completes_the_working_directory(self) -> None:
        self.script("work/sub/tool", "pwd -P")
        name = self.write("a.mac", self.call("tool", folder="sub"))
        self.assert_result(
            self.macroctl("run", "--board", "--work-dir", "work", name), 0, f"{self.folder / 'work' / 'sub'}\n0\n")

    def test_a_time_out_ends_the_program_and_its_children(self) -> None:
        os.mkfifo(self.folder / "pipe")
        reader = os.open(self.folder / "pipe", os.O_RDONLY | os.O_NONBLOCK)
        self.addCleanup(os.close, reader)
        self.script("tool", "trap '' TERM HUP\nsleep 1000 > pipe &\nexec > pipe\nsleep 1000")
        start = time.monotonic()
        self.assert_refused(self.call("tool", seconds=2), "command timeout.")
        elapsed = time.monotonic() - start
        self.assertGreaterEqual(elapsed, 2)
        self.assertLess(elapsed, 20)
        # The pipe is at its end once nobody is left who could write to it.
        os.set_blocking(reader, True)
        self.assertEqual(os.read(reader, 1), b"")

    def test_a_program_that_ends_in_time(self) -> None:
        self.script("tool", "exit 3")
        start = time.monotonic()
        self.assert_result(self.run_macro(self.call("tool", seconds=50)), 0, "3\n")
        self.assertLess(time.monotonic() - start, 20)

    def test_what_cannot_be_run(self) -> None:
        self.script("plain", "exit 0", 0o644)
        (self.folder / "folder").mkdir()
        self.assert_refused(self.call("missing", folder=str(self.folder)),
                            f"Command({self.folder}\\missing) is not find.")
        self.assert_refused(self.call("tool", folder="no folder"), r"Command(.\no folder\tool) is not find.")
        self.assert_refused(self.call("folder"), "Command is directory.")
        self.assert_refused(self.call("plain"), "failed to run command.")
        self.assert_refused(self.call(""), "Command is null string")

    def test_much_output(self) -> None:
        self.script("tool", "i=0\nwhile [ $i -lt 2000 ]; do echo 'one line of many'; i=$((i + 1)); done\nexec cat data")
        (self.folder / "data").write_bytes(b"x" * 3_000_000)
        result = self.run_macro(self.call("tool"))
        self.assertEqual((result.status, result.err), (0, ""))
        self.assertEqual(result.out.count("one line of many\n"), 2000)
        self.assertTrue(result.out.endswith("x" * 3_000_000 + "0\n"))

    def test_output_and_print_keep_their_order(self) -> None:
        self.script("tool", "echo two")
        text = 'board.print("one")\n' + self.call("tool")
        self.assert_result(self.run_macro(text), 0, "one\ntwo\n0\n")

    def test_standard_input_is_at_its_end(self) -> None:
        self.script("tool", "read line && exit 1\nexit 5")
        name = self.write("a.mac", self.call("tool", seconds=30))
        # The input of macroctl stays open for as long as the test likes.
        process = subprocess.Popen(
            [*MACROCTL_COMMAND, "run", "--board", name], cwd=self.folder, stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, encoding="utf-8")
        self.addCleanup(self._end, process)
        self.assertEqual(process.wait(TIMEOUT_SECONDS), 0)
        self.assertEqual(process.stdout.read(), "5\n")

    def test_no_descriptor_is_passed_on(self) -> None:
        self.script("tool", "for n in 3 4 5 6 7 8 9; do (: <&$n) 2>/dev/null && exit $n; done; exit 0")
        name = self.write("a.mac", self.call("tool"))
        ends = os.pipe()
        for end in ends:
            self.addCleanup(os.close, end)
        # The shell puts what the test hands over where the tool will look for it.
        command = ["/bin/sh", "-c", f'exec "$@" 3<&{ends[0]} 5>&{ends[1]} 7<&{ends[0]} 9>&{ends[1]}', "sh",
                   str(MACROCTL), "run", "--board", name]
        done = subprocess.run(command, cwd=self.folder, stdin=subprocess.DEVNULL, capture_output=True,
                              encoding="utf-8", pass_fds=ends, timeout=TIMEOUT_SECONDS, check=False)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "0\n", ""))

    @unittest.skipUnless(pathlib.Path("/proc/self/stat").exists(), "needs the table of processes as files")
    def test_no_zombie_stays(self) -> None:
        self.script("tool", "exit 0")
        self.script("slow", "sleep 1000")
        self.script("count", "cat /proc/[0-9]*/stat 2>/dev/null | sed 's/^.*) //' | grep -c \"^Z $PPID \"\nexit 0")
        text = self.call("tool") + self.call("missing") + self.call("slow", seconds=1) + self.call("count")
        result = self.macroctl("run", "--board", "--keep-going", self.write("a.mac", text))
        self.assertEqual(result.out, "0\nfalse\nfalse\n0\n0\n")

    def test_a_system_variable_reaches_the_program(self) -> None:
        self.script("tool", 'echo "$MACRO_LOT $MACRO_LIMIT"')
        text = 'system.variable("MACRO_LOT") = 4711\nsystem.variable("MACRO_LIMIT") = 2.5\n' + self.call("tool")
        self.assert_result(self.run_macro(text), 0, "4711 2.500000\n0\n")

    def test_the_environment_holds_system_variables(self) -> None:
        name = self.write("a.mac", 'x = system.variable("MACRO_IN")\ny = x + 1\nboard.print(y)\n')
        for text, printed in [("41", "42\n"), ("1.5", "2.5\n"), ("", "1\n")]:
            done = subprocess.run(
                [*MACROCTL_COMMAND, "run", "--board", name], cwd=self.folder, env={**os.environ, "MACRO_IN": text},
                stdin=subprocess.DEVNULL, capture_output=True, encoding="utf-8", timeout=TIMEOUT_SECONDS, check=False)
            self.assertEqual((done.returncode, done.stdout, done.stderr), (0, printed, ""))

    def test_programs_are_run_one_after_the_other(self) -> None:
        self.script("tool", "echo $1 >> log")
        text = "".join(self.call("tool", str(number)) for number in range(50))
        self.assertEqual(self.run_macro(text).out, "0\n" * 50)
        self.assertEqual((self.folder / "log").read_text(encoding="utf-8").split(), [str(n) for n in range(50)])


@unittest.skipUnless(IS_WINDOWS, "the program is one for Windows")
class CommandExecWindowsTest(CliTest):
    def setUp(self) -> None:
        super().setUp()
        (self.folder / "my tools").mkdir()
        shutil.copyfile(program("probe"), self.folder / "my tools" / "the tool.exe")

    def run_tool(self, *arguments: str, before: str = "") -> str:
        call = ", ".join(['"my tools"', '"the tool.exe"', *map(macro_text, arguments)])
        text = f"{before}code = system.command_exec(2, {call})\nboard.print(code)\n"
        result = self.macroctl("run", "--board", self.write("a.mac", text))
        return f"status {result.status}\n{result.out}{result.err}"

    def report(self) -> list[str]:
        return (self.folder / "my tools" / "out").read_text(encoding="utf-8").splitlines()

    def test_exit_codes(self) -> None:
        for code, printed in [(0, 0), (7, 7), (256, 256), (2**32 - 2, -2)]:
            self.assertEqual(self.run_tool("exit", str(code)), f"status 0\n{printed}\n")

    def test_parameters_and_the_working_directory(self) -> None:
        self.assertEqual(self.run_tool("report out", '"one two"', "three four", '""'), "status 0\n0\n")
        folder, *arguments = self.report()
        self.assertTrue(folder.endswith("\\my tools"), folder)
        self.assertEqual(arguments, ["one two", "three", "four", ""])

    def test_a_time_out_ends_the_program(self) -> None:
        self.assertEqual(
            self.run_tool("hold out"),
            "status 1\na.mac(1): error : system.command_exec() : command timeout.\n"
            "a.mac(1): error : run time error !\n")

    def test_a_system_variable_reaches_the_program(self) -> None:
        (self.folder / "my tools" / "show.bat").write_text("@exit %MACRO_LOT%\n", encoding="utf-8", newline="\r\n")
        name = self.write("a.mac", """\
system.variable("MACRO_LOT") = 4711
code = system.command_exec(0, "my tools", "show.bat")
board.print(code)
""")
        self.assert_result(self.macroctl("run", "--board", name), 0, "4711\n")


if __name__ == "__main__":
    unittest.main()
