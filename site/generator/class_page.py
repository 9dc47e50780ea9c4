"""The page of a class: one row for each kind of section."""

import json
from collections.abc import Callable
from dataclasses import dataclass
from typing import Any

from .exchange import Exchange, Step
from .markdown import box, code, details, sentence, shell, table, words
from .screen import Screen
from .tool import Tool

Class = dict[str, Any]

POSITIONS = {
    "startsLine": "begins one of the lines {firstLine} to {lastLine}",
    "inLine": "is in one of the lines {firstLine} to {lastLine}",
    "onScreen": "is anywhere on the screen",
    "notOnScreen": "is nowhere on the screen",
    "sameLine": "is in the line with {other}",
    "lineLater": "is 80 characters or more after {other}",
    "endsList": "is in the line that ends a company list",
}
PASSED = {
    "ignored": "`VerifyResponse` does not use the collection that is passed to it.",
    "optional": "`VerifyResponse` reads the collection that is passed to it, if there is one.",
    "required": "`VerifyResponse` fails without a collection.",
    "returned": "`VerifyResponse` needs a collection, adds its results to it and returns it.",
}


@dataclass
class Source:
    """What the sections are made of."""

    tool: Tool
    exchanges: list[Exchange]
    display: str  # a display that has every family


@dataclass
class Section:
    title: str
    applies: Callable[[Class], bool]
    write: Callable[[Class, Source], str]


def needed(row: dict) -> str:
    return {"required": "yes", "conditional": words(row.get("when", "")), "optional": ""}[row["need"]]


def parameter_table(rows: list[dict]) -> str:
    def meaning(row: dict) -> str:
        values = " or ".join(code(value) for value in row.get("values", []))
        return sentence(row["meaning"]) + (f" {values}." if values else "")

    cells = [[code(row["key"]), row["kind"], needed(row), meaning(row)] for row in rows]
    return table(["Key", "Kind", "Needed", "Meaning"], cells)


def result_table(rows: list[dict]) -> str:
    cells = [[code(row["key"]), row["kind"], words(row.get("when", "")), sentence(row["meaning"])] for row in rows]
    return table(["Key", "Kind", "Added", "Meaning"], cells)


def parameters(about: Class, _: Source) -> str:
    return parameter_table(about["parameters"]) or "The command has no parameters.\n"


def commands(about: Class, source: Source) -> str:
    forms = [[code(form["form"]), words(form.get("when", ""))] for form in about["commands"]]
    text = "What is in brackets can be left out; words in small letters stand for values.\n\n"
    text += table(["Form", "Used for"], forms) + "\n"
    for form in about["commands"]:
        command = ["command", about["class"], *(f"{each['key']}={each['value']}" for each in form["example"])]
        printed = source.tool.text(*command)
        if printed != form["command"] + "\n":
            raise ValueError(f"{command} prints {printed}, and the class says {form['command']}")
        text += shell(["vantro-profile", *command], printed) + "\n"
    return text


def flag_text(flag: dict) -> str:
    other = code(flag.get("otherMark", ""))
    text = code(flag["mark"]) + " " + POSITIONS[flag["position"]].format(other=other, **{"firstLine": 0, **flag})
    if "command" in flag:
        text = f"after {code(flag['command'])}: {text}"
    if "otherMark" in flag and flag["position"] not in ("sameLine", "lineLater"):
        text += f", and {other} is shown"
    return text


def screens(about: Class, _: Source) -> str:
    if not about["screens"]:
        return "No mark on the screen is tested.\n"
    rows = [[code(flag["flag"]) if "flag" in flag else "none", flag_text(flag)] for flag in about["screens"]]
    text = "Lines count from 0, columns from 1.\n\n" + table(["Flag that becomes True", "Mark"], rows)
    return text + ("\n" + words(about["screensRule"]) + "\n" if "screensRule" in about else "")


def state(about: Class, _: Source) -> str:
    return PASSED[about["passedCollection"]] + "\n\n" + parameter_table(about["state"])


def results(about: Class, _: Source) -> str:
    return result_table(about["results"]) or "The class reads nothing from a screen and returns no collection.\n"


def columns(about: Class, _: Source) -> str:
    cells = [[code(row["name"]), sentence(row["meaning"])] for row in about["columns"]]
    intro = "`verify --rows` and `readRows` return each entry of a list: [Lists as rows](../../docs/rows.md).\n\n"
    return intro + table(["Column", "Meaning"], cells)


def request(about: Class, _: Source) -> str:
    return parameter_table(about["request"])


def elements(about: Class, _: Source) -> str:
    return result_table(about["elements"])


def queries(about: Class, _: Source) -> str:
    def link(prefix: str) -> str:
        return f"[{prefix}](../queries/{prefix}.md)"

    cells = [[link(row["prefix"]), sentence(row["meaning"])] for row in about["queries"]]
    return table(["Prefix", "Meaning"], cells)


def counts(about: Class, _: Source) -> str:
    return words(about["countsMeaning"]) + "\n\n" + ", ".join(f"`{name}`" for name in about["counts"]) + "\n"


def errors(about: Class, _: Source) -> str:
    rows = [[str(row["number"]), row["call"], sentence(row["meaning"])] for row in about["errors"]]
    return table(["Number", "Call", "Raised when"], rows) or "The class raises no numbers of its own.\n"


# Samples


