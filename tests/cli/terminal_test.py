"""What macroctl shows on a terminal: excerpts, colours, progress. None of it goes to a file or a pipe."""

import os
import unittest

from cli_support import MACROCTL, CliTest

if MACROCTL.suffix != ".exe":
    from pseudo_terminal import TerminalRun


@unittest.skipIf(MACROCTL.suffix == ".exe", "needs pseudo-terminals")
class TerminalTest(CliTest):
    def on_terminal(self, *arguments: str, **options) -> "TerminalRun":
        return TerminalRun(self.folder, *arguments, **options)

    def assert_seen(self, arguments: list[str], status: int, seen: str, **options) -> None:
        run = self.on_terminal(*arguments, **options)
        ended = run.finish()
        self.assertEqual((ended, run.seen()), (status, seen), run.written)


class ExcerptTest(TerminalTest):
    def check(self, text: str, seen: str, **options) -> None:
        self.write("a.mac", text)
        self.assert_seen(["check", "a.mac"], 1, seen, **options)

    def run_macro(self, text: str, seen: str, *arguments: str) -> None:
        self.write("a.mac", text)
        self.assert_seen(["run", "--board", *arguments, "a.mac"], 1, seen)

    def test_the_line_stands_under_the_error_once_for_a_failed_statement(self) -> None:
        self.run_macro("total = 1\ntotal = total + cuont\n", """\
a.mac(2): error : Didn't define valiable name[cuont]
    2 | total = total + cuont
      |                 ^~~~~
a.mac(2): error : run time error !
""")

    def test_every_error_has_its_line(self) -> None:
        self.run_macro("x = y\n\nboard.write(1, 256)\n", """\
a.mac(1): error : Didn't define valiable name[y]
    1 | x = y
      |     ^
a.mac(1): error : run time error !
a.mac(3): error : board.write() argument error. (argument[1] is out of range.)
    3 | board.write(1, 256)
      | ^~~~~~~~~~~
a.mac(3): error : run time error !
""", "--keep-going")

    def test_the_mark_stands_under_what_the_message_names(self) -> None:
        for line, message, mark in [
            ("cat = 1 + a ;", "syntax error ';'", "            ^"),
            ("cat = a a // a", "syntax error 'a'", "      ^"),
            ("x = \"a\" + a )", "syntax error ')'", "            ^"),
            ("    x = 99999999999", "99999999999 is out of range", "        ^~~~~~~~~~~"),
            ("\tx = string.nothing(1)", '"nothing" is not property of category(string).', "               ^~~~~~~"),
            ("if gone.away(1) == 2", "syntax error '.'", "       ^"),
            ("gone.away(1)", '"gone" is not category operand.', "^~~~"),
            ("system.mkdir(\"a\") = 1", "syntax error (system.mkdir() can't use assign destination.)",
             "^~~~~~~~~~~~"),
            ("x = \"open", 'Can\'t find ["] for the end of string.', "    ^"),
            ("x = \u00e4", "find invalid letter(s) in file.", "^"),
            ("#include \"no.mac\"", "Failed to read include file(\"no.mac\")", "         ^~~~~~~~"),
        ]:
            with self.subTest(line):
                self.write("a.mac", line + "\n")
                run = self.on_terminal("check", "a.mac")
                run.finish()
                shown = line.replace("\t", "    ")
                self.assertIn(
                    f"a.mac(1): error : {message}\n    1 | {shown}\n      | {mark}\n", run.seen(), run.written)

    def test_a_line_that_ends_too_early_is_marked_at_its_end(self) -> None:
        self.check("a = 1\nb = \nc = 2\n", """\
a.mac(3): error : syntax error '<EOL>'. Can't find Variable or value.
    2 | b = 
      |     ^
""")

    def test_a_file_that_ends_too_early_is_marked_at_its_end(self) -> None:
        self.check("if a == 1\n    b = 1\n\n", """\
a.mac(4): error : syntax error '<EOF>'
    2 |     b = 1
      |          ^
""")

    def test_columns_are_those_of_the_terminal(self) -> None:
        self.check('a = "\u4e2d\u6587\u00e9" + ;\n', """\
a.mac(1): error : syntax error ';'. Can't find Variable or value.
    1 | a = "\u4e2d\u6587\u00e9" + ;
      |               ^
""")

    def test_what_could_steer_the_terminal_is_not_shown(self) -> None:
        self.check('a = "\x1b[2J" + ;\n', """\
a.mac(1): error : syntax error ';'. Can't find Variable or value.
    1 | a = " [2J" + ;
      |              ^
""")

    def test_a_long_line_is_cut_to_the_terminal(self) -> None:
        self.check("a = " + "1 + " * 50 + "; + " + "2 + " * 50 + "3\n", """\
a.mac(1): error : syntax error ';'. Can't find Variable or value.
    1 | ... 1 + 1 + 1 + ; + 2...
      |                 ^
""", columns=32)

    def test_included_files_and_register_files(self) -> None:
        self.write("sub/inner.mac", "a = 1\na 1\n")
        self.write("sub/a.mac", '#include "inner.mac"\n')
        self.assert_seen(["run", "sub/a.mac"], 1, """\
sub/inner.mac(2): error : syntax error '1'
    2 | a 1
      |   ^
sub/a.mac(1): error : Failed to read include file("inner.mac")
    1 | #include "inner.mac"
      |          ^~~~~~~~~~~
""")
        self.write("bad.rgi", "[REGISTER]\nREGISTER_NAME, LSBS\n")
        run = self.on_terminal("registers", "bad.rgi")
        self.assertEqual(run.finish(), 1)
        self.assertIn("""\
bad.rgi(2): error : Unknown keyword in register header. (LSBS)
    2 | REGISTER_NAME, LSBS
      |                ^~~~
""", run.seen())

    def test_an_error_without_a_line_stands_alone(self) -> None:
        self.assert_seen(["run", "no.mac"], 1, "error : File open error. (no.mac)\n")
        self.write("a.mac", "x[1.5] = 1\n")
        self.assert_seen(["check", "a.mac"], 1, "a.mac: error : the file can't be compiled.\n")

    def test_the_text_of_an_encoded_file_is_not_shown(self) -> None:
        self.write("a.mac", "x = )\n")
        self.assertEqual(self.macroctl("encode", "a.mac", "a.dat").status, 0)
        self.assert_seen(
            ["check", "a.dat"], 1, "a.dat(1): error : syntax error ')'. Can't find Variable or value.\n")


