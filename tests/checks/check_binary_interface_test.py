"""scripts/check_binary_interface accepts the public headers and notices each change that a compiled host would."""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
SCRIPT = ROOT / "scripts" / "check_binary_interface"

# A header, what is replaced in it, and lines of the report.
BREAKING_CHANGES = [
    ("CRegFieldsIF.h", "virtual bool GetFlag1() const = 0;", "", ["-bool GetFlag1() const"]),
    ("CMacroFileIF.h", "virtual bool Run() = 0;", "virtual bool Added() = 0; virtual bool Run() = 0;",
     ["+bool Added()"]),
    ("CMacroFileIF.h", "virtual bool Run() = 0;", "virtual int Run() = 0;", ["-bool Run()", "+int Run()"]),
    ("CMacroFileIF.h", "virtual bool Run() = 0;", "virtual bool Run() = 0; virtual bool Run(int) = 0;",
     ["CMacroFileIF overloads the virtual function Run", "+bool Run(int)"]),
    ("CMacroPropertyIF.h", "class MACROENGINE_API CMacroPropertyIF", "class CMacroPropertyIF",
     ["-~CMacroPropertyIF()", "-??1CMacroPropertyIF@@UEAA@XZ"]),
    ("SystemVariable.h", "long value", "int value", ["-?SetSystemVariable@@YA_NPEBDJ@Z",
                                                     "+?SetSystemVariable@@YA_NPEBDH@Z"]),
    ("MacroCalls.h", "struct MacroCall {", "class MacroCall { public:",
     ["-?VisitMacroCalls@@YA_NPEAVCMacroFileIF@@P6A_NAEBUMacroCall@@PEAX@Z2@Z"]),
]


class CheckBinaryInterface(unittest.TestCase):
    def check(self, root: pathlib.Path) -> subprocess.CompletedProcess[str]:
        return subprocess.run([sys.executable, str(SCRIPT), str(root)], capture_output=True, text=True, check=False)

    def test_breaking_changes_are_reported(self) -> None:
        for name, old, new, lines in BREAKING_CHANGES:
            with self.subTest(name=name, new=new), tempfile.TemporaryDirectory() as folder:
                root = pathlib.Path(folder)
                shutil.copytree(ROOT / "include", root / "include")
                shutil.copytree(ROOT / "tests/abi", root / "tests/abi")
                header = root / "include/macroengine" / name
                text = header.read_text(encoding="utf-8")
                self.assertIn(old, text)
                header.write_text(text.replace(old, new, 1), encoding="utf-8")

                result = self.check(root)
                self.assertEqual(result.returncode, 1, result.stderr)
                report = result.stdout.splitlines()
                for line in lines:
                    self.assertIn(line, report)


if __name__ == "__main__":
    unittest.main()
