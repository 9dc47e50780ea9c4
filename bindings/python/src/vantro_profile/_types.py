"""What the package returns. The objects are made by the extension module, which sets their slots directly."""

from __future__ import annotations

from collections.abc import Iterator, Mapping
from dataclasses import dataclass
from typing import Any


class VantroError(Exception):
    """An error of the library: its number, as automation clients know it, and its description."""

    number: int
    description: str

    def __init__(self, number: int, description: str) -> None:
        super().__init__(number, description)
        self.number = number
        self.description = description

    def __str__(self) -> str:
        return f"error {self.number}: {self.description}"


@dataclass(frozen=True, slots=True)
class NumberedText:
    """A header value with the number of its line; None if the line has no number."""

    number: str | None
    text: str


@dataclass(frozen=True, slots=True)
class Element:
    """An element of a family. Parts that its family does not have are empty."""

    number: str
    """as printed, trimmed"""
    text: str
    """trimmed, with continuation lines joined"""
    kind: str
    """transferable elements: "S" or "A"; else empty"""
    code: str
    """service requests"""
    airline: str
    """frequent flyers and service requests"""
    frequent_flyer_number: str
    """frequent flyers and service requests"""
    free_text: str
    """service requests and confidential remarks"""


@dataclass(frozen=True, slots=True)
class Note:
    """A line of the notes."""

    number: int
    """position of the line below the notes' header, from 1"""
    qualifier: str
    """the line's first two characters"""
    text: str
    """the rest of the line, trimmed"""


@dataclass(frozen=True, slots=True)
class Problem:
    """A query that failed; its value in the profile is empty."""

    query: str
    number: int
    description: str


class Elements(Mapping[str, "tuple[Element, ...]"]):
    """The elements of a profile by the words of all families. A family is converted when it is first asked for."""

    __slots__ = ("_handle", "_read")

    _handle: object
    _read: dict[str, tuple[Element, ...]]

    def __getitem__(self, family: str) -> tuple[Element, ...]:
        read = self._read.get(family)
        if read is None:
            read = self._read[family] = _core.elements(self._handle, _numbers[family])
        return read

    def __iter__(self) -> Iterator[str]:
        return iter(_numbers)

    def __len__(self) -> int:
        return len(_numbers)

    def __repr__(self) -> str:
        return repr({family: elements for family, elements in self.items() if elements})

    def __reduce__(self) -> tuple[Any, ...]:
        return dict, (dict(self),)


@dataclass(frozen=True, slots=True)
class Profile:
    """All values of a display. A value that the display does not show is empty."""

    name: str
    record_locator: str
    office_identifier: str
    company_name: NumberedText
    pin: NumberedText
    psl: NumberedText | None
    sections: tuple[str, ...]
    """the titles of the sections that the display shows"""
    shown_families: tuple[str, ...]
    """the families whose section the display shows, or that have elements elsewhere; of others nothing is known"""
    notes: tuple[Note, ...]
    problems: tuple[Problem, ...]
    elements: Mapping[str, tuple[Element, ...]]
    """by the word of the family ("PHI"), for every family; element k is at index k - 1"""


# The extension module takes the types above.
from . import _core  # noqa: E402

FAMILIES: Mapping[str, str] = _core.families()
"""The words of all families and what they mean."""

_numbers = {family: number for number, family in enumerate(FAMILIES)}
