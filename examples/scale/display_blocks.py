"""Finds the displays in the bytes of a capture, and blocks of whole displays in a file, without parsing them."""

from __future__ import annotations

import gzip
import io
import os
import zlib
from collections.abc import Iterator
from typing import NamedTuple

END_TEXT = b"END OF DISPLAY"
PROMPT = b">"
_WINDOW = 1 << 20
_COMPRESSED = (b"\x1f\x8b", b"\x28\xb5\x2f\xfd")


class Block(NamedTuple):
    """Whole displays of a file."""

    source: str
    begin: int
    end: int
    """the index after its last byte; -1: the end of a compressed file"""
    displays: int = 0
    lines: int = 0


def files_in(folder: str) -> list[str]:
    """All files in a folder and the folders below it, in the order of their names, without hidden ones.

    Names are those that the tool has in its tables: without "." and "..".
    """
    files = []
    for path, folders, names in os.walk(os.path.normpath(folder)):
        folders[:] = [name for name in folders if not name.startswith(".")]
        files += [os.path.join(path, name) for name in names if not name.startswith(".")]
    return sorted(files, key=os.fsencode)


def refusal(file: str) -> str | None:
    """Why the file cannot be read here: what only the tool can read."""
    with open(file, "rb") as stream:
        head = stream.read(_WINDOW)
    if head.startswith(_COMPRESSED):
        return None
    if b"\0" in head or head.startswith((b"\xff\xfe", b"\xfe\xff")):
        return "looks like UTF-16"
    if len(head) > 80 and b"\n" not in head[:-1]:
        return "has no line ends"
    return None


def _line_end(data: bytes, at: int) -> int:
    """The index after the line feed of the line that contains this index."""
    end = data.find(b"\n", at)
    return len(data) if end < 0 else end + 1


def _is_content(line: bytes) -> bool:
    """False for blank lines and prompts."""
    return line.removesuffix(b"\n").removesuffix(b"\r").strip(b" ") not in (b"", PROMPT)


def _ends(data: bytes) -> Iterator[int]:
    """The index after each line that ends a display."""
    for mark in (END_TEXT, PROMPT):
        at = data.find(mark)
        while at >= 0:
            begin, end = data.rfind(b"\n", 0, at) + 1, _line_end(data, at)
            if mark == END_TEXT or not _is_content(data[begin:end]):
                yield end
            at = data.find(mark, end)


def display_starts(data: bytes) -> list[int]:
    """Where each display begins. Blank lines and prompts after the end of a display belong to it."""
    if not data.strip(b" \r\n"):
        return []
    starts = [0]
    for end in sorted(_ends(data)):
        begin = end
        while begin < len(data) and not _is_content(data[begin : (after := _line_end(data, begin))]):
            begin = after
        if begin < len(data) and begin > starts[-1]:
            starts.append(begin)
    return starts


def first_cut(window: bytes, is_last: bool) -> int | None:
    """The first place in the window where a display surely begins; None if more bytes are needed to say.

    The window may begin anywhere in a file. With `is_last` its end is that of the file, which is a cut too.
    """
    first = window.find(b"\n") + 1
    last = len(window) if is_last else window.rfind(b"\n") + 1
    starts = display_starts(window[first:last])[1:] if first else []
    if starts:
        return first + starts[0]
    return len(window) if is_last else None


def _cut_at(file: str, offset: int) -> int:
    """The first cut at this offset or after it: the same for the block before it and the one after it."""
    if offset == 0:
        return 0
    with open(file, "rb") as stream:
        stream.seek(offset)
        window = b""
        while (cut := first_cut(window, is_last=False)) is None:
            more = stream.read(max(_WINDOW, len(window)))
            window += more
            if not more:
                cut = first_cut(window, is_last=True)
                break
    assert cut is not None
    return offset + cut


def is_compressed(file: str) -> bool:
    with open(file, "rb") as stream:
        return stream.read(4).startswith(_COMPRESSED)


def planned_blocks(file: str, block_bytes: int) -> list[tuple[str, int, int]]:
    """The file, an offset and the next one, for each block: of a compressed file one block, as it cannot be cut."""
    if is_compressed(file):
        return [(file, 0, -1)]
    size = os.path.getsize(file)
    return [(file, begin, min(begin + block_bytes, size)) for begin in range(0, size, block_bytes)]


def counted(plan: tuple[str, int, int]) -> Block:
    """The block between the cuts at both offsets, with the displays and lines in it."""
    file, begin, end = plan
    block = Block(file, _cut_at(file, begin), end if end < 0 else _cut_at(file, end))
    data = bytes_of(block)
    return Block(file, block.begin, block.end, len(display_starts(data)), data.count(b"\n"))


def bytes_of(block: Block) -> bytes:
    """The bytes of a block, unpacked. A file's byte order mark and a last line of Ctrl+Z alone are no text."""
    with open(block.source, "rb") as stream:
        stream.seek(block.begin)
        data = stream.read() if block.end < 0 else stream.read(block.end - block.begin)
        is_last = not stream.read(1)
    if block.end < 0:
        data = _unpacked(data, block.source)
    if block.begin == 0:
        data = data.removeprefix(b"\xef\xbb\xbf")
    if is_last:
        text = data.rstrip(b"\r\n")
        if text.endswith(b"\x1a") and text[-2:-1] in (b"", b"\n"):
            data = text[:-1]
    return data


def _unpacked(data: bytes, source: str) -> bytes:
    import zstandard  # only where there are such files

    try:
        if data.startswith(_COMPRESSED[0]):
            return gzip.decompress(data)
        with zstandard.ZstdDecompressor().stream_reader(io.BytesIO(data), read_across_frames=True) as reader:
            return bytes(reader.read())
    except (OSError, EOFError, zlib.error, zstandard.ZstdError) as problem:
        raise RuntimeError(f"'{source}' is damaged: {problem}") from None
