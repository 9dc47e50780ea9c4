"""Splits C++ source into tokens. Leaves out comments, preprocessor lines, and the branches for vector instructions that the
build does not compile."""

import re
from typing import NamedTuple


class Token(NamedTuple):
    kind: str  # word, number, string, char or op
    text: str
    start: int
    end: int


_PREFIX = r"(?:u8|u|U|L)?"
_PATTERN = re.compile(
    rf"""
    (?P<blank>\s+)
  | (?P<comment>//(?:\\\n|[^\n])*|/\*.*?\*/)
  | (?P<raw>{_PREFIX}R"(?P<mark>[^()\\\s]*)\(.*?\)(?P=mark)")
  | (?P<string>{_PREFIX}"(?:\\.|[^"\\\n])*")
  | (?P<char>{_PREFIX}'(?:\\.|[^'\\\n])+')
  | (?P<number>\.?\d(?:[eEpP][+-]|'[0-9A-Za-z]|[0-9A-Za-z_.])*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<op>\.\.\.|<=>|<<=|>>=|->\*|::|->|\+\+|--|<<|<=|>=|==|!=|&&|\|\||\+=|-=|\*=|/=|%=|&=|\|=|\^=|.)
    """,
    re.VERBOSE | re.DOTALL,
)
_DIRECTIVE = re.compile(r"[ \t]*#(?:\\\n|[^\n])*")


def tokens_of(text: str, with_simd: bool = True) -> list[Token]:
    found: list[Token] = []
    branches: list[Branch] = []
    place = 0
    line_begins = True
    while place < len(text):
        directive = _DIRECTIVE.match(text, place) if line_begins else None
        if directive:
            _follow(directive.group().strip(), branches, with_simd)
            place = directive.end()
            line_begins = False
            continue
        match = _PATTERN.match(text, place)
        assert match, f"no token at {text[place:place + 20]!r}"
        kind = match.lastgroup if match.lastgroup != "mark" else "raw"
        kind = "raw" if match.group("raw") is not None else kind
        if kind == "blank":
            line_begins = "\n" in match.group()
            if line_begins:  # back to the start of the line, where a directive may begin
                place = match.start() + match.group().rfind("\n") + 1
                if not _DIRECTIVE.match(text, place):
                    place, line_begins = match.end(), False
                continue
        elif kind != "comment":
            line_begins = False
            if all(branch.is_taken for branch in branches):
                found.append(Token("string" if kind == "raw" else kind, match.group(), match.start(), match.end()))
        place = match.end()
    return found


def _follow(directive: str, branches: list["Branch"], with_simd: bool) -> None:
    word = directive.lstrip("# ").split()[0]
    if word in ("if", "ifdef", "ifndef"):
        branches.append(Branch(is_taken=with_simd or "VANTRO_NO_SIMD" not in directive))
    elif word in ("elif", "else") and branches:
        branches[-1].go_on(is_compiled="__aarch64__" not in directive)
    elif word == "endif" and branches:
        branches.pop()


class Branch:
    """The branches of one "#if", of which the first that is compiled counts."""

    def __init__(self, is_taken: bool):
        self.is_taken = self.was_taken = is_taken

    def go_on(self, is_compiled: bool) -> None:
        self.is_taken = is_compiled and not self.was_taken
        self.was_taken = self.was_taken or self.is_taken


def closing_brackets(tokens: list[Token]) -> dict[int, int]:
    """Maps the index of each opening bracket to that of its closing one."""
    pairs = {")": "(", "]": "[", "}": "{"}
    closing: dict[int, int] = {}
    open_ones: list[int] = []
    for index, token in enumerate(tokens):
        if token.kind != "op":
            continue
        if token.text in "([{":
            open_ones.append(index)
        elif token.text in pairs and open_ones and tokens[open_ones[-1]].text == pairs[token.text]:
            closing[open_ones.pop()] = index
    return closing
