// A test's simulated machine.
#pragma once

#include "platform/simulated/machine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace test {

/// One request as the I/O driver saw it.
struct DriverRequest {
    std::uint32_t code = 0;
    std::string in; // hexadecimal pairs

    friend bool operator==(const DriverRequest&, const DriverRequest&) = default;
};

void PrintTo(const DriverRequest& request, std::ostream* out);

/// Starts every test on a fresh machine that keeps nothing, with the library in its state at load, and ends it
/// with a look at the ledger: whatever a test does, nothing may stay open.
class MachineTest : public ::testing::Test {
protected:
    MachineTest();

    void TearDown() override;

    /// Starts another machine: the default one with `changes` merged in, an RFC 7396 merge patch in JSON.
    void StartMachine(std::string_view changes = "{}", const std::string& store = ":memory:");

    /// The debug lines since the last call. A consumer is attached from the start of every test.
    static std::vector<std::string> DebugLines();
    /// The warnings in the event log since the last call.
    static std::vector<std::string> EventLines();

    /// The boundary calls since the machine's start or the last `ForgetCalls`, as the transcript writes them.
    [[nodiscard]] const std::vector<std::string>& Calls() const { return m_calls; }

    /// Only the calls of one operation.
    [[nodiscard]] std::vector<std::string> CallsOf(std::string_view operation) const;
    /// What reached the I/O driver.
    [[nodiscard]] std::vector<DriverRequest> DriverRequests() const;
    /// What reached the EC: command, data bytes, in hexadecimal, with "w" in front where nothing is read back:
    /// "80 03a0", "w a1 022020".
    [[nodiscard]] std::vector<std::string> EcCommands() const;

    void ForgetCalls() { m_calls.clear(); }

    static machine::Machine& TheMachine() { return machine::Current(); }

private:
    std::vector<std::string> m_calls;
};

} // namespace test
