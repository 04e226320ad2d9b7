"""Macros made to hurt. Each ends in a message with its place or in a plain result, in little memory and time."""

import resource
import unittest

from hostile_support import MACROCTL, HostileTest

MILLION = 1_000_000
LONG = 300_000
NO_MEMORY = "Memory allocation error"


class NestingTest(HostileTest):
    """What may stand in itself, a million deep."""

    def nest(self, what: str, line: int) -> str:
        return f'a.mac({line}): error : The nest for "{what}" is to up to 256 times.'

    def test_parentheses(self) -> None:
        self.assert_refused(self.run_macro("x = " + "(" * MILLION + "1" + ")" * MILLION), self.nest("(", 1))

    def test_parentheses_of_a_condition(self) -> None:
        self.assert_refused(
            self.run_macro("if " + "(" * MILLION + "1 == 1" + ")" * MILLION + "\nendif\n"), self.nest("(", 1))

    def test_subscripts(self) -> None:
        self.assert_refused(self.run_macro("x = " + "a[" * MILLION + "0" + "]" * MILLION), self.nest("[", 1))

    def test_conditions(self) -> None:
        self.assert_refused(self.run_macro("if 1 == 1\n" * MILLION), self.nest("if", 257))

    def test_loops(self) -> None:
        self.assert_refused(self.run_macro("loop 1 == 1\n" * MILLION), self.nest("loop", 257))

    def test_conditional_compilation(self) -> None:
        self.assert_refused(
            self.run_macro("#if exist string\n" * MILLION),
            'a.mac(33): error : The nest for "#if" is to up to 32 times.')

    def test_skipped_conditional_compilation(self) -> None:
        self.assert_refused(
            self.run_macro("#if exist nobody\n" * MILLION),
            'a.mac(33): error : The nest for "#if" is to up to 32 times.')

    def test_includes(self) -> None:
        for i in range(10_000):
            (self.folder / f"{i}.mac").write_text(f'#include "{i + 1}.mac"\n')
        result = self.run_macro('#include "0.mac"\n')
        self.assertEqual(result.status, 1)
        lines = result.err.splitlines()
        self.assertEqual(lines[0], '255.mac(1): error : The nest for "#include" is to up to 256 times.')
        self.assertEqual(lines[-1], 'a.mac(1): error : Failed to read include file("0.mac")')
        self.assertEqual(len(lines), 257)

    def test_includes_that_double(self) -> None:
        for i in range(200):
            (self.folder / f"{i}.mac").write_text(f'#include "{i + 1}.mac"\n' * 2)
        (self.folder / "200.mac").write_text("x = 1\n")
        result = self.run_macro('#include "0.mac"\n')
        self.assertEqual(result.status, 1)
        lines = result.err.splitlines()
        self.assertIn(': error : The number of "#include" is to up to 65536.', lines[0])
        self.assertEqual(lines[-1], 'a.mac(1): error : Failed to read include file("0.mac")')

    def test_one_behind_the_other(self) -> None:
        """Long is not deep."""
        for name, text in {
            "terms": "x = 0" + " + 1" * LONG + "\nboard.print(x)\n",
            "precedences": "x = 0" + " << 0 | 1 & 1 + 0 * 1" * 60_000 + "\nboard.print(x)\n",
            "subscripts": "a" + "[0]" * LONG + " = 1\nb = a\nboard.print(1)\n",
            "conditions": "if 1 == 2" + " || 1 == 1" * LONG + "\nboard.print(1)\nendif\n",
            "alternatives": "if 1 == 2\n" + "elseif 1 == 2\n" * LONG + "endif\nboard.print(1)\n",
            "arguments": "a = array.init(0" + ", 1" * LONG + ")\nn = array.max(a)\nboard.print(n)\n",
            "statements": "x = 1\n" * LONG + "board.print(x)\n",
        }.items():
            with self.subTest(name):
                expected = {"terms": LONG, "precedences": 0, "arguments": LONG + 1}.get(name, 1)
                self.assert_result(self.run_macro(text, mebibytes=1024), 0, f"{expected}\n")

    def test_values(self) -> None:
        text = "a[0] = 0\ni = 0\nloop i < 1000000\na[0] = a\ni = i + 1\nendloop\nb = a\nb[0][0] = 1\na = 0\n"
        self.assert_result(self.run_macro(text + "board.print(i)\n"), 0, "1000000\n")

    def test_values_that_double(self) -> None:
        """The text of such an array ends with its limit; taking it apart costs what it holds."""
        text = "a[0] = 1\ni = 0\nloop i < 100000\nb = a\na[0] = b\na[1] = b\ni = i + 1\nendloop\n"
        self.assert_result(self.run_macro(text + "board.print(i)\n"), 0, "100000\n")
        result = self.run_macro(text + "board.print(a)\n")
        self.assertEqual((result.status, len(result.out), result.out[-4:]), (0, (64 << 20) + 4, "...\n"))


