#include "platform/time.h"

#include "platform/back_end.h"

#include <windows.h>

namespace VESK_BACK_END {

void Sleep(std::uint32_t milliseconds) {
    ::Sleep(milliseconds);
}

} // namespace VESK_BACK_END
