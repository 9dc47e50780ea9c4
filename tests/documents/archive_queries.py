"""Runs every query of docs/archive-queries.md and compares the answers with the page's: archive_queries.py ROOT TOOL

The archive is the one that the page describes, made by the tool from the samples and the page's own file."""

import pathlib
import re
import sqlite3
import subprocess
import sys
import tempfile


def answer(archive, query):
    """What sqlite3 -header prints."""
    found = archive.execute(query)
    rows = [[column[0] for column in found.description], *found.fetchall()]
    return "".join("|".join("" if cell is None else str(cell) for cell in row) + "\n" for row in rows)


def main(root, tool, folder):
    page = (root / "docs/archive-queries.md").read_text(encoding="utf-8")
    blocks = re.findall(r"^```(\w+)\n(.*?)^```$", page, re.S | re.M)
    (folder / "branch.txt").write_text(next(text for kind, text in blocks if kind == "branch"))
    (folder / "profiles").symlink_to(root / "samples/profiles")
    command = [tool, "export", "profiles", "branch.txt", "--to", "archive.db", "--quiet"]
    subprocess.run(command, cwd=folder, check=False)  # one display fails
    archive = sqlite3.connect(folder / "archive.db")
    queries = [(text, blocks[index + 1]) for index, (kind, text) in enumerate(blocks) if kind == "sql"]
    if len(queries) != 10:
        sys.exit(f"the page has {len(queries)} queries instead of ten")
    for view, column in archive.execute("SELECT v.name, c.name FROM sqlite_master AS v "
                                        "JOIN pragma_table_info(v.name) AS c WHERE v.type = 'view'"):
        if not re.search(rf"^- `{view}`:[^-]*`{column}`", page, re.M):
            sys.exit(f"the page does not name the column {column} of {view}")
    for query, (kind, expected) in queries:
        found = answer(archive, query)
        if kind != "text" or found.count("\n") < 2 or found != expected:
            sys.exit(f"{query}\nanswers\n{found}\nand not\n{expected}")


with tempfile.TemporaryDirectory() as temporary:
    main(pathlib.Path(sys.argv[1]), sys.argv[2], pathlib.Path(temporary))
