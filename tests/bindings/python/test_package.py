"""The hand-written part: sessions, failures, arguments, threads, string objects."""

from __future__ import annotations

import ctypes
import ctypes.util
import gc
import resource
import struct
import threading
from typing import Callable, List

import pytest

from vesk_sondrel import (
    READINGS, Absent, BatteryReadings, InventoryReadings, Library, LibraryError, NoSession, ReadFailed, ReadingError, Session,
    State, ThermalReadings, UsageReadings
)
from vesk_sondrel import _native

from conftest import Double


def test_failures_raise_or_are_none_by_choice(double: Double, library: Library) -> None:
    double.set("WMIGetCPUUsg", "number -1")
    with pytest.raises(ReadFailed, match="WMIGetCPUUsg: the WMI query failed or found nothing"):
        library.inventory.cpu_load
    assert library.or_none.inventory.cpu_load is None
    double.set("WMIGetCPUUsg", "number 7")
    assert library.inventory.cpu_load == library.or_none.inventory.cpu_load == 7


def test_absence_failure_and_a_missing_session_are_separate_errors(double: Double, library: Library) -> None:
    double.set("Thermal_Read_Cpu_Temperature", "number 0")
    with pytest.raises(NoSession):
        library.thermal.cpu_temperature
    with library.open_session() as session, pytest.raises(Absent) as raised:
        session.thermal.cpu_temperature
    assert raised.value.state is State.ABSENT
    assert raised.value.result.states == (State.ABSENT, State.NO_SESSION, State.OK)
    double.set("GPNV_Get_RandomUUID", "number 1314")
    with pytest.raises(ReadingError, match=r"\(error 1314\)") as failed:
        library.firmware_variables.random_uuid
    assert failed.value.code == 1314


def test_a_value_that_can_mean_something_else_says_so(double: Double, library: Library) -> None:
    double.set("Battery_Read_CapacityPercentage", "number 0")
    result = library.result(BatteryReadings.charge)
    assert (result.value, result.meaning) == (0, "empty, or no battery")
    double.set("Battery_Read_CapacityPercentage", "number 80")
    assert library.result(BatteryReadings.charge).meaning == ""


def test_elements_say_why_they_are_missing(double: Double, library: Library) -> None:
    double.set("Thermal_Read_Fan", "text 2913;2147483647")
    with Session(library) as session:
        result = session.result(ThermalReadings.fan_speeds)
        assert session.thermal.fan_speeds == [2913, None]
    assert [each.state for each in result.elements] == [State.OK, State.FAILED]


def test_session_is_closed_once(double: Double, library: Library) -> None:
    session = Session(library)
    with session:
        assert "ShutdownSondrel" not in double.called()
    assert double.called().count("ShutdownSondrel") == 1
    double.reset()
    session.close()
    assert double.called() == []
    with pytest.raises(ValueError, match="closed"):
        session.thermal
    with pytest.raises(ValueError, match="closed"):
        session.result(ThermalReadings.cpu_temperature)


def test_session_that_is_forgotten_is_closed(double: Double, library: Library) -> None:
    session = Session(library)
    del session
    gc.collect()
    assert "ShutdownSondrel" in double.called()


def test_session_that_is_refused_raises_and_closes_nothing(double: Double, library: Library) -> None:
    double.set("InitializeSondrel", "number 0")
    with pytest.raises(ReadFailed, match="the driver's device is missing or refused to open"):
        Session(library)
    gc.collect()
    assert "ShutdownSondrel" not in double.called()


def test_com_is_entered_unless_the_thread_has(double: Double) -> None:
    Library(double.path).or_none.inventory.serial_number
    assert double.argument("WMIGetSN", "initCom") == "1"
    entered = Library(double.path, com_entered=True)
    entered.or_none.inventory.serial_number
    assert double.argument("WMIGetSN", "initCom") == "0"
    with Session(entered) as session:
        session.or_none.system.volume
    assert double.argument("System_Read_VolumeLevel", "initCom") == "0"


def test_arguments_that_do_not_fit_are_refused_before_the_call(double: Double, library: Library) -> None:
    calls: List[Callable[[], object]] = [
        lambda: library.firmware_variables.set_random_uuid(bytes(15)),
        lambda: library.firmware_variables.set_manufactured_time(bytes(24)),
        lambda: library.features.set_quiet_fan(256),
        lambda: library.features.set_battery_health(1 << 31),
        lambda: library.features.set_app_path("C:\\a\0b"),
        lambda: library.processor.cpuid(-1),
        lambda: library.inventory.add_one(1 << 32),
    ]
    for call in calls:
        with pytest.raises(ValueError):
            call()
    assert double.called() == []


