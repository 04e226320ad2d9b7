"""Plug-ins are real shared libraries; one that can't be used ends the process with status 2 before anything runs."""

import pathlib
import shutil
import unittest

from cli_support import IS_WINDOWS, CliTest, plugin


class PluginTest(CliTest):
    def test_commands_of_a_plugin(self) -> None:
        name = self.write("a.mac", """\
x = greet.hello("world")
board.print(x)
greet.volume(2) = 40
x = greet.volume(2)
y = greet.volume(3)
board.print(x, y)
""")
        self.assert_result(
            self.macroctl("run", "--board", "--plugin", plugin("good_plugin"), name), 0, "hello world\n40 0\n")

    def test_messages_of_a_plugin(self) -> None:
        name = self.write("a.mac", "greet.volume(2) = 101\n")
        self.assert_result(
            self.macroctl("run", "--plugin", plugin("good_plugin"), name), 1,
            err="a.mac(1): error : greet.volume() assigned value error. (out of range.)\n"
                "a.mac(1): error : run time error !\n")

    def test_several_plugins(self) -> None:
        name = self.write("a.mac", 'x = greet.hello("x")\ny = math.sqrt(2)\nboard.print(x, y)\n')
        good, example = plugin("good_plugin"), plugin("example_plugin")
        self.assert_result(
            self.macroctl("run", "--plugin", good, name, "--plugin", example, "--board"), 0, "hello x 1.41421\n")

    def test_the_same_plugin_twice(self) -> None:
        name = self.write("a.mac", 'x = greet.hello("x")\nboard.print(x)\n')
        good = plugin("good_plugin")
        self.assert_result(
            self.macroctl("run", "--board", "--plugin", good, "--plugin", good, name), 0, "hello x\n")

    def test_a_bare_name_is_a_file_of_the_current_folder(self) -> None:
        name = self.write("a.mac", 'x = greet.hello("x")\nboard.print(x)\n')
        library = pathlib.Path(plugin("good_plugin"))
        self.assert_result(
            self.macroctl("run", "--board", "--plugin", library.name, str(self.folder / name), cwd=library.parent),
            0, "hello x\n")

    def test_plugins_that_cannot_be_used(self) -> None:
        name = self.write("a.mac", 'board.print("not run")\n')
        text = self.write("text.so", "no library\n")
        empty, refusing = plugin("no_entry_plugin"), plugin("refusing_plugin")
        for library, words in [
            ("no/such.so", "can't be loaded: "),
            (text, "can't be loaded: "),
            (str(self.folder), "can't be loaded: "),
            (empty, "has no function RegisterMacroPlugin"),
            (refusing, "refused to register its commands"),
        ]:
            for command in (["run", "--board"], ["check", "--board"]):
                with self.subTest(command=command, library=library):
                    result = self.macroctl(*command, "--plugin", library, name)
                    self.assertEqual((result.status, result.out), (2, ""), result.err)
                    self.assertTrue(result.err.startswith(f"macroctl: plug-in {library} {words}"), result.err)
                    self.assertEqual(result.err.count("\n"), 1)

    def test_a_good_plugin_does_not_make_up_for_a_bad_one(self) -> None:
        name = self.write("a.mac", 'board.print("not run")\n')
        refusing = plugin("refusing_plugin")
        self.assert_result(
            self.macroctl("run", "--board", "--plugin", plugin("good_plugin"), "--plugin", refusing, name), 2,
            err=f"macroctl: plug-in {refusing} refused to register its commands\n")

    @unittest.skipIf(IS_WINDOWS, "the message is that of the dynamic loader")
    def test_the_reason_is_told_once(self) -> None:
        name = self.write("a.mac", "x = 1\n")
        for library in ("no/such.so", "such.so"):
            self.assert_result(
                self.macroctl("run", "--plugin", library, name), 2,
                err=f"macroctl: plug-in {library} can't be loaded: "
                    "cannot open shared object file: No such file or directory\n")


class NamespaceTest(CliTest):
    READ = "x = meter.read()\nboard.print(x)\n"

    def run_with_meters(self, text: str, *arguments: str):
        name = self.write("a.mac", text)
        return self.macroctl("run", "--board", "--plugin", plugin("namespace_plugin"), *arguments, name)

    def test_the_option_chooses_among_providers(self) -> None:
        self.assert_result(self.run_with_meters(self.READ, "--namespace", "alpha"), 0, "alpha\n")
        self.assert_result(self.run_with_meters(self.READ, "--namespace", "beta"), 0, "beta\n")

    def test_without_a_choice_the_command_is_ambiguous(self) -> None:
        for arguments in ([], ["--namespace", "gamma"]):
            self.assert_result(
                self.run_with_meters(self.READ, *arguments), 1,
                err="a.mac(1): error : meter.read() didn't support category command.\n"
                    "a.mac(1): error : run time error !\n")

    def test_the_macro_changes_the_namespace_and_goes_back(self) -> None:
        text = self.READ + 'using.namespace("beta")\n' + self.READ + "using.namespace()\n" + self.READ
        self.assert_result(self.run_with_meters(text, "--namespace", "alpha"), 0, "alpha\nbeta\nalpha\n")

    def test_what_has_one_provider_is_reached_from_everywhere(self) -> None:
        text = 'using.namespace("beta")\nx = string.int2hex(255)\nboard.print(x)\n'
        self.assert_result(self.run_with_meters(text, "--namespace", "alpha"), 0, "FF\n")


@unittest.skipIf(IS_WINDOWS, "a loaded library can't be removed")
class LifetimeTest(CliTest):
    def test_a_plugin_serves_every_file_of_a_check(self) -> None:
        copy = shutil.copy(plugin("good_plugin"), self.folder / "copy.so")
        names = [self.write(f"{i}.mac", 'x = greet.hello("x")\n') for i in range(20)]
        self.assert_result(self.macroctl("check", "--plugin", str(copy), *names), 0)


if __name__ == "__main__":
    unittest.main()
