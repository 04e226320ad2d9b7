"""docs/commands.md tells of every command, with an example that calls it. That the examples are true is checked with
those of all documents."""

import re
import unittest

from cli_support import SOURCE_DIR, CliTest

COMMANDS = """
wait_ms system.file_write system.mkdir string.format string.int2hex string.int2dec string.str2dec string.hex2dec
string.str2float string.split system.get_time_local system.get_time_serial system.command_exec system.variable
array.init array.max system.csvfile_read system.abort system.get_variable_type system.find_file using.namespace
""".split()


class CommandsDocumentTest(CliTest):
    def setUp(self) -> None:
        super().setUp()
        text = (SOURCE_DIR / "docs" / "commands.md").read_text(encoding="utf-8")
        sections = re.split(r"^##+ (.*)\n", text, flags=re.MULTILINE)
        self.sections = dict(zip(sections[1::2], sections[2::2]))

    def test_each_command_has_a_section(self) -> None:
        documented = [title for title in self.sections if re.fullmatch(r"\w+\.\w+|wait_ms", title)]
        self.assertEqual(sorted(documented), sorted(COMMANDS))

    def test_each_section_has_a_form_and_an_example(self) -> None:
        for command in COMMANDS:
            with self.subTest(command):
                section = self.sections[command]
                self.assertRegex(section, rf"\A\n    (\w+ = )?{re.escape(command)}\(")
                examples = re.findall(r"^```macro \S+\n(.*?)^```\n\n```console\n\$ macroctl", section,
                                      re.MULTILINE | re.DOTALL)
                self.assertEqual(len(examples), 1)
                self.assertIn(f"{command}(", examples[0])


if __name__ == "__main__":
    unittest.main()
