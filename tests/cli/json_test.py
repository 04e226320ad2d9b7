"""`--format json` of run and check: one object on standard output, and nothing on standard error."""

import json
import unittest

from cli_support import CliTest

BROKEN = 'board.print("one", 2)\nx = y\nboard.print("end")\n'


class JsonTest(CliTest):
    def json(self, *arguments: str, text: str = "") -> tuple[int, object]:
        result = self.macroctl(*arguments, "--format", "json", text=text)
        self.assertEqual(result.err, "")
        return result.status, json.loads(result.out)

    def test_a_run_that_ends_well(self) -> None:
        self.write("a.mac", 'board.print("one", 2)\n')
        self.assertEqual(
            self.json("run", "--board", "a.mac"), (0, {"result": "done", "errors": [], "output": "one 2\n"}))

    def test_a_run_that_fails(self) -> None:
        self.write("a.mac", BROKEN)
        errors = [
            {"file": "a.mac", "line": 2, "text": "Didn't define valiable name[y]"},
            {"file": "a.mac", "line": 2, "text": "run time error !"},
        ]
        self.assertEqual(
            self.json("run", "--board", "a.mac"), (1, {"result": "failed", "errors": errors, "output": "one 2\n"}))
        self.assertEqual(
            self.json("run", "--board", "--keep-going", "a.mac"),
            (1, {"result": "failed", "errors": errors, "output": "one 2\nend\n"}))

    def test_errors_without_a_place(self) -> None:
        self.write("a.mac", "x[1.5] = 1\n")
        self.assertEqual(self.json("check", "no.mac", "a.mac"), (1, {"result": "failed", "errors": [
            {"file": None, "line": None, "text": "File open error. (no.mac)"},
            {"file": "a.mac", "line": None, "text": "the file can't be compiled."},
        ]}))

    def test_a_place_is_the_first_one_of_the_line(self) -> None:
        self.write("a (1).mac", 'system.abort("b.mac(7): error : no")\n')
        self.assertEqual(self.json("run", "a (1).mac")[1]["errors"][0],
                         {"file": "a (1).mac", "line": 1, "text": "b.mac(7): error : no"})

    def test_check(self) -> None:
        self.write("good.mac", "x = 1\n")
        self.write("bad.mac", "x = )\n")
        self.assertEqual(self.json("check", "good.mac"), (0, {"result": "done", "errors": []}))
        self.assertEqual(self.json("check", "good.mac", "bad.mac", "good.mac"), (1, {"result": "failed", "errors": [
            {"file": "bad.mac", "line": 1, "text": "syntax error ')'. Can't find Variable or value."},
        ]}))

    def test_findings_and_errors_of_register_files(self) -> None:
        self.write("device.rgi", "[REGISTER]\nREGISTER_NAME, ADDRESS_2WIRE, LSB, LENGTH, RW\nGAIN, 1, 0, 8, RO\n")
        self.write("a.mac", 'board.write("GAIN", 1)\n')
        self.assertEqual(self.json("check", "--registers", "device.rgi", "a.mac"), (1, {"result": "failed", "errors": [
            {"file": "a.mac", "line": 1, "text": 'board.write() register "GAIN" is read only (RO)'},
        ]}))
        self.write("bad.rgi", "[REGISTER]\nNAMES\n")
        for subcommand in ["check", "run"]:
            status, report = self.json(subcommand, "--registers", "bad.rgi", "a.mac")
            self.assertEqual((status, report["result"]), (1, "failed"))
            self.assertEqual(
                report["errors"],
                [{"file": "bad.rgi", "line": 2, "text": "Unknown keyword in register header. (NAMES)"}])

    def test_bytes_that_are_no_utf_8(self) -> None:
        (self.folder / "a.mac").write_bytes(b'board.print("\xff")\n')
        self.assertEqual(
            self.json("run", "--board", "a.mac"), (0, {"result": "done", "errors": [], "output": "\ufffd\n"}))

    def test_the_text_of_the_object(self) -> None:
        self.write("a.mac", BROKEN)
        self.assert_result(self.macroctl("run", "--board", "a.mac", "--format", "json"), 1, """\
{
  "result": "failed",
  "errors": [
    {"file":"a.mac","line":2,"text":"Didn't define valiable name[y]"},
    {"file":"a.mac","line":2,"text":"run time error !"}
  ],
  "output": "one 2\\n"
}
""")

    def test_wrong_usage_gives_no_object(self) -> None:
        result = self.macroctl("run", "--plugin", "no.so", "--format", "json", "a.mac")
        self.assertEqual((result.status, result.out), (2, ""))
        self.assertRegex(result.err, r"\Amacroctl: plug-in no\.so ")


if __name__ == "__main__":
    unittest.main()
