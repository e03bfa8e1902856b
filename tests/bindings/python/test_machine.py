"""Simulated machines: what a host's own tests use. Each test is a separate process where the library caches."""

from __future__ import annotations

import json
import os
import subprocess
import sys
from pathlib import Path
from typing import Dict

import pytest

from vesk_sondrel import Machine, MachineError, Session, State, ThermalReadings

EXAMPLES = Path(__file__).resolve().parents[3] / "examples" / "python"
RECORDING = EXAMPLES.parents[1] / "recordings" / "ab.rec"
AWKWARD = Path(__file__).resolve().parents[2] / "kit" / "awkward_host.json"


def run(example: str, *arguments: str) -> str:
    done = subprocess.run(
        [sys.executable, str(EXAMPLES / example), *arguments], capture_output=True, encoding="utf-8", timeout=60
    )
    assert done.returncode == 0, done.stdout + done.stderr
    return done.stdout


def test_a_machine_answers_and_leaks_nothing(simulated: str) -> None:
    assert Machine.built_in(simulated)[0] == "default"
    with Machine("gl", library=simulated) as machine:
        with Session(simulated) as session:
            assert session.identity.firmware_revision == "GL"
            assert session.thermal.cpu_temperature == 58
        assert machine.open_handles == 0


def test_a_machines_time_advances(simulated: str) -> None:
    with Machine("living", library=simulated) as machine, Session(simulated) as session:
        temperatures = set()
        for _ in range(20):
            temperatures.add(session.thermal.cpu_temperature)
            machine.pass_time(30)
        assert machine.time >= 600
        assert len(temperatures) > 1
        with pytest.raises(ValueError):
            machine.pass_time(-1)


def test_awkward_answers_are_distinguished(simulated: str) -> None:
    with Machine(AWKWARD, library=simulated), Session(simulated) as session:
        assert session.or_none.thermal.cpu_temperature is None
        result = session.result(ThermalReadings.fan_speeds)
        assert result.value == [3510, None, 0, 0]
        assert result.elements[1].state is State.FAILED
        assert session.inventory.serial_number == ["Ä中😀"]


def test_a_recording_is_a_machine_until_the_block_ends(simulated: str) -> None:
    with Machine(RECORDING, library=simulated), Session(simulated) as session:
        assert session.identity.firmware_revision == "AB"
        assert session.or_none.thermal.cpu_temperature is None  # not recorded
    with Session(simulated) as session:
        assert session.identity.firmware_revision == "KL"


@pytest.mark.parametrize(
    "variables, answer, words",
    [
        ({"VESK_MACHINE": "gl", "VESK_STORE": ":memory:"}, "GL", ""),
        ({"VESK_MACHINE": str(RECORDING)}, "AB", ""),
        ({"VESK_MACHINE": "nowhere"}, "no session", "VESK_MACHINE: nowhere"),
        ({"VESK_STORE": "/nowhere/store"}, "no session", "VESK_STORE: /nowhere/store"),
    ],
)
def test_the_environment_chooses_a_machine(
    simulated: str, variables: Dict[str, str], answer: str, words: str
) -> None:
    host = """
import sys, vesk_sondrel
try:
    with vesk_sondrel.Session(sys.argv[1]) as session:
        print(session.identity.firmware_revision)
except vesk_sondrel.ReadFailed:
    print("no session")
"""
    done = subprocess.run(
        [sys.executable, "-c", host, simulated],
        env={**os.environ, **variables},
        capture_output=True,
        encoding="utf-8",
        timeout=60,
    )
    assert (done.returncode, done.stdout.strip()) == (0, answer), done.stderr
    assert done.stderr.startswith(words) and bool(words) == bool(done.stderr), done.stderr


def test_a_machine_that_does_not_exist_says_so(simulated: str) -> None:
    with pytest.raises(MachineError, match="nowhere"):
        Machine("/nowhere/machine.json", library=simulated)


def test_lines_of_the_machine_are_passed_on(simulated: str) -> None:
    lines = []
    with Machine("default", library=simulated) as machine, Session(simulated) as session:
        machine.listen(lambda kind, line: lines.append((kind, line)))
        session.firmware_log.proximity_sensor
        machine.listen(None)
        seen = len(lines)
        session.firmware_log.proximity_sensor
    assert seen > 0 and len(lines) == seen
    assert any(kind == 1 and "GetSENSOR_WMI_Data start" in line for kind, line in lines)


def test_watch(simulated: str) -> None:
    lines = run("watch.py", simulated, "--machine", "living", "--samples", "3", "--interval", "0").splitlines()
    assert len(lines) == 3 and all("cpu" in line and "°C" in line and "rpm" in line for line in lines)


def test_report(simulated: str) -> None:
    report = json.loads(run("report_json.py", simulated, "--machine", "default"))
    assert report["thermal"]["cpu_temperature"] == {"value": 53, "unit": "°C", "state": "ok"}
    assert report["inventory"]["hard_disk_models"]["state"] == "absent"
    assert report["usage"]["settings"]["value"] == {"brightness": "70", "volume": "34"}
    assert len(report) == 17


def test_choosing_a_machine_from_outside(simulated: str) -> None:
    assert "KL" in run("choose_machine.py", simulated, "default")
    assert "GL" in run("choose_machine.py", simulated, "gl")


def test_a_hosts_own_test(simulated: str) -> None:
    environment = {**os.environ, "SONDREL_LIBRARY": simulated}
    done = subprocess.run(
        [sys.executable, "-m", "pytest", "-q", "-p", "no:cacheprovider", str(EXAMPLES / "test_on_machine.py")],
        capture_output=True, encoding="utf-8", timeout=60, env=environment,
    )
    assert done.returncode == 0 and "passed" in done.stdout, done.stdout + done.stderr
