"""scripts/check_includes accepts a tree that keeps the rules and reports each violation with its place."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "check_includes"

GOOD_TREE = {
    "include/macroengine/Export.h": "#pragma once\n#if defined(_WIN32)\n#endif\n",
    "include/macroengine/CMacroFileIF.h": "#pragma once\n#include <string>\n#include <macroengine/Export.h>\n",
    "src/platform/Clock.h": "#pragma once\n",
    "src/platform/Clock_posix.cpp": '#include <unistd.h>\n#include "platform/Clock.h"\n#ifdef __linux__\n#endif\n',
    "src/runtime/CMacroCommonValue.h": "#pragma once\n",
    "src/runtime/CMacroStatement.h": '#pragma once\n#include "runtime/CMacroCommonValue.h"\n',
    "src/host/CMacroPrg.h": '#pragma once\n#include "runtime/CMacroStatement.h"\n',
    "src/compiler/Parser.cpp": '#include "host/CMacroPrg.h"\n#include "platform/Clock.h"\n',
    "src/host/CMacroFile.cpp": '#include "compiler/Parser.h"\n',
    "src/compiler/Parser.h": "#pragma once\n",
    "tools/macroctl/main.cpp": '#include <CLI/CLI.hpp>\n#include "board/Board.h"\n',
    "tools/macroctl/board/Board.cpp": "#include <macroengine/CMacroFileIF.h>\n",
    "tools/macroctl/board/Board.h": "#pragma once\n",
    "tools/macroctl/platform/Library_posix.cpp": "#include <dlfcn.h>\n",
}

# What one more file gets as an answer.
BAD_FILES = [
    ("src/compiler/Bad.h", "int a;\n", "(1): no #pragma once"),
    ("src/elsewhere/Bad.cpp", "", "(1): belongs to no level"),
    ("src/platform/Bad.cpp", '\n#include "host/CMacroPrg.h"\n', "(2): public headers and platform must not include"),
    ("src/source/Bad.cpp", '#include "runtime/CMacroStatement.h"\n', "(1): source and values must not include"),
    ("src/runtime/CMacroStatementBad.cpp", '#include "host/CMacroPrg.h"\n', "(1): statements must not include"),
    ("src/compiler/Bad.cpp", '#include "host/CMacroFile.cpp"\n', "(1): compiler must not include"),
    ("src/host/Bad.cpp", '#include "Parser.h"\n', '(1): "Parser.h" is no file relative to src/'),
    ("src/host/Bad.cpp", '#include "../compiler/Parser.h"\n', "is no file relative to src/"),
    ("src/host/Bad.cpp", "#include <sys/types.h>\n", "(1): <sys/types.h> belongs"),
    ("src/host/Bad.cpp", "#  ifdef _MSC_VER\n#endif\n", "(1): a condition on _MSC_VER belongs"),
    ("include/macroengine/Bad.h", '#pragma once\n#include "platform/Clock.h"\n', "(2): a public header includes"),
    ("tools/macroctl/Bad.cpp", '#include "platform/Clock.h"\n', '(1): "platform/Clock.h" is no file'),
    ("tools/macroctl/Bad.cpp", "#include <windows.h>\n", "(1): <windows.h> belongs in a folder named platform"),
    ("examples/host/Bad.cpp", '#include "../../src/host/CMacroPrg.h"\n', "is no file relative to its program"),
]


class CheckIncludes(unittest.TestCase):
    def check(self, tree: dict[str, str]) -> subprocess.CompletedProcess[str]:
        with tempfile.TemporaryDirectory() as root:
            for name, text in tree.items():
                file = pathlib.Path(root, name)
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text, encoding="utf-8")
            return subprocess.run(
                [sys.executable, str(SCRIPT), root], capture_output=True, text=True, check=False)

    def test_good_tree(self) -> None:
        result = self.check(GOOD_TREE)
        self.assertEqual(result.returncode, 0, result.stdout)
        self.assertEqual(result.stdout, f"{len(GOOD_TREE)} files, all includes point downwards\n")

    def test_bad_files(self) -> None:
        for name, text, answer in BAD_FILES:
            with self.subTest(name=name, text=text):
                result = self.check({**GOOD_TREE, name: text})
                self.assertEqual(result.returncode, 1)
                self.assertEqual(len(result.stdout.splitlines()), 1, result.stdout)
                self.assertTrue(result.stdout.startswith(name + "("), result.stdout)
                self.assertIn(answer, result.stdout)


if __name__ == "__main__":
    unittest.main()
