"""`macroctl registers` shows register files in many forms. The whole outputs stand in the folder golden; with
REFRESH_GOLDENS in the environment the tests write them anew, to be looked at before they are committed."""

import csv
import html.parser
import io
import json
import os
import pathlib
import pty
import shutil
import subprocess
import unittest

from cli_support import IS_WINDOWS, MACROCTL_COMMAND, SOURCE_DIR, CliTest

GOLDEN = pathlib.Path(__file__).with_name("golden")
SCHEMA = os.environ.get("MACROENGINE_SVD_SCHEMA")

SMALL = "[REGISTER]\nREGISTER_NAME, ADDRESS_2WIRE, LSB, LENGTH, RW\nA, 0x10, 0, 8, RW\nB, 0x11, 0, 4, RO\n"
SMALL_TABLE = (
    "NAME  2-WIRE  3-WIRE  LSB  LEN  RW  ENDIAN\n"
    "A     0x0010       -    0    8  RW  big\n"
    "B     0x0011       -    0    4  RO  big\n")


class RegistersTest(CliTest):
    def registers(self, *arguments: str, cwd: pathlib.Path = GOLDEN, columns: str | None = None) -> str:
        """What the command writes, byte for byte. It has to succeed in silence."""
        environment = {key: value for key, value in os.environ.items() if key != "COLUMNS"}
        if columns is not None:
            environment["COLUMNS"] = columns
        done = subprocess.run(
            [*MACROCTL_COMMAND, "registers", *arguments], cwd=cwd, env=environment, stdin=subprocess.DEVNULL,
            capture_output=True, timeout=60, check=False)
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        return done.stdout.decode("utf-8")

    def assert_golden(self, name: str, text: str) -> None:
        path = GOLDEN / name
        if "REFRESH_GOLDENS" in os.environ:
            path.write_bytes(text.encode("utf-8"))
        self.assertEqual(text, path.read_bytes().decode("utf-8"))


