#include "platform/time.h"

#include <windows.h>

namespace platform {

void Sleep(std::uint32_t milliseconds) {
    ::Sleep(milliseconds);
}

} // namespace platform
