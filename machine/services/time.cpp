#include "platform/time.h"

#include "machine/machine.h"
#include "platform/back_end.h"

#include <thread>

namespace VESK_BACK_END {

void Sleep(std::uint32_t milliseconds) {
    const std::chrono::milliseconds time(milliseconds);
    if (const auto machine = machine::Current(); !machine->clock.TiedToRealTime()) {
        machine->clock.Advance(time);
        return;
    }
    std::this_thread::sleep_for(time); // other threads may use the machine meanwhile
}

} // namespace VESK_BACK_END
