"""The places of a source file that can be changed, and the changes for each place."""

import bisect
import hashlib
import re
import zlib
from collections import Counter
from dataclasses import dataclass, field

from .explained import code_of
from .tokens import Token, closing_brackets, tokens_of


@dataclass
class Mutant:
    file: str
    start: int
    end: int
    old: str
    new: str
    kind: str
    line: int
    before: str  # the changed lines without their indentation
    after: str
    number: int = 0
    outcome: str = ""
    detail: str = ""
    seconds: float = 0.0
    why: str = ""

    def applied(self, text: str) -> str:
        return text[: self.start] + self.new + text[self.end :]

    def shown(self) -> str:
        old, new = " ".join(self.old.split()), " ".join(self.new.split()) or "nothing"
        return f"{self.file}:{self.line}: {self.kind}: {old} -> {new}   [{self.before}]"


@dataclass
class Place:
    file: str
    start: int
    mutants: list[Mutant] = field(default_factory=list)


RELATIONAL = {"==": ["!="], "!=": ["=="], "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"]}
LOGICAL = {"&&": ["||"], "||": ["&&"]}
ARITHMETIC = {"+": ["-"], "-": ["+"], "*": ["+"], "/": ["*"], "%": ["*"], "++": ["--"], "--": ["++"]}
ASSIGNING = {"+=": ["-="], "-=": ["+="], "|=": ["&="], "&=": ["|="], "<<=": [">>="], ">>=": ["<<="]}
BITWISE = {"&": ["|"], "|": ["&"], "^": ["|"], "<<": [">>"], ">>": ["<<"]}
OPERATORS = [
    ("relational", RELATIONAL), ("logical", LOGICAL), ("arithmetic", ARITHMETIC), ("assignment", ASSIGNING),
    ("bitwise", BITWISE),
]  # fmt: skip
# In formatted code these operators are binary only between blanks.
SPACED = {"<", ">", "&&", "+", "-", "*", "/", "%", "&", "|", "^", "<<", ">>"}
AFTER_BODY_HEAD = {")", "]", "else", "do", "try", "const", "noexcept", "override", "mutable"}
EXPRESSION = re.compile(r"(\+\+|--|\*|\(|(this->)?[A-Za-z_]\w*(::\w+)*(<[^;{}]*?>)?(\(|\.|->|=(?!=)|\+=|-=|\|=|&=|\+\+|--|\[))")
NOT_EXPRESSIONS = set(
    "return break continue goto throw if for while do switch case default else try catch using static_assert const "
    "constexpr static auto struct class enum public private protected template typename friend virtual".split()
)


