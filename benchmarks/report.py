"""Writes docs/benchmarks.md, docs/benchmarks.svg and docs/growth.svg from the record of one run.

Usage: report.py RECORD BUILD DOCS. RECORD contains tab-separated lines: "time", task, group, name, best and median
seconds; "figure", task, name, value. BUILD is the build folder. Its file com.json is optional; another program writes
it: {"com": [{"task": "VerifyResponse of a list", "ours_ns": 1, "terminal_ns": 1, "native_ns": 1}, ...]}.
"""

import datetime
import json
import math
import os
import pathlib
import platform
import re
import subprocess
import sys

CORPORA = ("mixed", "archive")
FORMS = ("display as an array of lines", "display as one string")

TASKS = {
    "whole_profile": (
        "Whole profile",
        """All elements of one display. `parseProfile` returns everything: 29 families with the parts of their elements,
the header values and the notes, for any display.

- *exact*: one pass, written for speed, with the same elements, parts, header values and notes. One look at a line, with
  vector compares, finds the end of its text, its blanks and slashes, and a prompt or the end text in any column; its
  first characters say what the line can be. It knows the host's rules: tags and codes inside free text, joined lines
  with and without a colon, one or two lines below a transferable element, six blanks after a number for PPC, no
  confidential remarks below a rule, a company name broken inside a word. It relies on what the host prints: numbers and
  titles in their columns, each section once, an end in every display, no tag in a continuation line, no code in the
  head.
- *floor*: the same without header values and without the parts of elements. It sees the end only at the beginning of a
  line, tells titles apart by two places in them, and does not care which families a section may contain. It is
  valid where nothing of this matters, as in these displays. Tags and codes
  count only in their columns.
- *views*: texts are slices of the display, or of joined texts in memory that is used again for the next display, like
  the lists of the result. *owned strings*: a new result for each display, every text in a string of its own, with one
  allocation at most. `parseProfile` lies between: a new result for each display, with views of a text that it owns.
- *steps counted*: observed by a program that only counts the steps. *explained*: every step is kept, with texts of its
  own. An observed display is read query by query.
- PCRE2, RE2 and Python match one expression against each line and put the matches together. They are exact.""",
    ),
    "one_family": (
        "One family",
        """One element family of one display: one call, for another family with each display, and one call for each of 22
families. The contenders return views; the count property fills lists of strings.

- *exact*: the title is searched in all lines, sixteen characters at a time, for a rule, a prompt and the end text in any
  column; then only the section is read. It relies on the same forms of lines as the exact scanner of whole profiles.
- *floor*: the same, but the lines of the section are not searched for the end, nor their free text for tags.
- *count property*: from the third call of a display on, the object compares the text with what it knows instead of
  searching it. The hand-written contenders keep nothing. *read anew*: an object for each family, none of which sees a
  display twice.
- `ProfileElements` answers in a new collection, which counts. The collection shares the object's lists.
- *nobody observes*: the object's terminal library can be observed, and is not. *steps counted*: it is, by a program that
  only counts the steps.""",
    ),
    "list_screen": (
        "List screen and command",
        """Reading one list screen of 24 lines, and building one name search command.

- *exact*: by hand, with the values in a collection like that of `VerifyResponse`, with the same keys and texts of its
  own. One look at each line finds a prompt, and for travellers the end of the text. Titles and the end of the block are
  known at the beginning of a line; a name ends at the column of the locators and is trimmed by vector compares.
- *floor*: the same, but the values stay in a plain structure.""",
    ),
    "batch": (
        "Batch",
        """Whole programs that read the same file of 10,000 requests, each with a display of 1 to 400 lines and one family, and
write the same answers. The figures are processor time of the whole process, user and system, per request; starting the
program is included and nothing is subtracted. Lines in arrays lack the blanks at their ends.

- *simdjson and scanner*: On-Demand, strings read where they are, the exact scanner for one family, answers written by
  hand. It serves this one call, and displays in ASCII.
- *Python json and re*: one expression matched against the lines of the section.

`parse` reads displays from a file and writes everything as JSON. The file of 100,000 displays is written to /dev/null
and compared with `memcpy` of as many bytes as it reads and writes, between buffers that no cache holds. The rows for
one core and two are wall time.""",
    ),
    "growth": (
        "Growth",
        """Time against the length of the display, and displays without an end marker, which are searched up to the last
16-bit line number. *by hand* is the exact scanner of whole profiles with owned strings. `ProfileNotesElementsCount` of
a display without an end takes longer than the search, because its three lists then contain an empty note for every line
number that is left, as a terminal expects them.""",
    ),
}