class SizeTest(HostileTest):
    def test_a_text_that_doubles(self) -> None:
        text = 's = "0123456789"\nloop 1 == 1\ns = s + s\nendloop\n'
        self.assert_fails(self.run_macro(text), "a.mac(3)", NO_MEMORY)

    def test_indexes(self) -> None:
        refused = "failed to update array variable"
        self.assert_fails(self.run_macro("a[134217728] = 1\n"), "a.mac(1)", refused)
        self.assert_fails(self.run_macro("a[134217727] = 1\n", mebibytes=256), "a.mac(1)", refused)
        self.assert_fails(self.run_macro('a[134217727] = "x"\n'), "a.mac(1)", refused)
        self.assert_fails(
            self.run_macro("a[134217727] = 1\nb = a\na[0] = 1\nboard.print(a[0])\n", mebibytes=768), "a.mac(3)",
            refused)
        self.assert_result(self.run_macro("a[134217727] = 7\nx = a[134217727]\nboard.print(x)\n", mebibytes=1024),
                           0, "7\n")

    def test_names(self) -> None:
        name = "n" * (10 << 20)
        self.assert_result(self.run_macro(f"{name} = 1\nx = {name}\nboard.print(x)\n"), 0, "1\n")
        self.assert_fails(self.run_macro(f"x = {name}\n"), "a.mac(1)", f"Didn't define valiable name[{name}]")
        self.assert_refused(
            self.run_macro(f"{name}.{name}()\n"), f'a.mac(1): error : "{name}" is not category operand.')
        self.assert_refused(
            self.run_macro(f"string.{name}()\n"),
            f'a.mac(1): error : "{name}" is not property of category(string).')
        self.assert_result(self.run_macro(f"#define {name} 7\nx = {name}\nboard.print(x)\n"), 0, "7\n")
        self.assert_refused(
            self.run_macro(f'#include "{name}"\n'),
            f"error : File open error. ({name})\n"
            f'a.mac(1): error : Failed to read include file("{name}")')
        self.assert_fails(self.run_macro(f'system.mkdir("{name}")\n'), "a.mac(1)", "Failed to create directory.")
        result = self.run_macro(f'system.file_write(0, "{name}", "x")\n')
        self.assertIn("File open error. (", result.err)
        self.assert_result(self.run_macro(f'x = system.find_file("{name}*", 0)\nboard.print("<", x, ">")\n'), 0,
                           "<  >\n")

    def test_variables(self) -> None:
        text = "".join(f"v{i} = {i}\n" for i in range(500_000))
        self.assert_result(self.run_macro(text + "board.print(v499999)\n"), 0, "499999\n")

    def test_variables_without_memory(self) -> None:
        text = "".join(f"v{i} = {i}\n" for i in range(500_000))
        result = self.run_macro(text, mebibytes=64)
        self.assertRegex(result.err, r"^a\.mac\(\d+\): error : Memory allocation error\n$")
        self.assertEqual((result.status, result.out), (1, ""))

    def test_lines(self) -> None:
        self.assert_result(self.run_macro("x = 1 //" + "x" * (30 << 20) + "\nboard.print(x)\n"), 0, "1\n")
        self.assert_result(self.run_macro("x = 1" + " " * (30 << 20) + "\nboard.print(x)\n"), 0, "1\n")
        self.assert_refused(
            self.run_macro('x = "' + "x" * (30 << 20)), "a.mac(1): error : Can't find [\"] for the end of string.")

    def test_pieces(self) -> None:
        text = ('s = ","\ni = 0\nloop i < 20\ns = s + s\ni = i + 1\nendloop\na = string.split(s)\n'
                "n = array.max(a)\nboard.print(n)\n")
        self.assert_result(self.run_macro(text), 0, "1048577\n")

    def test_formats(self) -> None:
        for form in ["%2147483647d", "%.2147483647d", "%99999999999999999999d", "%1024d"]:
            with self.subTest(form):
                result = self.run_macro(f'x = string.format("{form}", 1)\n')
                self.assertEqual((result.status, result.out), (1, ""))
                self.assertTrue(result.err.endswith("a.mac(1): error : run time error !\n"), result.err)

    def test_tables(self) -> None:
        (self.folder / "t.csv").write_text("1" + ",1" * MILLION + "\n" + "1\n" * MILLION + '"' + "x" * MILLION)
        text = 'a = system.csvfile_read("t.csv", 1)\nn = array.max(a)\nboard.print(n)\n'
        self.assert_result(self.run_macro(text), 0, "1000002\n")
        self.assert_fails(self.run_macro(text, mebibytes=64), "a.mac(1)", NO_MEMORY)