class FormatTest(RegistersTest):
    def test_table(self) -> None:
        self.assert_golden("device.table", self.registers("device.rgi"))
        self.assert_golden("pieces.table", self.registers("pieces.txt"))
        self.assertEqual(self.registers("device.rgi"), self.registers("device.rgi", "--format", "table"))

    def test_table_of_a_width(self) -> None:
        for columns in (100, 80, 79):
            text = self.registers("device.rgi", columns=str(columns))
            self.assertEqual(max(map(len, text.splitlines())), columns)
        self.assert_golden("device.80.table", self.registers("device.rgi", columns="80"))
        # Where there is hardly any room the texts keep a little and the line gets longer.
        self.assertEqual(self.registers("device.rgi", columns="10"), self.registers("device.rgi", columns="1"))
        self.assertEqual(self.registers("device.rgi", columns="wide"), self.registers("device.rgi"))

    @unittest.skipIf(IS_WINDOWS, "needs a terminal to write to")
    def test_table_of_a_terminal(self) -> None:
        import fcntl
        import struct
        import termios

        outer, inner = pty.openpty()
        fcntl.ioctl(inner, termios.TIOCSWINSZ, struct.pack("HHHH", 25, 80, 0, 0))
        environment = {key: value for key, value in os.environ.items() if key != "COLUMNS"}
        subprocess.run([*MACROCTL_COMMAND, "registers", "pieces.txt"], cwd=GOLDEN, env=environment, stdout=inner,
                       stdin=subprocess.DEVNULL, timeout=60, check=True)
        os.close(inner)
        pieces = []
        try:
            while piece := os.read(outer, 100000):
                pieces.append(piece)
        except OSError:
            pass  # the end, as Linux has it
        os.close(outer)
        text = b"".join(pieces).decode("utf-8").replace("\r\n", "\n")
        self.assertEqual(text, self.registers("pieces.txt", columns="80"))
        self.assertNotEqual(text, self.registers("pieces.txt"))

    def test_wide_and_broken_characters_keep_the_columns(self) -> None:
        path = self.folder / "a.rgi"
        path.write_bytes(
            SMALL.replace("RW\nA", "RW, DESCRIPTION\nA").replace(", RW\n", ', RW, "増幅"\n', 1).encode("utf-8")
            .replace(b", RO\n", b', RO, "a\xff\tb\x1b[1m"\n'))
        done = subprocess.run([*MACROCTL_COMMAND, "registers", "a.rgi"], cwd=self.folder, capture_output=True, timeout=60,
                              check=True)
        self.assertEqual(done.stdout.splitlines()[1:], [
            "A     0x0010       -    0    8  RW  big     増幅".encode("utf-8"),
            b"B     0x0011       -    0    4  RO  big     a\xff b [1m"])

    def test_listing_is_the_engines_own(self) -> None:
        text = self.registers("device.rgi", "--format", "listing")
        self.assert_golden("device.listing", text)
        self.assertEqual(text.count("\n"), text.count("\r\n"))
        self.assertEqual(
            self.registers("device.rgi", "pieces.txt", "--format", "listing"),
            text + self.registers("pieces.txt", "--format", "listing"))

    def test_csv(self) -> None:
        text = self.registers("device.rgi", "pieces.txt", "--format", "csv")
        self.assert_golden("both.csv", text)
        rows = list(csv.DictReader(io.StringIO(text, newline="")))
        self.assertEqual(len(rows), 10 + 5)
        self.assertEqual(rows[1]["description"], 'Is "1" after <reset> & | *start* */ ??/')
        self.assertEqual(rows[10]["function"], "GAIN %Xh 34 0 8 // in steps\r\nA note.")

    def test_json(self) -> None:
        text = self.registers("device.rgi", "pieces.txt", "--format", "json")
        self.assert_golden("both.json", text)
        device, pieces = json.loads(text)["files"]
        self.assertEqual(
            (device["format"], len(device["registers"]), pieces["format"], len(pieces["registers"])),
            ("sectioned", 10, "line-based", 5))
        self.assertEqual(pieces["registers"][3], {
            "name": "COUNT", "address_2wire": 0x120020, "address_3wire": 0x120020, "lsb": 0, "length": 16, "rw": "RW",
            "endian_2wire": "big", "endian_3wire": "big", "initial_value": 0x1234, "description": "COUNT",
            "function": "COUNT %Xh 21 0 8 20 0 8"})

    def test_json_without_registers_and_with_bytes_that_are_no_text(self) -> None:
        self.write("empty.rgi", "[REGISTER]\nREGISTER_NAME, ADDRESS_2WIRE, LSB, LENGTH, RW\n")
        (self.folder / "a.txt").write_bytes(b"A\xe9 1 10 0 8\n")
        files = json.loads(self.registers("empty.rgi", "a.txt", "--format", "json", cwd=self.folder))["files"]
        self.assertEqual(files[0]["registers"], [])
        self.assertEqual(files[1]["registers"][0]["name"], "A\ufffd")

    def test_markdown(self) -> None:
        self.assert_golden("both.md", self.registers("device.rgi", "pieces.txt", "--format", "markdown"))

    def test_svd(self) -> None:
        self.assert_golden("both.svd", self.registers("device.rgi", "pieces.txt", "--format", "svd"))

    def test_html(self) -> None:
        text = self.registers("device.rgi", "pieces.txt", "--format", "html")
        self.assert_golden("both.html", text)
        page = Page()
        page.feed(text)
        page.close()
        self.assertEqual(page.open, [])
        self.assertEqual(page.counts["tr"], 2 + 10 + 5)
        # COMMAND has its 4 bits in one drawing; GAIN's bytes are in another order on each bus.
        self.assertEqual(page.counts["svg"], 15 + sum(1 for length in (14, 32, 40, 79) if length > 8))
        self.assertEqual(page.links, [])
        self.assertIn('Is "1" after <reset> & | *start* */ ??/', page.texts)


    def test_html_has_no_markup_of_the_file(self) -> None:
        name = "<script>alert('&lt;')</script>"
        self.write("a.txt", f"{name} 1 10 0 8 // </td><img src=x>&amp;\n//.</script>\n")
        page = Page()
        page.feed(self.registers("a.txt", "--format", "html", cwd=self.folder))
        page.close()
        self.assertEqual((page.open, page.links, page.counts["script"], page.counts["td"]), ([], [], 1, 9))
        self.assertIn(name, page.texts)
        self.assertIn(f"{name} %d 10 0 8 // </td><img src=x>&amp;\n</script>", page.texts)