def rows_of(task, groups, *rows):
    return [(task, group, *row) for row in rows for group in groups]


OURS = "parseProfile, text moved in"

# Task, group, measured, against, the ratio that must be reached (None: only reported), the goal.
TARGETS = [
    *rows_of(
        "whole_profile", CORPORA,
        (OURS, "floor, owned strings", 0.75, 0.5),
        (OURS, "floor, views", 2.0, 1.4),
        (OURS, "exact, views", 1.1, 0.9),
    ),
    *rows_of(
        "one_family", CORPORA,
        ("count property, one call", "floor, one call", 1.25, 1.0),
        ("count property, 22 calls", "floor, 22 calls", 1.2, 1.0),
        ("ProfileElements, one call", "count property, one call", 1.25, 1.15),
        ("ProfileElements, 22 calls", "count property, 22 calls", 1.25, 1.15),
    ),
    *rows_of("batch", FORMS, ("vantro-profile batch", "simdjson and scanner", 1.8, 1.4)),
    *rows_of(
        "list_screen", ["24 lines"],
        ("companies, CPDNTrans", "companies, exact", 1.1, 1.0),
        ("travellers, CPLTTrans", "travellers, exact", 1.1, 1.0),
    ),
    *rows_of("batch", ["100,000 displays"], ("parse -j1", "memcpy of the input and the output", None, 8)),
]

# The same without a goal; None: only shown.
LIMITS = [
    *rows_of(
        "whole_profile", CORPORA,
        (OURS, "exact, owned strings", None),
        ("parseProfile, text copied", "floor, owned strings", None),
        (OURS, "PCRE2 with JIT", None),
        (OURS, "RE2", None),
        (OURS, "memcpy of the text", None),
        ("parseProfile, steps counted", "parseProfile, text copied", None),
        ("parseProfile, explained", "parseProfile, text copied", None),
    ),
    *rows_of(
        "one_family", CORPORA,
        ("count property, one call", "exact, one call", None),
        ("count property, 22 calls", "exact, 22 calls", None),
        ("count property, read anew, 22 calls", "floor, 22 calls", None),
        ("count property, read anew, 22 calls", "count property, 22 calls", None),
        ("count property, nobody observes, 22 calls", "count property, 22 calls", 1.03),
        ("count property, steps counted, 22 calls", "count property, 22 calls", None),
    ),
    *rows_of("batch", FORMS, ("vantro-profile batch", "Python json and re", 0.25)),
    *rows_of(
        "batch", ["4,000 displays, wall time"],
        ("parse -j2", "parse -j1", 0.556),
        ("parse -j2", "two parse -j1, half each", None),
    ),
    *rows_of(
        "list_screen", ["24 lines"],
        ("companies, CPDNTrans", "companies, floor", None),
        ("companies, CPDNTrans", "companies, PCRE2 with JIT", None),
        ("travellers, CPLTTrans", "travellers, floor", None),
        ("travellers, CPLTTrans", "travellers, PCRE2 with JIT", None),
        ("command, CPDNTrans", "command, by hand", None),
    ),
    *rows_of("growth", ["30000 lines"], ("parseProfile", "by hand", None)),
    *rows_of(
        "growth", ["no end"],
        ("4 lines: PPRElementsCount", "16-bit sweep of empty lines", 1.0),
        ("4 lines: parseProfile", "16-bit sweep of empty lines", 1.0),
        ("199 lines: ProfileNotesElementsCount", "16-bit sweep of empty lines", 1.0),
        ("199 lines: parseProfile", "16-bit sweep of empty lines", 1.0),
    ),
]

# Name, from this number of lines, to this one, limit. Linear growth is the ratio of the numbers of lines; short displays
# stay in the nearest cache and have fewer sections, so that twice the ratio is allowed.
GROWTH = [("parseProfile", 400, 30000, 150), ("parseProfile", 3000, 30000, 20), ("PFOElementsCount", 400, 30000, 150)]


class Record:
    """Times by task, group and name: pairs of best and median."""

    def __init__(self, path):
        self.times = {}
        self.figures = []
        for line in path.read_text(encoding="utf-8").splitlines():
            kind, task, *rest = line.split("\t")
            if kind == "time":
                group, name, best, median = rest
                self.times.setdefault(task, {}).setdefault(group, {})[name] = (float(best), float(median))
            elif kind == "figure":
                self.figures.append((task, rest[0], float(rest[1])))

    def group(self, task, group):
        """The name may be the beginning of the recorded one, which has the sizes."""
        found = [times for name, times in self.times.get(task, {}).items() if name.startswith(group)]
        return found[0] if found else {}

    def ratio(self, task, group, contender, baseline):
        """Of the best times; None when one was not measured."""
        times = self.group(task, group)
        if contender not in times or baseline not in times:
            return None
        return times[contender][0] / times[baseline][0]


