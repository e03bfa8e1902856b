"""What a reading gives: a value, or the failure that it was, as a result or as an exception."""

from __future__ import annotations

import json
from dataclasses import dataclass
from typing import Any, Generic, Optional, Tuple, TypeVar

from ._description import State

T = TypeVar("T")


class SondrelError(Exception):
    """Every error of this package is one."""


class LibraryError(SondrelError):
    """The library cannot be loaded, or is older than this package. The message has the system's words."""


class ReadingError(SondrelError):
    """A reading gave no value. Its class says why: ReadFailed, Absent, NotRead, NoSession or NotReady."""

    def __init__(self, result: "Result[Any]"):
        code = f" (error {result.code})" if result.code else ""
        super().__init__(f"{result.export}: {result.meaning}{code}")
        self.result = result

    @property
    def state(self) -> State:
        return self.result.state

    @property
    def code(self) -> int:
        """The system's error code; 0 where the export gives none."""
        return self.result.code


class ReadFailed(ReadingError):
    """The reading was tried and failed."""


class Absent(ReadingError):
    """This machine has no such thing."""


class NotRead(ReadingError):
    """The read succeeded and found nothing for this field."""


class NoSession(ReadingError):
    """No driver session is open, and what the reading needs is not cached."""


class NotReady(ReadingError):
    """The sensor has no measurement yet."""


ERRORS = {
    State.FAILED: ReadFailed,
    State.ABSENT: Absent,
    State.NOT_READ: NotRead,
    State.NO_SESSION: NoSession,
    State.NOT_READY: NotReady,
}


@dataclass(frozen=True)
class Result(Generic[T]):
    """A value, or why there is none."""

    export: str
    value: Optional[T] = None
    state: State = State.OK
    """The most likely state."""
    states: Tuple[State, ...] = (State.OK,)
    """All that the library's answer can mean: 0 is often both a value and "absent"."""
    meaning: str = ""
    """In words; of a value, what it can mean besides itself."""
    code: int = 0
    """The system's error code; 0 where the export gives none."""
    elements: "Tuple[Result[int], ...]" = ()
    """Of a list of numbers: the result of each element, whose value is None in the list if it could not be read."""

    @property
    def ok(self) -> bool:
        return self.state is State.OK

    def unwrap(self) -> T:
        """The value; raises the ReadingError of the state without one."""
        if not self.ok:
            raise ERRORS[self.state](self)
        return self.value  # type: ignore[return-value]  # None is a value of no reading


class Document(str):
    """JSON as the library wrote it. Nothing in it is escaped, so that a name can make it ill-formed."""

    __slots__ = ()

    def parse(self) -> Any:
        """The document as lists, dictionaries and strings; raises ValueError if it is ill-formed."""
        return json.loads(self)
