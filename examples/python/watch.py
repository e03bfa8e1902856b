#!/usr/bin/env python3
"""Watches temperatures and fans; a reading without a value says why.

    watch.py [LIBRARY] [--machine NAME] [--samples N] [--interval SECONDS]
"""

from __future__ import annotations

import argparse
import sys
import time
from typing import Any

from vesk_sondrel import LibraryError, Machine, Reading, ReadingError, Session, ThermalReadings


def shown(session: Session, reading: Reading[Any]) -> str:
    result = session.result(reading)
    if not result.ok:
        return f"{result.state.value} ({result.meaning})"
    values = result.value if isinstance(result.value, list) else [result.value]
    return " ".join("-" if value is None else str(value) for value in values) + f" {reading.unit}"


def main() -> int:
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("library", nargs="?", help="the library's file; by default where the system looks")
    options.add_argument("--machine", help="a simulated machine, on Linux")
    options.add_argument("--samples", type=int, default=0, help="how many; 0: until Ctrl-C")
    options.add_argument("--interval", type=float, default=1.0)
    chosen = options.parse_args()
    try:
        machine = Machine(chosen.machine, library=chosen.library) if chosen.machine else None
        with Session(chosen.library) as session:
            taken = 0
            while chosen.samples == 0 or taken < chosen.samples:
                cpu = shown(session, ThermalReadings.cpu_temperature)
                print(f"cpu {cpu}, fans {shown(session, ThermalReadings.fan_speeds)}", flush=True)
                taken += 1
                if machine:
                    machine.pass_time(1)  # a simulated machine has a separate clock
                time.sleep(chosen.interval)
    except LibraryError as error:
        print(error, file=sys.stderr)  # with the system's message
        return 1
    except ReadingError as error:
        print(f"no session: {error}", file=sys.stderr)
        return 1
    except KeyboardInterrupt:
        return 130
    return 0


if __name__ == "__main__":
    sys.exit(main())
