// A test that reads WMI on the simulated machine.
#pragma once

#include "machine_fixture.h"

#include "platform/simulated/trace_sink.h"

#include "vesk_sondrel.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace test {

class WmiTest : public MachineTest {
protected:
    WmiTest() { Listen(); }

    ~WmiTest() override { machine::Traces().OnEvent({}); }

    /// The default machine with these rows, or this one row, as all that a class has.
    void StartWith(const std::string& nameSpace, const std::string& className, const nlohmann::json& rows) {
        const nlohmann::json list = rows.is_array() ? rows : nlohmann::json::array({rows});
        StartAndListen({{"wmi", {{nameSpace, {{className, list}}}}}});
    }

    void StartAndListen(const nlohmann::json& changes) {
        StartMachine(changes.dump());
        Listen();
    }

    /// What came since the last call, in one order: "debug ...", "event ...", "Release IWbemLocator",
    /// "CoInitializeEx multithreaded = 0", "CoUninitialize".
    std::vector<std::string> Journal() { return std::exchange(m_journal, {}); }

    /// Runs an action twice, the second time with one call of it failing: the n-th of an operation, from 1.
    template <class Action>
    void RunFailing(machine::Operation operation, std::size_t nth, machine::Failure kind, Action action) {
        machine::Gate& gate = TheMachine().gate;
        gate.KeepHistory(true);
        gate.Restart();
        action();
        std::uint64_t place = 0;
        for (const machine::Operation called : gate.History()) {
            ++place;
            if (called == operation && --nth == 0) {
                break;
            }
        }
        ASSERT_EQ(nth, 0u) << "the operation was not called that often";
        m_journal.clear();
        gate.Restart({.nth = place, .kind = kind});
        action();
        EXPECT_EQ(gate.Injected(), 1u);
        gate.Restart();
    }

    static std::u16string Text(void (*read)(VeskChar16*, std::uint8_t), std::uint8_t initCom = 1) {
        std::vector<VeskChar16> out(HostBuffer, u'?');
        read(out.data(), initCom);
        return out.data();
    }

    static std::u16string Text(void (*read)(VeskChar16*)) {
        std::vector<VeskChar16> out(HostBuffer, u'?');
        read(out.data());
        return out.data();
    }

private:
    static constexpr std::size_t HostBuffer = 65536;

    void Listen();

    std::vector<std::string> m_journal;
};

} // namespace test