def shown_time(seconds):
    for unit, scale in (("s", 1), ("ms", 1e3), ("µs", 1e6)):
        if seconds * scale >= 1:
            return f"{seconds * scale:.3g} {unit}"
    return f"{seconds * 1e9:.3g} ns"


def output_of(*command):
    try:
        done = subprocess.run(command, capture_output=True, text=True, check=False)
    except OSError:
        return ""
    return done.stdout.strip()


def processor():
    info = pathlib.Path("/proc/cpuinfo")
    names = re.findall(r"^model name\s*:\s*(.*)$", info.read_text(), re.M) if info.exists() else []
    return names[0] if names else platform.processor() or "unknown"


def memory():
    info = pathlib.Path("/proc/meminfo")
    total = re.search(r"MemTotal:\s*(\d+)", info.read_text()) if info.exists() else None
    return f"{int(total[1]) / 2**20:.0f} GiB" if total else "unknown"


def compiler(build):
    cache = (build / "CMakeCache.txt").read_text()
    path = re.search(r"^CMAKE_CXX_COMPILER:\w+=(.*)$", cache, re.M)[1]
    kind = re.search(r"^CMAKE_BUILD_TYPE:\w+=(.*)$", cache, re.M)[1]
    flags = re.search(rf"^CMAKE_CXX_FLAGS_{kind.upper()}:\w+=(.*)$", cache, re.M)[1]
    return f"{output_of(path, '--version').splitlines()[0]}, {flags}"


def package_version(name):
    return output_of("dpkg-query", "-W", "-f", "${Version}", name) or "unknown"


def description(build):
    versions = [
        f"{label} {package_version(package)}"
        for label, package in (
            ("PCRE2", "libpcre2-dev"),
            ("RE2", "libre2-dev"),
            ("simdjson", "libsimdjson-dev"),
        )
    ]
    rows = [
        ("Date", datetime.date.today().isoformat()),
        ("Processor", f"{processor()}, {os.cpu_count()} logical"),
        ("Memory", memory()),
        ("System", f"{platform.system()} {platform.release()}, {platform.libc_ver()[0]} {platform.libc_ver()[1]}"),
        ("Compiler", compiler(build)),
        ("Libraries", ", ".join(versions)),
        ("Python", platform.python_version()),
    ]
    return ["| | |", "|---|---|"] + [f"| {name} | {value} |" for name, value in rows]


def limit(target):
    return "" if target is None else f"{target:.3g}"


def reached(value, target):
    if target is None:
        return ""
    return "yes" if value <= target else "**no**"


def com_rows(build):
    """Task, ratio and its parts, from the optional file."""
    path = build / "com.json"
    if not path.exists():
        return []
    rows = []
    for row in json.loads(path.read_text(encoding="utf-8"))["com"]:
        against = row["terminal_ns"] + row["native_ns"]
        rows.append((row["task"], row["ours_ns"] / against, row["ours_ns"], row["terminal_ns"], row["native_ns"]))
    return rows


def target_rows(record, build):
    rows = [
        "| task | input | measured | against | ratio | must | goal | must reached | goal reached |",
        "|---|---|---|---|---|---|---|---|---|",
    ]

    def add(title, group, contender, baseline, value, must, goal):
        rows.append(
            f"| {title} | {group} | {contender} | {baseline} | {value:.2f} | {limit(must)} | {limit(goal)} "
            f"| {reached(value, must)} | {reached(value, goal)} |"
        )

    for task, group, contender, baseline, must, goal in TARGETS:
        value = record.ratio(task, group, contender, baseline)
        if value is not None:
            add(TASKS[task][0], group, contender, baseline, value, must, goal)
    for task, value, *_ in com_rows(build):
        add("COM, late-bound", "", task, "the terminal's calls, and the same natively", value, 2.0, 1.3)
    if not com_rows(build):
        rows += ["", "COM was not measured in this run."]
    return rows


