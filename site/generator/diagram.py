"""Flowcharts in the words of Mermaid, drawn by Graphviz: the subset that the documents use."""

import re
import subprocess

NODE = re.compile(r'(\w+)(\[|\{\{)"(.*)"(\]|\}\})')
EDGE = re.compile(r'(\w+) (-->|---|-\. "(.*?)" \.->|-- "(.*?)" -->) (?=(\w+))')
SETTINGS = """digraph {
compound=true; bgcolor=transparent; rankdir=TB; nodesep=0.3; ranksep=0.35;
node [shape=box, style=rounded, fontname="sans-serif", fontsize=11, margin="0.12,0.06"];
edge [fontname="sans-serif", fontsize=10, arrowsize=0.7];
"""
GROUP = 'fontname="sans-serif"; fontsize=10; style=rounded;'


class NoDiagram(Exception):
    """A line that is in no word of the subset."""


def dot_of(text: str) -> str:
    lines = [line.strip() for line in text.strip().splitlines()]
    if lines.pop(0) != "flowchart TB":
        raise NoDiagram("a diagram is a flowchart TB")
    groups = first_nodes(lines)
    return SETTINGS + "".join(statement(line, groups) for line in lines if line) + "}\n"


def first_nodes(lines: list[str]) -> dict[str, str]:
    """A node inside each group. Graphviz draws an edge to a group as one to a node of it, cut at the group's border."""
    groups: dict[str, str] = {}
    for number, line in enumerate(lines):
        if found := re.fullmatch(r'subgraph (\w+)\[".*"\]', line):
            groups[found[1]] = NODE.match(lines[number + 1])[1]
    return groups


def statement(line: str, groups: dict[str, str]) -> str:
    if line == "end":
        return "}\n"
    if found := re.fullmatch(r'subgraph (\w+)\["(.*)"\]', line):
        return f'subgraph cluster_{found[1]} {{\nlabel="{found[2]}"; {GROUP}\n'
    if found := NODE.fullmatch(line):
        shape = " shape=hexagon" if found[2] == "{{" else ""
        label = found[3].replace("<br/>", "\\n")
        return f'{found[1]} [label="{label}"{shape}];\n'
    edges = list(EDGE.finditer(line))
    if not edges:
        raise NoDiagram(line)
    return "".join(edge(found, groups) for found in edges)


def edge(found: re.Match[str], groups: dict[str, str]) -> str:
    start, arrow, dotted, label, end = found.groups()
    options = [f'label=" {label or dotted} "'] if label or dotted else []
    options += ["style=dashed"] if dotted else []
    options += ["dir=none"] if arrow == "---" else []
    options += [f"ltail=cluster_{start}"] if start in groups else []
    options += [f"lhead=cluster_{end}"] if end in groups else []
    return f"{groups.get(start, start)} -> {groups.get(end, end)} [{', '.join(options)}];\n"


def drawing(text: str) -> str:
    """The diagram as a picture inside the page."""
    done = subprocess.run(["dot", "-Tsvg"], input=dot_of(text), capture_output=True, encoding="utf-8", check=True)
    picture = done.stdout[done.stdout.index("<svg") :]
    picture = re.sub(r"<!--.*?-->\n?", "", picture, flags=re.S).replace("\n\n", "\n")
    return f'<div class="diagram">\n{picture.strip()}\n</div>\n'
