"""The grammar in docs/language.md tells the truth: macro files that are made by it compile.

Files are made by walking the grammar with a random, but always the same, choice at each turn. What the grammar leaves to
its prose is chosen so that it is kept: commands that stand on both sides of "=", files that exist, names that are
defined once.
"""

import itertools
import random
import re
import unittest

import documents
from cli_support import SOURCE_DIR, CliTest

SYMBOL = re.compile(r"""\s*("[^"]*"|'[^']*'|\w+|\.\.\.|[|{}\[\](),;=-])""")
FILES = 20
STATEMENTS = 30
DEEPEST = 13


class Grammar:
    """Rules as trees: a choice is a list of sequences, a sequence a list of items, an item a pair of kind and content."""

    def __init__(self, text: str) -> None:
        self.symbols = SYMBOL.findall(re.sub(r"\(\*.*?\*\)", "", text))
        self.rules = {}
        while self.symbols:
            name = self.symbols.pop(0)
            self.expect("=")
            self.rules[name] = self.choice()
            self.expect(";")

    def expect(self, symbol: str) -> None:
        found = self.symbols.pop(0)
        if found != symbol:
            raise ValueError(f"{found!r} instead of {symbol!r}")

    def choice(self) -> list:
        sequences = [self.sequence()]
        while self.symbols[0] == "|":
            self.symbols.pop(0)
            sequences.append(self.sequence())
        return sequences

    def sequence(self) -> list:
        items = [self.item()]
        while self.symbols[0] in (",", "-"):
            # What an exception takes away is left to the walk, which makes its own words.
            is_exception = self.symbols.pop(0) == "-"
            item = self.item()
            if not is_exception:
                items.append(item)
        return items

    def item(self) -> tuple:
        symbol = self.symbols.pop(0)
        for opening, closing in ("()", "[]", "{}"):
            if symbol == opening:
                content = self.choice()
                self.expect(closing)
                return (opening, content)
        return ("text", symbol[1:-1]) if symbol[0] in "\"'" else ("rule", symbol)


class Walk:
    """Makes one macro file by a grammar."""

    def __init__(self, grammar: Grammar, seed: int) -> None:
        self.grammar = grammar
        self.random = random.Random(seed)
        self.numbers = itertools.count()
        self.depth = 0
        self.statements = 0
        # What the grammar spells letter by letter, and what its prose restricts.
        self.words = {
            "eol": lambda: "\n",
            "end": lambda: "\n",
            "eof": lambda: "",
            "name": lambda: self.random.choice(("a", "b2", "_c", "Loop")),
            "category": lambda: "system",
            "command": lambda: "variable",
            "integer": lambda: self.random.choice(("0", "17", "-5", "0xFF", "0X1f", "4294967295")),
            "real": lambda: self.random.choice(("1.", "0.25", "-3.5")),
            "text": lambda: self.random.choice(('""', '"a b"', r'"\""', r'"C:\\x\\"', '"// no comment"')),
            "include": lambda: self.random.choice(("#include", "include")) + ' "part.mac"',
            "define": lambda: self.random.choice(("#define", "define")) + f" D{next(self.numbers)} " +
                              self.random.choice(("", "1", "( a", "x . y = 2")),
            # Balanced, as a part that is skipped may hold the end of a block.
            "condif": lambda: "#if exist system . variable\n#endif",
        }

    def rule(self, name: str) -> str:
        if name in self.words:
            return self.words[name]()
        if name == "statement":
            self.statements += 1
        self.depth += 1
        text = self.choice(self.grammar.rules[name])
        self.depth -= 1
        return text

    def choice(self, sequences: list) -> str:
        if self.depth >= DEEPEST:
            sequences = [sequence for sequence in sequences if sequence[0] != ("text", "(")]
        sequence = self.random.choice(sequences)
        return " ".join(self.item(*item) for item in sequence)

    def item(self, kind: str, content: str | list) -> str:
        if kind == "text":
            return content
        if kind == "rule":
            return self.rule(content)
        times = {"(": 1, "[": self.random.randint(0, 1), "{": self.random.choice((0, 0, 0, 1, 2))}[kind]
        if kind == "{" and self.depth == 2:
            times = STATEMENTS
        elif kind != "(" and (self.depth >= DEEPEST or self.statements > STATEMENTS):
            times = 0
        return " ".join(self.choice(content) for _ in range(times))


class GrammarTest(CliTest):
    def test_what_the_grammar_makes_compiles(self) -> None:
        text = next(block.text for block in documents.blocks(SOURCE_DIR / "docs" / "language.md")
                    if block.kind == "ebnf")
        grammar = Grammar(text)
        self.write("part.mac", "\n// nothing\n")
        names = [self.write(f"{seed}.mac", Walk(grammar, seed).rule("file")) for seed in range(FILES)]
        self.assert_result(self.macroctl("check", *names), 0)


if __name__ == "__main__":
    unittest.main()