def limit_rows(record):
    rows = ["| task | input | measured | against | ratio | at most | reached |", "|---|---|---|---|---|---|---|"]
    for task, group, contender, baseline, most in LIMITS:
        value = record.ratio(task, group, contender, baseline)
        if value is not None:
            rows.append(
                f"| {TASKS[task][0]} | {group} | {contender} | {baseline} | {value:.2f} | {limit(most)} "
                f"| {reached(value, most)} |"
            )
    for name, fewer, more, most in GROWTH:
        times = [record.group("growth", f"{lines} lines").get(name) for lines in (more, fewer)]
        if all(times):
            value = times[0][0] / times[1][0]
            rows.append(f"| Growth | | {name}, {more} lines | {fewer} lines | {value:.2f} | {most} "
                        f"| {reached(value, most)} |")
    for task, name, value in record.figures:
        rows.append(f"| {TASKS[task][0]} | | {name} | | {value:g} | 1 | {reached(value, 1)} |")
    return rows


def time_rows(groups):
    """One table for all groups, in the order of the first one."""
    rows = ["| input | contender | best | median |", "|---|---|---|---|"]
    for group, times in groups.items():
        for name, (best, median) in sorted(times.items(), key=lambda item: item[1]):
            rows.append(f"| {group} | {name} | {shown_time(best)} | {shown_time(median)} |")
    return rows


def growth_lengths(groups):
    return sorted(int(found[1]) for group in groups if (found := re.match(r"(\d+) lines$", group)))


def growth_rows(groups):
    names = ("parseProfile", "by hand", "PFOElementsCount")
    rows = ["| lines | parseProfile | by hand | PFOElementsCount |", "|---|---|---|---|"]
    for lines in growth_lengths(groups):
        cells = (groups[f"{lines} lines"][name][0] for name in names)
        rows.append(f"| {lines} | " + " | ".join(shown_time(cell) for cell in cells) + " |")
    return rows + [""] + time_rows({"no end": groups.get("no end", {})})


def com_section(build):
    rows = com_rows(build)
    if not rows:
        return []
    table = ["| | through COM | the terminal's calls, made directly | the same natively |", "|---|---|---|---|"]
    for task, _, *nanoseconds in rows:
        table.append(f"| {task} | " + " | ".join(shown_time(ns * 1e-9) for ns in nanoseconds) + " |")
    return ["## COM", "", "Late-bound calls of a script host, best times.", "", *table, ""]


INTRODUCTION = """# Benchmarks

This page and its pictures are written by `scripts/bench.sh`, which builds the preset `bench` and runs everything at
once. It installs the libraries compared with; nothing else in the project needs them. Figures vary between machines and
runs: compare ratios of one run, not times of two. To run a single program: `build/bench/bin/bench_whole_profile`. To
measure another commit with the same contenders: `scripts/bench.sh --commit REVISION`.

Before a contender is timed, its results for all displays are compared with the library's; a program ends at the first
difference. The displays are synthetic and the same in every run, in two corpora of 1,000 displays of 24 to 400 lines
with all families, notes and one end each:

| corpus | lines | elements | characters | |
|---|---|---|---|---|
| mixed | 210.7 | 164.5 | 16.8 million | one element in nine is wrapped, a host line above one display in ten |
| archive | 205.4 | 158.2 | 16.4 million | many elements, one in 24 is wrapped |

The contenders take turns: a round runs one pass of each over the whole corpus, each time in another order, because what
one contender leaves in the caches makes the next one faster or slower. A pass is timed in 50 slices, in processor time.
What counts is the best time of each slice, summed up, because the machine has phases in which everything takes half as
long again; the medians are for information. The allocator keeps memory that is freed, as it does in programs that have
more in memory than one display.

![Whole profile, contenders compared](benchmarks.svg)
"""


def document(record, build):
    lines = [INTRODUCTION, *description(build), "", "## Targets", "", *target_rows(record, build), ""]
    lines += ["## Further ratios", "", *limit_rows(record), ""]
    for task, (title, about) in TASKS.items():
        groups = record.times.get(task)
        if not groups:
            continue
        lines += [f"## {title}", "", about, ""]
        if task == "growth":
            lines += ["![Time against length](growth.svg)", "", *growth_rows(groups)]
        else:
            lines += time_rows(groups)
        lines.append("")
    return "\n".join(lines + com_section(build))


