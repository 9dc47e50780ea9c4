"""Which sources a change in a header can affect. A source that uses neither the changed name nor, directly or
indirectly, a declaration that uses it compiles to the same code."""

from functools import lru_cache

from .tokens import closing_brackets, tokens_of

EVERYTHING = "*"


class Item:
    """A declaration or definition at namespace level."""

    def __init__(self, tokens, begin: int, end: int):
        self.start, self.end = tokens[begin].start, tokens[end].end
        own = tokens[begin : end + 1]
        self.words = {token.text for token in own if token.kind == "word"}
        self.is_check = own[0].text == "static_assert"
        self.name = "" if self.is_check else _declared(own)


def _declared(tokens) -> str:
    index = 0
    if tokens[0].text == "template":
        depth = 0
        for index in range(1, len(tokens)):
            depth += {"<": 1, ">": -1, ">>": -2}.get(tokens[index].text, 0)
            if depth <= 0:
                break
        index += 1
    head = []
    while index < len(tokens) and tokens[index].text not in ("(", "{", "=", ";", "["):
        head.append(tokens[index])
        index += 4 if tokens[index].text == "decltype" else 1  # the parentheses of "decltype(auto)" are no parameters
    words = [token.text for token in head if token.kind == "word"]
    if not words or "operator" in words or "requires" in words:
        return EVERYTHING
    if words[0] in ("class", "struct", "enum", "union"):
        rest = [word for word in words[1:] if word not in ("class", "struct")]
        return rest[0] if rest else EVERYTHING
    if words[0] == "using" and len(words) > 2:
        return EVERYTHING
    return words[-1]


@lru_cache(maxsize=None)
def items_of(text: str, with_simd: bool) -> list[Item]:
    tokens = tokens_of(text, with_simd)
    closing = closing_brackets(tokens)
    items, index = [], 0
    while index < len(tokens):
        if tokens[index].text == "namespace":
            while tokens[index].text not in ("{", ";"):
                index += 1
            index += 1
            continue
        if tokens[index].text in ("}", ";"):
            index += 1
            continue
        begin = index
        while index < len(tokens) and tokens[index].text != ";":
            is_brace = tokens[index].text == "{"
            index = closing.get(index, index)
            follower = tokens[index + 1].text if index + 1 < len(tokens) else ""
            if is_brace and follower not in (";", ",", "{", "(", ".", ":"):
                break
            index += 1
        items.append(Item(tokens, begin, min(index, len(tokens) - 1)))
        index += 1
    return items


@lru_cache(maxsize=None)
def words_of(text: str) -> frozenset[str]:
    return frozenset(token.text for token in tokens_of(text) + tokens_of(text, False) if token.kind == "word")


def reached(file: str, place: int, texts: dict[str, str], with_simd: bool) -> set[str]:
    """The names whose meaning can change with this place of a header."""
    names = {item.name for item in items_of(texts[file], with_simd) if item.start <= place < item.end}
    headers = [item for name, text in texts.items() if name.endswith(".h") for item in items_of(text, with_simd)]
    grows = True
    while grows:
        further = {item.name for item in headers if item.name and item.words & names} - names
        names |= further
        grows = bool(further)
    return names or {EVERYTHING}
