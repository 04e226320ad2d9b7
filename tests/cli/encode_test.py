"""`macroctl encode` and `macroctl decode`: a text and its encoded form, and back without a change."""

import os
import pathlib
import random
import unittest

from cli_support import IS_WINDOWS, CliTest

LONGEST_LINE = 4095


class EncodeTest(CliTest):
    def put(self, name: str, data: bytes) -> str:
        (self.folder / name).write_bytes(data)
        return name

    def get(self, name: str) -> bytes:
        return (self.folder / name).read_bytes()

    def encode(self, data: bytes) -> bytes:
        self.assert_result(self.macroctl("encode", self.put("in", data), "out"), 0)
        return self.get("out")

    def decode(self, data: bytes) -> bytes:
        self.assert_result(self.macroctl("decode", self.put("in", data), "out"), 0)
        return self.get("out")

    def assert_there_and_back(self, data: bytes) -> None:
        self.assertEqual(self.decode(self.encode(data)), data)

    def test_the_encoded_form(self) -> None:
        for text, encoded in [
            (b"", b""), (b"\n", b"\n"), (b"\r\n\n", b"\r\n\n"), (b"A", b"vg**"), (b"AB\n", b"vr0*\n"),
            (b"ABC\r\n", b"vr28\r\n"), (b"\x01\x02\x03", b"-v38"), (b"A\rB\n", b"vvK9\n"), (b"A\r", b"vvI*"),
        ]:
            with self.subTest(text):
                self.assertEqual(self.encode(text), encoded)
                self.assertEqual(self.decode(encoded), text)

    def test_line_ends_stay_what_they_are(self) -> None:
        for data in [b"a\nb\r\nc", b"a\rb\r\r\nc\r", b"\r", b"\r\r\n", b"\n\n\n", b"a\r\n", b"\n\r", b"x"]:
            with self.subTest(data):
                self.assert_there_and_back(data)
                encoded = self.get("in")
                self.assertEqual(encoded.count(b"\n"), data.count(b"\n"))

    def test_any_text(self) -> None:
        generator = random.Random(4711)
        common = [b"\n", b"\r\n", b"\r", b"//", b" ", b"[REGISTER]"]
        # Starting a program for Windows takes its time.
        for _ in range(10 if IS_WINDOWS else 60):
            parts = [generator.choice(common) if generator.random() < 0.3 else
                     bytes(generator.randrange(1, 255) for _ in range(generator.randrange(200)))
                     for _ in range(generator.randrange(40))]
            data = b"".join(parts)
            with self.subTest(data):
                self.assert_there_and_back(data)

    def test_lines_up_to_the_limit(self) -> None:
        for length in (LONGEST_LINE - 2, LONGEST_LINE - 1, LONGEST_LINE):
            for end in (b"", b"\n", b"\r\n"):
                self.assert_there_and_back(b"short\n" + b"x" * length + end)

    def test_what_has_no_encoded_form(self) -> None:
        for data, words in [
            (b"a\nb\n" + b"x" * (LONGEST_LINE + 1) + b"\n", "3): error : the line is longer than 4095 bytes."),
            (b"x" * LONGEST_LINE + b"\r", "1): error : the line is longer than 4095 bytes."),
            (b"a\n\x00", "2): error : the line has a byte 0."),
            (b"a\r\nb\xffc\n\x00", "2): error : the line has a byte 255."),
        ]:
            with self.subTest(words):
                self.put("out", b"as it was")
                self.assert_result(self.macroctl("encode", self.put("in", data), "out"), 1, err=f"in({words}\n")
                self.assertEqual(self.get("out"), b"as it was")

    def test_what_is_not_encoded(self) -> None:
        for data, line in [(b"vg**\nx = 1\n", 2), (b"vg*\n", 1), (b"vg**vg**", 1), (b" vg**", 1), (b"vg==", 1),
                           (b"vr28\xe9", 1)]:
            with self.subTest(data):
                self.assert_result(
                    self.macroctl("decode", self.put("in", data), "out"), 1,
                    err=f"in({line}): error : the line isn't encoded.\n")
                self.assertFalse((self.folder / "out").exists())
        self.assert_result(
            self.macroctl("decode", self.put("in", b"vr28" * 1366 + b"\n"), "out"), 1,
            err="in(1): error : the line is longer than 4095 bytes.\n")

    def test_one_file_for_both(self) -> None:
        self.put("a", b"x = 1\r\ny = 2")
        self.assert_result(self.macroctl("encode", "a", "a"), 0)
        self.assertNotEqual(self.get("a"), b"x = 1\r\ny = 2")
        self.assert_result(self.macroctl("decode", "a", "./a"), 0)
        self.assertEqual(self.get("a"), b"x = 1\r\ny = 2")
        self.put("b", b"\x00")
        self.assertEqual(self.macroctl("encode", "b", "b").status, 1)
        self.assertEqual(self.get("b"), b"\x00")
        self.assertEqual(sorted(os.listdir(self.folder)), ["a", "b"], "nothing is left behind")

    def test_an_encoded_macro_runs(self) -> None:
        self.write("a.mac", 'board.print("encoded")\nx = y\n')
        self.write("good.mac", 'board.print("encoded")\n')
        self.assert_result(self.macroctl("encode", "good.mac", "good.dat"), 0)
        self.assert_result(self.macroctl("run", "--board", "good.dat"), 0, "encoded\n")
        self.assert_result(self.macroctl("encode", "a.mac", "a.iod"), 0)
        self.assert_result(
            self.macroctl("run", "--board", "a.iod"), 1, "encoded\n",
            "a.iod(2): error : Didn't define valiable name[y]\na.iod(2): error : run time error !\n")

    def test_files_that_cannot_be_read_or_written(self) -> None:
        (self.folder / "folder").mkdir()
        self.put("a", b"x = 1\n")
        for source, target, message in [
            ("no", "out", "File open error. (no)"), ("folder", "out", "File open error. (folder)"),
            ("a", "no/out", "File write error. (no/out)"), ("a", "folder", "File write error. (folder)"),
        ]:
            with self.subTest(source=source, target=target):
                self.assert_result(self.macroctl("encode", source, target), 1, err=f"error : {message}\n")
        self.assertEqual(sorted(os.listdir(self.folder)), ["a", "folder"])

    @unittest.skipIf(IS_WINDOWS, "links and modes are those of POSIX")
    def test_the_written_file_keeps_its_place(self) -> None:
        self.put("a", b"A")
        target = self.folder / "target"
        target.write_bytes(b"before")
        target.chmod(0o640)
        (self.folder / "link").symlink_to("target")
        self.assert_result(self.macroctl("encode", "a", "link"), 0)
        self.assertTrue((self.folder / "link").is_symlink())
        self.assertEqual((target.read_bytes(), target.stat().st_mode & 0o777), (b"vg**", 0o640))

    @unittest.skipIf(IS_WINDOWS, "links are those of POSIX")
    def test_a_link_to_what_is_not_there_stays_one(self) -> None:
        self.put("a", b"A")
        (self.folder / "link").symlink_to("target")
        self.assert_result(self.macroctl("encode", "a", "link"), 0)
        self.assertTrue((self.folder / "link").is_symlink())
        self.assertEqual(self.get("target"), b"vg**")

    @unittest.skipIf(IS_WINDOWS, "the limit is that of POSIX systems")
    def test_a_name_may_be_as_long_as_the_system_lets_it(self) -> None:
        name = "n" * os.pathconf(self.folder, "PC_NAME_MAX")
        self.put("a", b"A")
        self.assert_result(self.macroctl("encode", "a", name), 0)
        self.assertEqual(self.get(name), b"vg**")

    @unittest.skipIf(IS_WINDOWS or not pathlib.Path("/dev/stdout").exists(), "needs standard output as a file")
    def test_a_device_is_written_to(self) -> None:
        self.put("a", b"A\n")
        self.assert_result(self.macroctl("encode", "a", "/dev/stdout"), 0, "vg**\n")


if __name__ == "__main__":
    unittest.main()
