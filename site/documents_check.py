"""python3 documents_check.py FOLDER DOCUMENT...: what can be checked of the examples in the documents, which need files
that are not there: the tool knows the subcommands and options of every command line of a shell or of PowerShell, and
every block of JSON is JSON. The commands are run in FOLDER."""

import json
import re
import shlex
import subprocess
import sys
from pathlib import Path

BLOCK = re.compile(r"^```([a-z]*)\n(.*?)^```$", re.M | re.S)
SHELLS = {"", "bash", "sh", "console", "text", "powershell"}
PROGRAM = re.compile(r"^(?:\$ )?(?:build/release/bin/)?vantro-profile (.*)$")
PUNCTUATION = {"|", "||", "&&", ";", ">", ">>", "<", "2>"}


def arguments_of(line: str) -> list[str] | None:
    """The arguments of a command line of the tool, up to a pipe, a redirection or a comment; or None."""
    found = PROGRAM.match(line)
    if not found or found[1].startswith(("[", ":")):
        return None
    words = shlex.split(found[1].replace("\\", "/"), comments=True)
    ends = [index for index, word in enumerate(words) if word in PUNCTUATION]
    return words[: min(ends, default=len(words))]


def command_lines(block: str) -> list[list[str]]:
    joined = re.sub(r"[\\`]\n\s*", "", block)
    return [arguments for line in joined.splitlines() if (arguments := arguments_of(line)) is not None]


def usage_problem(arguments: list[str], folder: Path) -> str:
    """What the tool says of wrong usage; empty when it understands the command line."""
    done = subprocess.run(
        ["vantro-profile", *arguments], cwd=folder, capture_output=True, encoding="utf-8", stdin=subprocess.DEVNULL
    )
    is_usage = done.returncode == 2 and re.search(r"[Ss]ee vantro-profile .*--help\.$", done.stderr, re.M)
    return done.stderr.strip() if is_usage else ""


def is_json(text: str) -> bool:
    """One value, or one in each line."""
    for values in ([text], text.splitlines()):
        try:
            for value in values:
                json.loads(value)
        except json.JSONDecodeError:
            continue
        return True
    return False


def check(document: Path, folder: Path) -> tuple[int, list[str]]:
    """The number of examples that were checked, and what is wrong."""
    count, wrong = 0, []
    for language, block in BLOCK.findall(document.read_text(encoding="utf-8")):
        if language == "json":
            count += 1
            if not is_json(block):
                wrong.append(f"{document}: no JSON: {block}")
        for arguments in command_lines(block) if language in SHELLS else []:
            count += 1
            if problem := usage_problem(arguments, folder):
                wrong.append(f"{document}: {shlex.join(arguments)}: {problem}")
    return count, wrong


def main(folder: str, *documents: str) -> int:
    Path(folder).mkdir(parents=True, exist_ok=True)
    total, wrong = 0, []
    for document in documents:
        count, found = check(Path(document), Path(folder))
        total += count
        wrong += found
    print("\n".join(wrong))
    print(f"{total} examples in {len(documents)} documents, {len(wrong)} wrong")
    return 1 if wrong or not total else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
