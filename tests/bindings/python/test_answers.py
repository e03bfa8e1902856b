"""What the package makes of an answer: the table that all languages share, and every export once."""

from __future__ import annotations

import os
from pathlib import Path
from typing import Any, List, Tuple

import pytest

from vesk_sondrel import READINGS, Library, Reading, Result, Session, State

from conftest import Double

BY_EXPORT = {reading.export: reading for reading in READINGS}


def rows() -> List[Tuple[str, str, str, str, str]]:
    text = Path(os.environ["VESK_TEST_ANSWERS"]).read_text(encoding="utf-8")
    found = []
    for line in text.split("\n"):
        if line and not line.startswith("#"):
            export, session, answer, state, value = line.split("\t")
            found.append((export, session, answer, state, value))
    return found


def shown_element(element: Any, result: Any = None) -> str:
    if element is None:
        return f"[{result.state.value if result else 'absent'}]"
    return shown(element)


def shown(value: Any, result: Any = None) -> str:
    if isinstance(value, bool):
        return str(value).lower()
    if isinstance(value, float):
        return f"{value:g}"
    if isinstance(value, bytes):
        return value.hex()
    if isinstance(value, tuple):
        return ",".join(shown_element(field) for field in value)
    if isinstance(value, list):
        reasons = result.elements if result is not None and result.elements else [None] * len(value)
        return "|".join(map(shown_element, value, reasons))
    return str(value.name.lower() if hasattr(value, "name") else value)


@pytest.mark.parametrize("export, session, answer, state, value", rows())
def test_answer(double: Double, library: Library, export: str, session: str, answer: str, state: str, value: str) -> None:
    reading: Reading[Any] = BY_EXPORT[export]
    double.set(export, answer)
    result: Result[Any]
    if session == "yes":
        with Session(library) as opened:
            result = opened.result(reading)
    else:
        result = library.result(reading)
    assert (result.state.value, shown(result.value, result) if result.ok else "") == (state, value)
    assert result.ok or result.value is None
    assert result.state is State.OK or result.meaning


def test_table_is_read() -> None:
    assert len(rows()) > 80


def test_reaches_every_export_with_its_arguments(double: Double, library: Library) -> None:
    with Session(library) as session:
        for reading in READINGS:
            number = {"CPU_ReadCpuId": [0x80000002], "wmiadd": [41]}.get(reading.export, [])
            session.result(reading, *number)
        session.firmware_variables.set_random_uuid(bytes([1, 2]) + bytes(14))
        session.firmware_variables.set_activated_time(bytes(19))
        session.firmware_variables.set_manufactured_time(bytes(23))
        double.set("WMISetBatteryHealth", "number 1")
        double.set("WMISetQuietFan", "number 1")
        double.set("WMISetAppPath", "number 1")
        session.features.set_battery_health(-80)
        session.features.set_quiet_fan(3)
        session.features.set_app_path("C:😀")
    assert sorted(double.called()) == sorted(double.all())
    assert len(double.all()) == 114
    assert double.argument("CPU_ReadCpuId", "leaf") == str(0x80000002)
    assert double.argument("wmiadd", "value") == "41"
    assert double.argument("GPNV_Set_RandomUUID", "bytes") == "0102" + "00" * 14
    assert double.argument("WMISetBatteryHealth", "value") == "-80"
    assert double.argument("WMISetAppPath", "path") == "0043003ad83dde00"
    assert double.argument("WMIGetSN", "initCom") == "1"


def test_full_buffers_arrive_whole(double: Double, library: Library) -> None:
    double.set_all("full")
    full = 0
    for reading in READINGS:
        size = double.size(reading.export)
        value = library.result(reading).value if reading.export not in ("CPU_ReadCpuId", "wmiadd") else None
        if isinstance(value, list) and len(value) == 1:
            value = value[0]
        if isinstance(value, str) and size:
            assert len(value) == size - 1, reading.export
            full += 1
    assert full > 35