class Page(html.parser.HTMLParser):
    """Takes a page apart and insists that every element is closed."""

    EMPTY = ("meta", "input", "rect")

    def __init__(self) -> None:
        super().__init__()
        self.open: list[str] = []
        self.counts: dict[str, int] = {}
        self.links: list[str] = []
        self.texts: list[str] = []

    def handle_starttag(self, tag, attrs) -> None:
        self.counts[tag] = self.counts.get(tag, 0) + 1
        self.links += [value for name, value in attrs if name in ("src", "href")]
        if tag not in self.EMPTY:
            self.open.append(tag)

    def handle_endtag(self, tag) -> None:
        if tag not in self.EMPTY:
            assert self.open.pop() == tag, tag

    def handle_data(self, data) -> None:
        self.texts.append(data)


class SvdTest(RegistersTest):
    @unittest.skipUnless(SCHEMA, "MACROENGINE_SVD_SCHEMA names no schema")
    @unittest.skipUnless(shutil.which("xmllint"), "needs xmllint")
    def test_svd_keeps_to_the_schema(self) -> None:
        self.write("empty.rgi", "[REGISTER]\nREGISTER_NAME, ADDRESS_2WIRE, LSB, LENGTH, RW\n")
        (self.folder / "5.txt").write_bytes(b"A\xe9\x01<&> 1 10 0 8\nB 1 123456 9 200\nC 1\n")
        examples = sorted(str(file) for file in (SOURCE_DIR / "examples" / "registers").glob("*.*"))
        for files in [[str(GOLDEN / "device.rgi"), str(GOLDEN / "pieces.txt")], ["empty.rgi"], ["5.txt"],
                      *([file] for file in examples)]:
            with self.subTest(files):
                path = self.write("out.svd", self.registers(*files, "--format", "svd", cwd=self.folder))
                done = self.execute("xmllint", "--noout", "--nonet", "--schema", str(SCHEMA), path)
                self.assertEqual((done.status, done.err), (0, "out.svd validates\n"))


class HeaderTest(RegistersTest):
    # A condition that doesn't hold makes an array of a negative size.
    CONDITIONS = [
        "ID_ADDRESS_2WIRE == 0 && ID_ADDRESS_3WIRE == 0x1000",
        "ID_BIG_ENDIAN_2WIRE && !ID_BIG_ENDIAN_3WIRE",
        "MODE_LSB == 4 && MODE_LENGTH == 3 && MODE_MASK == 0x70",
        "GAIN_ADDRESS_2WIRE == 0x10 && GAIN_MASK == 0x3FF0",
        "GAIN_2_ADDRESS_2WIRE == 0x30 && GAIN_3_ADDRESS_2WIRE == 0x34",
        "R2ND_MODE_MASK == 0xFFFFFFFF",
        "WIDE_MASK == 0xFFFFFFFFFFull",
        "R_HIDDEN_LENGTH == 72",
        "GAIN_3_INITIAL == 0x1F && COUNT_INITIAL == 0x1234 && TEMP_1_INITIAL == 9",
    ]

    def test_header(self) -> None:
        self.assert_golden("both.c-header", self.registers("device.rgi", "pieces.txt", "--format", "c-header"))

    @unittest.skipIf(IS_WINDOWS, "the options are those of g++ and clang++")
    def test_header_compiles_in_c_and_cpp(self) -> None:
        self.write("registers.h", self.registers("device.rgi", "pieces.txt", "--format", "c-header"))
        source = '#include "registers.h"\n#include "registers.h"\n#ifdef R_HIDDEN_MASK\n#error\n#endif\n'
        source += "".join(f"typedef char check{i}[({condition}) ? 1 : -1];\n"
                          for i, condition in enumerate(self.CONDITIONS))
        self.write("all.c", source)
        for language in (["c", "-std=c99"], ["c++", "-std=c++98", "-Wno-long-long"], ["c++", "-std=c++17"]):
            with self.subTest(language):
                done = self.execute(
                    os.environ.get("CXX", "c++"), "-x", *language, "-Wall", "-Wextra", "-pedantic", "-Werror",
                    "-fsyntax-only", "all.c")
                self.assert_result(done, 0)


