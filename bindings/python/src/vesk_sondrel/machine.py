"""Simulated machines for a host's own tests. Only the library for Linux answers from one.

    with Machine("living"), Session() as s:
        assert s.thermal.cpu_temperature < 95
"""

from __future__ import annotations

import ctypes
import os
from typing import Any, Callable, List, Optional, Tuple, Type

from ._native import DEFAULT_LIBRARY, Path
from ._results import SondrelError

MACHINE_LIBRARY = "libVeskMachine.so"
IN_MEMORY = ":memory:"

_LISTENER = ctypes.CFUNCTYPE(None, ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p)
_FUNCTIONS: Tuple[Tuple[str, Any, Tuple[Any, ...]], ...] = (
    ("VeskMachine_Start", ctypes.c_int, (ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_size_t)),
    ("VeskMachine_BuiltIn", ctypes.c_char_p, (ctypes.c_size_t,)),
    ("VeskMachine_Listen", None, (ctypes.c_void_p, ctypes.c_void_p)),
    ("VeskMachine_TieToRealTime", None, (ctypes.c_int,)),
    ("VeskMachine_PassTime", None, (ctypes.c_uint64,)),
    ("VeskMachine_Microseconds", ctypes.c_uint64, ()),
    ("VeskObserver_ListOpen", ctypes.c_size_t, (ctypes.c_void_p, ctypes.c_void_p)),
)


class MachineError(SondrelError):
    """The machine cannot be started: the message says what is wrong with its profile."""


class Machine:
    """Starts a machine in place of the process's present one.

    machine   the name of a built-in machine, or the file of a profile or of a recording (NAME.rec)
    store     the SQLite file of its registry and firmware variables; by default nothing is stored
    library   the library that it is for, if that is not found by its name

    At the end of a `with` block the default machine takes its place. What the library caches in a process stays: tests
    that read Wi-Fi, Bluetooth or disk temperatures of several machines need a process for each.
    """

    def __init__(self, machine: Path = "default", *, store: Path = IN_MEMORY, library: Optional[Path] = None):
        self._functions = _load(library)
        self._listener: Any = None
        self._start(os.fspath(machine), os.fspath(store))

    def __enter__(self) -> "Machine":
        return self

    def __exit__(self, kind: Optional[Type[BaseException]], error: Any, trace: Any) -> None:
        self.listen(None)
        self._start("default", IN_MEMORY)

    @staticmethod
    def built_in(library: Optional[Path] = None) -> List[str]:
        """The names of the built-in machines, the default first."""
        names: List[str] = []
        functions = _load(library)
        while True:
            name = functions.VeskMachine_BuiltIn(len(names))
            if name is None:
                return names
            names.append(name.decode("utf-8"))

    def listen(self, listener: Optional[Callable[[int, str], None]]) -> None:
        """Passes debug (1) and event lines (2) to the listener; None ends it."""
        passed_on: Any = None
        if listener is not None:
            receive = listener
            passed_on = _LISTENER(lambda _, kind, line: receive(kind, line.decode("utf-8", "replace")))
        self._functions.VeskMachine_Listen(passed_on, None)
        self._listener = passed_on  # the machine keeps its address

    def tie_to_real_time(self, tied: bool = True) -> None:
        """Makes the machine's waits take as long as they say, or no time again."""
        self._functions.VeskMachine_TieToRealTime(int(tied))

    def pass_time(self, seconds: float) -> None:
        """Lets the machine's own time advance immediately."""
        if seconds < 0:
            raise ValueError("time does not run backwards")
        self._functions.VeskMachine_PassTime(round(seconds * 1_000_000))

    @property
    def time(self) -> float:
        """The machine's own time since its start, in seconds."""
        return float(self._functions.VeskMachine_Microseconds()) / 1_000_000

    @property
    def open_handles(self) -> int:
        """What was opened on the machine and not closed: 0 after a test that leaks nothing."""
        return int(self._functions.VeskObserver_ListOpen(None, None))

    def _start(self, machine: str, store: str) -> None:
        problem = ctypes.create_string_buffer(1024)
        started = self._functions.VeskMachine_Start(
            os.fsencode(machine), os.fsencode(store), problem, ctypes.sizeof(problem)
        )
        if started != 1:
            raise MachineError(problem.value.decode("utf-8", "replace"))


def _load(library: Optional[Path]) -> Any:
    """Next to the library, of which it is a part."""
    directory = os.path.dirname(os.fspath(library)) if library is not None else ""
    name = os.path.join(os.path.abspath(directory), MACHINE_LIBRARY) if directory else MACHINE_LIBRARY
    if DEFAULT_LIBRARY.endswith(".dll"):
        raise MachineError("only the library for Linux answers from a simulated machine")
    try:
        loaded = ctypes.CDLL(name)
    except OSError as problem:
        raise MachineError(f"{name}: {problem}") from problem
    for function_name, result, arguments in _FUNCTIONS:
        function = getattr(loaded, function_name)
        function.restype, function.argtypes = result, arguments
    return loaded
