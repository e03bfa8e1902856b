// A machine whose EC is identified already, and everything that a reading sends to it.
#pragma once

#include "machine_fixture.h"

#include "vesk_sondrel.h"

#include <array>
#include <string>
#include <vector>

namespace test {

using Traffic = std::vector<std::string>;

/// A text export's answer in a buffer with guard bytes behind its largest size.
template <std::size_t Size>
struct GuardedText {
    static constexpr char Guard = '\xA5';

    explicit GuardedText(void (*read)(char*)) {
        buffer.fill(Guard);
        read(buffer.data());
    }

    [[nodiscard]] std::string Text() const { return buffer.data(); }

    /// All bytes of the largest size, whatever is in them.
    [[nodiscard]] std::string Bytes() const { return {buffer.data(), Size}; }

    /// How many bytes from the start have been written, as far as the guard shows it.
    [[nodiscard]] std::size_t Written() const {
        std::size_t written = buffer.size();
        while (written != 0 && buffer[written - 1] == Guard) {
            --written;
        }
        return written;
    }

    std::array<char, Size + 32> buffer;
};

class EcTest : public MachineTest {
protected:
    void TearDown() override {
        ShutdownSondrel();
        MachineTest::TearDown();
    }

    /// Starts a machine of a family with its session open and its identity kept, so that what follows is the
    /// reading's own. `ec` adds to the profile's EC, as members of a JSON object.
    void StartFamily(const std::string& revision, int chipId, const std::string& ec = "") {
        ShutdownSondrel();
        StartMachine(R"({"ec": {"revision": ")" + revision + R"(", "chip_id": )" + std::to_string(chipId) +
                     (ec.empty() ? "" : ", " + ec) + "}}");
        InitializeSondrel();
        EC_ReadEcFwRev();
        EC_ReadEcChipId();
        ForgetCalls();
    }

    /// Commands and waits in the order in which they came, "sleep 10" among the fixture's commands.
    [[nodiscard]] Traffic SentTraffic() const {
        Traffic commands = EcCommands();
        Traffic traffic;
        std::size_t next = 0;
        for (const std::string& call : Calls()) {
            if (call.starts_with("Sleep ")) {
                traffic.push_back("sleep " + call.substr(6, call.find(' ', 6) - 6));
            } else if (call.starts_with("DeviceIoControl 0x80102070")) {
                traffic.push_back(commands[next++]);
            }
        }
        return traffic;
    }

    /// Which identity values have been asked of the registry, in order.
    [[nodiscard]] Traffic IdentityQuestions() const {
        Traffic names;
        for (const std::string& call : CallsOf("RegQueryValueExW")) {
            const std::string rest = call.substr(call.find(' ') + 1);
            if (rest.find(" size") != std::string::npos) {
                names.push_back(rest.substr(0, rest.find(' ')));
            }
        }
        return names;
    }
};

} // namespace test
