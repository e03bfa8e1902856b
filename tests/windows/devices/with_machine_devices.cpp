// Gives a Windows the devices of a machine while a program runs:
//
//     with_machine_devices default sondrel.exe report       a machine by its name
//     with_machine_devices my_machine.json                  or by its profile; without a program it waits to be ended
//
// The exit code is the program's. The registry's product key is the machine's own meanwhile: empty at first.
#include "machine_devices.h"
#include "saved_registry_key.h"

#include "machine/profile/profile.h"
#include "memory_storage.h"

#include <cstdio>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <utility>

namespace {

/// What follows the first `count` arguments of the command line, as it was typed.
std::wstring RestOfCommandLine(int count) {
    const wchar_t* place = ::GetCommandLineW();
    for (; count > 0; --count) {
        bool quoted = false;
        for (; *place != L'\0' && (quoted || (*place != L' ' && *place != L'\t')); ++place) {
            quoted ^= *place == L'"';
        }
        while (*place == L' ' || *place == L'\t') {
            ++place;
        }
    }
    return place;
}

HANDLE Start(std::wstring command) {
    STARTUPINFOW start{.cb = sizeof start};
    PROCESS_INFORMATION process{};
    if (!::CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                          &process)) {
        throw std::runtime_error("the program does not start: error " + std::to_string(::GetLastError()));
    }
    ::CloseHandle(process.hThread);
    return process.hProcess;
}

int Run(const std::string& machineName, std::wstring command) {
    const test::SavedRegistryKey registry;
    machine::Profile profile = machine::LoadProfile(machineName);
    machine::Storage storage = machine::MemoryStorage(profile);
    machine::Start(std::move(profile), std::move(storage));
    devices::MachineDevices machine(*machine::Current());
    if (command.empty()) {
        std::cout << "ready" << std::endl;
        machine.ServeWhile(::CreateEventW(nullptr, TRUE, FALSE, nullptr)); // never set
    }
    const HANDLE program = Start(std::move(command));
    machine.ServeWhile(program);
    DWORD result = 0;
    ::GetExitCodeProcess(program, &result);
    ::CloseHandle(program);
    return static_cast<int>(result);
}

} // namespace

int main(int count, char** arguments) {
    constexpr int CannotRun = 125;
    if (count < 2) {
        std::fputs("usage: with_machine_devices MACHINE [PROGRAM [ARGUMENT...]]\n", stderr);
        return CannotRun;
    }
    try {
        return Run(arguments[1], RestOfCommandLine(2));
    } catch (const std::exception& problem) {
        std::cerr << "with_machine_devices: " << problem.what() << '\n';
        return CannotRun;
    }
}
