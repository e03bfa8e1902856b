#!/usr/bin/env python3
"""Runs examples/host.py on machines with awkward answers and holds what it prints against what they mean.

    example_test.py EXAMPLES LIBRARY MACHINE_LIBRARY
"""

import contextlib
import ctypes
import io
import json
import pathlib
import sys
import tempfile

examples, library, machine_library = sys.argv[1:]
sys.path.insert(0, examples)
sys.dont_write_bytecode = True
import host  # noqa: E402

# A machine without a Wi-Fi adapter; a process has one Wi-Fi record for all of its machines.
PROFILE = json.loads((pathlib.Path(examples).parent / "machines" / "gl.json").read_text())
PROFILE["ec"]["temperatures"]["cpu"] = 48
PROFILE["ec"]["fans"][0]["rpm"] = 2000
PROFILE["wmi"] = {"ROOT\\CIMV2": {"Win32_BIOS": [{"SerialNumber": "\u00c4\u4e2d\U0001f600"}]}}


def told_on(profile):
    machine = ctypes.CDLL(machine_library)
    problem = ctypes.create_string_buffer(512)
    with tempfile.TemporaryDirectory() as directory:
        file = pathlib.Path(directory) / "machine.json"
        file.write_text(json.dumps(profile))
        started = machine.VeskMachine_Start(str(file).encode(), b":memory:", problem, ctypes.c_size_t(len(problem)))
    assert started == 1, problem.value
    printed = io.StringIO()
    sys.argv = ["host.py", library]
    with contextlib.redirect_stdout(printed):
        host.main()
    return printed.getvalue().splitlines()


lines = told_on(PROFILE)
for line in (
    "processor: 48 degrees Celsius",
    "fan 0: 2000 rpm",
    "serial number: \u00c4\u4e2d\U0001f600",
    "signal: no connection",
):
    assert line in lines, lines

PROFILE["ec"]["revision"] = "ZZ"
assert "processor: no such sensor" in told_on(PROFILE)
