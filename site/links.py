"""python3 links.py FOLDER: checks every link inside the built pages: the file is there, and so is the anchor. Links to
other sites are counted, not followed."""

import sys
from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import unquote, urlsplit


class Page(HTMLParser):
    """The links and the anchors of a page."""

    def __init__(self, path: Path):
        super().__init__()
        self.links: list[str] = []
        self.anchors: set[str] = set()
        self.feed(path.read_text(encoding="utf-8", errors="replace"))

    def handle_starttag(self, tag: str, attributes: list[tuple[str, str | None]]) -> None:
        for name, value in attributes:
            if name == "id" or (name == "name" and tag == "a"):
                self.anchors.add(value or "")
            elif name in ("href", "src") and value:
                self.links.append(value)


def check(folder: Path) -> tuple[int, int, list[str]]:
    """The numbers of links inside and outside, and what is wrong."""
    pages = {path: Page(path) for path in sorted(folder.rglob("*.html"))}
    inside = outside = 0
    wrong = []
    for path, page in pages.items():
        for link in page.links:
            parts = urlsplit(link)
            if parts.scheme or parts.netloc:
                outside += 1
                continue
            inside += 1
            target = (path.parent / unquote(parts.path)).resolve() if parts.path else path
            if parts.path.startswith("/"):
                target = folder / unquote(parts.path).lstrip("/")
            if target.is_dir():
                target /= "index.html"
            where = f"{path.relative_to(folder)}: {link}"
            if not target.exists():
                wrong.append(f"{where}: no such file")
            elif target in pages and parts.fragment and unquote(parts.fragment) not in pages[target].anchors:
                wrong.append(f"{where}: no such place on the page")
    return inside, outside, wrong


def main(folder: str) -> int:
    inside, outside, wrong = check(Path(folder).resolve())
    print("\n".join(wrong))
    print(f"{inside} links inside the site, {len(wrong)} of them broken; {outside} links to other sites, not followed")
    return 1 if wrong or not inside else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
