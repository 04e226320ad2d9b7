"""`macroctl diff` tells what has changed between two register files, and whether it breaks anything."""

import json
import unittest

from cli_support import CliTest

HEADER = "REGISTER_NAME, ADDRESS_2WIRE, ADDRESS_3WIRE, LSB, LENGTH, RW, DESCRIPTION, FUNCTION\n"
ENDIAN = "[ENDIAN]\nB:0..0xFF\nL:0x100..0x1FF\n"
PLAIN = 'A, 0x10, 0x20, 0, 8, RW, "text", "more"\n'


class DiffTest(CliTest):
    def write_files(self, old: str, new: str) -> None:
        self.write("old.rgi", ENDIAN + "[REGISTER]\n" + HEADER + old)
        self.write("new.rgi", ENDIAN + "[REGISTER]\n" + HEADER + new)

    def assert_diff(self, old: str, new: str, status: int, out: str) -> None:
        self.write_files(old, new)
        self.assert_result(self.macroctl("diff", "old.rgi", "new.rgi"), status, out)

    def test_no_change(self) -> None:
        self.assert_diff(PLAIN, "\n" + PLAIN + "// a comment\n", 0, "")

    def test_each_kind_of_change(self) -> None:
        for new, status, out in [
            ('A, 0x11, 0x20, 0, 8, RW, "text", "more"\n', 2,
             "breaking    moved          A: two-wire address 0x0010 -> 0x0011\n"),
            ('A, 0x10, 0x21, 0, 8, RW, "text", "more"\n', 2,
             "breaking    moved          A: three-wire address 0x0020 -> 0x0021\n"),
            ('A, 0x10, 0x20, 1, 8, RW, "text", "more"\n', 2, "breaking    moved          A: LSB 0 -> 1\n"),
            ('A, 0x10, 0x20, 0, 7, RW, "text", "more"\n', 2, "breaking    width          A: 8 -> 7\n"),
            ('A, 0x10, 0x20, 0, 9, RW, "text", "more"\n', 2, "breaking    width          A: 8 -> 9\n"),
            ('A, 0x10, 0x20, 0, 8, RO, "text", "more"\n', 2, "breaking    access         A: RW -> RO\n"),
            ('B, 0x10, 0x20, 0, 8, RW, "text", "more"\n', 2, "breaking    renamed        B: was A\n"),
            ('B, 0x11, 0x20, 0, 8, RW, "text", "more"\n', 2,
             "breaking    removed        A\ncompatible  added          B\n"),
            ('A, 0x10, 0x20, 0, 8, RW, "texts", "more"\n', 1, "compatible  text           A: description\n"),
            ('A, 0x10, 0x20, 0, 8, RW, "text", "less"\n', 1, "compatible  text           A: function\n"),
            (PLAIN + 'B, 0x10, 0x20, 0, 8, RW, "text", "more"\n', 1, "compatible  added          B\n"),
            ("", 2, "breaking    removed        A\n"),
        ]:
            with self.subTest(new):
                self.assert_diff(PLAIN, new, status, out)

    def test_rights(self) -> None:
        keeps = {("NC", "RO"), ("NC", "WO"), ("NC", "RW"), ("RO", "RW"), ("WO", "RW")}
        for old in ("NC", "RO", "WO", "RW"):
            for new in ("NC", "RO", "WO", "RW"):
                with self.subTest(old=old, new=new):
                    status = 0 if old == new else 1 if (old, new) in keeps else 2
                    word = ("", "compatible  ", "breaking    ")[status]
                    self.assert_diff(
                        PLAIN.replace("RW", old), PLAIN.replace("RW", new), status,
                        f"{word}access         A: {old} -> {new}\n" if status else "")

    def test_byte_order(self) -> None:
        self.write_files(PLAIN, PLAIN)
        text = (self.folder / "new.rgi").read_text(encoding="utf-8")
        self.write("new.rgi", text.replace("B:0..0xFF", "L:0..0x1F\nB:0x20..0xFF"))
        self.assert_result(
            self.macroctl("diff", "old.rgi", "new.rgi"), 2, "breaking    endianness     A: two-wire big -> little\n")

    def test_a_bus_that_comes_or_goes(self) -> None:
        self.write("both.rgi", "[REGISTER]\nREGISTER_NAME, LSB, LENGTH, RW, ADDRESS_2WIRE, ADDRESS_3WIRE\n"
                               "A, 0, 8, RW, 0x10, 0x20\n")
        self.write("one.rgi", "[REGISTER]\nREGISTER_NAME, LSB, LENGTH, RW, ADDRESS_2WIRE\nA, 0, 8, RW, 0x10\n")
        self.assert_result(
            self.macroctl("diff", "one.rgi", "both.rgi"), 1,
            "compatible  moved          A: three-wire address none -> 0x0020\n")
        self.assert_result(
            self.macroctl("diff", "both.rgi", "one.rgi"), 2,
            "breaking    moved          A: three-wire address 0x0020 -> none\n")

    def test_the_order_of_changes(self) -> None:
        old = "".join(f"{name}, {i}, {i}, 0, 8, RW\n" for i, name in enumerate("ABCDE"))
        new = ("X, 0x50, 0x50, 0, 8, RW\nE, 4, 4, 0, 4, RO\nB, 1, 1, 0, 8, RW\nD2, 3, 3, 0, 8, RO\n"
               "Y, 0x51, 0x51, 0, 8, RW\nC, 2, 2, 1, 8, RW\n")
        self.assert_diff(
            old, new, 2,
            "breaking    removed        A\n"
            "breaking    moved          C: LSB 0 -> 1\n"
            "breaking    renamed        D2: was D\n"
            "breaking    access         D2: RW -> RO\n"
            "breaking    width          E: 8 -> 4\n"
            "breaking    access         E: RW -> RO\n"
            "compatible  added          X\n"
            "compatible  added          Y\n")

    def test_a_swap_of_names_is_no_renaming(self) -> None:
        self.assert_diff(
            "A, 1, 1, 0, 8, RW\nB, 2, 2, 0, 8, RW\n", "B, 1, 1, 0, 8, RW\nA, 2, 2, 0, 8, RW\n", 2,
            "breaking    moved          A: two-wire address 0x0001 -> 0x0002\n"
            "breaking    moved          A: three-wire address 0x0001 -> 0x0002\n"
            "breaking    moved          B: two-wire address 0x0002 -> 0x0001\n"
            "breaking    moved          B: three-wire address 0x0002 -> 0x0001\n")

    def test_registers_of_one_name_go_by_their_order(self) -> None:
        self.assert_diff(
            "A, 1, 1, 0, 8, RW\nA, 2, 2, 0, 8, RW\n", "A, 1, 1, 0, 8, RW\nA, 2, 2, 0, 8, RO\nA, 3, 3, 0, 8, RW\n", 2,
            "breaking    access         A: RW -> RO\ncompatible  added          A\n")

    def test_json(self) -> None:
        self.write_files(PLAIN + "B, 1, 1, 0, 8, RO\n", PLAIN.replace("0x10", "0x11") + "C, 2, 2, 0, 8, RO\n")
        result = self.macroctl("diff", "--format", "json", "old.rgi", "new.rgi")
        self.assertEqual((result.status, result.err), (2, ""))
        self.assertEqual(json.loads(result.out), {
            "old": "old.rgi", "new": "new.rgi", "breaking": True, "changes": [
                {"change": "moved", "breaking": True, "register": "A", "what": "address_2wire", "old": 16, "new": 17},
                {"change": "removed", "breaking": True, "register": "B"},
                {"change": "added", "breaking": False, "register": "C"}]})
        result = self.macroctl("diff", "--format", "json", "old.rgi", "old.rgi")
        self.assertEqual((result.status, result.err), (0, ""))
        self.assertEqual(json.loads(result.out), {"old": "old.rgi", "new": "old.rgi", "breaking": False, "changes": []})


