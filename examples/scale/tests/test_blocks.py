"""Cutting a capture into blocks, and putting the numbers of the blocks together."""

from __future__ import annotations

import gzip
import json
from pathlib import Path

import pytest
import zstandard
from display_blocks import Block, bytes_of, counted, display_starts, files_in, first_cut, planned_blocks, refusal
from display_rows import rows_of
from export_tables import TABLES, csv_line
from parts import check, shares
from table_parts import gaps, manifest_of, numbered, part_file, write_part

CAPTURE = (b"PDRT/AAAAAA\n*T* TRAVELLER\n   1 NM  A/B MS\nEND OF DISPLAY\n"
           b"\n>\n  \r\n"
           b"PDRT/BBBBBB\r\n A > B\r\n>\r\n"
           b">\n> >\nEND OF DISPLAY > AND MORE\n"
           b"PDRT/CCCCCC\n\n   2 PPR/ NO END")


def displays(data: bytes) -> list[bytes]:
    starts = display_starts(data)
    return [data[begin:end] for begin, end in zip(starts, [*starts[1:], len(data)])]


def test_blank_lines_and_prompts_belong_to_the_display_above() -> None:
    assert displays(CAPTURE) == [
        b"PDRT/AAAAAA\n*T* TRAVELLER\n   1 NM  A/B MS\nEND OF DISPLAY\n\n>\n  \r\n",
        b"PDRT/BBBBBB\r\n A > B\r\n>\r\n>\n",
        b"> >\nEND OF DISPLAY > AND MORE\n",
        b"PDRT/CCCCCC\n\n   2 PPR/ NO END",
    ]


@pytest.mark.parametrize(("data", "count"), [(b"", 0), (b"\n  \r\n", 0), (b">", 1), (b"\n>\n>\n", 1), (b"X", 1)])
def test_displays_in_little_text(data: bytes, count: int) -> None:
    assert len(display_starts(data)) == count


def test_a_cut_anywhere_is_at_the_beginning_of_a_display() -> None:
    starts = {*display_starts(CAPTURE), len(CAPTURE)}
    for offset in range(len(CAPTURE) + 1):
        cut = first_cut(CAPTURE[offset:], is_last=True)
        assert cut is not None and offset + cut in starts


def test_a_window_without_a_whole_line_after_an_end_is_too_short() -> None:
    assert first_cut(b"X\nEND OF DISPLAY\n>", is_last=False) is None  # "> A" would begin a display, ">" does not
    assert first_cut(b"X\nEND OF DISPLAY\n> A\n", is_last=False) == 17


@pytest.mark.parametrize("block_bytes", [1, 7, 50, 1000])
def test_blocks_contain_every_display_once(tmp_path: Path, block_bytes: int) -> None:
    file = tmp_path / "a capture.txt"
    file.write_bytes(CAPTURE)
    blocks = [counted(plan) for plan in planned_blocks(str(file), block_bytes)]
    assert b"".join(map(bytes_of, blocks)) == CAPTURE
    assert [display for block in blocks for display in displays(bytes_of(block))] == displays(CAPTURE)
    assert sum(block.displays for block in blocks) == 4
    assert sum(block.lines for block in blocks) == CAPTURE.count(b"\n")
    tasks = numbered(blocks)
    lines = [CAPTURE.count(b"\n", 0, task.block.begin) + 1 for task in tasks]
    assert [task.first_line for task in tasks] == lines
    assert [task.part for task in tasks] == list(range(len(tasks)))


def test_numbers_go_on_over_blocks_and_begin_again_in_the_next_file() -> None:
    blocks = [Block("a", 0, 9, 2, 30), Block("a", 9, 9, 0, 0), Block("a", 9, 20, 3, 10), Block("b", 0, 9, 1, 5)]
    found = [(task.part, task.first_id, task.first_display, task.first_line) for task in numbered(blocks)]
    assert found == [(0, 1, 1, 1), (1, 3, 3, 31), (2, 6, 1, 1)]


