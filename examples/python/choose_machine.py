#!/usr/bin/env python3
"""One host, any machine: the simulated machine is chosen from outside, and the host's own code knows nothing of it.

    choose_machine.py LIBRARY MACHINE     a built-in machine, or the file of a profile
"""

from __future__ import annotations

import sys
from typing import List

from vesk_sondrel import Machine, MachineError, Session


def host(library: str) -> str:
    """What the host does, on a real machine as on a simulated one."""
    with Session(library) as session:
        code = session.identity.firmware_revision
        maker = session.or_none.inventory.board_maker
        return f"firmware {code}, {', '.join(maker) if maker else 'maker not known'}"


def main(arguments: List[str]) -> int:
    if len(arguments) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    library, machine = arguments
    try:
        with Machine(machine, library=library):
            print(host(library))
    except MachineError as error:
        print(error, file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
