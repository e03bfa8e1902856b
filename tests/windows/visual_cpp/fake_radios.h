// What a library under test is given by fake_radios.dll, in types that both compilers lay out alike.
#pragma once

namespace fake_radios {

inline constexpr unsigned Failing = 0xFFFFFFFF;

struct Conditions {
    /// Replaces the radios' routines in the library's imports. Without it the library has none of them.
    bool radios;
    /// DOT11_PHY_TYPE of the connection; 0: no wireless interface. Or Failing.
    unsigned phyType;
    /// Major class of each connected Bluetooth device.
    const unsigned char* majorClasses;
    /// How many; 0: no Bluetooth radio. Or Failing.
    unsigned devices;
    /// HeapAlloc gives nothing.
    bool noMemory;
};

/// Replaces what the last call replaced. `library` is the HMODULE of the library under test.
using SetConditions = void (*)(void* library, const Conditions& conditions);

} // namespace fake_radios
