"""Reading whole displays."""

from __future__ import annotations

from collections.abc import Iterable, Iterator
from itertools import islice

from . import _core
from ._types import Profile, VantroError

# Displays per thread that are read at once: starting the threads costs little in comparison, and the profiles that
# wait fit into the caches.
_CHUNK = 16


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
    while chunk := tuple(islice(displays, _CHUNK * threads)):
        yield from _core.parse_all(chunk, threads)
