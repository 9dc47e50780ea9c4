"""The survivors that no test can notice. An entry identifies its line by the text, not by the number:

    file: src/display/display.cpp
    line: constexpr std::size_t usualMarks = 32;
    to:   *
    why:  affects only the size of the first allocation

"to" is the changed line, or "*" for any change of that line. The lines' own comments are left out. Entries are separated
by blank lines; "#" begins a comment. An entry whose line is no longer in its file ends the run: it explains nothing.
"""

import sys
from pathlib import Path


def code_of(line: str) -> str:
    """The line without its comment, one blank between words."""
    return " ".join(line.partition(" // ")[0].split())


class Explained:
    def __init__(self, entries: list[dict[str, str]]):
        self.entries = entries

    def why(self, mutant) -> str:
        before, after = code_of(mutant.before), code_of(mutant.after)
        for entry in self.entries:
            if entry["file"] == mutant.file and entry["line"] == before and entry["to"] in ("*", after):
                return entry["why"]
        return ""


def read_explained(path: Path, texts: dict[str, str]) -> Explained:
    entries: list[dict[str, str]] = []
    for block in path.read_text().split("\n\n"):
        entry: dict[str, str] = {}
        for line in block.splitlines():
            if line.strip() and not line.startswith("#"):
                name, _, value = line.partition(":")
                entry[name.strip()] = code_of(value)
        if not entry:
            continue
        if set(entry) != {"file", "line", "to", "why"}:
            sys.exit(f"{path.name}: an entry needs file, line, to and why:\n{block}")
        if entry["line"] not in " ".join(texts.get(entry["file"], "").split()):
            sys.exit(f"{path.name}: no longer there: {entry['file']}: {entry['line']}")
        entries.append(entry)
    return Explained(entries)
