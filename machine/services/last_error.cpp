#include "machine/services/last_error.h"

#include "platform/back_end.h"
#include "platform/device_io.h"

namespace {

thread_local platform::SystemError LastError = platform::error::Success;

} // namespace

namespace machine {

void SetLastError(platform::SystemError error) {
    LastError = error;
}

} // namespace machine

namespace VESK_BACK_END {

platform::SystemError GetLastError() {
    return LastError;
}

} // namespace VESK_BACK_END
