"""The types that a host sees, for mypy: a comment that nothing needs any more is an error, so each misuse is noticed."""

from __future__ import annotations

from typing import List, Optional

from vesk_sondrel import Disk, Library, PowerSource, Registers, Result, Session, ThermalReadings

with Session() as s:
    degrees: int = s.thermal.cpu_temperature
    perhaps: Optional[int] = s.or_none.thermal.cpu_temperature
    wrong: int = s.or_none.thermal.cpu_temperature  # type: ignore[assignment]
    fans: List[Optional[int]] = s.thermal.fan_speeds
    wrong_fans: List[int] = s.thermal.fan_speeds  # type: ignore[assignment]
    result: Result[int] = s.result(ThermalReadings.cpu_temperature)
    source: PowerSource = s.processor.power_source
    share: float = s.battery.health
    name: str = s.battery_ec.manufacture_name
    wrong_name: int = s.battery_ec.manufacture_name  # type: ignore[assignment]
    disks: List[Disk] = s.inventory.disks
    size: Optional[int] = disks[0].size
    registers: Registers = s.processor.cpuid(0)
    no_registers: Optional[Registers] = s.or_none.processor.cpuid(0)
    wrong_registers: Registers = s.or_none.processor.cpuid(0)  # type: ignore[assignment]
    s.processor.cpuid("0")  # type: ignore[arg-type]
    s.firmware_variables.set_random_uuid("text")  # type: ignore[arg-type]
    s.thermal.no_such_reading  # type: ignore[attr-defined]

connected: bool = Library().wifi.connected