class Scanner:
    """One file's places."""

    def __init__(self, file: str, text: str, siblings: dict[str, dict[str, list[str]]], with_simd: bool):
        self.file, self.text, self.siblings = file, text, siblings
        self.tokens = tokens_of(text, with_simd)
        self.closing = closing_brackets(self.tokens)
        self.line_starts = [0] + [match.end() for match in re.finditer("\n", text)]
        self.places: dict[int, Place] = {}
        self.skipped = self._skipped()

    def scan(self) -> list[Place]:
        for index, token in enumerate(self.tokens):
            if index in self.skipped:
                continue
            if token.kind == "op":
                self._operator(index, token)
            elif token.kind == "number":
                self._number(index, token)
            elif token.kind == "string":
                self._string(token)
            elif token.kind == "char":
                self._char(token)
            else:
                self._word(index, token)
        self._statements()
        return [self.places[start] for start in sorted(self.places)]

    def _at(self, index: int) -> str:
        return self.tokens[index].text if 0 <= index < len(self.tokens) else ""

    def _add(self, place: int, kind: str, start: int, end: int, new: str) -> None:
        old = self.text[start:end]
        if old == new:
            return
        line = bisect.bisect_right(self.line_starts, start)
        begin = self.line_starts[line - 1]
        stop = self.text.find("\n", end)
        stop = len(self.text) if stop < 0 else stop
        before = " ".join(self.text[begin:stop].split())
        after = " ".join((self.text[begin:start] + new + self.text[end:stop]).split())
        mutant = Mutant(self.file, start, end, old, new, kind, line, before, after)
        self.places.setdefault(place, Place(self.file, place)).mutants.append(mutant)

    def _replace(self, token: Token, kind: str, new: str) -> None:
        self._add(token.start, kind, token.start, token.end, new)

    def _skipped(self) -> set[int]:
        skipped: set[int] = set()
        index = 0
        while index < len(self.tokens):
            text = self._at(index)
            stop = index - 1
            if text == "template" and self._at(index + 1) == "<":
                depth = 0
                for stop in range(index + 1, len(self.tokens)):
                    depth += {"<": 1, ">": -1, ">>": -2}.get(self._at(stop), 0)
                    if depth <= 0:
                        break
            elif text in ("static_assert", "using", "friend", "namespace") or (
                text == "enum" and self._at(index + 1) == "class"
            ):
                stop = index
                until = "}" if text == "enum" else "{" if text == "namespace" else ";"
                while stop < len(self.tokens) - 1 and self._at(stop) not in (until, ";"):
                    inside = text != "enum" and not (text == "namespace") and stop in self.closing
                    stop = self.closing[stop] if inside else stop + 1
            elif text == "operator":
                stop = index + 1
            elif text == "case":
                stop = index
                while self._at(stop) != ":":
                    stop += 1
            elif text == "=" and self._at(index + 1) == "0" and self._at(index - 1) in (")", "const", "noexcept"):
                stop = index + 1
            skipped.update(range(index, stop + 1))
            index = max(stop, index) + 1
        return skipped

    def _is_spaced(self, token: Token) -> bool:
        around = self.text[token.start - 1 : token.start] + self.text[token.end : token.end + 1]
        return len(around) == 2 and around.isspace()

    def _operator(self, index: int, token: Token) -> None:
        if token.text in ("!", "~"):
            self._replace(token, "negation dropped", "")
            return
        if token.text in SPACED and not self._is_spaced(token):
            if token.text == "-" and self.tokens[index - 1].kind == "op" and self._at(index - 1) not in (")", "]"):
                self._replace(token, "arithmetic", "")
            return
        for kind, table in OPERATORS:
            for new in table.get(token.text, []):
                self._replace(token, kind, new)

    def _number(self, index: int, token: Token) -> None:
        match = re.fullmatch(r"(0[xX][0-9a-fA-F']+|[0-9']+)([uUlLzZ]*)", token.text)
        if not match:
            return
        digits = match.group(1).replace("'", "")
        is_octal = len(digits) > 1 and digits.isdigit() and digits.startswith("0")
        value = int(digits, 8 if is_octal else 0)
        for new in dict.fromkeys([value + 1, value - 1, 0]):
            if new != value:
                self._replace(token, "integer", f"{new}{match.group(2)}")

    def _string(self, token: Token) -> None:
        match = re.fullmatch(r'([^"]*)"(.*)"', token.text, re.DOTALL)
        if match is None or match.group(1).endswith("R"):
            return
        prefix, units = match.group(1), re.findall(r"\\x[0-9A-Fa-f]+|\\.|.", match.group(2), re.DOTALL)
        if not units:
            self._replace(token, "string", f'{prefix}"x"')
            return
        middle = zlib.crc32(token.text.encode()) % len(units)  # any place, but always the same one
        other = "." if units[middle] == " " else "#" if units[middle] == "." else " " if middle % 3 == 0 else "Q"
        other = "X" if units[middle] == other else other
        for new in dict.fromkeys([
            "".join(units[1:]), "".join(units[:-1]), "".join(units[:middle] + [other] + units[middle + 1 :]),
            "".join(units[: middle + 1] + units[middle:]), "",
        ]):  # fmt: skip
            self._replace(token, "string", f'{prefix}"{new}"')

    def _char(self, token: Token) -> None:
        prefix, unit = re.fullmatch(r"([^']*)'(.*)'", token.text, re.DOTALL).groups()
        others = ["X" if unit == " " else " "]
        if len(unit) == 1 and unit != " " and chr(ord(unit) + 1) not in "'\\":
            others.append(chr(ord(unit) + 1))
        for new in others:
            self._replace(token, "character", f"{prefix}'{new}'")

    def _word(self, index: int, token: Token) -> None:
        if token.text in ("true", "false"):
            self._replace(token, "boolean", "false" if token.text == "true" else "true")
        elif self._at(index + 1) == "::" and self._at(index + 2) in self.siblings.get(token.text, {}):
            last = self.tokens[index + 2]
            kind = "named constant" if token.text[0].islower() else "enumerator"
            for sibling in self.siblings[token.text][last.text]:
                self._add(token.start, kind, last.start, last.end, sibling)
        elif token.text in ("if", "while"):
            self._condition(index, token)
        elif token.text == "for" and self._at(index + 1) == "(":
            self._loop(index + 1, token)

    def _semicolons(self, opening: int) -> list[int]:
        found, index = [], opening + 1
        while index < self.closing[opening]:
            if self._at(index) == ";":
                found.append(index)
            index = self.closing.get(index, index) + 1
        return found

    def _condition(self, index: int, token: Token) -> None:
        opening = index + 1 if self._at(index + 1) == "(" else index + 2
        if opening not in self.closing:
            return
        semicolons = self._semicolons(opening)
        start = self.tokens[semicolons[-1] if semicolons else opening].end
        end = self.tokens[self.closing[opening]].start
        condition = self.text[start:end].strip()
        if re.search(r"[^=!<>+|&-]=[^=]", re.sub(r'"[^"]*"|\([^()]*\)|\[[^\]]*\]', "", condition)):
            return  # a declaration
        blank = " " if semicolons else ""
        self._add(token.start, "condition negated", start, end, f"{blank}!({condition})")
        self._add(token.start, "branch dropped", start, end, f"{blank}false && ({condition})")
        if token.text == "if":
            self._add(token.start, "branch forced", start, end, f"{blank}true || ({condition})")

    def _loop(self, opening: int, token: Token) -> None:
        semicolons = self._semicolons(opening)
        if len(semicolons) != 2:
            return
        start, end = self.tokens[semicolons[0]].end, self.tokens[semicolons[1]].start
        if self.text[start:end].strip():
            self._add(token.start, "branch dropped", start, end, f" false && ({self.text[start:end].strip()})")

    def _statements(self) -> None:
        stack: list[str] = []
        kinds: dict[int, str] = {}
        for index, token in enumerate(self.tokens):
            if stack and stack[-1] == "code" and index not in self.skipped and self._begins_statement(index):
                self._statement(index, token)
            if token.kind != "op" or token.text not in ("(", "[", "{", ")", "]", "}"):
                continue
            if token.text in "([":
                stack.append(token.text)
            elif token.text == "{":
                kinds[index] = self._brace(index, stack[-1] if stack else "declarations")
                stack.append(kinds[index])
            elif stack:
                stack.pop()

    def _brace(self, index: int, around: str) -> str:
        before = self._at(index - 1)
        if before in AFTER_BODY_HEAD:
            return "code"
        if around == "code" and before in (";", "{", "}", ":"):
            return "code"
        begin = index - 1
        while begin >= 0 and self._at(begin) not in (";", "{", "}"):
            begin -= 1
        head = [token.text for token in self.tokens[begin + 1 : index]]
        if {"class", "struct", "namespace", "enum", "union"} & set(head) and "(" not in head:
            return "declarations"
        if "->" in head and ")" in head and "=" not in head[head.index("->") :]:
            return "code"
        if around == "declarations" and before == "}":
            return "code"  # after a member's initialiser
        return "values"

    def _begins_statement(self, index: int) -> bool:
        before = self._at(index - 1)
        if before in (";", "{", "}", "else"):
            return True
        if before == ":":  # of a label
            back = index - 2
            while back > 0 and self._at(back) not in (";", "{", "}", "?", "case", "default"):
                back -= 1
            return self._at(back) in ("case", "default")
        if before == ")":
            opening = next((start for start, end in self.closing.items() if end == index - 1), -1)
            return self._at(opening - 1) in ("if", "for", "while")
        return False

    def _ends_switch(self, index: int) -> bool:
        opening_of = {end: start for start, end in self.closing.items()}
        head_end = opening_of.get(index, 0) - 1
        return self._at(opening_of.get(head_end, 0) - 1) == "switch"

    def _statement(self, index: int, token: Token) -> None:
        end = index
        while end < len(self.tokens) and self._at(end) != ";":
            if self._at(end) == "}":
                return
            end = self.closing.get(end, end) + 1
        if end >= len(self.tokens):
            return
        start, stop = token.start, self.tokens[end].end
        if token.text == "break" and self._ends_switch(end + 1):
            return  # the next statement is the same one
        if token.text in ("break", "continue") or (token.text == "return" and end == index + 1):
            self._add(start, "jump dropped", start, stop, ";")
        elif token.text == "return":
            value = self.text[self.tokens[index + 1].start : self.tokens[end].start].strip()
            if value not in ("{}", "false", "0", "nullptr", "std::nullopt"):
                self._add(start, "result emptied", start, stop, "return {};")
        elif token.text == "throw":
            self._add(start, "statement dropped", start, stop, ";")
        elif token.text not in NOT_EXPRESSIONS:
            joined = "".join(part.text for part in self.tokens[index:end])
            first_two_words = token.kind == "word" and self.tokens[index + 1].kind == "word"
            if not first_two_words and EXPRESSION.match(joined):
                self._add(start, "statement dropped", start, stop, ";")


