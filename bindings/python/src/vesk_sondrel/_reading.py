"""A reading: how its export is called, what its answers mean, and how it is an attribute of its group."""

from __future__ import annotations

import ctypes
import enum
from dataclasses import dataclass
from typing import (
    TYPE_CHECKING, Any, Callable, Generic, List, NamedTuple, Optional, Sequence, Tuple, Type, TypeVar, Union, overload
)

from ._description import STATES, State
from ._native import Native, VeskChar16, wide_text
from ._results import Document, Result

if TYPE_CHECKING:
    from ._library import Caller

T = TypeVar("T")
A = TypeVar("A")
C = TypeVar("C", bound=enum.IntEnum)
R = TypeVar("R", bound=Tuple[Any, ...])

MARK = 0xFFFF  # no character, so that no text begins with it
MARKS = 4
FILL = 0xA5C3A5C3  # no processor answers all four registers so


class Raising:
    """Readings without a value raise."""


class OrNone:
    """Readings without a value are None."""


M = TypeVar("M")


class Group(Generic[M]):
    """The readings of one family, as attributes."""

    def __init__(self, caller: "Caller"):
        self._caller = caller


class Match(enum.Enum):
    NUMBER = enum.auto()
    STRING = enum.auto()
    ELEMENT = enum.auto()  # of a list, a number
    UNTOUCHED = enum.auto()  # the buffer is as it was
    ZEROS = enum.auto()  # all registers are 0
    ERROR_CODE = enum.auto()  # the result is not 0
    OTHER = enum.auto()  # every number without an answer before this one


@dataclass(frozen=True)
class Answer:
    """An answer that has a special meaning."""

    match: Match
    value: Union[int, str]
    states: Tuple[State, ...]
    """The most likely one first."""
    meaning: str


class Raw(NamedTuple):
    """What a call gave."""

    value: Any
    untouched: bool = False
    code: int = 0


NOTHING_WRITTEN = Answer(Match.UNTOUCHED, 0, (State.FAILED,), "the library wrote nothing")


def assumed(states: Sequence[State], session: bool) -> State:
    """The state to assume, where it is known whether this host has a session open."""
    if not session and State.NO_SESSION in states:
        return State.NO_SESSION
    return next((state for state in states if state is not State.NO_SESSION), states[0])


class Reading(Generic[T]):
    """One reading. As an attribute of a group it is its value; of the group's class it is this object."""

    group: str
    name: str

    def __init__(
        self,
        export: str,
        summary: str,
        *,
        unit: str = "",
        answers: Tuple[Answer, ...] = (),
        com: bool = False,
        locks: Tuple[str, ...] = (),
    ):
        self.export = export
        self.summary = summary
        self.unit = unit
        """"mV", "°C"; empty without one."""
        self.answers = answers
        self._com = com
        self._locks = locks

    def __set_name__(self, owner: Type[Any], name: str) -> None:
        self.group, self.name = owner.GROUP, name

    @overload
    def __get__(self, instance: None, owner: Optional[Type[Any]] = None) -> "Reading[T]": ...

    @overload
    def __get__(self, instance: Group[Raising], owner: Optional[Type[Any]] = None) -> T: ...

    @overload
    def __get__(self, instance: Group[OrNone], owner: Optional[Type[Any]] = None) -> Optional[T]: ...

    def __get__(self, instance: Optional[Group[Any]], owner: Optional[Type[Any]] = None) -> Any:
        if instance is None:
            return self
        return instance._caller.value(self.read(instance._caller))

    def __set__(self, instance: Any, value: Any) -> None:
        raise AttributeError(f"{self.group}.{self.name} can only be read")

    def __repr__(self) -> str:
        return f"<reading {self.group}.{self.name}>"

    def read(self, caller: "Caller", *arguments: Any) -> Result[T]:
        raw = self._call(caller, *arguments)
        return self._judged(caller.native, self._find(raw), lambda: self._decode(raw.value, caller.native), raw.code)

    def _call(self, caller: "Caller", *arguments: Any) -> Raw:
        raise NotImplementedError

    def _decode(self, value: Any, native: Native) -> T:
        raise NotImplementedError

    def _invoke(self, caller: "Caller", *arguments: Any) -> Any:
        com = (0 if caller.com_entered else 1,) if self._com else ()
        return caller.native.call(self.export, self._locks, *arguments, *com)

    def _find(self, raw: Raw) -> Optional[Answer]:
        for answer in self.answers:
            if (
                (answer.match is Match.ERROR_CODE and raw.code)
                or (answer.match is Match.UNTOUCHED and raw.untouched)
                or (answer.match is Match.STRING and not raw.untouched and answer.value == raw.value)
                or (answer.match is Match.NUMBER and answer.value == raw.value)
                or answer.match is Match.OTHER
            ):
                return answer
        return NOTHING_WRITTEN if raw.untouched else None

    def _judged(self, native: Native, answer: Optional[Answer], decode: Callable[[], T], code: int = 0) -> Result[T]:
        if answer is None:
            return Result(self.export, decode())
        state = assumed(answer.states, native.sessions > 0)
        meaning = "" if set(answer.states) == {State.OK} else answer.meaning
        if state is State.NO_SESSION:
            meaning = STATES[state]
        if state is State.OK:
            return Result(self.export, decode(), state, answer.states, meaning, code)
        return Result(self.export, None, state, answer.states, meaning, code)

    def _malformed(self, meaning: str) -> Result[Any]:
        return Result(self.export, None, State.FAILED, (State.FAILED,), meaning)


