"""VeskSondrel64: what a notebook's or desktop's hardware and system are doing.

    from vesk_sondrel import Session, ThermalReadings

    with Session() as s:
        print(s.thermal.cpu_temperature)          # 53; raises a ReadingError without a value
        print(s.or_none.wifi.signal)              # None without a value
        print(s.result(ThermalReadings.fan_speeds))       # value, state and the meaning in words

A reading is an attribute of its group; `help(vesk_sondrel.ThermalReadings)` lists a group with units and failures, READINGS has
all of them. The library itself is not part of this package: Session("C:/host/VeskSondrel64.dll") names its file.

Calls may come from any thread: those that must not overlap wait for each other. A call that waits for a service of the
system cannot be cut short; a host that must not hang makes it on a separate thread.
"""

from . import _readings
from ._description import STATES, VERSION, State
from ._library import Library, Readings, Session
from ._reading import Group, OrNone, Raising, Reading, Registers
from ._readings import *  # noqa: F401,F403  # the groups and their types
from ._readings import GROUPS, READINGS
from ._results import (
    Absent,
    Document,
    LibraryError,
    NoSession,
    NotRead,
    NotReady,
    ReadFailed,
    ReadingError,
    Result,
    SondrelError,
)
from .machine import Machine, MachineError

__version__ = VERSION
__all__ = [
    "Absent",
    "Document",
    "GROUPS",
    "Group",
    "Library",
    "LibraryError",
    "Machine",
    "MachineError",
    "NoSession",
    "NotRead",
    "NotReady",
    "OrNone",
    "READINGS",
    "Raising",
    "ReadFailed",
    "Reading",
    "ReadingError",
    "Readings",
    "Registers",
    "Result",
    "STATES",
    "Session",
    "SondrelError",
    "State",
    "__version__",
]
__all__ += _readings.__all__
