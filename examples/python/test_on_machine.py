"""A host's own tests on simulated machines: pytest, SONDREL_LIBRARY names the library's file.

What the library caches in a process (Wi-Fi, Bluetooth, disk temperatures) needs a process for each machine; everything
else can change its machine from test to test.
"""

from __future__ import annotations

import os
from typing import Iterator, Optional

import pytest

from vesk_sondrel import Machine, Session

LIBRARY = os.environ.get("SONDREL_LIBRARY")


def too_hot(session: Session) -> Optional[bool]:
    """The host's rule: None where this machine does not say."""
    degrees = session.or_none.thermal.cpu_temperature
    return None if degrees is None else degrees > 90


@pytest.fixture
def machine(request: pytest.FixtureRequest) -> Iterator[Machine]:
    with Machine(request.param, library=LIBRARY) as started:
        yield started
        assert started.open_handles == 0  # the host closes what it opens


@pytest.mark.parametrize("machine, expected", [("default", False), ("unknown-code", None)], indirect=["machine"])
def test_rule(machine: Machine, expected: Optional[bool]) -> None:
    with Session(LIBRARY) as session:
        assert too_hot(session) is expected


@pytest.mark.parametrize("machine", ["living"], indirect=True)
def test_a_machine_under_load_never_gets_too_hot(machine: Machine) -> None:
    with Session(LIBRARY) as session:
        for _ in range(60):
            machine.pass_time(10)
            assert too_hot(session) is False
