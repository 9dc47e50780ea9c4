"""python3 -m generator TOOL TARGET [playground]: writes the pages of the site, as Markdown, and the configuration for
MkDocs into the folder TARGET. Run in the folder site/. With "playground" the first page links to the playground."""

import shutil
import sys
from pathlib import Path

import yaml

from . import class_page, index_pages, query_page
from .documents import Documents
from .exchange import read_exchanges
from .query_page import NOTES
from .tool import Tool

ROOT = Path(__file__).resolve().parents[2]
EVERY_FAMILY = "samples/profiles/every_family.txt"

GUIDES = ("cpp", "terminal", "scripts", "archives")
# The documents in their order. One that is not named here comes after the library's.
TOOL_PAGES = ("tool", "parse", "captures", "archives", "archive-queries", "scale", "batch", "explain", "replay",
              "rows", "powershell")
LIBRARY_PAGES = ("cpp", "c", "python", "javascript", "com", "com-keys", "built-in-terminal", "glossary", "peculiarities")
PROJECT_PAGES = ("architecture", "testing", "benchmarks", "versions", "debian", "site")
PROJECT_FILES = ("README.md", "CONTRIBUTING.md", "SECURITY.md", "CHANGELOG.md")


def write_reference(tool: Tool, documents: Documents) -> list:
    """The pages of the reference; returns their part of the navigation."""
    classes = [tool.json("describe", each["class"]) for each in tool.json("describe")]
    prefixes = [query["prefix"] for each in classes for query in each.get("queries", [])]
    queries = [tool.json("describe", prefix) for prefix in prefixes]
    samples = [str(path.relative_to(ROOT)) for path in sorted((ROOT / "samples/profiles").glob("*.txt"))]
    samples.sort(key=lambda path: path != EVERY_FAMILY)

    for_classes = class_page.Source(tool, read_exchanges(ROOT / "samples/exchanges"), EVERY_FAMILY)
    for_queries = query_page.Source(tool, samples)
    for about in classes:
        documents.write(f"reference/classes/{about['class']}.md", class_page.page(about, for_classes))
    for about in queries:
        documents.write(f"reference/queries/{about['prefix']}.md", query_page.page(about, for_queries))
    documents.write("reference/index.md", index_pages.overview(classes, queries))
    documents.write("reference/keys.md", index_pages.keys(classes))
    documents.write("reference/errors.md", index_pages.errors(classes, queries))

    families = [query["prefix"] for query in queries if "section" in query]
    others = [query["prefix"] for query in queries if "section" not in query]
    assert NOTES in others
    return [
        "reference/index.md",
        "reference/keys.md",
        "reference/errors.md",
        {"Classes": [f"reference/classes/{about['class']}.md" for about in classes]},
        {"Families": [f"reference/queries/{prefix}.md" for prefix in families]},
        {"Other queries": [f"reference/queries/{prefix}.md" for prefix in others]},
    ]


def documents_of(names: tuple[str, ...]) -> list:
    paths = [f"docs/{name}.md" for name in names]
    return [path for path in paths if (ROOT / path).exists()]


def library_pages() -> list:
    """The pages of the library: the known ones, those that are new, and each folder."""
    folder = ROOT / "docs"
    known = (*TOOL_PAGES, *LIBRARY_PAGES, *PROJECT_PAGES)
    new = sorted(path.stem for path in folder.glob("*.md") if path.stem not in known)
    pages = documents_of((*LIBRARY_PAGES, *new))
    for sub in sorted(path for path in folder.iterdir() if path.is_dir()):
        names = sorted(str(path.relative_to(ROOT)) for path in sub.glob("*.md"))
        if names:
            pages.append({sub.name.capitalize(): names})
    return pages


def write_documents(documents: Documents) -> list:
    """The guides and the documents; returns their parts of the navigation, before and after the reference."""
    names = ["site/index.md", *(f"site/guides/{name}.md" for name in GUIDES), *PROJECT_FILES, "samples/README.md"]
    for name in (*names, *sorted(str(path.relative_to(ROOT)) for path in (ROOT / "docs").rglob("*.md"))):
        documents.add(name)
    documents.wanted.add(Path("schemas"))
    documents.add_wanted()

    def pages(entries: list) -> list:
        return [
            documents.page_of(entry) if isinstance(entry, str) else {name: pages(each) for name, each in entry.items()}
            for entry in entries
        ]

    project = [*PROJECT_FILES, *documents_of(PROJECT_PAGES), "samples/README.md"]
    return [
        {"Home": "index.md"},
        {"Guides": [f"guides/{name}.md" for name in GUIDES]},
        {"Tool": [*pages(documents_of(TOOL_PAGES)), "schemas/index.md"]},
        {"Library": pages(library_pages())},
        {"Project": pages(project)},
    ]


def complete_first_page(page: Path, has_playground: bool, source: query_page.Source) -> None:
    """Adds an excerpt of a display, and the link to the playground, which is built after the pages."""
    family = source.tool.json("describe", "FFN")
    display = query_page.excerpt(family, source.explain("FFN", EVERY_FAMILY)).html() + query_page.LEGEND
    link = '<a class="md-button" href="playground/index.html">Playground</a> '
    link += "Paste a screen or a display, and see what is read from it, in this browser: nothing is sent anywhere."
    text = page.read_text(encoding="utf-8")
    text = text.replace("<!-- playground -->", f"<p>{link}</p>" if has_playground else "")
    page.write_text(text.replace("<!-- display -->", display), encoding="utf-8")


def main(program: str, target: str, *parts: str) -> None:
    pages = Path(target) / "pages"
    shutil.rmtree(pages, ignore_errors=True)
    documents = Documents(ROOT, pages)
    tool = Tool(Path(program).resolve(), ROOT)
    before = write_documents(documents)
    reference = write_reference(tool, documents)
    complete_first_page(pages / "index.md", "playground" in parts, query_page.Source(tool, [EVERY_FAMILY]))
    if documents.broken:
        raise SystemExit("\n".join(documents.broken))
    shutil.copytree(ROOT / "site/assets", pages / "assets")
    settings = yaml.safe_load((ROOT / "site/mkdocs.yml").read_text(encoding="utf-8"))
    settings["nav"] = [*before[:2], {"Reference": reference}, *before[2:]]
    settings["docs_dir"] = str(pages.resolve())
    (Path(target) / "mkdocs.yml").write_text(yaml.safe_dump(settings, sort_keys=False), encoding="utf-8")


main(*sys.argv[1:])