def explained(step: Step, source: Source) -> Screen:
    """The screen of a step with the marks that were found and the values that were read."""
    screen = Screen(step.screen)
    if step.results_error is None:
        work = source.tool.root / "build" / "site-work"
        work.mkdir(parents=True, exist_ok=True)
        (work / "screen.txt").write_text("".join(line.rstrip() + "\n" for line in step.screen), encoding="utf-8")
        arguments = ["explain", step.class_name, "--quiet", "--screen", str(work / "screen.txt")]
        if step.state is not None:
            (work / "state.json").write_text(json.dumps(step.state), encoding="utf-8")
            arguments += ["--state", str(work / "state.json")]
        screen.add_explanation(source.tool.json(*arguments, statuses=(0, 4)))
    return screen


def values_text(values: dict) -> str:
    return "\n".join(f'"{key}": {json.dumps(value, ensure_ascii=False)}' for key, value in values.items())


def step_html(step: Step, screen: Screen | None) -> str:
    parts = []
    if step.params:
        parts += ["<p>Parameters</p>", box(values_text(step.params))]
    if step.command is not None:
        parts += ["<p>Command</p>", box(step.command or "(empty: nothing is sent)")]
    if step.command_error is not None:
        parts += [f"<p>Building the command fails with error {step.command_error}.</p>"]
    if screen:
        parts += ["<p>Screen</p>", screen.html()]
    if step.continues:
        parts += ["<p>The state is what the screen before returned.</p>"]
    if step.count is not None:
        parts += [f"<p>The count is {step.count}.</p>"]
    if step.results is not None:
        parts += ["<p>Results</p>", box(values_text(step.results) or "(an empty collection)")]
    if step.no_results:
        parts += ["<p>No collection is returned.</p>"]
    if step.results_error is not None:
        parts += [f"<p>Reading the screen fails with error {step.results_error}.</p>"]
    return "\n".join(parts)


def how_good(sample: tuple[Exchange, Step, Screen | None]) -> tuple[bool, int]:
    """The best sample of a class is one of this class alone, with the most marks and values on its screen."""
    exchange, step, screen = sample
    is_mixed = any(each.class_name != step.class_name for each in exchange.steps)
    return is_mixed, -(screen.count() + 1 if screen else 0)


def samples(about: Class, source: Source) -> str:
    if not about["transactions"]:
        return display_sample(source)
    found = []
    for exchange in source.exchanges:
        for step in exchange.steps:
            if step.class_name == about["class"]:
                found.append((exchange, step, explained(step, source) if step.screen else None))
    if not found:
        return ""
    found.sort(key=how_good)
    exchange, step, screen = found[0]
    text = f"{words(exchange.about)}\n\n{step_html(step, screen)}\n\n"
    text += '<p class="legend"><mark class="mark">marks that were found</mark> <mark class="value">values</mark>; '
    text += f"<code>{exchange.path.name}</code></p>\n\n"
    others: dict[str, list] = {}
    for sample in found[1:]:
        others.setdefault(sample[0].path.name, []).append(sample)
    for name in sorted(others):
        about_it = f"<p>{words(others[name][0][0].about)}</p>\n"
        body = "\n<hr>\n".join(step_html(each[1], each[2]) for each in others[name])
        text += details(name.removesuffix(".exchange").replace("_", " "), about_it + body) + "\n"
    return text


def display_sample(source: Source) -> str:
    command = ["elements", "FFN", "--index", "1", source.display]
    return (
        "One query of a display; the page of each prefix has the lines that it reads.\n\n"
        + shell(["vantro-profile", *command], source.tool.text(*command))
        + "\nThe elements of all families in one call:\n\n"
        + shell(
            ["vantro-profile", "parse", "--compact", "--only", "NM,RECLOC,FFN", source.display],
            source.tool.text("parse", "--compact", "--only", "NM,RECLOC,FFN", source.display),
        )
    )


def is_transaction(about: Class) -> bool:
    return "IProfileTrans" in about["interfaces"]


def is_parser(about: Class) -> bool:
    return "IProfileGet" in about["interfaces"]


SECTIONS = (
    Section("Parameters of the command", is_transaction, parameters),
    Section("Commands", is_transaction, commands),
    Section("Screens", is_transaction, screens),
    Section("Collection that is passed with a screen", is_transaction, state),
    Section("Results", is_transaction, results),
    Section("Columns of a list", lambda about: "columns" in about, columns),
    Section("Request for elements", is_parser, request),
    Section("Elements", is_parser, elements),
    Section("Prefixes", is_parser, queries),
    Section("Counts", lambda about: bool(about["counts"]), counts),
    Section("Errors", lambda about: True, errors),
    Section("Sample exchange", lambda about: True, samples),
)


def page(about: Class, source: Source) -> str:
    text = f"# {about['class']}\n\n{words(about['purpose'])} {words(about.get('remark', ''))}\n\n"
    facts = [["Interfaces", ", ".join(f"`{name}`" for name in about["interfaces"])]]
    if about["transactions"]:
        facts.insert(0, ["Host transactions", ", ".join(f"`{code}`" for code in about["transactions"])])
    name = about["class"]
    facts.append(["Created as", f'`createObject(u"{name}", terminal)`, `VantroProfileUtils.{name}`'])
    text += table(["", ""], facts) + "\n"
    for section in SECTIONS:
        if not section.applies(about):
            continue
        body = section.write(about, source)
        if not body.strip():
            raise ValueError(f"the page of {about['class']} has nothing under '{section.title}'")
        text += f"## {section.title}\n\n{body}\n"
    return text
