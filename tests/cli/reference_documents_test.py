"""What the reference pages list is listed whole."""

import re
import unittest

import documents
from cli_support import SOURCE_DIR, CliTest

DOCS = SOURCE_DIR / "docs"


class ReferenceDocumentsTest(CliTest):
    def test_plugins_lists_each_operation(self) -> None:
        header = documents.read(SOURCE_DIR / "include" / "macroengine" / "CMacroPropertyIF.h")
        operations = re.findall(r"(\w+)\([^()]*\) = 0;", header)
        self.assertEqual(len(operations), 32)
        tables = "\n".join(re.findall(r"^\| `.*", documents.read(DOCS / "plugins.md"), re.MULTILINE))
        self.assertEqual([name for name in operations if f"`{name}(" not in tables], [])

    def test_architecture_names_each_room(self) -> None:
        text = documents.read(DOCS / "architecture.md")
        rooms = sorted(folder.name for folder in (SOURCE_DIR / "src").iterdir() if folder.is_dir())
        self.assertEqual([room for room in rooms if f"| `src/{room}/` |" not in text], [])

    def test_grammar_defines_what_it_uses(self) -> None:
        grammar = next(block.text for block in documents.blocks(DOCS / "language.md") if block.kind == "ebnf")
        grammar = re.sub(r" *\(\*.*?\*\)", "", grammar)
        rules = re.findall(r"^(\w+) *= (.*?) ;$", grammar, re.MULTILINE | re.DOTALL)
        self.assertEqual(len(rules), grammar.count(" ;"))
        defined = {name for name, _ in rules}
        used = {"file"}
        for _, body in rules:
            used |= set(re.findall(r"[a-z]+", re.sub(r"\"[^\"]*\"|'[^']*'", "", body)))
        self.assertEqual(used - defined, {"eol", "eof", "character"})
        self.assertEqual(defined - used, set())

    def test_grammar_has_each_keyword_and_sign(self) -> None:
        grammar = next(block.text for block in documents.blocks(DOCS / "language.md") if block.kind == "ebnf")
        table = documents.read(SOURCE_DIR / "src" / "compiler" / "TokenCode.cpp")
        tokens = re.findall(r'\{"([^"\\]+)", *TokenCode::', table)
        tokens += re.findall(r'IsWord\(text, "([^"\\]+)"', table)
        tokens += re.findall(r"Set\('([^'\\])', TokenCode::", table)
        self.assertGreater(len(tokens), 30)
        self.assertEqual([token for token in tokens if f'"{token}"' not in grammar], [])


if __name__ == "__main__":
    unittest.main()