class LineBasedTest(CliTest):
    def assert_diff(self, old: str, new: str, status: int, out: str) -> None:
        self.write("old.txt", old)
        self.write("new.txt", new)
        self.assert_result(self.macroctl("diff", "old.txt", "new.txt"), status, out)

    def test_initial_value(self) -> None:
        self.assert_diff("A h1F 10 0 8\n", "A 32  10 0 8\n", 1, "compatible  initial value  A: 0x1F -> 0x20\n")

    def test_notes(self) -> None:
        self.assert_diff("A 1 10 0 8\n", "A 1 10 0 8 // new\n", 1, "compatible  text           A: notes\n")
        self.assert_diff("A 1 10 0 8\n//.x\n", "A 1 10 0 8\n//.y\n", 1, "compatible  text           A: notes\n")

    def test_pieces(self) -> None:
        self.assert_diff(
            "A 1 10 0 8 11 0 8\n", "A  1 10 0 8\t12 0 8\n", 2,
            "breaking    moved          A: pieces 10 0 8 11 0 8 -> 10 0 8 12 0 8\n")
        self.assert_diff("A 1 10 0 8\n", "A h1   10   0 8\n", 0, "")

    def test_a_high_address_moves_what_follows(self) -> None:
        self.assert_diff(
            "A 1 10 0 8\n", "HiAddress 1\nA 1 10 0 8\n", 2,
            "breaking    moved          A: two-wire address 0x0010 -> 0x10010\n"
            "breaking    moved          A: three-wire address 0x0010 -> 0x10010\n")

    def test_psc(self) -> None:
        self.write("old.txt", "[REGISTER] 1 10 0 8\n")
        self.write("new.txt", "[REGISTER] 2 10 0 8\n")
        self.assert_result(
            self.macroctl("diff", "--psc", "old.txt", "new.txt"), 1,
            "compatible  initial value  [REGISTER]: 0x1 -> 0x2\n")

    def test_files_of_both_formats(self) -> None:
        self.write("a.rgi", "[REGISTER]\nREGISTER_NAME, ADDRESS_2WIRE, ADDRESS_3WIRE, LSB, LENGTH, RW\n"
                            "A, 0x3000, 0x3000, 0, 8, RW\n")
        self.write("a.txt", "A h1F 3000 0 8\n")
        # Neither initial values nor texts can be compared.
        self.assert_result(self.macroctl("diff", "a.rgi", "a.txt"), 0)


class UnreadableTest(CliTest):
    def test_a_file_with_errors_is_not_compared(self) -> None:
        self.write("good.rgi", "[REGISTER]\nREGISTER_NAME, ADDRESS_2WIRE, LSB, LENGTH, RW\nA, 0x10, 0, 8, RW\n")
        self.write("bad.rgi", "[REGISTER]\nREGISTER_NAME, ADDRESS_2WIRE, LSB, LENGTH, RW\nA, 0x10, 0, 8, RX\n")
        bad, missing = "bad.rgi(3): error : RW filed is invalid keyword.\n", "error : File open error. (no.rgi)\n"
        for arguments, err in [(("good.rgi", "bad.rgi"), bad), (("bad.rgi", "good.rgi"), bad),
                               (("good.rgi", "no.rgi"), missing), (("no.rgi", "bad.rgi"), missing + bad)]:
            with self.subTest(arguments):
                self.assert_result(self.macroctl("diff", *arguments), 3, err=err)


if __name__ == "__main__":
    unittest.main()