def test_compressed_files_are_one_block(tmp_path: Path) -> None:
    half = len(CAPTURE) // 2
    zipped = gzip.compress(CAPTURE[:half]) + gzip.compress(CAPTURE[half:])
    packer = zstandard.ZstdCompressor()
    for name, data in (("a.gz", zipped), ("a.zst", packer.compress(CAPTURE[:half]) + packer.compress(CAPTURE[half:]))):
        file = tmp_path / name
        file.write_bytes(data)
        plans = planned_blocks(str(file), 10)
        assert plans == [(str(file), 0, -1)]
        assert bytes_of(counted(plans[0])) == CAPTURE
    (tmp_path / "a.gz").write_bytes(zipped[:-20])
    with pytest.raises(RuntimeError, match="a.gz' is damaged"):
        bytes_of(Block(str(tmp_path / "a.gz"), 0, -1))


def test_marks_at_both_ends_of_a_file_are_no_text(tmp_path: Path) -> None:
    file = tmp_path / "dos.txt"
    file.write_bytes(b"\xef\xbb\xbfPDRT/A\r\n>\r\n\x1a\r\n")
    assert bytes_of(Block(str(file), 0, file.stat().st_size)) == b"PDRT/A\r\n>\r\n"


@pytest.mark.parametrize(("data", "reason"), [
    (b"\xff\xfeP\0", "looks like UTF-16"), (b"P\0D\0R\0", "looks like UTF-16"),
    (b"X" * 81, "has no line ends"), (b"X" * 80, None), (CAPTURE, None), (b"", None),
])
def test_files_that_only_the_tool_reads_are_refused(tmp_path: Path, data: bytes, reason: str | None) -> None:
    file = tmp_path / "file"
    file.write_bytes(data)
    assert refusal(str(file)) == reason


def test_files_are_in_the_order_of_their_names_without_hidden_ones(tmp_path: Path) -> None:
    for name in ("b.txt", "a b/c.txt", "a/c.txt", ".hidden/x", "a/.x"):
        (tmp_path / name).parent.mkdir(exist_ok=True)
        (tmp_path / name).touch()
    assert files_in(str(tmp_path)) == [f"{tmp_path}/{name}" for name in ("a b/c.txt", "a/c.txt", "b.txt")]
    assert files_in(f"{tmp_path}/./a/../") == files_in(str(tmp_path))


def test_cells_are_quoted_only_where_they_must_be() -> None:
    assert csv_line(["1", "A B", ""]) == "1,A B,\n"
    assert csv_line([" A", "B"]) == '" A",B\n'
    assert csv_line(["A", "B "]) == 'A,"B "\n'
    assert csv_line([" A", "B ", 'C"D', "E,F", "G\rH", "I"]) == '" A","B ","C""D","E,F","G\rH",I\n'


@pytest.mark.parametrize(("data", "reason"), [
    (b"A\n" + b"X" * 81 + b"\n\xff", "line 8 has 81 characters, a screen line has 80 at most"),
    (b"A\r\n\xff\n" + b"X" * 81, "line 8 is not UTF-8; "),
    (b"A\nB\rC\n", "line 8 contains a carriage return (CR) that no line feed (LF) follows; "),
    ("\N{GRINNING FACE}".encode() * 41, "line 7 has 82 characters, "),  # two UTF-16 code units each
])
def test_a_display_that_cannot_be_read_is_a_problem(data: bytes, reason: str) -> None:
    rows = rows_of(data, "a file", 12, 3, 7)
    assert (rows.displays, rows.failed, rows.tables["profiles"]) == (1, 1, [])
    (row,) = rows.tables["problems"]
    assert row.startswith("12,a file,3,7,,,") and reason.split(",")[0] in row


