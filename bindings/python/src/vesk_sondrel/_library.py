"""The library and its sessions: what a host holds."""

from __future__ import annotations

import weakref
from typing import Any, Generic, Optional, Type, TypeVar, Union

from ._native import Native, Path, load
from ._reading import M, Number, OrNone, Raising, Raw, Reading
from ._readings import OPENING, Groups
from ._results import Result

T = TypeVar("T")

OPENED = 1


class Caller:
    """How readings are made for one holder."""

    def __init__(self, native: Native, raising: bool, com_entered: bool, list_characters: int):
        self.native = native
        self.raising = raising
        self.com_entered = com_entered
        self.list_characters = list_characters
        self.closed = False

    def value(self, result: Result[T]) -> Optional[T]:
        return result.unwrap() if self.raising else result.value


class Readings(Groups[M], Generic[M]):
    """All groups of readings as attributes: `readings.thermal.cpu_temperature`."""

    def result(self, reading: Reading[T], *arguments: int) -> Result[T]:
        """One reading with its state and its meaning in words, whether it has a value or not."""
        return reading.read(self._use(), *arguments)


class _Holder(Readings[Raising]):
    @property
    def or_none(self) -> Readings[OrNone]:
        """The same readings, which are None without a value instead of raising."""
        caller = self._use()
        lenient = Caller(caller.native, False, caller.com_entered, caller.list_characters)
        readings: Readings[OrNone] = Readings(lenient)
        return readings

    @property
    def path(self) -> str:
        """The library's file, as it was loaded."""
        return self._use().native.path


class Library(_Holder):
    """The library, loaded. Readings that need a session raise NoSession here, unless one is open all the same.

    path             the library's file; by default VeskSondrel64.dll or libVeskSondrel64.so where the system looks
    com_entered      this thread has entered a COM apartment itself, so that calls leave it alone
    list_characters  the buffer for lists that grow with the machine, at least what the library's header names
    """

    def __init__(self, path: Optional[Path] = None, *, com_entered: bool = False, list_characters: int = 0):
        super().__init__(Caller(load(path), True, com_entered, list_characters))

    def open_session(self) -> "Session":
        """Opens the driver session, or adds one reference to the one that is open."""
        return Session(self)


class Session(_Holder):
    """A driver session: what talks to the embedded controller, the driver or the processor needs one.

        with Session() as s:
            print(s.thermal.cpu_temperature)

    Raises ReadFailed if the driver's device is missing or refuses to open; a later attempt can succeed. Sessions are
    counted: a host may have several, and the last one closes the device.
    """

    def __init__(
        self,
        library: Union[Library, Path, None] = None,
        *,
        com_entered: bool = False,
        list_characters: int = 0,
    ):
        if isinstance(library, Library):
            used = library._use()
            native, com_entered = used.native, used.com_entered or com_entered
            list_characters = max(used.list_characters, list_characters)
        else:
            native = load(library)
        super().__init__(Caller(native, True, com_entered, list_characters))
        _open(native)
        self._finalizer = weakref.finalize(self, _close, native)

    def close(self) -> None:
        """Gives the session back; once is enough, and more do no harm."""
        self._finalizer()
        self._caller.closed = True

    def __enter__(self) -> "Session":
        return self

    def __exit__(self, kind: Optional[Type[BaseException]], error: Any, trace: Any) -> None:
        self.close()


def _open(native: Native) -> None:
    number = native.call(OPENING.export, OPENING._locks)
    if number != OPENED:
        failed = OPENING._judged(native, OPENING._find(Raw(number)), lambda: int(number))
        failed.unwrap()
    native.sessions += 1


def _close(native: Native) -> None:
    native.sessions -= 1
    native.call("ShutdownSondrel", OPENING._locks)


__all__ = ["Library", "Number", "Readings", "Session"]
