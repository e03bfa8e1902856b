// The query sequence of the library: connect, query, walk the rows, release everything.
#pragma once

#include "platform/wmi.h"

#include <cstdint>
#include <functional>
#include <string>

namespace sondrel {

/// The readers. Each has its own messages in the logs: see the table in wmi_query.cpp.
enum class WmiReader : std::uint8_t {
    EnumNum,
    Prop,
    PropStr,
    PropStr2,
    SmartData,
    CpuUsage,
    MemUsage,
    Brightness,
};

/// Called for each row, which is released afterwards.
using WmiRowHandler = std::function<void(platform::WbemObject)>;

/// Runs a query and calls `handleRow` for each row, waiting for it without limit. With `initCom` not 0 the call
/// enters and leaves the multithreaded apartment; otherwise the calling thread is in one. False when a step
/// failed: the failure is logged, everything is released, and `handleRow` was not called.
bool WalkWmiQuery(WmiReader reader, const std::u16string& nameSpace, const std::u16string& query,
                  std::uint8_t initCom, const WmiRowHandler& handleRow);

/// Steps that are the same for every WMI connection.
platform::HResult CreateWmiLocator(platform::WbemLocator& locator);
platform::HResult SetWmiProxyBlanket(platform::WbemServices services);
platform::HResult ExecWmiQuery(platform::WbemServices services, const char16_t* query,
                               platform::WbemEnumerator& rows);

/// Writes a warning to the event log. The messages of WMI failures go there first, then to the debug log.
void ReportWmiWarning(const std::string& message);

} // namespace sondrel
