"""What `macroctl run` makes of a macro: its output, its error lines as the engine gives them, its status."""

import os
import pathlib
import subprocess
import unittest

from cli_support import IS_WINDOWS, MACROCTL_COMMAND, CliTest, plugin


class RunTest(CliTest):
    def test_a_macro_that_ends_well_is_silent(self) -> None:
        self.assert_result(self.macroctl("run", self.write("a.mac", "x = 1\ny = x + 1\n")), 0)

    def test_output(self) -> None:
        name = self.write("a.mac", 'board.print("one", 2)\nboard.print(3.5)\n')
        self.assert_result(self.macroctl("run", "--board", name), 0, "one 2\n3.5\n")

    def test_a_file_that_does_not_compile(self) -> None:
        name = self.write("a.mac", 'board.print("not run")\nx = )\n')
        self.assert_result(
            self.macroctl("run", "--board", name), 1,
            err="a.mac(2): error : syntax error ')'. Can't find Variable or value.\n")

    def test_a_macro_that_fails(self) -> None:
        name = self.write("a.mac", 'board.print("before")\nx = y\nboard.print("after")\n')
        self.assert_result(
            self.macroctl("run", "--board", name), 1, "before\n",
            "a.mac(2): error : Didn't define valiable name[y]\na.mac(2): error : run time error !\n")

    def test_the_path_in_a_message_is_the_path_given(self) -> None:
        self.write("sub/a.mac", "x = y\n")
        for name in ["sub/a.mac", "./sub/a.mac", str(self.folder / "sub" / "a.mac")]:
            with self.subTest(name):
                self.assert_result(
                    self.macroctl("run", name), 1,
                    err=f"{name}(1): error : Didn't define valiable name[y]\n{name}(1): error : run time error !\n")

    def test_a_missing_file(self) -> None:
        self.assert_result(self.macroctl("run", "no.mac"), 1, err="error : File open error. (no.mac)\n")

    def test_a_folder(self) -> None:
        (self.folder / "folder.mac").mkdir()
        self.assert_result(self.macroctl("run", "folder.mac"), 1, err="error : File open error. (folder.mac)\n")

    def test_an_empty_file(self) -> None:
        self.assert_result(
            self.macroctl("run", self.write("a.mac", "")), 1, err="error : File read error. (a.mac)\n")

    def test_a_file_without_statements(self) -> None:
        self.assert_result(
            self.macroctl("run", self.write("a.mac", "// nothing\n")), 1, err="error : Nothing macro sequence.\n")

    def test_a_failure_without_a_line_of_the_engine(self) -> None:
        self.assert_result(
            self.macroctl("run", self.write("a.mac", 'x["1"] = 1\n')), 1,
            err="a.mac: error : the file can't be compiled.\n")

    def test_an_error_in_an_included_file(self) -> None:
        self.write("sub/inner.mac", "a = 1\nx = y\n")
        name = self.write("sub/a.mac", '#include "inner.mac"\n')
        self.assert_result(
            self.macroctl("run", name), 1,
            err="sub/inner.mac(2): error : Didn't define valiable name[y]\n"
                "sub/inner.mac(2): error : run time error !\n")

    def test_an_included_file_that_does_not_compile(self) -> None:
        self.write("sub/inner.mac", "a = 1\na 1\n")
        name = self.write("sub/a.mac", 'b = 1\n#include "inner.mac"\n')
        self.assert_result(
            self.macroctl("run", name), 1,
            err="sub/inner.mac(2): error : syntax error '1'\n"
                'sub/a.mac(2): error : Failed to read include file("inner.mac")\n')

    def test_a_missing_included_file(self) -> None:
        name = self.write("sub/a.mac", '#include "no.mac"\n')
        self.assert_result(
            self.macroctl("run", name), 1,
            err="error : File open error. (sub/no.mac)\n"
                'sub/a.mac(1): error : Failed to read include file("no.mac")\n')

    def test_an_abort_by_the_macro_is_a_failure(self) -> None:
        name = self.write("a.mac", 'system.abort("no supply")\n')
        self.assert_result(
            self.macroctl("run", name), 1, err="a.mac(1): error : no supply\na.mac(1): error : run time error !\n")

    def test_keep_going_shows_all_errors_at_the_end(self) -> None:
        name = self.write("a.mac", 'x = y\nboard.print("between")\nboard.write(0, 256)\nboard.print("end")\n')
        self.assert_result(
            self.macroctl("run", "--board", "--keep-going", name), 1, "between\nend\n",
            "a.mac(1): error : Didn't define valiable name[y]\n"
            "a.mac(1): error : run time error !\n"
            "a.mac(3): error : board.write() argument error. (argument[1] is out of range.)\n"
            "a.mac(3): error : run time error !\n")

    def test_keep_going_without_an_error(self) -> None:
        name = self.write("a.mac", 'board.print("end")\n')
        self.assert_result(self.macroctl("run", "--board", "--keep-going", name), 0, "end\n")

    def test_output_comes_before_errors_in_one_stream(self) -> None:
        self.write("a.mac", 'board.print("before")\nx = y\n')
        done = subprocess.run(
            [*MACROCTL_COMMAND, "run", "--board", "a.mac"], cwd=self.folder, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, encoding="utf-8", timeout=60, check=False)
        self.assertEqual(done.stdout.splitlines()[0], "before")
        self.assertEqual(len(done.stdout.splitlines()), 3)

    @unittest.skipIf(IS_WINDOWS or not pathlib.Path("/dev/full").exists(), "needs a device that takes nothing")
    def test_output_that_cannot_be_written(self) -> None:
        self.write("a.mac", 'board.print("lost")\n')
        with open("/dev/full", "w", encoding="utf-8") as full:
            done = subprocess.run(
                [*MACROCTL_COMMAND, "run", "--board", "a.mac"], cwd=self.folder, stdout=full, stderr=subprocess.PIPE,
                encoding="utf-8", timeout=60, check=False)
        self.assertEqual(
            (done.returncode, done.stderr),
            (1, "a.mac(1): error : board.print() can't write to standard output\na.mac(1): error : run time error !\n"))


class WorkDirTest(CliTest):
    def work_folder(self, *arguments: str) -> str:
        self.write("sub/a.mac", "x = greet.folder()\nboard.print(x)\n")
        result = self.macroctl("run", "--board", "--plugin", plugin("good_plugin"), "sub/a.mac", *arguments)
        self.assertEqual((result.status, result.err), (0, ""))
        # How separators are joined is the engine's affair.
        return os.path.normpath(result.out.rstrip("\n").replace("\\", "/"))

    def test_the_default_is_the_macros_folder(self) -> None:
        self.assertEqual(self.work_folder(), "sub")

    def test_an_absolute_folder(self) -> None:
        folder = self.folder / "elsewhere"
        self.assertEqual(self.work_folder("--work-dir", str(folder)), os.path.normpath(folder))

    def test_a_relative_folder_is_taken_from_the_macros_folder(self) -> None:
        self.assertEqual(self.work_folder("--work-dir", "data"), os.path.normpath("sub/data"))


if __name__ == "__main__":
    unittest.main()
