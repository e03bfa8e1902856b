#include "wmi/wmi_query.h"

#include "frame/diagnostics.h"
#include "frame/text.h"

#include <optional>
#include <span>
#include <string_view>

namespace sondrel {

using platform::Failed;
using platform::HResult;

namespace {

/// The steps that can fail, in their order. The messages count a step 2 that does not exist.
enum class Step : std::uint8_t { Apartment, Locator, Connection, Blanket, Query };

enum class DebugLine : std::uint8_t {
    Usual, // with the tag and the status, written before the objects are released
    Bare,  // without them, written after the release
};

/// The messages of a failed step. The event has the tag before it and the status after it.
struct StepMessages {
    std::string_view event;
    std::string_view debug = event;
    DebugLine form = DebugLine::Usual;
};

constexpr std::string_view NoApartment = "Step1 Failed to initialize COM library. Error code = 0x";
constexpr std::string_view NoLocator = "Step3 Failed to create IWbemLocator object. Error code = 0x";
constexpr std::string_view NoConnection = "Step4 Could not connect. Error code = 0x";
constexpr std::string_view NoBlanket = "Step5 Could not set proxy blanket. Error code = 0x";
constexpr std::string_view NoQuery = "Step6 Query for operating system name failed. Error code = 0x";
constexpr std::string_view NoQueryTwoBlanks =
    "Step6 Query for operating system name failed.  Error code = 0x";

constexpr StepMessages UsualSteps[] = {{NoApartment}, {NoLocator}, {NoConnection}, {NoBlanket}, {NoQuery}};

constexpr StepMessages TwoBlanksSteps[] = {
    {NoApartment}, {NoLocator}, {NoConnection}, {NoBlanket}, {NoQueryTwoBlanks, NoQuery}};

constexpr StepMessages PropStr2Steps[] = {
    {NoApartment},
    {NoLocator},
    {"Could not connect. Error code = 0x", "Step4 ReadWMIPropStr2 Could not connect. Error code = 0x",
     DebugLine::Bare},
    {"Could not set proxy blanket. Error code = 0x",
     "Step5 ReadWMIPropStr2 Could not set proxy blanket. Error code = 0x", DebugLine::Bare},
    {"Query for operating system name failed Error code = 0x",
     "Step6 ReadWMIPropStr2 Query for operating system name failed.", DebugLine::Bare},
};

enum class Logs : std::uint8_t { DebugOnly, EventAndDebug };

struct ReaderMessages {
    std::string_view tag;
    Logs logs;
    std::span<const StepMessages> steps;
    std::string_view leaving; // before the apartment is left
};

/// In the order of WmiReader.
constexpr ReaderMessages Readers[] = {
    {"[ReadWMIEnumNum] ", Logs::DebugOnly, UsualSteps, "Step7 Do CoUninitialize()"},
    {"[ReadWMIProp] ", Logs::EventAndDebug, UsualSteps, "Step7 Do CoUninitialize()"},
    {"[ReadWMIPropStr] ", Logs::EventAndDebug, TwoBlanksSteps, "Step7 Do CoUninitialize()"},
    {"[ReadWMIPropStr2] ", Logs::EventAndDebug, PropStr2Steps, "Step7 Do CoUninitialize()"},
    {"[ReadWMISmartData] ", Logs::EventAndDebug, UsualSteps, "Step7 Do CoUninitialize"},
    {"[ReadWMICpuUsage] ", Logs::EventAndDebug, TwoBlanksSteps, "Step7 Do CoUninitialize()"},
    {"[ReadWMIMemUsage] ", Logs::EventAndDebug, TwoBlanksSteps, "Step7 Do CoUninitialize()"},
    {"[ReadWMIBrightness] ", Logs::EventAndDebug, TwoBlanksSteps, "Step7 Do CoUninitialize()"},
};

constexpr platform::ProxyBlanket Blanket{
    .authenticationService = platform::rpc::AuthenticationWinNt,
    .authorizationService = platform::rpc::AuthorizationNone,
    .authenticationLevel = platform::rpc::AuthenticationLevelCall,
    .impersonationLevel = platform::rpc::ImpersonationImpersonate,
    .capabilities = platform::rpc::CapabilitiesNone,
};

struct Connection {
    platform::OwnedLocator locator;
    platform::OwnedServices services;
    platform::OwnedEnumerator rows;

