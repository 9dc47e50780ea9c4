"""Profiles of travel-agency reservation terminals: whole displays, and the classes for every host transaction."""

from ._types import FAMILIES, Element, Note, NumberedText, Problem, Profile, VantroError
from ._classes import CLASS_NAMES, ProfileParser, Results, Transaction, Value
from ._core import library_version as __version__
from ._profiles import parse_many, parse_profile

__all__ = [
    "CLASS_NAMES",
    "FAMILIES",
    "Element",
    "Note",
    "NumberedText",
    "Problem",
    "Profile",
    "ProfileParser",
    "Results",
    "Transaction",
    "Value",
    "VantroError",
    "__version__",
    "parse_many",
    "parse_profile",
]