def siblings_in(texts: dict[str, str]) -> dict[str, dict[str, list[str]]]:
    """The replacements of "X::y": the other enumerators of X, or the constants of the same type in namespace X."""
    found: dict[str, dict[str, list[str]]] = {}
    for text in texts.values():
        text = re.sub(r"//[^\n]*", "", text)
        for name, body in re.findall(r"enum class (\w+)[^{;]*\{([^}]*)\}", text):
            names = re.findall(r"(\w+)\s*(?:=[^,]*)?(?:,|$)", body.strip())
            found[name] = {one: [other for other in names if other != one] for one in names}
        for space, body in re.findall(r"\nnamespace (mark|code|key|description) \{\n(.*?)\n\}", text, re.DOTALL):
            by_type: dict[str, list[str]] = {}
            for type_name, name in re.findall(r"inline constexpr (\S+) (\w+)\s*[={]", body):
                by_type.setdefault(type_name, []).append(name)
            for names in by_type.values():
                found.setdefault(space, {}).update({one: [o for o in names if o != one] for one in names})
    return found


def places_in(texts: dict[str, str], with_simd: bool = True) -> list[Place]:
    siblings = siblings_in(texts)
    places: list[Place] = []
    for file in sorted(texts):
        places += Scanner(file, texts[file], siblings, with_simd).scan()
    return places


def drawn(seed: int, *parts: str | int) -> bytes:
    """A number that depends on nothing but these parts."""
    return hashlib.sha256("\0".join(map(str, (seed, *parts))).encode()).digest()


def chosen(places: list[Place], count: int, seed: int) -> list[Mutant]:
    """One change at each of `count` places; if there are fewer places, further changes at the same ones. Whether a place
    is drawn depends on the text of its line alone, so that a sample stays the same when other lines change."""
    alike: Counter = Counter()
    ranked: list[tuple[int, bytes, Mutant]] = []
    for place in places:
        first = place.mutants[0]
        name = (place.file, first.kind, code_of(first.before), code_of(first.after))
        alike[name] += 1
        rank = drawn(seed, *name, alike[name])
        changes = sorted(place.mutants, key=lambda m: drawn(seed, m.kind, code_of(m.before), code_of(m.after)))
        ranked += [(turn, rank, mutant) for turn, mutant in enumerate(changes)]
    found = [mutant for _, _, mutant in sorted(ranked, key=lambda entry: entry[:2])[:count]]
    for number, mutant in enumerate(found, 1):
        mutant.number = number
    return found
