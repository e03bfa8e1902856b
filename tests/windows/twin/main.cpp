// What the real DLL tells on a Windows that is a simulated machine throughout:
//
//     twin default > windows.json
//
// The machine's devices are served by the stand-in driver, its registry and files lie with Wine, WMI and sound are
// COM objects of this program, and what Wine has no machine behind is replaced in the DLL (shims.h). In the end
// nothing of all that may be left open.
#include "library.h"
#include "scenario.h"
#include "scripted_audio.h"
#include "scripted_wmi.h"
#include "served_machine.h"
#include "shims.h"
#include "wine_state.h"
#include "wmi_service.h"

#include "platform/simulated/profile.h"

#include <future>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>

namespace {

/// A thread of its own for what has to go on while the DLL is in a call: the devices' answers, and the
/// multithreaded apartment in which the WMI service is found.
class Services {
public:
    explicit Services(machine::Machine& machine) {
        std::promise<void> ready;
        auto isReady = ready.get_future();
        m_thread = std::thread([this, &machine, &ready] { Run(machine, ready); });
        try {
            isReady.get();
        } catch (...) {
            m_thread.join();
            throw;
        }
    }

    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

    /// COM objects that are not released yet.
    [[nodiscard]] long ObjectsOut() const { return m_script->alive; }

    ~Services() {
        ::SetEvent(m_end);
        m_thread.join();
        ::CloseHandle(m_end);
    }

private:
    void Run(machine::Machine& machine, std::promise<void>& ready) {
        try {
            test::ScriptedWmi wmi;
            wmi.Script().service = twin::MachineWmiService();
            m_script = &wmi.Script();
            stand_in::ServedMachine devices(machine);
            ready.set_value();
            devices.ServeWhile(m_end);
        } catch (...) {
            ready.set_exception(std::current_exception());
        }
    }

    const test::WmiScript* m_script = nullptr; // lives as long as the thread
    HANDLE m_end = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread m_thread;
};

void ExpectNothingLeft(std::string_view what, std::size_t count) {
    if (count != 0) {
        throw std::runtime_error(std::to_string(count).append(" left open: ").append(what));
    }
}

void Report(const std::string& machineName) {
    machine::Start(machine::LoadProfile(machineName), ":memory:");
    const twin::WineState state(machine::Current().profile);
    const Services services(machine::Current());
    const test::Library library;
    test::ImportPatch patch(library.Module());
    twin::PutUpRadios(patch);
    twin::PutUpDesktop(patch);
    twin::PutUpPackages(patch);
    twin::PutUpFirmware(patch);
    twin::PutUpSystem(patch);
    twin::Tell(tool::Host(tool::Options()));
    for (const std::string& thing : machine::Current().gate.OpenThings()) {
        ExpectNothingLeft(thing, 1);
    }
    ExpectNothingLeft("blocks of the WLAN service", twin::BlocksOut());
    ExpectNothingLeft("devices", twin::DevicesOpen());
    ExpectNothingLeft("objects of WMI", static_cast<std::size_t>(services.ObjectsOut()));
    ExpectNothingLeft("objects of the sound service",
                      static_cast<std::size_t>(test::ScriptedAudio::Script().alive));
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: twin MACHINE\n";
        return 2;
    }
    try {
        Report(arguments[1]);
        return std::cout.flush() ? 0 : 1;
    } catch (const std::exception& problem) {
        std::cerr << "twin: " << problem.what() << '\n';
        return 1;
    }
}