class ReaderTest(RegistersTest):
    def test_the_content_chooses_the_reader(self) -> None:
        self.write("a.txt", SMALL)
        self.write("b.rgi", "A 0 10 0 8\n")
        self.write("c.txt", "// see [REGISTER]\nA 0 10 0 8\n")
        self.write("d.txt", SMALL.replace("[REGISTER]", "/* header */ [ REGISTER ]"))
        for name in ("a.rgi", "a.iod", "a.dat"):
            self.macroctl("encode", "a.txt", name)
        for name, kind in [("a.txt", "sectioned"), ("b.rgi", "line-based"), ("c.txt", "line-based"),
                           ("d.txt", "sectioned"), ("a.rgi", "sectioned"), ("a.iod", "sectioned"),
                           ("a.dat", "sectioned")]:
            with self.subTest(name):
                files = json.loads(self.registers(name, "--format", "json", cwd=self.folder))["files"]
                self.assertEqual((files[0]["format"], files[0]["registers"][0]["name"]), (kind, "A"))

    def test_a_misspelt_section_is_told(self) -> None:
        self.write("a.txt", "A device.\n  [register]  // of the device\nREGISTER_NAME, ADDRESS_2WIRE, LSB, LENGTH, RW\n")
        self.assert_result(self.macroctl("registers", "a.txt"), 1,
                           err="a.txt(4): error : Can't find [ENDIAN] or [REGISTER].\n")

    def test_psc_insists_on_the_line_based_reader(self) -> None:
        self.write("a.txt", "[REGISTER] 0 10 0 8\n")
        files = json.loads(self.registers("--psc", "a.txt", "--format", "json", cwd=self.folder))["files"]
        self.assertEqual((files[0]["format"], files[0]["registers"][0]["name"]), ("line-based", "[REGISTER]"))

    def test_merge(self) -> None:
        whole = json.loads(self.registers("--merge", "pieces.txt", "--format", "json"))["files"][0]["registers"]
        self.assertEqual([reg["name"] for reg in whole], ["GAIN", "PART_A", "COUNT", "TEMP.1"])
        self.assertEqual((whole[1]["length"], whole[1]["initial_value"]), (8, 0x21))
        # The sectioned format knows no parts.
        self.assertEqual(self.registers("--merge", "device.rgi"), self.registers("device.rgi"))

    def test_an_address_that_the_file_does_not_give(self) -> None:
        self.write("a.rgi", SMALL)
        self.assertEqual(self.registers("a.rgi", cwd=self.folder), SMALL_TABLE)

    def test_address_zero_counts_where_the_bus_is_used(self) -> None:
        self.write("a.rgi", "[ENDIAN]\nL:0..0xFF\n" + SMALL.replace("0x10", "0"))
        self.assertEqual(self.registers("a.rgi", cwd=self.folder).splitlines()[1].split()[1:3], ["0x0000", "-"])
        self.write("b.rgi", "[ENDIAN]\nL:0..0xFF\n" + SMALL.replace("0x10", "0").replace("0x11", "0"))
        self.assertEqual(self.registers("b.rgi", cwd=self.folder).splitlines()[1].split()[1:3], ["0x0000", "-"])

    def test_several_files(self) -> None:
        self.write("a.rgi", SMALL)
        self.assertEqual(
            self.registers("a.rgi", "a.rgi", cwd=self.folder), f"a.rgi\n{SMALL_TABLE}\na.rgi\n{SMALL_TABLE}")