def test_shares_are_of_neighbours_and_of_about_the_same_size() -> None:
    assert shares([10] * 6, 3) == [0, 0, 1, 1, 2, 2]
    assert shares([1, 1, 100], 2) == [0, 0, 1]
    assert shares([0, 0], 2) == [0, 0]
    assert shares([], 2) == []


def exported(folder: Path) -> Path:
    file, to = folder / "capture.txt", folder / "tables"
    file.write_bytes(CAPTURE)
    for table in ("profiles", "elements", "notes", "problems"):
        (to / table).mkdir(parents=True)
    tasks = numbered(counted(plan) for plan in planned_blocks(str(file), 50))
    parts = [write_part(task, str(to)) for task in tasks]
    (to / "manifest.json").write_text(json.dumps(manifest_of([str(file)], parts)))
    return to


def test_a_part_that_is_written_twice_is_the_same(tmp_path: Path) -> None:
    to = exported(tmp_path)
    before = {file: file.read_bytes() for file in to.rglob("*.csv")}
    (task, *_) = numbered(counted(plan) for plan in planned_blocks(str(tmp_path / "capture.txt"), 50))
    write_part(task, str(to))
    assert {file: file.read_bytes() for file in to.rglob("*.csv")} == before
    assert gaps(str(to)) == []


def test_gaps_are_found(tmp_path: Path) -> None:
    to = exported(tmp_path)
    file = part_file(str(to), "profiles", 0)
    lines = file.read_text().splitlines(keepends=True)
    file.write_text("".join(lines[:-1]))
    assert [gap.split(" ", 1)[1] for gap in gaps(str(to))] == [
        f"has {len(lines) - 2} rows instead of {len(lines) - 1}", "0 does not have every display from 1 once"]
    file.unlink()
    assert f"'{file}' is missing" in gaps(str(to))
    file.write_text("".join([*lines, lines[-1]]))
    assert "part 0 does not have every display from 1 once" in gaps(str(to))
    file.write_text("".join(lines))
    assert gaps(str(to)) == []
    extra = part_file(str(to), "notes", 99)
    extra.touch()
    assert gaps(str(to)) == [f"'{extra}' is not in the manifest"]



def job_with(folder: Path, rows: str, status: str) -> Path:
    """A job of one task with one file of four displays."""
    file, job = folder / "capture.txt", folder / "job"
    file.write_bytes(CAPTURE)
    (job / "part-0").mkdir(parents=True)
    (job / "files-0").write_bytes(bytes(file) + b"\0")
    (job / "status-0").write_text(status)
    (job / "part-0" / "profiles.csv").write_text(csv_line(TABLES["profiles"]) + rows)
    (job / "part-0" / "problems.csv").write_text(
        f"display_id,source,display,line,query,error,description\n2,{file},2,7,,,broken\n1,{file},1,1,PHI,5,a query\n")
    return job


def row(folder: Path, display: int) -> str:
    return f"{display},{folder}/capture.txt,{display}" + "," * 16 + "\n"


def test_a_job_is_complete_if_each_display_is_there_once(tmp_path: Path) -> None:
    all_rows = "".join(row(tmp_path, display) for display in (1, 3, 4))
    assert check(job_with(tmp_path, all_rows, "137\n1\n")) == []


def test_displays_that_are_missing_or_there_twice_are_named(tmp_path: Path) -> None:
    rows = "".join(row(tmp_path, display) for display in (1, 4, 4, 9))
    assert check(job_with(tmp_path, rows, "0\n")) == [
        f"task 0: display {display} of '{tmp_path}/capture.txt' is there {times} times"
        for display, times in ((3, 0), (4, 2), (9, 1))]


def test_a_task_that_failed_is_named(tmp_path: Path) -> None:
    job = job_with(tmp_path, "", "0\n137\n")
    assert check(job) == ["task 0 failed: 137"]
    (job / "status-0").unlink()
    assert check(job) == ["task 0 failed: did not run to its end"]
    assert check(tmp_path) == [f"there are no tasks in '{tmp_path}'"]
