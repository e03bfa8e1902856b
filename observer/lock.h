// The observer's locks. Neither is held while a back end works.
#pragma once

#include "platform/lock.h"

#include <mutex>

namespace observer {

using platform::Lock;

/// Held while a sink is called, which may add or remove sinks.
using SinkLock = platform::RecursiveLock;

} // namespace observer