class ErrorTest(CliTest):
    def test_what_could_be_read_is_shown(self) -> None:
        self.write("a.rgi", SMALL.replace("A, 0x10, 0", "X, 0x10, 8") + "C, 0x12, 0, 8, RWX\n")
        self.assert_result(
            self.macroctl("registers", "a.rgi"), 1,
            "NAME  2-WIRE  3-WIRE  LSB  LEN  RW  ENDIAN\nB     0x0011       -    0    4  RO  big\n",
            "a.rgi(3): error : LSB filed is not numric or invalid value.\n"
            "a.rgi(5): error : RW filed is invalid keyword.\n")

    def test_a_bad_line_of_a_line_based_file(self) -> None:
        self.write("a.txt", "HiAddress XY\nA 1 10 0 8\n")
        result = self.macroctl("registers", "a.txt")
        self.assertEqual((result.status, result.err), (1, "a.txt(1): error : Invalid HiAddress description.\n"))
        self.assertIn("0x0010", result.out)

    def test_files_that_cannot_be_read(self) -> None:
        self.write("a.rgi", SMALL)
        self.write("empty.rgi", "")
        self.assert_result(
            self.macroctl("registers", "no.rgi", "a.rgi", "empty.rgi"), 1,
            f"no.rgi\n\na.rgi\n{SMALL_TABLE}\nempty.rgi\n",
            "error : File open error. (no.rgi)\nerror : File read error. (empty.rgi)\n")
        self.assert_result(
            self.macroctl("registers", "--psc", "no.txt"), 1, err="error : File open error. (no.txt)\n")

    @unittest.skipIf(IS_WINDOWS, "needs a name for standard input")
    def test_a_pipe_is_read_once(self) -> None:
        self.assert_result(self.macroctl("registers", "/dev/stdin", text="A 1 10 0 8\n"), 1,
                           err="error : File read error. (/dev/stdin)\n")
        self.assert_result(
            self.macroctl("registers", "--psc", "/dev/stdin", text="A 1 10 0 8\n"), 0,
            "NAME  2-WIRE  3-WIRE  LSB  LEN  RW  ENDIAN  INITIAL  FUNCTION\n"
            "A     0x0010  0x0010    0    8  RW  little     0x01  A %d 10 0 8\n")

    def test_a_section_without_the_other(self) -> None:
        self.write("a.rgi", "[ENDIAN]\nB:0..1\n")
        result = self.macroctl("registers", "a.rgi")
        self.assertEqual(result.status, 1)
        self.assertIn("error : ", result.err)

    @unittest.skipIf(IS_WINDOWS or not pathlib.Path("/dev/full").exists(), "needs a device that takes nothing")
    def test_output_that_cannot_be_written(self) -> None:
        self.write("a.rgi", SMALL)
        with open("/dev/full", "w", encoding="utf-8") as full:
            done = subprocess.run(
                [*MACROCTL_COMMAND, "registers", "a.rgi"], cwd=self.folder, stdout=full, stderr=subprocess.PIPE,
                encoding="utf-8", timeout=60, check=False)
        self.assertEqual((done.returncode, done.stderr), (1, "macroctl: can't write to standard output\n"))


if __name__ == "__main__":
    unittest.main()
