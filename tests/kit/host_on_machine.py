#!/usr/bin/env python3
"""examples/host.py on a machine of the test's choice.

    host_on_machine.py EXAMPLES LIBRARY MACHINE_LIBRARY PROFILE
"""

import ctypes
import sys

examples, library, machine_library, profile = sys.argv[1:]
sys.path.insert(0, examples)
sys.dont_write_bytecode = True
import host  # noqa: E402

problem = ctypes.create_string_buffer(512)
size = ctypes.c_size_t(len(problem))
if ctypes.CDLL(machine_library).VeskMachine_Start(profile.encode(), b":memory:", problem, size) != 1:
    sys.exit(problem.value.decode())
sys.argv = ["host.py", library]
host.main()
