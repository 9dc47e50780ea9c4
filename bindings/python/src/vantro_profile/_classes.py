"""The classes: one per host transaction, and the parsers of displays."""

from __future__ import annotations

from collections.abc import Mapping, Sequence
from typing import Union

from . import _core
from ._types import VantroError

Value = Union[bool, int, str, Sequence[str]]
"""A parameter. An int has 16 bits."""

Results = dict[str, Union[bool, int, str, list[str]]]
"""Results in the order in which they were added. Entry 0 of a list that counts from 1 is empty."""

CLASS_NAMES: tuple[str, ...] = _core.class_names()


class _Object:
    """An object of a class. Calls from several threads wait for each other."""

    __slots__ = ("_handle", "_name")

    def __init__(self, name: str) -> None:
        """An unknown name raises VantroError 429."""
        self._handle = _core.new_object(name)
        self._name = name

    def __repr__(self) -> str:
        return f"{type(self).__name__}({self._name!r})"

    @property
    def name(self) -> str:
        """The name of the class."""
        return self._name

    @property
    def reported(self) -> tuple[VantroError, ...]:
        """The errors that the last operation reported and did not raise."""
        return _core.reported(self._handle)

    def count(self, name: str, display: str, search_string: str = "", qualifier: str = "") -> int:
        """The value of the count property with this name ("PHIElementsCount"), which refills its lists.

        The search string and the qualifier are for the notes only. An unknown name raises VantroError 438.
        """
        return _core.count(self._handle, display, (name, search_string, qualifier))

    def list_of(self, name: str) -> list[str]:
        """The list with this name ("strPHIText") as the last count filled it; empty if the class has no such list."""
        return _core.list_of(self._handle, name)


class Transaction(_Object):
    """A host transaction: Transaction("CPDNTrans").

    Screens are the lines of the host's screen as text lines, or 80 characters per line without separators.
    """

    __slots__ = ()

    def create_command(self, parameters: Mapping[str, Value] | None = None) -> str:
        """The command for these parameters, exactly as it must be sent; empty when nothing may be sent."""
        return _core.create_command(self._handle, parameters)

    def verify_response(self, screen: str, state: Mapping[str, Value] | None = None) -> Results | None:
        """What the screen says, or None for an empty screen.

        The state is what an earlier screen or the command's parameters left; it is not changed. The results of classes
        that add to the state begin with its entries.
        """
        return _core.verify_response(self._handle, screen, state)


class ProfileParser(_Object):
    """A parser of displays, one query at a time. Lists of counts are kept until the next count."""

    __slots__ = ()

    def __init__(self, name: str = "CProfile") -> None:
        super().__init__(name)

    def elements(
        self,
        display: str,
        prefix: str,
        parameters: Mapping[str, Value] | None = None,
        *,
        selection: Sequence[str] = (),
        qualifier: str = "",
    ) -> Results | None:
        """The elements with this prefix ("PHI"), or None if the class does not know it.

        Parameters are further keys of the request ({"intKeyIndex": 2}). The selection and the qualifier are for the
        prefix "ALL" only. The results begin with the request.
        """
        request: dict[str, Value] = {"strKeyPrefix": prefix, **(parameters or {})}
        return _core.profile_elements(self._handle, display, request, selection, qualifier)
