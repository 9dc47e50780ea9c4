"""Screens as HTML: lines of 80 columns with their numbers and a ruler, and with marks and values in colour."""

from html import escape

RULER = "....+....1....+....2....+....3....+....4....+....5....+....6....+....7....+....8"


class Screen:
    def __init__(self, lines: list[str], first: int | None = 0):
        """`lines` are shown; the first one has the number `first`. Without it they have no numbers."""
        self.lines = [line.rstrip() for line in lines]
        self.first = first or 0
        self.is_numbered = first is not None
        self.spans: dict[int, list[tuple[int, int, str, str]]] = {}

    def add(self, pieces: list[dict], kind: str, title: str) -> None:
        """Colours the pieces of a value or a mark. `kind` is the CSS class, `title` what a pointer shows."""
        for piece in pieces:
            line = piece.get("line", -1) - self.first
            if 0 <= line < len(self.lines):
                start = piece["column"] - 1
                self.spans.setdefault(line, []).append((start, start + piece["length"], kind, title))

    def add_explanation(self, explanation: dict) -> None:
        """The values that were read, and the marks that were found. `part` is a part of an element."""
        for value in explanation["values"]:
            kind = "part" if "family" in value and value["name"] not in ("text", "number") else "value"
            self.add(value["pieces"], kind, f"{value['name']}: {value.get('meaning', '')}")
        for step in explanation["steps"]:
            if step["kind"] == "markSearched" and step["isFound"]:
                self.add(step["pieces"], "mark", step.get("meaning") or f'the mark "{step["mark"]}"')

    def count(self) -> int:
        return sum(len(spans) for spans in self.spans.values())

    def html(self) -> str:
        width = max(2, len(str(self.first + len(self.lines) - 1))) + 2 if self.is_numbered else 0
        rows = [f'<span class="ruler">{" " * width}{RULER}</span>']
        for index, line in enumerate(self.lines):
            number = f"{self.first + index:>{width - 2}}  " if width else ""
            rows.append((f'<span class="number">{number}</span>' if number else "") + self.line_html(index, line))
        text = "\n".join(rows)
        return f'<div class="screen" tabindex="0" role="region" aria-label="screen"><pre>{text}</pre></div>'

    def line_html(self, index: int, line: str) -> str:
        owners: list[tuple[str, str] | None] = [None] * len(line)
        shortest_last = sorted(self.spans.get(index, []), key=lambda span: span[0] - span[1])
        for start, end, kind, title in shortest_last:
            owners[start:end] = [(kind, title)] * (min(end, len(line)) - start)
        html, start = "", 0
        while start < len(line):
            end = start
            while end < len(line) and owners[end] == owners[start]:
                end += 1
            text = escape(line[start:end], quote=False)
            if owners[start]:
                kind, title = owners[start]
                text = f'<mark class="{kind}" title="{escape(title)}">{text}</mark>'
            html += text
            start = end
        return html
