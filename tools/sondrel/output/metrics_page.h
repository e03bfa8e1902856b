// Metrics in the Prometheus text format, version 0.0.4.
#pragma once

#include "readings/reading.h"

#include <string>
#include <string_view>

namespace tool {

/// Reads what has a metric or identifies the machine. `toolVersion` is a label.
std::string MetricsPage(Reader& reader, std::string_view toolVersion);

} // namespace tool
