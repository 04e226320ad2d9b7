"""scripts/check_windows_sources accepts standard C++ for the Windows target and reports what only GNU has."""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "check_windows_sources"

# A source, and what the report says about it.
BAD_SOURCES = [
    ("int f(int a) { return a ?: 1; }\n", "GNU ?: conditional expression"),
    ("int f() { return ({ 1; }); }\n", "GNU statement expression"),
    ("int f(int n) { int a[n]; return a[0]; }\n", "variable length arrays"),
    ("static_assert(sizeof(long) == 8, \"\");\n", "static_assert failed"),
    ("#include <unistd.h>\n", "<unistd.h> is no header of Visual C++"),
]


@unittest.skipUnless(shutil.which("clang++") and shutil.which("x86_64-w64-mingw32-g++-posix"),
                     "needs clang and mingw-w64")
class CheckWindowsSources(unittest.TestCase):
    def check(self, text: str) -> subprocess.CompletedProcess[str]:
        with tempfile.TemporaryDirectory() as folder:
            source = pathlib.Path(folder, "source.cpp")
            source.write_text(text, encoding="utf-8")
            return subprocess.run([sys.executable, str(SCRIPT), str(source)], capture_output=True, text=True,
                                  check=False)

    def test_standard_source(self) -> None:
        result = self.check("#include <cstddef>\nstatic_assert(sizeof(long) == 4 && sizeof(std::size_t) == 8);\n")
        self.assertEqual((result.stdout, result.returncode), ("1 files, nothing that only GNU has\n", 0))

    def test_bad_sources(self) -> None:
        for text, words in BAD_SOURCES:
            with self.subTest(text):
                result = self.check(text)
                self.assertEqual(result.returncode, 1, result.stderr)
                self.assertIn(words, result.stdout)


if __name__ == "__main__":
    unittest.main()
