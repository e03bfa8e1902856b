// The observer's locks. Neither is held while a back end works.
#pragma once

#include <mutex>

namespace observer {

using Lock = std::mutex;

/// Held while a sink is called, which may add or remove sinks.
using SinkLock = std::recursive_mutex;

} // namespace observer
