"""The page of a query of a display: a family of elements, or a header value; one row for each kind of section."""

import re
from collections.abc import Callable
from dataclasses import dataclass, field
from typing import Any

from .markdown import code, fence, pretty, sentence, shell, table, words
from .screen import Screen
from .tool import Tool

Query = dict[str, Any]

LEGEND = (
    '\n\n<p class="legend"><mark class="mark">marks that were found</mark> <mark class="value">values</mark> '
    '<mark class="part">parts of an element</mark></p>\n\n'
)
NOTES = "ProfileNotes"
ALL = "ALL"


@dataclass
class Source:
    tool: Tool
    displays: list[str]  # the sample displays; the first one has every family
    explained: dict[str, dict[str, dict]] = field(default_factory=dict)  # by prefix and display

    def explain(self, prefix: str, display: str) -> dict:
        known = self.explained.setdefault(prefix, {})
        if display not in known:
            arguments = ["explain", prefix, "--quiet", "--display", "1", display]
            if prefix == ALL:
                arguments += ["--selection", ""]
            known[display] = self.tool.json(*arguments, statuses=(0, 1))
        return known[display]


@dataclass
class Section:
    title: str
    applies: Callable[[Query], bool]
    write: Callable[[Query, Source], str]


def is_family(about: Query) -> bool:
    return "section" in about


def answer(about: Query, _: Source) -> str:
    match = {
        "whole": f"`strKeyPrefix` is exactly {code(about['prefix'])}.",
        "firstThree": f"`strKeyPrefix` begins with {code(about['prefix'])}.",
    }[about["match"]]
    text = match + "\n\n" + words(about.get("answerMeaning", "")) + "\n\n"
    text += "Keys that an answer adds, in this order: " + ", ".join(code(key) for key in about["keys"]) + ".\n"
    member = about.get("json") or (f"elements.{about['prefix']}" if is_family(about) else "")
    if member:
        text += f"\nIn the output of `vantro-profile parse` it is {code(member)}: [Parsing](../../docs/parse.md).\n"
    return text


def place(about: Query, _: Source) -> str:
    rows = [
        ["Section", code(about["section"])],
        ["Tag", code(about["tag"])],
        ["Lines", words(about["lines"])],
        ["Joining", words(about["joining"])],
    ]
    return table(["", ""], rows) + "\nA line of that section:\n\n" + Screen([about["sample"]], None).html() + "\n"


def parts(about: Query, _: Source) -> str:
    rows = [[code(part["name"]), code(part["list"]), sentence(part["meaning"])] for part in about["parts"]]
    first = f"The first element is entry {about['firstIndex']} of each list"
    first += ", and entry 0 is empty.\n" if about["firstIndex"] else ".\n"
    text = table(["In the output of parse", "List of CProfile", "Meaning"], rows)
    return text + f"\n`{about['count']}` returns the number of elements in a display and fills the lists. {first}"


def errors(about: Query, _: Source) -> str:
    rows = [[str(row["number"]), row["call"], sentence(row["meaning"])] for row in about["errors"]]
    return (
        table(["Number", "Call", "Raised when"], rows)
        + "\nEvery query can raise the numbers of [CProfile](../classes/CProfile.md#errors), too.\n"
    )


# Samples


def command_of(about: Query, display: str) -> list[str]:
    if about["prefix"] == NOTES:
        return ["notes", display]
    options = ["--index", "1"] if about.get("answer") == "element" else []
    options += ["--selection", ""] if about["prefix"] == ALL else []
    return ["elements", about["prefix"], *options, display]


def excerpt(about: Query, explanation: dict) -> Screen:
    """The lines of the section, or the first ones, up to the last line that was read and the one below it."""
    lines = explanation["screen"]
    used = [piece["line"] for value in explanation["values"] for piece in value["pieces"] if "line" in piece]
    first = 0
    if is_family(about) or about["prefix"] in (NOTES, ALL):
        first = max(line for line in range(min(used)) if lines[line].startswith("-------"))
    screen = Screen(lines[first : max(used) + 2], first)
    screen.add_explanation(explanation)
    return screen


def elements_of(about: Query, display: str, source: Source) -> list[dict]:
    return source.tool.lines("parse", "--positions", "--quiet", display)[0]["elements"][about["prefix"]]


def sample(about: Query, source: Source) -> str:
    display = source.displays[0]
    explanation = source.explain(about["prefix"], display)
    if not any(value["pieces"] for value in explanation["values"]):
        return ""
    command = command_of(about, display)
    text = excerpt(about, explanation).html()
    text += LEGEND
    text += shell(["vantro-profile", *command], source.tool.text(*command)) + "\n"
    if is_family(about):
        text += "Its elements in the output of `parse`:\n\n"
        plain = source.tool.lines("parse", "--quiet", "--only", about["prefix"], display)[0]
        text += pretty({about["prefix"]: plain["elements"][about["prefix"]]}) + "\n"
    return text


def lines_of(element: dict) -> set[int]:
    return {piece["line"] for piece in element["positions"].get("text", []) if "line" in piece}


def wrapped(about: Query, source: Source) -> str:
    """An element on several lines, of the first sample display that has one."""
    for display in source.displays:
        for element in elements_of(about, display, source):
            lines = lines_of(element)
            if len(lines) < 2:
                continue
            explanation = source.explain(about["prefix"], display)
            screen = Screen(explanation["screen"][min(lines) : max(lines) + 1], min(lines))
            screen.add_explanation(explanation)
            return f"{screen.html()}\n\nThe text, from these lines of `{display}`:\n\n{fence(element['text'])}"
    return "No sample display has such an element. It is read like those of the other families of its section.\n"


def decision(step: dict) -> str:
    return re.sub(r"^(lines? \d+( to \d+)?: )?([A-Za-z]+: )?(each: )?", "", step["sentence"])


def decisions(about: Query, source: Source) -> str:
    """The rules that decided about lines of the sample displays."""
    found: dict[str, str] = {}
    for display in source.displays:
        for step in source.explain(about["prefix"], display)["steps"]:
            if step["kind"] == "decided":
                found.setdefault(step["rule"], decision(step))
    intro = "What decided about the lines of the sample displays. `vantro-profile explain` says it of every line of "
    intro += "any display: [Explaining](../../docs/explain.md).\n\n"
    return intro + table(["Rule", "Decision"], [[code(rule), sentence(text)] for rule, text in found.items()])


def can_wrap(about: Query) -> bool:
    return is_family(about) and not about["joining"].startswith("No line")


SECTIONS = (
    Section("Query and answer", lambda about: True, answer),
    Section("In a display", is_family, place),
    Section("Parts and lists", is_family, parts),
    Section("Errors", is_family, errors),
    Section("Sample", lambda about: True, sample),
    Section("An element on several lines", can_wrap, wrapped),
    Section("Decisions", lambda about: True, decisions),
)


def page(about: Query, source: Source) -> str:
    kind = "Element family" if is_family(about) else "Query"
    text = f"# {about['prefix']}\n\n{sentence(about['meaning'])}\n\n"
    text += f"{kind} of a displayed profile, answered by [{about['class']}](../classes/{about['class']}.md).\n\n"
    for section in SECTIONS:
        if not section.applies(about):
            continue
        body = section.write(about, source)
        if not body.strip():
            raise ValueError(f"the page of {about['prefix']} has nothing under '{section.title}'")
        text += f"## {section.title}\n\n{body}\n"
    return text
