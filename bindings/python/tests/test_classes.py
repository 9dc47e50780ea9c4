"""What the samples of exchanges do not show: parsers, lists, wrong arguments."""

from __future__ import annotations

from typing import Any

import pytest

from samples import screen_of
from vantro_profile import CLASS_NAMES, ProfileParser, Transaction, VantroError

PRIORITY = "------- PRIORITY\n   1 PPR/ AISLE\n   2 PPR/ WINDOW\n>"
TRANSFERABLE = "------- PNR TRANSFERABLE DATA\nS      1     RM  WINDOW\nS      2     AP  555-0101\n>"


def test_every_class_exists() -> None:
    assert len(CLASS_NAMES) == 19
    for name in CLASS_NAMES:
        assert Transaction(name).name == name
    assert repr(Transaction("CPXTrans")) == "Transaction('CPXTrans')"


def test_an_unknown_class_is_an_error() -> None:
    with pytest.raises(VantroError, match="CPDNTran") as raised:
        Transaction("CPDNTran")
    assert raised.value.number == 429


@pytest.mark.parametrize("call", [
    lambda: ProfileParser("CPDNTrans").elements(PRIORITY, "PHI"),
    lambda: ProfileParser().count("PHICount", PRIORITY),
    lambda: Transaction("CProfile").create_command({}),
    lambda: Transaction("CProfile").verify_response(">"),
])
def test_a_missing_operation_is_an_error(call: Any) -> None:
    with pytest.raises(VantroError) as raised:
        call()
    assert raised.value.number == 438


@pytest.mark.parametrize("display", [PRIORITY, screen_of(PRIORITY)])
def test_a_family_and_its_lists(display: str) -> None:
    parser = ProfileParser()
    assert parser.elements(display, "PPR") == {
        "strKeyPrefix": "PPR",
        "strKeyElement()": ["", "AISLE", "WINDOW"],
        "strKeyElementNr()": ["", "1", "2"],
    }
    assert parser.count("PPRElementsCount", display) == 2
    assert parser.list_of("strPPRText") == ["", "AISLE", "WINDOW"]
    assert parser.list_of("strText") == []


def test_one_element_and_a_selection() -> None:
    parser = ProfileParser()
    one = parser.elements(TRANSFERABLE, "AP", {"intKeyIndex": 1})
    assert one is not None
    assert one["strKeyElement"] == "AP  555-0101"
    selected = parser.elements(TRANSFERABLE, "ALL", selection=["ap"])
    assert selected is not None
    assert selected["strKeyElNbrsArray"] == ["", "2"]


def test_an_unknown_prefix_has_no_answer() -> None:
    assert ProfileParser().elements(PRIORITY, "XXX") is None


def test_notes_are_searched() -> None:
    display = "PN\n------- PROFILE NOTES\nA SPEAKS FRENCH\nB SPEAKS DANISH\nEND OF DISPLAY"
    parser = ProfileParser("CProfileNotes")
    assert parser.count("ProfileNotesElementsCount", display, "DANISH") == 1
    assert parser.count("ProfileNotesElementsCount", display, "", "A") == 1
    assert parser.count("ProfileNotesElementsCount", display) == 2


def test_an_empty_screen_has_no_results() -> None:
    assert Transaction("CPXTrans").verify_response("") is None


def test_a_screen_may_consist_of_lines() -> None:
    search = Transaction("CPDNTrans")
    results = search.verify_response("PDN/-SMITH/ANNA/\n*T* SMITH/ANNA MS\n")
    assert results is not None
    assert results["blnKeyTrProfile"] is True
    assert results == search.verify_response("PDN/-SMITH/ANNA/".ljust(80) + "*T* SMITH/ANNA MS")


@pytest.mark.parametrize(("value", "error"), [
    (32768, OverflowError),
    (-32769, OverflowError),
    (1 << 80, OverflowError),
    (1.5, TypeError),
    (None, TypeError),
    ([1], TypeError),
])
def test_wrong_values(value: Any, error: type[Exception]) -> None:
    with pytest.raises(error):
        Transaction("CPDNTrans").create_command({"strKeyName": value})


def test_wrong_arguments() -> None:
    parser: Any = ProfileParser()
    with pytest.raises(TypeError):
        parser.elements(None, "PHI")
    with pytest.raises(TypeError):
        parser.elements(PRIORITY, "ALL", selection=[1])
    with pytest.raises(TypeError):
        parser.elements(PRIORITY, "ALL", qualifier=1)
    with pytest.raises(TypeError):
        parser.list_of(1)
    with pytest.raises(TypeError):
        Transaction("CPDNTrans").create_command({1: "x"})  # type: ignore[dict-item]


def test_a_selection_may_be_made_while_it_is_read() -> None:
    selection: Any = (text.lower() for text in ["A" * 3 + "P", "AP"])
    selected = ProfileParser().elements(TRANSFERABLE, "ALL", selection=selection)
    assert selected is not None
    assert selected["strKeyElNbrsArray"] == ["", "2"]


class _Pairs(dict[str, Any]):
    """A mapping with other items than pairs."""

    def __init__(self, items: list[Any]) -> None:
        super().__init__()
        self._items = items

    def items(self) -> Any:
        return self._items


@pytest.mark.parametrize("item", [["strKeyName", "A"], ("strKeyName",), "strKeyName", None])
def test_an_item_that_is_no_pair_is_an_error(item: Any) -> None:
    with pytest.raises(TypeError):
        Transaction("CPDNTrans").create_command(_Pairs([item]))
