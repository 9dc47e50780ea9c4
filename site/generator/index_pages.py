"""The indexes: all classes and queries, all keys, all error numbers."""

from typing import Any

from .markdown import code, sentence, table

Rows = list[dict[str, Any]]


def class_link(name: str) -> str:
    return f"[{name}](classes/{name}.md)"


def query_link(prefix: str) -> str:
    return f"[{prefix}](queries/{prefix}.md)"


def overview(classes: Rows, queries: Rows) -> str:
    families = [query for query in queries if "section" in query]
    others = [query for query in queries if "section" not in query]
    class_rows = [
        [class_link(each["class"]), ", ".join(f"`{name}`" for name in each["transactions"]), sentence(each["purpose"])]
        for each in classes
    ]
    family_rows = [
        [query_link(each["prefix"]), each["section"].lstrip("- "), sentence(each["meaning"])] for each in families
    ]
    return "\n".join(
        (
            "# Reference",
            "",
            "Made from the rows of the library, with the tool's `describe --json`. The commands and outputs on these "
            "pages are those of the tool, and the sample exchanges are replayed as tests.",
            "",
            "- [Keys](keys.md): every key of a collection, and who reads or adds it",
            "- [Error numbers](errors.md): which call of which class raises a number",
            "- [C++ headers](../cpp/index.html): the public headers, by Doxygen",
            "- [Output formats](../schemas/index.md): JSON Schemas of what the tool prints",
            "",
            "## Classes",
            "",
            table(["Class", "Host transactions", "For"], class_rows),
            "## Element families of a display",
            "",
            table(["Prefix", "Section", "One element"], family_rows),
            "## Other queries of a display",
            "",
            table(["Prefix", "Answer"], [[query_link(each["prefix"]), sentence(each["meaning"])] for each in others]),
        )
    )


KEY_LISTS = (
    ("parameters", "parameter of"),
    ("state", "state of"),
    ("results", "result of"),
    ("request", "request to"),
    ("elements", "element from"),
)


def keys(classes: Rows) -> str:
    found: dict[str, dict[str, Any]] = {}
    for each in classes:
        for member, role in KEY_LISTS:
            for row in each.get(member, []):
                entry = found.setdefault(row["key"], {"kinds": set(), "roles": {}})
                entry["kinds"].add(row["kind"])
                entry["roles"].setdefault(role, []).append(class_link(each["class"]))
    rows = []
    for key in sorted(found):
        roles = "; ".join(f"{role} {', '.join(links)}" for role, links in found[key]["roles"].items())
        rows.append([code(key), " or ".join(sorted(found[key]["kinds"])), roles])
    intro = "The keys of the collections that go into the classes and come out of them. The page of a class says what "
    return f"# Keys\n\n{intro}each of its keys means.\n\n" + table(["Key", "Kind", "Where"], rows)


def errors(classes: Rows, queries: Rows) -> str:
    found: dict[tuple[int, str, str], list[str]] = {}
    for each in classes:
        for row in each["errors"]:
            found.setdefault((row["number"], row["call"], row["meaning"]), []).append(class_link(each["class"]))
    for each in queries:
        for row in each.get("errors", []):
            found.setdefault((row["number"], row["call"], row["meaning"]), []).append(query_link(each["prefix"]))
    rows = [
        [str(number), call, sentence(meaning), ", ".join(links)]
        for (number, call, meaning), links in sorted(found.items(), key=lambda item: item[0][:2])
    ]
    intro = "A failed call raises a numbered error. Numbers from 5000 on belong to a call of a class or to a family of "
    intro += "elements; small numbers have the meanings of automation languages, such as 13 for a value that cannot "
    intro += "be converted. [The COM server](../docs/com.md) says how the numbers appear in COM."
    return f"# Error numbers\n\n{intro}\n\n" + table(["Number", "Call", "Raised when", "By"], rows)
