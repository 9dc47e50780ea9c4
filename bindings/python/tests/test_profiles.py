"""Whole displays: the samples, threads, errors."""

from __future__ import annotations

import copy
import dataclasses
import json
import pickle
import threading
from collections.abc import Iterator
from pathlib import Path
from typing import Any

import pytest

from samples import SAMPLES, lines_of, profiles, screen_of
from vantro_profile import FAMILIES, Element, Profile, VantroError, parse_many, parse_profile

JSON_NAMES = {
    "number": "number",
    "text": "text",
    "kind": "kind",
    "code": "code",
    "airline": "airline",
    "frequent_flyer_number": "frequentFlyerNumber",
    "free_text": "freeText",
}


def check_element(element: Element, expected: dict[str, Any]) -> None:
    assert expected.get("asterisk", False) is False
    found = {JSON_NAMES[field.name]: getattr(element, field.name) for field in dataclasses.fields(element)}
    assert found == dict.fromkeys(found, "") | {key: value for key, value in expected.items() if key != "asterisk"}


def check_profile(profile: Profile, expected: dict[str, Any]) -> None:
    assert profile.name == expected["name"]
    assert profile.record_locator == expected["recordLocator"]
    assert profile.office_identifier == expected["officeIdentifier"]
    assert dataclasses.asdict(profile.company_name) == expected["companyName"]
    assert dataclasses.asdict(profile.pin) == expected["pin"]
    assert (dataclasses.asdict(profile.psl) if profile.psl else None) == expected["psl"]
    assert list(profile.sections) == expected["sections"]
    assert set(profile.elements) == set(expected["elements"])
    for family, elements in expected["elements"].items():
        assert len(profile.elements[family]) == len(elements), family
        for element, expected_element in zip(profile.elements[family], elements):
            check_element(element, expected_element)
    notes = [{"number": str(note.number), "qualifier": note.qualifier, "text": note.text} for note in profile.notes]
    assert notes == expected["notes"]
    assert [dataclasses.asdict(problem) for problem in profile.problems] == expected.get("problems", [])


@pytest.mark.parametrize("path", profiles(), ids=[path.stem for path in profiles()])
def test_sample(path: Path) -> None:
    expected = json.loads((SAMPLES / "expected" / f"{path.stem}.json").read_text(encoding="utf-8"))
    lines = lines_of(path)
    check_profile(parse_profile(lines), expected)
    check_profile(parse_profile(screen_of(lines)), expected)


def traveller() -> Profile:
    return parse_profile(lines_of(SAMPLES / "profiles" / "traveller.txt"))


def test_families_have_a_meaning() -> None:
    assert len(FAMILIES) == 29
    assert FAMILIES["PPR"] == "priority line"
    assert list(traveller().elements) == list(FAMILIES)


def test_shown_families_follow_the_sections() -> None:
    profile = parse_profile("------- PRIORITY\n   1 PPR/ AISLE\n>")
    assert profile.sections == ("PRIORITY",)
    assert profile.shown_families == ("PPR",)


def test_an_unknown_family_is_a_key_error() -> None:
    elements = traveller().elements
    assert "XXX" not in elements
    with pytest.raises(KeyError):
        elements["XXX"]


def test_a_profile_is_frozen() -> None:
    profile = traveller()
    with pytest.raises(dataclasses.FrozenInstanceError):
        profile.name = ""  # type: ignore[misc]
    with pytest.raises(dataclasses.FrozenInstanceError):
        profile.elements["RM"][0].text = ""  # type: ignore[misc]


def test_profiles_are_compared_copied_and_pickled() -> None:
    profile = traveller()
    assert profile == traveller()
    assert profile != parse_profile(">")
    assert copy.deepcopy(profile) == profile
    restored = pickle.loads(pickle.dumps(profile))
    assert restored == profile
    assert restored.elements["RM"] == profile.elements["RM"]
    assert "PREFERS RAIL" in repr(profile)


def test_elements_outlive_the_profile() -> None:
    elements = traveller().elements
    remarks = elements["RM"]
    del elements
    assert remarks[0].text == "RM  PREFERS RAIL WHEN UNDER THREE HOURS"


# A display without an end: every search for a section fails.
def test_failed_queries_are_problems() -> None:
    profile = parse_profile("*T*".ljust(80))
    assert len(profile.problems) > 20
    assert {type(problem.number) for problem in profile.problems} == {int}


@pytest.mark.parametrize("text", ["É", "😀", "\ud800", "\0", "中" * 40])
def test_every_character_passes(text: str) -> None:
    profile = parse_profile(f"------- PRIORITY\n   1 PPR/ A{text}Z\n>")
    assert [element.text for element in profile.elements["PPR"]] == [f"A{text}Z"]


def test_a_long_line_is_an_error() -> None:
    with pytest.raises(VantroError, match="Line 2 has 81 characters") as raised:
        parse_profile("A\n" + "B" * 81 + "\n>")
    assert raised.value.number == 5
    restored = pickle.loads(pickle.dumps(raised.value))
    assert (restored.number, restored.description) == (5, raised.value.description)


def test_a_display_is_a_text() -> None:
    with pytest.raises(TypeError, match="the display is no str"):
        parse_profile(b">")  # type: ignore[arg-type]


def numbered(number: int) -> str:
    return f"------- PRIORITY\n   1 PPR/ DISPLAY {number}\n>"


@pytest.mark.parametrize("threads", [1, 2, 5])
@pytest.mark.parametrize("count", [0, 1, 31, 32, 33, 1000])
def test_results_are_in_order(threads: int, count: int) -> None:
    results = list(parse_many(map(numbered, range(count)), threads))
    texts = [result.elements["PPR"][0].text for result in results if isinstance(result, Profile)]
    assert texts == [f"DISPLAY {number}" for number in range(count)]


@pytest.mark.parametrize("threads", [1, 2])
def test_an_item_that_fails_does_not_stop_the_others(threads: int) -> None:
    displays = [numbered(1), "A\n" + "B" * 81, "A\n" + "B" * 90 + "\n", numbered(2)]
    first, second, third, fourth = parse_many(displays, threads)
    assert isinstance(second, VantroError) and isinstance(third, VantroError)
    assert second.description == "Line 2 has 81 characters, more than 80"
    assert third.description == "Line 2 has 90 characters, more than 80"
    assert first == parse_profile(displays[0])
    assert fourth == parse_profile(displays[3])


@pytest.mark.parametrize("threads", [1, 2])
def test_what_is_no_text_stops(threads: int) -> None:
    displays: Any = [numbered(1), None]
    with pytest.raises(TypeError):
        list(parse_many(displays, threads))


@pytest.mark.parametrize("threads", [1, 3])
def test_displays_are_taken_as_needed(threads: int) -> None:
    taken = 0

    def displays() -> Iterator[str]:
        nonlocal taken
        while True:
            taken += 1
            yield numbered(taken)

    results = parse_many(displays(), threads)
    for _ in range(100):
        next(results)
    assert taken < 1000


def test_one_text_is_no_list_of_displays() -> None:
    with pytest.raises(TypeError):
        parse_many(numbered(1))


def test_no_threads_are_an_error() -> None:
    with pytest.raises(ValueError):
        parse_many([], 0)


def test_one_profile_may_be_read_in_many_threads() -> None:
    profile = traveller()
    expected = traveller()
    equal: list[bool] = []
    workers = [threading.Thread(target=lambda: equal.append(profile == expected)) for _ in range(8)]
    for worker in workers:
        worker.start()
    for worker in workers:
        worker.join()
    assert equal == [True] * 8
