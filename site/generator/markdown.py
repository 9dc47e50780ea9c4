"""Pieces of Markdown."""

import json
import re
import shlex
from collections.abc import Iterable
from html import escape
from typing import Any


def code(text: str) -> str:
    """Text in a cell or a sentence, as code. Blanks at its ends are kept visible."""
    shown = escape(text, quote=False).replace("|", "&#124;").replace(" ", "&nbsp;" if text != text.strip() else " ")
    return f"<code>{shown}</code>"


def sentence(text: str) -> str:
    """A meaning as a row has it, as a sentence. Keys in it are shown as code."""
    text = text[:1].upper() + text[1:] if not re.match(r"[a-z]+[A-Z]", text) else text
    return words(text + ("" if text.endswith(".") else "."))


def words(text: str) -> str:
    """Plain words; keys of collections are shown as code."""
    text = escape(text, quote=False)
    for character in "\\*_[]|`":
        text = text.replace(character, f"&#{ord(character)};")
    return re.sub(r"\b((?:str|bln|int)Key[A-Za-z]+(?:\(\))?)", r"<code>\1</code>", text)


def table(headings: Iterable[str], rows: Iterable[Iterable[str]]) -> str:
    rows = [list(row) for row in rows]
    if not rows:
        return ""
    headings = list(headings)
    used = [column for column, title in enumerate(headings) if not column or any(row[column] for row in rows)]
    lines = [[headings[column] for column in used], ["---"] * len(used)]
    lines += [[row[column] for column in used] for row in rows]
    return "\n".join("| " + " | ".join(line) + " |" for line in lines) + "\n"


def fence(text: str, language: str = "text") -> str:
    return f"```{language}\n{text.rstrip()}\n```\n"


def shell(command: list[str], output: str) -> str:
    """A command line and what it prints."""
    return fence(f"$ {shlex.join(command)}\n{output}", "console")


def pretty(value: Any) -> str:
    return fence(json.dumps(value, indent=2, ensure_ascii=False), "json")


def box(text: str) -> str:
    """A text in a box of its own, as HTML."""
    return f"<pre><code>{escape(text.rstrip(), quote=False)}</code></pre>"


def details(title: str, body: str, is_open: bool = False) -> str:
    """A box that opens. Its body is HTML."""
    state = " open" if is_open else ""
    return f'<details class="example"{state}><summary>{escape(title)}</summary>\n{body}\n</details>\n'
