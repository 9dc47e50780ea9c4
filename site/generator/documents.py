"""The project's documents as pages of the site. Their links are kept: one that names a source file or a folder leads to
a page that shows it."""

import os
import re
from pathlib import Path

from .diagram import drawing

LINK = re.compile(r"(!?)\[((?:[^\[\]]|\[[^\]]*\]|!\[[^\]]*\]\([^)]*\))*)\]\(([^)\s]+)\)")
MERMAID = re.compile(r"^```mermaid\n(.*)^```$", re.M | re.S)
LANGUAGES = {
    ".h": "cpp", ".cpp": "cpp", ".c": "c", ".py": "python", ".json": "json", ".sh": "bash", ".txt": "text",
    ".exchange": "text", ".cmake": "cmake", ".vbs": "vbscript", ".js": "javascript", ".mjs": "javascript",
    ".ts": "typescript", ".cs": "csharp", ".bas": "vbnet", ".ps1": "powershell", ".dpr": "delphi", ".idl": "cpp",
}  # fmt: skip
PICTURES = {".svg", ".png"}

# What the comments above the blocks of code in the guides show on the page; site/examples.py explains them.
CAPTIONS = (
    (re.compile(r"^<!-- file: (.*) -->$", re.M), r'<p class="file">\1</p>\n'),
    (re.compile(r"^<!-- shown: (.*) -->$", re.M), r'<p class="file">from \1</p>\n'),
    (re.compile(r"^<!-- not run: (.*) -->$", re.M), r'<p class="file">Not run by the tests: \1.</p>\n'),
)

# What is on the site, and not in the project.
GENERATED = ("site/reference/", "site/cpp/")

# Where a document is on the site, if not under its own path.
MOVED = {"README.md": "project/readme.md", "CONTRIBUTING.md": "project/contributing.md",
         "SECURITY.md": "project/security.md", "CHANGELOG.md": "project/changelog.md",
         "LICENSE": "project/licence.md", "site/guides": "guides", "site/index.md": "index.md",
         "site/reference": "reference", "site/cpp": "cpp"}  # fmt: skip


class Documents:
    def __init__(self, root: Path, target: Path):
        self.root = root
        self.target = target
        self.wanted: set[Path] = set()  # source files, folders and pictures that links name
        self.broken: list[str] = []

    def page_of(self, path: str) -> str:
        """The page that shows a file or a folder of the project."""
        for old, new in MOVED.items():
            if path == old or path.startswith(old + "/"):
                return new + path[len(old) :]
        source = self.root / path
        if source.is_dir():
            return f"{path}/index.md"
        if path.endswith("README.md"):
            return path.removesuffix("README.md") + "index.md"
        return path if source.suffix == ".md" or source.suffix in PICTURES else path + ".md"

    def add(self, path: str) -> None:
        """Writes a document as a page."""
        text = (self.root / path).read_text(encoding="utf-8")
        page = self.page_of(path)
        blocks = re.split(r"(^```.*?^```$)", text, flags=re.M | re.S)
        blocks[::2] = [LINK.sub(lambda found: self.link(found, path, page), block) for block in blocks[::2]]
        blocks[1::2] = [MERMAID.sub(lambda found: drawing(found[1]), block) for block in blocks[1::2]]
        text = "".join(blocks)
        for pattern, caption in CAPTIONS if path.startswith("site/") else ():
            text = pattern.sub(caption, text)
        self.write(page, text)

    def link(self, found: re.Match[str], path: str, page: str) -> str:
        picture, label, target = found.groups()
        if not picture:
            label = LINK.sub(lambda inner: self.link(inner, path, page), label)
        if re.match(r"[a-z]+:|#", target):
            return f"{picture}[{label}]({target})"
        name, anchor = (target.split("#", 1) + [""])[:2]
        meant = os.path.normpath(os.path.join(os.path.dirname(path), name))
        if not meant.startswith(GENERATED):
            if not (self.root / meant).exists():
                self.broken.append(f"{path}: there is no {meant}")
            self.wanted.add(Path(meant))
        relative = os.path.relpath(self.page_of(meant), os.path.dirname(page) or ".")
        return f"{picture}[{label}]({relative}{'#' + anchor if anchor else ''})"

    def add_wanted(self) -> None:
        """Writes what the documents link to and what is no page yet."""
        done: set[Path] = set()
        while left := self.wanted - done:
            for path in sorted(left):
                done.add(path)
                self.add_file(path)

    def add_file(self, path: Path) -> None:
        source, page = self.root / path, self.page_of(str(path))
        if (self.target / page).exists() or not source.exists():
            return
        if source.is_dir():
            self.add_folder(path)
        elif source.suffix in PICTURES:
            self.write(page, source.read_bytes())
        elif source.suffix == ".md":
            self.add(str(path))
        else:
            text = source.read_text(encoding="utf-8").rstrip()
            language = LANGUAGES.get(source.suffix, "text")
            self.write(page, f"# {path.name}\n\n`{path}`\n\n````{language}\n{text}\n````\n")

    def add_folder(self, path: Path) -> None:
        if (self.root / path / "README.md").exists():
            self.add(str(path / "README.md"))
            return
        files = sorted(each for each in (self.root / path).iterdir() if each.is_file() and each.suffix in LANGUAGES)
        self.wanted |= {each.relative_to(self.root) for each in files}
        lines = [f"- [{each.name}]({each.name}.md)" for each in files]
        self.write(f"{path}/index.md", f"# {path}\n\n" + "\n".join(lines) + "\n")

    def write(self, page: str, content: str | bytes) -> None:
        path = self.target / page
        path.parent.mkdir(parents=True, exist_ok=True)
        if isinstance(content, bytes):
            path.write_bytes(content)
        else:
            path.write_text(content, encoding="utf-8")
