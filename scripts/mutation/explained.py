"""The survivors that no test can notice. An entry identifies its line by the text, not by the number:

    file: src/display/display.cpp
    line: constexpr std::size_t usualMarks = 32;  // room
    to:   *
    why:  affects only the size of the first allocation

"to" is the changed line, or "*" for any change of that line. Entries are separated by blank lines; "#" begins a comment.
"""

import sys
from pathlib import Path


class Explained:
    def __init__(self, entries: list[dict[str, str]]):
        self.entries = entries

    def why(self, mutant) -> str:
        for entry in self.entries:
            if entry["file"] == mutant.file and entry["line"] == mutant.before and entry["to"] in ("*", mutant.after):
                return entry["why"]
        return ""


def read_explained(path: Path, texts: dict[str, str]) -> Explained:
    entries: list[dict[str, str]] = []
    if not path.is_file():
        return Explained(entries)
    for block in path.read_text().split("\n\n"):
        entry: dict[str, str] = {}
        for line in block.splitlines():
            if line.strip() and not line.startswith("#"):
                name, _, value = line.partition(":")
                entry[name.strip()] = " ".join(value.split())
        if not entry:
            continue
        if set(entry) != {"file", "line", "to", "why"}:
            sys.exit(f"{path.name}: an entry needs file, line, to and why:\n{block}")
        if entry["line"] not in " ".join(texts.get(entry["file"], "").split()):
            print(f"{path.name}: no longer there: {entry['file']}: {entry['line']}", file=sys.stderr)
        entries.append(entry)
    return Explained(entries)