class ColourTest(TerminalTest):
    PLAIN = """\
a.mac(1): error : syntax error ')'. Can't find Variable or value.
    1 | x = )
      |     ^
"""
    COLOURED = """\
a.mac(1): \x1b[1;31merror\x1b[0m : syntax error ')'. Can't find Variable or value.
    1 | x = )
      |     \x1b[1;31m^\x1b[0m
"""

    def test_colours(self) -> None:
        self.write("a.mac", "x = )\n")
        for variables, seen in [
            ({}, self.COLOURED),
            ({"NO_COLOR": ""}, self.COLOURED),
            ({"NO_COLOR": "1"}, self.PLAIN),
            ({"TERM": "dumb"}, self.PLAIN),
        ]:
            with self.subTest(variables):
                self.assert_seen(["check", "a.mac"], 1, seen, colours=True, **variables)


class ProgressTest(TerminalTest):
    """A named pipe is a file that takes as long as the test wants."""

    def give(self, name: str, text: str) -> None:
        with open(self.folder / name, "w", encoding="utf-8") as pipe:
            pipe.write(text)

    def test_a_register_file_that_takes_long_to_read(self) -> None:
        os.mkfifo(self.folder / "big.rgi")
        run = self.on_terminal("registers", "--psc", "big.rgi")
        run.wait_for("\rreading big.rgi, 1 s")
        run.wait_for("\rreading big.rgi, 2 s")
        self.give("big.rgi", "GAIN 1 10 0 8\n")
        self.assertEqual(run.finish(), 0)
        self.assertRegex(run.seen(), r"\ANAME .*\nGAIN .*\n\Z")

    def test_the_line_of_the_last_call_is_shown_and_makes_way_for_output(self) -> None:
        self.write("a.mac", 'board.print("one")\nboard.write(1, 2)\nwait_ms(2500)\nboard.print("two")\n')
        run = self.on_terminal("run", "--board", "a.mac")
        run.wait_for("\rrunning a.mac(2), 1 s")
        self.assertEqual((run.finish(), run.seen()), (0, "one\ntwo\n"))

    def test_without_a_call_the_file_is_shown(self) -> None:
        self.write("a.mac", "wait_ms(1500)\n")
        run = self.on_terminal("run", "a.mac")
        run.wait_for("\rrunning a.mac, 1 s")
        self.assertEqual((run.finish(), run.seen()), (0, ""))

    def test_a_pipe_sees_nothing_of_it(self) -> None:
        self.write("a.mac", "wait_ms(1500)\n")
        self.assert_result(self.macroctl("run", "a.mac"), 0)


if __name__ == "__main__":
    unittest.main()
