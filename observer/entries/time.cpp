#include "platform/time.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

void Sleep(std::uint32_t milliseconds) {
    Observe<Operation::Sleep>(back_end::Sleep, In("milliseconds", milliseconds));
}

} // namespace platform