class SystemTest(HostileTest):
    @unittest.skipIf(resource.getrlimit(resource.RLIMIT_STACK)[1] != resource.RLIM_INFINITY, "stacks have a limit")
    def test_a_thread_that_the_system_refuses(self) -> None:
        """Its stack would take more than all of the memory."""
        self.write("a.mac", "x = 1\n")
        limits = 'ulimit -s 1048576; ulimit -v 524288; ulimit -c 0; exec "$@"'
        result = self.execute("/bin/sh", "-c", limits, "sh", str(MACROCTL), "run", "a.mac")
        self.assertRegex(result.err, r"\Amacroctl: .+\n\Z")
        self.assertEqual((result.status, result.out), (1, ""))


class SubstitutionTest(HostileTest):
    LIMIT = 'error : The substitution for "#define" is to up to 8388608 tokens.'

    def test_bodies_that_multiply(self) -> None:
        bodies = "".join(f"#define m{i} {' + '.join([f'm{i - 1}'] * 10)}\n" for i in range(1, 1000))
        text = "".join(f"m{i} = 1\n" for i in range(1000)) + bodies + "x = m999\nboard.print(x)\n"
        self.assert_result(self.run_macro(text), 0, f"{9 * 999 + 1}\n")

    def test_bodies_that_are_used_again_and_again(self) -> None:
        text = "#define m 0" + " + 1" * 100_000 + "\n" + "x = m\n" * 100_000
        self.assert_refused(self.run_macro(text, mebibytes=2048), f"a.mac(43): {self.LIMIT}")

    def test_bodies_that_come_to_nothing(self) -> None:
        text = ("".join(f"#define e{i}\n" for i in range(10_000)) + "#define m "
                + " ".join(f"e{i}" for i in range(10_000)) + "\n" + "m\n" * 100_000)
        self.assert_refused(self.run_macro(text), f"a.mac(10840): {self.LIMIT}")

    def test_chains(self) -> None:
        text = ("".join(f"#define c{i} c{i + 1}\n" for i in range(10_000)) + "c10000 = 0\n"
                + "x = c0\n" * 100_000)
        self.assert_refused(self.run_macro(text), f"a.mac(10840): {self.LIMIT}")

    def test_names_that_stand_for_themselves(self) -> None:
        text = "a = 1\nb = 2\n#define a b + a\n#define b a + b\n#define c c\nx = a\ny = b\nboard.print(x, y)\n"
        self.assert_result(self.run_macro(text), 0, "4 5\n")


if __name__ == "__main__":
    unittest.main()
