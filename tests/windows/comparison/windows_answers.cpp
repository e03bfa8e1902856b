// What the real DLL answers on a Windows that is a simulated machine throughout:
//
//     library_answers default > windows.json
//
// The machine's devices are served by the fake driver, its registry and files lie with Wine, WMI and sound are
// COM objects of this program (com_wrapper.h), and what Wine lacks is replaced in the DLL (shims.h).
// In the end nothing of all that may be left open.
#include "answers.h"
#include "library.h"
#include "machine_devices.h"
#include "shims.h"
#include "wine_state.h"

#include "machine/profile/profile.h"
#include "memory_storage.h"
#include "output/report.h"

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace {

void ExpectNothingLeft(std::string_view what, std::size_t count) {
    if (count != 0) {
        throw std::runtime_error(std::to_string(count).append(" left open: ").append(what));
    }
}

/// Wine does not count a process's handles. It numbers them in steps of four, the lowest free number first.
std::size_t HandlesOpen() {
    constexpr std::uintptr_t Most = 0x4000;
    std::size_t count = 0;
    for (std::uintptr_t number = 4; number < Most; number += 4) {
        DWORD flags = 0;
        count += ::GetHandleInformation(reinterpret_cast<HANDLE>(number), &flags) == FALSE ? 0U : 1U;
    }
    return count;
}

/// Keys, files, tokens and device lists are Wine's, which the machine does not count. Further reports must leave as many
/// handles as they found. Wine's own threads (RPC, COM, the thread pool) open and close some at times of their choosing,
/// later on a busy computer, so one report alone shows nothing: what the library leaks is left by every report.
void ExpectNoHandleLeft(const tool::Host& host) {
    constexpr int Reports = 4;
    std::ostringstream unread;
    std::streambuf* const output = std::cout.rdbuf(unread.rdbuf());
    std::size_t left = std::numeric_limits<std::size_t>::max();
    for (int report = 0; report < Reports && left != 0; ++report) {
        const std::size_t before = HandlesOpen();
        tool::ReportAsJson(host, tool::ReadOptions());
        const std::size_t after = HandlesOpen();
        left = std::min(left, after > before ? after - before : 0);
    }
    std::cout.rdbuf(output);
    ExpectNothingLeft("handles of Wine's, by every report", left);
}

void Report(const std::string& machineName) {
    machine::Profile profile = machine::LoadProfile(machineName);
    machine::Storage storage = machine::MemoryStorage(profile);
    machine::Start(std::move(profile), std::move(storage));
    const comparison::WineState state(machine::Current()->profile);
    const devices::ServedDevices devices(*machine::Current());
    const test::Library library;
    test::ImportPatch patch(library.Module());
    comparison::PutUpAll(patch);
    const tool::Host host{tool::HostOptions()};
    comparison::PrintAnswers(host);
    ExpectNoHandleLeft(host);
    ExpectNothingLeft("handles of the machine", machine::Current()->handles.IsEmpty() ? 0 : 1);
    ExpectNothingLeft("blocks of the WLAN service", comparison::BlocksOut());
    ExpectNothingLeft("devices", comparison::DevicesOpen());
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: library_answers MACHINE\n";
        return 2;
    }
    try {
        Report(arguments[1]);
        return std::cout.flush() ? 0 : 1;
    } catch (const std::exception& problem) {
        std::cerr << "library_answers: " << problem.what() << '\n';
        return 1;
    }
}
