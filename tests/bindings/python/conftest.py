"""The libraries that the tests load: the double, whose answers a test chooses, and the simulated machine's."""

from __future__ import annotations

import ctypes
import os
from typing import Any, Iterator, List

import pytest

from vesk_sondrel import Library


class Double:
    """What a test says to the double."""

    def __init__(self, path: str):
        self.path = path
        self._library: Any = ctypes.CDLL(path)
        for name in ("Called", "All", "Argument"):
            getattr(self._library, f"Double_{name}").restype = ctypes.c_char_p

    def set(self, name: str, answer: str) -> None:
        self._library.Double_Set(name.encode(), answer.encode())

    def set_all(self, answer: str) -> None:
        self._library.Double_SetAll(answer.encode())

    def reset(self) -> None:
        self._library.Double_Reset()
        self.set("InitializeSondrel", "number 1")

    def called(self) -> List[str]:
        return str(self._library.Double_Called().decode()).split()

    def all(self) -> List[str]:
        return str(self._library.Double_All().decode()).split()

    def size(self, name: str) -> int:
        return int(self._library.Double_Size(name.encode()))

    def argument(self, name: str, argument: str) -> str:
        return str(self._library.Double_Argument(name.encode(), argument.encode()).decode())

    def most_overlapping(self) -> int:
        return int(self._library.Double_MostOverlapping())


@pytest.fixture
def double() -> Iterator[Double]:
    found = Double(os.environ["VESK_TEST_DOUBLE"])
    found.reset()
    yield found
    found.reset()


@pytest.fixture
def library(double: Double) -> Library:
    return Library(double.path)


@pytest.fixture
def simulated() -> str:
    return os.environ["VESK_TEST_LIBRARY"]
