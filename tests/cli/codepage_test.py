"""Texts and paths in code page 932, whose characters may end with the byte of a backslash.

On Windows the system's code page is that one, as the locale makes it for the emulator, and names of files are what the
system makes of them. Elsewhere MACROENGINE_CODEPAGE chooses it, and names of files are bytes.
"""

import os
import pathlib
import shutil
import subprocess
import unittest

from cli_support import IS_WINDOWS, MACROCTL_COMMAND, TIMEOUT_SECONDS, CliTest, program

LOCALE = "ja_JP.UTF-8"
CODE_PAGE = "cp932"
SYSTEM = {"LC_ALL": LOCALE} if IS_WINDOWS else {"MACROENGINE_CODEPAGE": "932"}


def native(path: str) -> bytes:
    """A path as the system underneath has it."""
    return path.encode("utf-8" if IS_WINDOWS else CODE_PAGE)


class CodePageTest(CliTest):
    def path(self, name: str) -> str:
        return os.fsdecode(os.path.join(os.fsencode(self.folder), native(name)))

    def write(self, name: str, text: str) -> str:
        path = pathlib.Path(self.path(name))
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(text.encode(CODE_PAGE))
        return name

    def read(self, name: str) -> str:
        return pathlib.Path(self.path(name)).read_bytes().decode(CODE_PAGE)

    def run_macro(self, *arguments: str, environment: dict[str, str]) -> str:
        return self.run_with(environment, "run", "--board", *arguments)

    def run_with(self, environment: dict[str, str], *arguments: str) -> str:
        """All that comes out, in one text."""
        done = subprocess.run(
            [*map(os.fsencode, MACROCTL_COMMAND), *map(native, arguments)], cwd=self.folder,
            env={**os.environ, **environment}, stdin=subprocess.DEVNULL, capture_output=True, timeout=TIMEOUT_SECONDS,
            check=False)
        out, err = (data.decode(CODE_PAGE).replace("\r\n", "\n") for data in (done.stdout, done.stderr))
        return f"status {done.returncode}\n{out}{err}"

    def test_every_character_here_ends_with_a_backslash(self) -> None:
        for character in "表能ソ予十構":
            self.assertEqual(character.encode(CODE_PAGE)[1:], b"\\")

    def test_texts(self) -> None:
        name = self.write("a.mac", """\
#define NAME "予"
x = "表" // a comment ends with ソ
y = "能n"
board.print(x, y, NAME)
x = string.format("十%d", 5)
board.print(x)
""")
        expected = "status 0\n表 能n 予\n十5\n"
        self.assertEqual(self.run_macro(name, environment=SYSTEM), expected)
        self.assertEqual(self.run_macro(name, environment={"LC_ALL": "C", "MACROENGINE_CODEPAGE": "932"}), expected)
        # In another code page the backslash makes the quote a part of the text.
        self.assertEqual(
            self.run_macro(name, environment={"LC_ALL": "C", "MACROENGINE_CODEPAGE": "1252"}),
            "status 1\na.mac(1): error : Can't find [\"] for the end of string.\n")

    def test_files_and_folders(self) -> None:
        self.write("ソ/能/十.mac", 'x = "included"\n')
        name = self.write("ソ/表.mac", r"""
#include "能\十.mac"
board.print(x)
system.mkdir("予")
system.file_write(0, "予\構.csv", "表n,能t\n")
rows = system.csvfile_read("予\構.csv")
board.print(rows[0][0], rows[0][1])
x = system.find_file("予\構*", 0)
board.print(x)
x = missing
""")
        self.assertEqual(
            self.run_macro(name, environment=SYSTEM),
            "status 1\nincluded\n表n 能t\n構.csv\n"
            "ソ/表.mac(10): error : Didn't define valiable name[missing]\nソ/表.mac(10): error : run time error !\n")
        self.assertEqual(self.read("ソ/予/構.csv"), "表n,能t\r\n" if IS_WINDOWS else "表n,能t\n")

    def test_work_folder(self) -> None:
        self.write("ソ/十/構.csv", "1,2\n")
        name = self.write("ソ/表.mac", 'rows = system.csvfile_read("構.csv", 1)\nboard.print(rows[0][1])\n')
        self.assertEqual(self.run_macro("--work-dir", "十", name, environment=SYSTEM), "status 0\n2\n")

    def test_programs(self) -> None:
        if IS_WINDOWS:
            self.write("予/表.exe", "")
            shutil.copyfile(program("probe"), self.path("予/表.exe"))
        else:
            self.write("予/表.exe", '#!/bin/sh\nexit "$2"\n')
            os.chmod(self.path("予/表.exe"), 0o755)
        name = self.write("a.mac", 'code = system.command_exec(60, "予", "表.exe", "exit", "7")\nboard.print(code)\n')
        self.assertEqual(self.run_macro(name, environment=SYSTEM), "status 0\n7\n")

    def test_encoded_files(self) -> None:
        self.write("ソ/表.mac", 'board.print("能")\n')
        for _ in range(2):
            self.assertEqual(self.run_with(SYSTEM, "encode", "ソ/表.mac", "ソ/予.dat"), "status 0\n")
        self.assertEqual(sorted(os.listdir(os.fsencode(self.path("ソ")))), sorted(map(native, ["表.mac", "予.dat"])))
        self.assertEqual(self.run_macro("ソ/予.dat", environment=SYSTEM), "status 0\n能\n")
        self.assertEqual(self.run_with(SYSTEM, "decode", "ソ/予.dat", "ソ/表.mac"), "status 0\n")
        self.assertEqual(self.read("ソ/表.mac"), 'board.print("能")\n')

    def test_a_missing_file(self) -> None:
        self.assertEqual(
            self.run_macro("ソ/表.mac", environment=SYSTEM), "status 1\nerror : File open error. (ソ/表.mac)\n")


@unittest.skipUnless(IS_WINDOWS, "elsewhere the locale is not asked here")
class LocaleTest(unittest.TestCase):
    def test_the_locale_is_installed(self) -> None:
        names = subprocess.run(["locale", "-a"], capture_output=True, encoding="utf-8", check=True).stdout.split()
        self.assertIn("ja_JP.utf8", names, f"the locale {LOCALE} is missing: make install-dependencies")


if __name__ == "__main__":
    unittest.main()
