"""Every sample exchange through Transaction."""

from __future__ import annotations

from pathlib import Path
from typing import Any

import pytest

from samples import Step, exchanges, read_exchange
from vantro_profile import Transaction, VantroError


class Player:
    """Runs the steps of an exchange, with one object per class."""

    def __init__(self) -> None:
        self.objects: dict[str, Transaction] = {}
        self.previous: dict[str, Any] | None = None

    def play(self, step: Step) -> None:
        transaction = self.objects.setdefault(step.class_name, Transaction(step.class_name))
        reported: list[int] = []

        def note() -> None:
            reported.extend(error.number for error in transaction.reported)

        if step.command is not None:
            assert transaction.create_command(step.params) == step.command
            note()
        if step.command_raises is not None:
            with pytest.raises(VantroError) as raised:
                transaction.create_command(step.params)
            assert raised.value.number == step.command_raises
            note()
        if step.count is not None:
            assert step.screen is not None
            assert transaction.count("RecLocCount", step.screen) == step.count
            note()
        if step.screen is not None:
            self.verify(transaction, step)
            note()
        assert reported == step.reported

    def verify(self, transaction: Transaction, step: Step) -> None:
        assert step.screen is not None
        state = self.previous if step.state_previous else step.params
        before = dict(state) if state is not None else None
        if step.results_raises is not None:
            with pytest.raises(VantroError) as raised:
                transaction.verify_response(step.screen, state)
            assert raised.value.number == step.results_raises
            return
        results = transaction.verify_response(step.screen, state)
        assert state == before
        assert results == step.results
        if results is not None and step.results is not None:
            assert list(results) == list(step.results)
            assert [type(value) for value in results.values()] == [type(value) for value in step.results.values()]
            self.previous = results


def test_samples_exist() -> None:
    assert len(exchanges()) > 80


@pytest.mark.parametrize("path", exchanges(), ids=[path.stem for path in exchanges()])
def test_exchange(path: Path) -> None:
    player = Player()
    for step in read_exchange(path):
        player.play(step)