class Number(Reading[int]):
    def _call(self, caller: "Caller", *arguments: Any) -> Raw:
        return Raw(self._invoke(caller, *arguments))

    def _decode(self, value: Any, native: Native) -> int:
        return int(value)


class Fraction(Reading[float]):
    """Of one whole."""

    def _call(self, caller: "Caller", *arguments: Any) -> Raw:
        return Raw(self._invoke(caller))

    def _decode(self, value: Any, native: Native) -> float:
        return float(value)


class Flag(Reading[bool]):
    def _call(self, caller: "Caller", *arguments: Any) -> Raw:
        return Raw(self._invoke(caller))

    def _decode(self, value: Any, native: Native) -> bool:
        return bool(value)


class Choice(Reading[C]):
    def __init__(self, choices: Type[C], export: str, summary: str, **members: Any):
        super().__init__(export, summary, **members)
        self.choices = choices

    def _call(self, caller: "Caller", *arguments: Any) -> Raw:
        return Raw(self._invoke(caller))

    def _decode(self, value: Any, native: Native) -> C:
        return self.choices(value)

    def read(self, caller: "Caller", *arguments: Any) -> Result[C]:
        raw = self._call(caller)
        answer = self._find(raw)
        if answer is None:
            return self._malformed(f"the answer {raw.value} is none of the described values")
        return self._judged(caller.native, answer, lambda: self.choices(raw.value))


class Letters(Reading[str]):
    """Packed into a number, the first in the highest byte that is not 0."""

    def _call(self, caller: "Caller", *arguments: Any) -> Raw:
        return Raw(self._invoke(caller))

    def _decode(self, value: Any, native: Native) -> str:
        return int(value).to_bytes(4, "big").lstrip(b"\0").decode("latin-1")


class _Written(Reading[T]):
    """A string in a buffer, sized by the description, or returned as an object of C++."""

    def __init__(self, export: str, summary: str, *, size: int, wide: bool = False, grows: bool = False, **members: Any):
        super().__init__(export, summary, **members)
        self._size = size
        """0 for a string object."""
        self._wide = wide
        self._grows = grows

    def _call(self, caller: "Caller", *arguments: Any) -> Raw:
        if self._size == 0:
            return Raw(caller.native.call_for_string(self.export, self._locks))
        if self._wide:
            return self._call_wide(caller)
        # One byte more than the library is promised, so that there always is a terminator.
        narrow = ctypes.create_string_buffer(self._size + 1)
        self._invoke(caller, narrow)
        return Raw(narrow.value.decode("utf-8", "replace"))

    def _call_wide(self, caller: "Caller") -> Raw:
        size = max(self._size, caller.list_characters) if self._grows else self._size
        buffer = (VeskChar16 * size)(*[MARK] * min(MARKS, size - 1))
        self._invoke(caller, buffer)
        text = wide_text(buffer)
        return Raw(text, untouched=text == chr(MARK) * min(MARKS, size - 1))


class Text(_Written[str]):
    def _decode(self, value: Any, native: Native) -> str:
        return str(value)


class DocumentText(_Written[Document]):
    def _decode(self, value: Any, native: Native) -> Document:
        return Document(value)


class _List(_Written[T]):
    """Elements separated by semicolons; in a terminated list the last one is followed by one too."""

    def __init__(self, export: str, summary: str, *, terminated: bool = False, **members: Any):
        super().__init__(export, summary, **members)
        self._terminated = terminated

    def _split(self, value: str) -> List[str]:
        elements = value.split(";")
        return elements[:-1] if self._terminated and not elements[-1] else elements

    def _element(self, text: str, native: Native) -> Result[int]:
        """As a number; without one the element is absent."""
        if not text:
            meaning = "the element has no value"
            return Result(self.export, None, State.ABSENT, (State.ABSENT,), meaning)
        if not (text.isascii() and text[text[0] == "-" :].isdigit()):
            return self._malformed("the element is not a number")
        number = int(text)
        if number >= 1 << 63:
            return self._malformed("the element is not a number of 64 bits")
        found = (a for a in self.answers if a.match is Match.ELEMENT and a.value == number)
        judge: Any = self._judged  # an element is a number, whatever the list is
        result: Result[int] = judge(native, next(found, None), lambda: number)
        return result


class TextList(_List[List[str]]):
    def _decode(self, value: Any, native: Native) -> List[str]:
        return self._split(value)


