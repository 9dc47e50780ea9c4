"""Writes docs/benchmarks.md, docs/benchmarks.svg and docs/growth.svg from the record of one run.

Usage: report.py RECORD BUILD DOCS. RECORD contains tab-separated lines: "time", task, name, seconds; "ratio", task,
contender, baseline, target (0: only shown); "figure", task, name, value, target. BUILD is the build folder.
"""

import datetime
import math
import os
import pathlib
import platform
import re
import subprocess
import sys

TASKS = {
    "whole_profile": (
        "Whole profile",
        "All 29 families, the header values and the notes of one display; the mean over 1,000 displays of 24 to 400 "
        "lines. The hand-written contenders make one pass; the regular expressions are matched once per line.",
    ),
    "one_family": (
        "One family",
        "One element family of one display: one call (for another family with each display), and one call for each of "
        "22 families. The line-by-line scan makes a new trimmed string of every line.",
    ),
    "list_screen": (
        "List screen and command",
        "Reading one list screen of 24 lines, and building one name search command.",
    ),
    "batch": (
        "Batch",
        "Whole programs reading the same file of requests, each with a display and one family (processor time per "
        "request), and `parse` reading 4,000 displays with one core and with two (wall time).",
    ),
    "growth": (
        "Growth",
        "Time against the length of the display, and displays without an end marker, which are searched up to the "
        "last 16-bit line number.",
    ),
}


class Record:
    def __init__(self, path):
        self.times = {}
        self.ratios = []
        self.figures = []
        for line in path.read_text(encoding="utf-8").splitlines():
            kind, task, name, *rest = line.split("\t")
            if kind == "time":
                self.times.setdefault(task, {})[name] = float(rest[0])
            elif kind == "ratio":
                self.ratios.append((task, name, rest[0], float(rest[1])))
            elif kind == "figure":
                self.figures.append((task, name, float(rest[0]), float(rest[1])))

    def ratio(self, task, contender, baseline):
        return self.times[task][contender] / self.times[task][baseline]


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
            ("Google Benchmark", "libbenchmark-dev"),
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


def goal(target):
    return f"at most {target:.3g}" if target else ""


def reached(value, target):
    if not target:
        return ""
    return "yes" if value <= target else "**no**"


def ratio_rows(record):
    rows = ["| task | measured | against | ratio | target | reached |", "|---|---|---|---|---|---|"]
    for task, contender, baseline, target in record.ratios:
        if contender not in record.times[task] or baseline not in record.times[task]:
            continue
        value = record.ratio(task, contender, baseline)
        title = TASKS[task][0]
        rows.append(
            f"| {title} | {contender} | {baseline} | {value:.2f} | {goal(target)} | {reached(value, target)} |"
        )
    for task, name, value, target in record.figures:
        rows.append(f"| {TASKS[task][0]} | {name} | | {value:g} | {goal(target)} | {reached(value, target)} |")
    return rows


def growth_rows(times):
    rows = ["| lines | parseProfile | by hand, owned strings | PFOElementsCount |", "|---|---|---|---|"]
    for lines in growth_lengths(times):
        cells = (times[f"{name}, {lines} lines"] for name in ("parseProfile", "by hand", "PFOElementsCount"))
        rows.append(f"| {lines} | " + " | ".join(shown_time(cell) for cell in cells) + " |")
    rest = {name: time for name, time in times.items() if not re.search(r", \d+ lines$", name)}
    return rows + [""] + time_rows(rest)


def time_rows(times):
    rows = ["| | median |", "|---|---|"]
    return rows + [f"| {name} | {shown_time(time)} |" for name, time in sorted(times.items(), key=lambda item: item[1])]


def growth_lengths(times):
    return sorted({int(found[1]) for name in times if (found := re.match(r"parseProfile, (\d+) lines$", name))})


def document(record, build):
    lines = [
        "# Benchmarks",
        "",
        "This page and its pictures are written by `scripts/bench.sh`, which builds the preset `bench` and runs",
        "everything at once. It installs the libraries compared with; nothing else in the project needs them.",
        "Figures vary between machines and runs: compare ratios of one run, not times of two. To run a single",
        "program: `build/bench/bin/bench_whole_profile`, with Google Benchmark's arguments.",
        "",
        "Before a contender is timed, its results for all displays are compared with the library's; a program ends",
        "at the first difference. The displays are synthetic and the same in every run: 1,000 displays of 24 to 400",
        "lines, with all families, wrapped and colon continuation lines, notes, and one end marker each. Times are",
        "medians; those of single calls are processor time.",
        "",
        "![Whole profile, contenders compared](benchmarks.svg)",
        "",
        *description(build),
        "",
        "## Ratios",
        "",
        *ratio_rows(record),
        "",
    ]
    for task, (title, about) in TASKS.items():
        times = record.times.get(task)
        if not times:
            continue
        lines += [f"## {title}", "", about, ""]
        if task == "growth":
            lines += ["![Time against length](growth.svg)", "", *growth_rows(times)]
        else:
            lines += time_rows(times)
        lines.append("")
    return "\n".join(lines)


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


OURS, THEIRS = "#1f6fb2", "#b8c2cc"


def comparison(times):
    names = sorted(times, key=times.get)
    left, right, top, step = 220, 660, 62, 32
    height = top + step * len(names) + 40
    drawing = Drawing(760, height, "All elements of a display, time by contender")
    drawing.text(20, 28, "All elements of one profile display", size=16, weight="bold")
    drawing.text(20, 46, "median time, logarithmic scale; shorter is better", colour="#666666", size=12)
    scale = LogScale(times.values(), left, right)
    bottom = top + step * len(names)
    for decade in scale.decades():
        drawing.line(scale(decade), top, scale(decade), bottom)
        drawing.text(scale(decade), bottom + 18, shown_time(decade), "middle", 11, "#666666")
    for row, name in enumerate(names):
        y = top + step * row + 6
        colour = OURS if name.startswith("parseProfile") else THEIRS
        drawing.text(left - 10, y + 15, name, "end")
        drawing.bar(left, y, max(scale(times[name]) - left, 1), 20, colour)
        drawing.text(scale(times[name]) + 8, y + 15, shown_time(times[name]))
    return str(drawing)


def growth(times):
    series = {"parseProfile": OURS, "by hand": "#8a949e", "PFOElementsCount": "#d9822b"}
    labels = {"by hand": "by hand, owned strings", "PFOElementsCount": "one family (PFOElementsCount)"}
    lengths = growth_lengths(times)
    values = {name: [times[f"{name}, {lines} lines"] for lines in lengths] for name in series}
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
    (docs / "benchmarks.svg").write_text(comparison(record.times["whole_profile"]), encoding="utf-8")
    (docs / "growth.svg").write_text(growth(record.times["growth"]), encoding="utf-8")
    print("\n".join(ratio_rows(record)))


if __name__ == "__main__":
    main()
