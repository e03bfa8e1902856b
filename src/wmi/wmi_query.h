// The one way in which the library queries WMI: connect, ask, walk the rows, let everything go.
#pragma once

#include "platform/wmi.h"

#include <cstdint>
#include <functional>
#include <string>

namespace sondrel {

/// Who asks. Each has its own wording in the logs; see the table in wmi_query.cpp.
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

/// What is done with one row, which is released afterwards.
using WmiRowHandler = std::function<void(platform::WbemObject)>;

/// Runs a query and gives its rows to `handleRow` one by one, waiting for each without limit. With `initCom`
/// not 0 the call enters the multithreaded apartment and leaves it again; otherwise the caller has entered one.
/// False when a step failed: it is logged, everything is released, and no row was given.
bool WalkWmiQuery(WmiReader reader, const std::u16string& nameSpace, const std::u16string& query,
                  std::uint8_t initCom, const WmiRowHandler& handleRow);

/// Steps that every WMI connection takes in the same way.
platform::HResult CreateWmiLocator(platform::WbemLocator& locator);
platform::HResult SetWmiProxyBlanket(platform::WbemServices services);
platform::HResult ExecWmiQuery(platform::WbemServices services, const char16_t* query,
                               platform::WbemEnumerator& rows);

/// Writes a warning into the event log. A message of the WMI paths goes there first, then to the debug log.
void ReportWmiWarning(const std::string& message);

} // namespace sondrel