class NumberList(_List[List[Optional[int]]]):
    """An element that could not be read is None; Result.elements says why."""

    def read(self, caller: "Caller", *arguments: Any) -> Result[List[Optional[int]]]:
        raw = self._call(caller)
        elements = tuple(self._element(text, caller.native) for text in self._split(raw.value))
        whole = self._judged(caller.native, self._find(raw), lambda: [each.value for each in elements])
        if not whole.ok:
            return whole
        return Result(self.export, whole.value, whole.state, whole.states, whole.meaning, 0, elements)


class RecordList(_List[List[R]]):
    """So many consecutive elements make one record."""

    def __init__(self, record: Type[R], numbers: Tuple[bool, ...], export: str, summary: str, **members: Any):
        super().__init__(export, summary, **members)
        self._record = record
        self._numbers = numbers

    def read(self, caller: "Caller", *arguments: Any) -> Result[List[R]]:
        raw = self._call(caller)
        answer = self._find(raw)
        elements, count = self._split(raw.value), len(self._numbers)
        if answer is None and len(elements) % count:
            return self._malformed("the list ends within a record")

        def records() -> List[R]:
            values = [
                self._element(text, caller.native).value if self._numbers[place % count] else text
                for place, text in enumerate(elements)
            ]
            make: Any = self._record
            return [make(*values[start : start + count]) for start in range(0, len(values), count)]

        return self._judged(caller.native, answer, records)


class Bytes(Reading[bytes]):
    def __init__(self, export: str, summary: str, *, size: int, **members: Any):
        super().__init__(export, summary, **members)
        self._size = size

    def _call(self, caller: "Caller", *arguments: Any) -> Raw:
        # Not constant, so that it is no answer that the firmware would give.
        fill = bytes((0xA5 ^ place * 37) & 0xFF for place in range(self._size))
        buffer = (ctypes.c_uint8 * self._size)(*fill)
        code = self._invoke(caller, buffer)
        return Raw(bytes(buffer), bytes(buffer) == fill, code)

    def _decode(self, value: Any, native: Native) -> bytes:
        return bytes(value)


class Registers(NamedTuple):
    """Of a CPUID leaf."""

    eax: int
    ebx: int
    ecx: int
    edx: int


class _WithNumber(Reading[T]):
    """A reading with a number of 32 bits as its argument: as an attribute of a group it is a function."""

    @overload  # type: ignore[override]
    def __get__(self, instance: None, owner: Optional[Type[Any]] = None) -> "_WithNumber[T]": ...

    @overload
    def __get__(self, instance: Group[Raising], owner: Optional[Type[Any]] = None) -> Callable[[int], T]: ...

    @overload
    def __get__(self, instance: Group[OrNone], owner: Optional[Type[Any]] = None) -> Callable[[int], Optional[T]]: ...

    def __get__(self, instance: Optional[Group[Any]], owner: Optional[Type[Any]] = None) -> Any:
        if instance is None:
            return self
        caller = instance._caller
        return lambda number: caller.value(self.read(caller, checked(number, 0, 0xFFFFFFFF)))


class NumberOf(_WithNumber[int]):
    def _call(self, caller: "Caller", *arguments: Any) -> Raw:
        return Raw(self._invoke(caller, *arguments))

    def _decode(self, value: Any, native: Native) -> int:
        return int(value)


class RegistersOf(_WithNumber[Registers]):
    def _call(self, caller: "Caller", *arguments: Any) -> Raw:
        words = [ctypes.c_uint32(FILL) for _ in range(4)]
        self._invoke(caller, *arguments, *(ctypes.byref(word) for word in words))
        return Raw(tuple(word.value for word in words), all(word.value == FILL for word in words))

    def _find(self, raw: Raw) -> Optional[Answer]:
        wanted = Match.UNTOUCHED if raw.untouched else Match.ZEROS if not any(raw.value) else None
        return next((answer for answer in self.answers if answer.match is wanted), None)

    def _decode(self, value: Any, native: Native) -> Registers:
        return Registers(*value)


class Setter(Number):
    """Changes the machine; the answers of its result are failures, or nothing."""

    def apply(self, caller: "Caller", argument: Any) -> None:
        number = self._invoke(caller, argument)
        answer = self._find(Raw(number))
        if answer is not None and answer.states[0] is not State.OK:
            code = number if answer.match is Match.OTHER else 0
            Result[int](self.export, None, answer.states[0], answer.states, answer.meaning, code).unwrap()


def checked(number: int, least: int, most: int) -> int:
    """ctypes would cut off the bits that do not fit."""
    if not least <= number <= most:
        raise ValueError(f"expected a number from {least} to {most}, not {number}")
    return number


def exactly(content: bytes, size: int) -> "ctypes.Array[ctypes.c_uint8]":
    if len(content) != size:
        raise ValueError(f"expected exactly {size} bytes, not {len(content)}")
    return (ctypes.c_uint8 * size)(*content)


def terminated(text: str) -> "ctypes.Array[ctypes.c_uint16]":
    if "\0" in text:
        raise ValueError("the string contains a zero character")
    units = text.encode("utf-16-le", "surrogatepass")
    return (VeskChar16 * (len(units) // 2 + 1)).from_buffer_copy(units + b"\0\0")
