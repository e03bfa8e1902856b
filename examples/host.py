#!/usr/bin/env python3
"""A host in Python: loads the library, opens a session, reads a few values, closes the session.

    python3 host.py [LIBRARY]

The default is VeskSondrel64.dll beside this file on Windows, libVeskSondrel64.so elsewhere.
"""

import ctypes
import pathlib
import sys

READ_FAILED = 0x7FFFFFFF
RADIO_NOT_READ = -1000
ENTER_COM_FOR_THIS_CALL = 1

# UTF-16 on every platform. ctypes.c_wchar is not: it has four bytes outside Windows, and create_unicode_buffer with it.
VeskChar16 = ctypes.c_uint16

# name: (result, arguments). Without these ctypes takes every result for a signed int, floating point ones too.
EXPORTS = {
    "InitializeSondrel": (ctypes.c_int32, ()),
    "ShutdownSondrel": (None, ()),
    "Thermal_Read_Cpu_Temperature": (ctypes.c_uint32, ()),
    "Thermal_Read_Fan": (None, (ctypes.c_char_p,)),
    "Battery_Read_ASOC": (ctypes.c_float, ()),
    "RF_WiFiRssi": (ctypes.c_int32, ()),
    "WMIGetSN": (None, (ctypes.POINTER(VeskChar16), ctypes.c_uint8)),
}


def load(path):
    library = ctypes.CDLL(str(path))
    for name, (result, arguments) in EXPORTS.items():
        function = getattr(library, name)
        function.restype = result
        function.argtypes = arguments
    return library


def wide_text(call, characters, *arguments):
    """What an export writes into a wide buffer; the header says how many characters it may be."""
    buffer = (VeskChar16 * characters)()
    call(buffer, *arguments)
    units = bytes(buffer).decode("utf-16-le", "replace")
    return units.partition("\0")[0]


def narrow_text(call, size):
    buffer = ctypes.create_string_buffer(size)
    call(buffer)
    return buffer.value.decode("utf-8", "replace")


def told(value, unit, **special):
    """A number with its unit, or what the number means when it is none."""
    for meaning, sentinel in special.items():
        if value == sentinel:
            return meaning.replace("_", " ")
    return f"{value} {unit}"


def main():
    here = pathlib.Path(__file__).resolve().parent
    beside = here / ("VeskSondrel64.dll" if sys.platform == "win32" else "libVeskSondrel64.so")
    sondrel = load(pathlib.Path(sys.argv[1]).resolve() if len(sys.argv) > 1 else beside)

    if sondrel.InitializeSondrel() == 1:
        try:
            degrees = sondrel.Thermal_Read_Cpu_Temperature()
            print("processor:", told(degrees, "degrees Celsius", the_read_failed=READ_FAILED, no_such_sensor=0))
            for fan, speed in enumerate(narrow_text(sondrel.Thermal_Read_Fan, 44).split(";")):
                print(f"fan {fan}:", told(int(speed), "rpm", the_read_failed=READ_FAILED))
        finally:
            sondrel.ShutdownSondrel()
    else:
        print("no driver session")

    # These need no session.
    print(f"battery: holds {sondrel.Battery_Read_ASOC():.0%} of what it was designed for")
    print("serial number:", wide_text(sondrel.WMIGetSN, 4096, ENTER_COM_FOR_THIS_CALL) or "the read failed")
    print("signal:", told(sondrel.RF_WiFiRssi(), "dBm", the_read_failed=READ_FAILED, no_connection=RADIO_NOT_READ))


if __name__ == "__main__":
    main()
