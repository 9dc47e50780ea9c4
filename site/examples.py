"""python3 examples.py GUIDE FOLDER: runs the examples of a guide in a folder of their own, and compares what they print
with the guide. Of each block of code, the comment above it says what it is:

    <!-- file: NAME -->           the block is a file; the commands below find it
    <!-- shown: PATH -->          the block is in this file of the project, line by line; the file has its own test
    <!-- not run: REASON -->      the block is not run, and the page says so

A block of the kind "console" needs no comment: lines that begin with "$ " are commands, the lines below a command what
it prints (a line "..." stands for any lines). Every block has to be one of these.
"""

import os
import re
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
BLOCK = re.compile(r"((?:^<!-- [^\n]* -->\n)*)^(`{3,})([a-z]*)\n(.*?)^\2$", re.M | re.S)
COMMENT = re.compile(r"<!-- (file|shown|not run): (.*) -->")


class Wrong(Exception):
    """What is wrong with a guide, for people."""


@dataclass
class Block:
    line: int
    comments: list[tuple[str, str]]  # each a kind and what follows it
    language: str
    text: str


def blocks_of(text: str) -> list[Block]:
    blocks = []
    for found in BLOCK.finditer(text):
        line = text.count("\n", 0, found.start(2)) + 1
        blocks.append(Block(line, COMMENT.findall(found[1]), found[3], found[4]))
    return blocks


def commands_of(text: str) -> list[tuple[str, str]]:
    """The commands of a block, each with what it prints. After a backslash or a bar at its end a line is continued."""
    commands: list[tuple[list[str], list[str]]] = []
    for line in text.splitlines():
        if line.startswith("$ "):
            commands.append(([line[2:]], []))
        elif not commands:
            raise Wrong(f"no command above '{line}'")
        elif not commands[-1][1] and commands[-1][0][-1].endswith(("\\", "|")):
            commands[-1][0].append(line)
        else:
            commands[-1][1].append(line)
    return [("\n".join(command), "".join(line + "\n" for line in output)) for command, output in commands]


def matches(expected: str, printed: str) -> bool:
    pattern = "".join(r"(?:.*\n)*" if line == "..." else re.escape(line) + r"\n" for line in expected.splitlines())
    return re.fullmatch(pattern, printed) is not None


def run(command: str, expected: str, folder: Path) -> None:
    """Standard output and standard error are compared together, as a terminal shows them."""
    done = subprocess.run(
        ["bash", "-c", command], cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8",
        stdin=subprocess.DEVNULL, env={**os.environ, "LC_ALL": "C.UTF-8", "HOME": str(folder)},
    )  # fmt: skip
    if not matches(expected, done.stdout):
        raise Wrong(f"$ {command}\nprints (status {done.returncode})\n{done.stdout}instead of\n{expected}")


def check_shown(path: Path, text: str) -> None:
    if not path.exists():
        raise Wrong(f"there is no {path}")
    if "\n" + text not in "\n" + path.read_text(encoding="utf-8"):
        raise Wrong(f"{path} does not contain the block")


def check_block(block: Block, folder: Path) -> list[str]:
    """Checks one block, and returns what was done with it."""
    for kind, detail in block.comments:
        if kind == "file":
            (folder / detail).write_text(block.text, encoding="utf-8")
        elif kind == "shown":
            check_shown(ROOT / detail, block.text)
    if block.comments:
        return [kind for kind, _ in block.comments]
    if block.language != "console":
        raise Wrong("no comment says what the block is")
    for command, expected in commands_of(block.text):
        run(command, expected, folder)
    return ["run"]


def check(guide: Path, folder: Path) -> dict[str, int]:
    counts = dict.fromkeys(("run", "file", "shown", "not run"), 0)
    for block in blocks_of(guide.read_text(encoding="utf-8")):
        try:
            for kind in check_block(block, folder):
                counts[kind] += 1
        except Wrong as wrong:
            raise Wrong(f"{guide}:{block.line}: {wrong}") from wrong
    if not counts["run"] + counts["shown"]:
        raise Wrong(f"{guide}: it has no example")
    return counts


def main(guide: str, folder: str) -> int:
    work = Path(folder).resolve()
    work.mkdir(parents=True, exist_ok=True)
    for name in ("samples",):
        if not (work / name).exists():
            (work / name).symlink_to(ROOT / name)
    try:
        counts = check(Path(guide), work)
    except Wrong as wrong:
        print(wrong)
        return 1
    print(f"{guide}: " + ", ".join(f"{count} {kind}" for kind, count in counts.items()))
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
