"""Register files made to hurt, read by both readers. read_registers prints the records and lines of each."""

import unittest

from hostile_support import MACROCTL, HostileTest

MILLION = 1_000_000
HEADER = "[REGISTER]\nREGISTER_NAME,ADDRESS_2WIRE,LSB,LENGTH,RW\n"


class RegistersTest(HostileTest):
    def test_many_records(self) -> None:
        result = self.read_registers("a.rgi", HEADER + "A,1,0,8,RW\n" * MILLION, mebibytes=768)
        self.assertEqual(result.out.splitlines()[0], "sectioned: 1000000 records, 0 errors")

    def test_many_records_without_memory(self) -> None:
        result = self.read_registers("a.rgi", HEADER + "A,1,0,8,RW\n" * MILLION, mebibytes=48)
        lines = result.out.splitlines()
        self.assertEqual(lines[0], "sectioned: 0 records, 1 errors")
        self.assertRegex(lines[1], r"^a\.rgi\(\d+\): error : Memory allocation error$")
        self.assertEqual(result.status, 0, result.err)

    def test_many_lines(self) -> None:
        result = self.read_registers("a.txt", "A 10 0 8\n" * MILLION, mebibytes=768)
        self.assertIn("line-based: 1000000 records, 0 errors", result.out)

    def test_many_errors(self) -> None:
        result = self.read_registers("a.rgi", HEADER + "?\n" * MILLION, mebibytes=1024)
        self.assertEqual(result.out.splitlines()[0], "sectioned: 0 records, 1000000 errors")

    def test_a_comparison_without_memory_is_none(self) -> None:
        self.write("a.txt", "".join(f"R{i} h1F {i:X} 0 8\n" for i in range(300_000)))
        for mebibytes in (24, 48, 72):
            with self.subTest(mebibytes):
                result = self.limited(mebibytes, str(MACROCTL), "diff", "a.txt", "a.txt")
                self.assertEqual((result.status, result.out), (3, ""), result.err)
                self.assertRegex(
                    result.err, r"^(macroctl: out of memory|a\.txt\(\d+\): error : Memory allocation error)\n")

    def test_long_lines(self) -> None:
        long = "x" * (100 << 20)
        result = self.read_registers("a.rgi", HEADER + "A,1,0,8,RW," + long + "\nB,1,0,8,RW\n", mebibytes=1024)
        self.assertEqual(result.out.splitlines()[0], "sectioned: 2 records, 0 errors")
        self.assertEqual(result.status, 0, result.err)

    def test_repeated_columns(self) -> None:
        columns = "[REGISTER]\nREGISTER_NAME" + ",LSB" * MILLION + "\nA" + ",0" * MILLION + "\n"
        result = self.read_registers("a.rgi", columns)
        self.assertEqual(result.out.splitlines()[0], "sectioned: 0 records, 3 errors")

    def test_many_ranges(self) -> None:
        ranges = "[ENDIAN]\n" + "B:0..0xFFFF\nL:0..0xFFFF\n" * 100_000 + HEADER + "A,1,0,8,RW\n"
        result = self.read_registers("a.rgi", ranges)
        self.assertEqual(result.out.splitlines()[0], "sectioned: 1 records, 0 errors")

    def test_a_long_preamble(self) -> None:
        result = self.read_registers("a.rgi", "[ x ] " * MILLION + "\n" + HEADER)
        self.assertEqual(result.out.splitlines()[0], "sectioned: 0 records, 0 errors")

    def test_many_notes(self) -> None:
        result = self.read_registers("a.txt", "A 10 0 8\n" + "//.note\n" * MILLION)
        self.assertIn("line-based: 1 records, 0 errors", result.out)


if __name__ == "__main__":
    unittest.main()
