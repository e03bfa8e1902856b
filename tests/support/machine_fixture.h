// A test's simulated machine.
#pragma once

#include "machine/machine.h"
#include "observer/observer.h"
#include "vesk_sondrel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace test {

using Lines = std::vector<std::string>;

/// Starts every test on a fresh machine that keeps nothing, with the library in its state at load, and ends it
/// with a look at the ledger: whatever a test does, nothing may stay open. A session is closed by the fixture.
class MachineTest : public ::testing::Test, private observer::Sink {
protected:
    using Failure = observer::Failure;
    using Operation = observer::Operation;
    using CallRecord = observer::Record;

    MachineTest();
    ~MachineTest() override;

    void TearDown() override;

    /// Starts another machine: the default one with `changes` merged in, an RFC 7396 merge patch in JSON.
    void StartMachine(std::string_view changes = "{}", const std::string& store = ":memory:");
    /// The same without applications, packages, devices, processes and windows but those of `changes`.
    void StartBare(std::string_view changes = "{}");
    void StartBuiltIn(const std::string& name);
    /// Starts a machine of a family with its session open and its identity cached, so that what follows is the
    /// reading's own. `ec` adds to the profile's EC, as members of a JSON object.
    void StartFamily(const std::string& revision, int chipId, const std::string& ec = "");

    /// The records of the library that outlive a call, as at load.
    static void ForgetRecords();
    static void CloseSession();

    /// The debug lines since the last call. A consumer is attached from the start of every test.
    static Lines DebugLines();
    /// The warnings in the event log since the last call.
    static Lines EventLines();

    /// What was recorded since the last call, in one order: "debug ...", "event ...", "Release IWbemLocator",
    /// "CoInitializeEx kind=0 -> 0", "CoUninitialize".
    Lines Journal() { return std::exchange(m_journal, {}); }

    /// The boundary calls since the machine's start or the last `ForgetCalls`.
    [[nodiscard]] const std::vector<CallRecord>& Records() const { return m_records; }

    /// Only those of one operation.
    [[nodiscard]] std::vector<CallRecord> RecordsOf(Operation operation) const;

    /// The same as they are printed, and all but debug lines.
    [[nodiscard]] Lines Calls() const;
    [[nodiscard]] Lines CallsOf(Operation operation) const;
    /// The names of the operations alone, without debug lines.
    [[nodiscard]] Lines Operations() const;

    /// What reached the I/O driver: code and bytes, "0x80102070 bb01...".
    [[nodiscard]] Lines DriverRequests() const;
    /// What reached the EC: command and data bytes, in hexadecimal, with "w" in front where nothing is read back,
    /// and the waits between: "w a1 022020, sleep 10, 80 ede3".
    [[nodiscard]] std::string SentTraffic() const;

    void ForgetCalls() { m_records.clear(); }

    /// Does something after each boundary call from now on, until the machine is started again.
    void AfterCalls(std::function<void(const CallRecord&)> action) { m_afterCall = std::move(action); }

    /// Runs an action twice, the second time with one call of it failing: the n-th of an operation, from 1. The
    /// logs and the calls are those of the second run.
    void RunFailing(Operation operation, std::size_t nth, Failure kind, const std::function<void()>& action);

    static machine::HeldMachine TheMachine() { return machine::Current(); }

    /// Fails calls from now on, and restarts their count.
    static void FailCalls(observer::FaultPlan plan) { observer::Restart(plan); }

    /// What is open, as the observer's ledger describes it.
    static Lines OpenThings();

    /// A store of this test's own, gone with it.
    const std::string m_store;

public:
    /// What an export writes, in UTF-8. Nothing after its terminator may be changed. An export that
    /// leaves the buffer alone gives "untouched".
    static std::string Text(const std::function<void(VeskChar16*)>& read);
    static std::string Text(void (*read)(VeskChar16*, std::uint8_t));

    static std::string Text(void (*read)(char*)) { return Bytes(read).c_str(); }

    /// All bytes that an export writes, as far as the guard after them shows it.
    static std::string Bytes(void (*read)(char*));

private:
    void StartMerged(std::string_view base, std::string_view changes, const std::string& store);
    void Listen();
    void RemoveStore() const;
    void Ended(const CallRecord& record) override;

    std::vector<CallRecord> m_records;
    std::function<void(const CallRecord&)> m_afterCall;
    Lines m_journal;
};

/// A reading to be asked later, whatever it answers with.
using Ask = std::function<std::string()>;

template <class Result>
Ask Number(Result (*read)()) {
    return [read] {
        return std::to_string(read());
    };
}

/// All bytes of a text export, its zeros as "~".
Ask Written(void (*read)(char*));

} // namespace test