def test_setters_raise_without_success(double: Double, library: Library) -> None:
    for lenient_or_not in (library, library.or_none):
        double.set("GPNV_Set_RandomUUID", "number 5")
        with pytest.raises(ReadFailed) as raised:
            lenient_or_not.firmware_variables.set_random_uuid(bytes(16))
        assert raised.value.code == 5
        double.set("WMISetQuietFan", "number 0")
        with pytest.raises(ReadFailed):
            lenient_or_not.features.set_quiet_fan(1)


def test_readings_cannot_be_assigned(library: Library) -> None:
    with pytest.raises(AttributeError):
        library.thermal.cpu_temperature = 5  # type: ignore[assignment]


def test_readings_describe_themselves() -> None:
    reading = InventoryReadings.disk_temperatures
    assert (reading.group, reading.name, reading.unit) == ("inventory", "disk_temperatures", "°C")
    assert len({(each.group, each.name) for each in READINGS}) == len(READINGS)


def test_documents_parse_if_they_are_well_formed(double: Double, library: Library) -> None:
    double.set("AppList_CpuUsage", 'text [{"process_name":"a#2"}]')
    document = library.usage.busiest_processes
    assert document.parse()[0]["process_name"] == "a#2"
    double.set("AppList_CpuUsage", 'text [{"process_name":"a"b"}]')
    with pytest.raises(ValueError):
        library.usage.busiest_processes.parse()
    assert '"a"b"' in library.result(UsageReadings.busiest_processes).unwrap()


def most_overlapping(double: Double, calls: List[Callable[[], object]]) -> int:
    threads = [threading.Thread(target=call) for call in calls]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    return double.most_overlapping()


def test_calls_that_must_not_overlap_wait_for_each_other(double: Double, library: Library) -> None:
    double.set_all("slow text 1;2;3;4")
    none = library.or_none
    # The EC: a sequence that selects a register must not be interrupted. Two objects for one library share its locks.
    other = Library(double.path).or_none
    assert most_overlapping(double, [lambda: none.thermal.fan_speeds, lambda: other.battery_ec.cell_voltages] * 2) == 1
    double.reset()
    double.set_all("slow text 1;2;3;4")
    assert most_overlapping(double, [lambda: none.inventory.serial_number, lambda: none.inventory.os] * 2) > 1


def test_a_library_that_cannot_be_loaded_is_named() -> None:
    with pytest.raises(LibraryError, match="/nowhere/nothing.so"):
        Library("/nowhere/nothing.so")
    with pytest.raises(LibraryError, match="does not export"):
        Library(ctypes.util.find_library("c") or "libc.so.6")


def test_string_objects_are_freed(double: Double, library: Library) -> None:
    long = "x" * 200_000
    double.set("RF_PhyMode", "text " + long)
    assert library.wifi.phy_mode == long
    before = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
    for _ in range(100):
        library.wifi.phy_mode
    assert resource.getrusage(resource.RUSAGE_SELF).ru_maxrss - before < 10_000  # kilobytes of 20,000 made


def test_takes_string_objects_of_both_layouts_apart() -> None:
    # Typed from the documentation of the two runtimes.
    assert _native.take_apart("libstdc++", 1000, struct.pack("<QQ16s", 1016, 2, b"ab")) == (1016, 2, 0)
    assert _native.take_apart("libstdc++", 1000, struct.pack("<QQQQ", 5000, 40, 40, 0)) == (5000, 40, 5000)
    assert _native.take_apart("msvc", 1000, struct.pack("<16sQQ", b"ab", 2, 15)) == (1000, 2, 0)
    assert _native.take_apart("msvc", 1000, struct.pack("<QQQQ", 5000, 0, 40, 47)) == (5000, 40, 5000)
    assert _native.take_apart("msvc", 1000, struct.pack("<QQQQ", 5000, 0, 16, 16)) == (5000, 16, 5000)


@pytest.mark.parametrize("padding", [0, 2])
def test_finds_a_string_of_a_version_resource(padding: int) -> None:
    def entry(key: str, value: str) -> bytes:
        head = struct.pack("<3H", 0, len(value) + 1, 1) + (key + "\0").encode("utf-16-le")
        head += b"\0" * (-len(head) % 4)
        body = head + (value + "\0").encode("utf-16-le")
        return body + b"\0" * (-len(body) % 4)

    block = b"\0" * 4 * padding + entry("InternalName", "x") + entry("StringLayout", "msvc") + entry("Other", "y")
    assert _native.version_string(block, "StringLayout") == "msvc"
    assert _native.version_string(block, "Other") == "y"
    assert _native.version_string(block, "Missing") == ""
    assert _native.version_string(b"", "StringLayout") == ""