    /// The order of release is part of the contract, after success and after every failure.
    void Release() {
        services.Reset();
        locator.Reset();
        rows.Reset();
    }
};

struct FailedStep {
    Step step;
    HResult status;
};

/// The step that failed, or nothing.
std::optional<FailedStep> Connect(const std::u16string& nameSpace, const std::u16string& query,
                                  Connection& connection) {
    if (const HResult status = CreateWmiLocator(connection.locator.Receive()); Failed(status)) {
        return FailedStep{Step::Locator, status};
    }
    if (const HResult status = platform::ConnectServer(connection.locator.Get(), nameSpace.c_str(),
                                                       connection.services.Receive());
        Failed(status)) {
        return FailedStep{Step::Connection, status};
    }
    if (const HResult status = SetWmiProxyBlanket(connection.services.Get()); Failed(status)) {
        return FailedStep{Step::Blanket, status};
    }
    if (const HResult status =
            ExecWmiQuery(connection.services.Get(), query.c_str(), connection.rows.Receive());
        Failed(status)) {
        return FailedStep{Step::Query, status};
    }
    return std::nullopt;
}

/// Only the count of rows ends the walk; the status of Next is ignored.
void WalkRows(platform::WbemEnumerator rows, const WmiRowHandler& handleRow) {
    for (;;) {
        platform::OwnedObject row;
        std::uint32_t returned = 0;
        platform::Next(rows, platform::wbem::Infinite, row.Receive(), returned);
        if (returned == 0 || !row) {
            return;
        }
        handleRow(row.Get());
    }
}

void LogFailure(const ReaderMessages& reader, FailedStep failed, Connection& connection) {
    const StepMessages& messages = reader.steps[static_cast<std::size_t>(failed.step)];
    const std::string code = HexText(static_cast<std::uint32_t>(failed.status));
    if (reader.logs == Logs::EventAndDebug) {
        ReportWmiWarning(std::string(reader.tag).append(messages.event) + code);
    }
    if (messages.form == DebugLine::Usual) {
        TraceLine([&] { return std::string(reader.tag).append(messages.debug) + code; });
        connection.Release();
    } else {
        connection.Release();
        TraceLine([&] { return std::string(messages.debug); });
    }
}

} // namespace

HResult CreateWmiLocator(platform::WbemLocator& locator) {
    return platform::CoCreateInstance(platform::ClsidWbemLocator, platform::class_context::InprocServer,
                                      platform::IidWbemLocator, locator);
}

HResult SetWmiProxyBlanket(platform::WbemServices services) {
    return platform::CoSetProxyBlanket(services, Blanket);
}

HResult ExecWmiQuery(platform::WbemServices services, const char16_t* query, platform::WbemEnumerator& rows) {
    constexpr std::int32_t Flags = platform::wbem::ForwardOnly | platform::wbem::ReturnImmediately;
    return platform::ExecQuery(services, u"WQL", query, Flags, rows);
}

void ReportWmiWarning(const std::string& message) {
    ReportWarningEvent(AnsiToWideBuffer(message).c_str(), WarningEvent);
}

bool WalkWmiQuery(WmiReader reader, const std::u16string& nameSpace, const std::u16string& query,
                  std::uint8_t initCom, const WmiRowHandler& handleRow) {
    const ReaderMessages& messages = Readers[static_cast<std::size_t>(reader)];
    platform::OwnedApartment apartment;
    Connection connection;
    if (initCom != 0) {
        if (const HResult status = platform::CoInitializeEx(platform::apartment::Multithreaded);
            Failed(status)) {
            LogFailure(messages, {Step::Apartment, status}, connection);
            return false;
        }
        apartment.Reset(platform::Apartment::Entered);
    }
    if (const auto failed = Connect(nameSpace, query, connection)) {
        LogFailure(messages, *failed, connection);
        return false;
    }
    WalkRows(connection.rows.Get(), handleRow);
    connection.Release();
    if (apartment) {
        TraceLine([&] { return std::string(messages.tag).append(messages.leaving); });
    }
    return true;
}

} // namespace sondrel