class Drawing:
    """A small SVG writer: light background, one font."""

    def __init__(self, width, height, title):
        self.parts = [
            f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" width="{width}" '
            f'height="{height}" font-family="Helvetica, Arial, sans-serif" font-size="13" role="img">',
            f"<title>{title}</title>",
            f'<rect width="{width}" height="{height}" fill="#ffffff"/>',
        ]

    def text(self, x, y, content, anchor="start", size=13, colour="#222222", weight="normal"):
        self.parts.append(
            f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" font-size="{size}" fill="{colour}" '
            f'font-weight="{weight}">{content}</text>'
        )

    def line(self, x1, y1, x2, y2, colour="#dddddd"):
        self.parts.append(f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" stroke="{colour}"/>')

    def bar(self, x, y, width, height, colour):
        self.parts.append(
            f'<rect x="{x:.1f}" y="{y:.1f}" width="{width:.1f}" height="{height}" rx="2" fill="{colour}"/>'
        )

    def curve(self, points, colour):
        path = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
        self.parts.append(f'<polyline points="{path}" fill="none" stroke="{colour}" stroke-width="2"/>')
        for x, y in points:
            self.parts.append(f'<circle cx="{x:.1f}" cy="{y:.1f}" r="3" fill="{colour}"/>')

    def __str__(self):
        return "\n".join(self.parts) + "\n</svg>\n"


class LogScale:
    """Positions of values on a logarithmic scale between two ends."""

    def __init__(self, values, begin, end):
        self.low = math.floor(math.log10(min(values)))
        self.high = math.ceil(math.log10(max(values)))
        self.begin, self.end = begin, end

    def __call__(self, value):
        share = (math.log10(value) - self.low) / (self.high - self.low)
        return self.begin + share * (self.end - self.begin)

    def decades(self):
        return [10.0**exponent for exponent in range(self.low, self.high + 1)]


OUR_COLOUR, THEIR_COLOUR = "#1f6fb2", "#b8c2cc"


def comparison(group):
    times = {name: best for name, (best, _) in group.items()}
    names = sorted(times, key=times.get)
    left, right, top, step = 220, 660, 62, 32
    height = top + step * len(names) + 40
    drawing = Drawing(760, height, "All elements of a display, time by contender")
    drawing.text(20, 28, "All elements of one profile display", size=16, weight="bold")
    drawing.text(20, 46, "mixed corpus, best time, logarithmic scale; shorter is better", colour="#666666", size=12)
    scale = LogScale(times.values(), left, right)
    bottom = top + step * len(names)
    for decade in scale.decades():
        drawing.line(scale(decade), top, scale(decade), bottom)
        drawing.text(scale(decade), bottom + 18, shown_time(decade), "middle", 11, "#666666")
    for row, name in enumerate(names):
        y = top + step * row + 6
        colour = OUR_COLOUR if name.startswith("parseProfile") else THEIR_COLOUR
        drawing.text(left - 10, y + 15, name, "end")
        drawing.bar(left, y, max(scale(times[name]) - left, 1), 20, colour)
        drawing.text(scale(times[name]) + 8, y + 15, shown_time(times[name]))
    return str(drawing)


def growth(groups):
    series = {"parseProfile": OUR_COLOUR, "by hand": "#8a949e", "PFOElementsCount": "#d9822b"}
    labels = {"by hand": "by hand, owned strings", "PFOElementsCount": "one family (PFOElementsCount)"}
    lengths = growth_lengths(groups)
    values = {name: [groups[f"{lines} lines"][name][0] for lines in lengths] for name in series}
    drawing = Drawing(760, 430, "Time against the length of the display")
    drawing.text(20, 28, "Time against the length of the display", size=16, weight="bold")
    drawing.text(20, 46, "both scales logarithmic: a slope of one is linear", colour="#666666", size=12)
    x, y = LogScale(lengths, 80, 730), LogScale([v for row in values.values() for v in row], 375, 90)
    for decade in x.decades():
        drawing.line(x(decade), 90, x(decade), 375)
        drawing.text(x(decade), 393, f"{decade:,.0f}", "middle", 11, "#666666")
    for decade in y.decades():
        drawing.line(80, y(decade), 730, y(decade))
        drawing.text(72, y(decade) + 4, shown_time(decade), "end", 11, "#666666")
    drawing.text(405, 416, "lines of 80 characters", "middle", 12, "#666666")
    for index, (name, colour) in enumerate(series.items()):
        drawing.curve([(x(lines), y(value)) for lines, value in zip(lengths, values[name])], colour)
        drawing.bar(80 + 210 * index, 64, 14, 10, colour)
        drawing.text(100 + 210 * index, 73, labels.get(name, name), size=12)
    return str(drawing)


def main():
    record_path, build, docs = (pathlib.Path(argument) for argument in sys.argv[1:4])
    record = Record(record_path)
    (docs / "benchmarks.md").write_text(document(record, build), encoding="utf-8")
    if "whole_profile" in record.times:
        (docs / "benchmarks.svg").write_text(comparison(record.group("whole_profile", "mixed")), encoding="utf-8")
    if "growth" in record.times:
        (docs / "growth.svg").write_text(growth(record.times["growth"]), encoding="utf-8")
    print("\n".join(target_rows(record, build)))


if __name__ == "__main__":
    main()
