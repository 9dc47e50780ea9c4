"""The survivors that are known to change nothing that can be seen. An entry holds on by the text of the line, not by
its number:

    file: src/display/display.cpp
    line: constexpr std::size_t usualMarks = 32;  // room
    to:   *
    why:  only how much memory is asked for at first

"to" is the changed line, or "*" for any change of that line. Entries are parted by blank lines; "#" opens a comment.
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
