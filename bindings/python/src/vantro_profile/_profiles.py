"""Reading whole displays."""

from __future__ import annotations

from collections import deque
from collections.abc import Iterable, Iterator
from concurrent.futures import Future, ThreadPoolExecutor
from itertools import islice

from . import _core
from ._types import Profile, VantroError

# Displays that a thread reads at once, so that handing them over costs little in comparison.
_CHUNK = 32


def parse_profile(display: str) -> Profile:
    """Reads a complete display: text lines, or the screen itself, 80 characters per line without separators.

    No content of a display is an error: a query that fails is one of the profile's problems. A text line of more than
    80 characters raises VantroError 5.
    """
    return _core.parse(display)


def parse_many(displays: Iterable[str], threads: int = 1) -> Iterator[Profile | VantroError]:
    """Reads displays, and yields a profile for each in their order, or the error that parse_profile raises for it.

    The displays are read without the interpreter's lock, in this many threads, and taken from the iterable as needed.
    """
    if isinstance(displays, str):
        raise TypeError("displays is one str; parse_profile reads a single display")
    if threads < 1:
        raise ValueError("threads is below 1")
    return map(_parse_one, displays) if threads == 1 else _in_threads(iter(displays), threads)


def _parse_one(display: str) -> Profile | VantroError:
    try:
        return _core.parse(display)
    except VantroError as error:
        return error


def _in_threads(displays: Iterator[str], threads: int) -> Iterator[Profile | VantroError]:
    waiting: deque[Future[list[Profile | VantroError]]] = deque()
    with ThreadPoolExecutor(threads, "vantro") as pool:
        try:
            while chunk := list(islice(displays, _CHUNK)):
                waiting.append(pool.submit(_core.parse_all, chunk))
                if len(waiting) > 2 * threads:
                    yield from waiting.popleft().result()
            while waiting:
                yield from waiting.popleft().result()
        finally:
            for future in waiting:
                future.cancel()
