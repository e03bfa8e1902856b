// Recordings: whatever is in the file, it is read or refused with one line, and what replays it keeps to its buffers and
// closes what it opens.
#include "harness.h"

#include "observer/export_call.h"
#include "observer/observer.h"
#include "observer/recording/replay.h"

extern "C" {
std::int32_t VeskObserved_InitializeSondrel();
void VeskObserved_ShutdownSondrel();
void VeskObserved_Thermal_Read_Fan(char* out);
void VeskObserved_WMIGetSN(VeskChar16* out, std::uint8_t initCom);
void VeskObserved_GetInfVersion(VeskChar16* out);
std::uint32_t VeskObserved_Battery_Read_Capacity();
std::int32_t VeskObserved_System_Check_S_Mode();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::TheMachine();
    try {
        observer::SetReplay(std::make_shared<observer::Replay>(
            std::string(reinterpret_cast<const char*>(data), size), 0, nullptr));
    } catch (const observer::RecordingError& problem) {
        fuzz::Demand(std::string_view(problem.what()).find('\n') == std::string_view::npos);
        return 0;
    }
    const bool session = VeskObserved_InitializeSondrel() != 0;
    fuzz::TextOf(44, VeskObserved_Thermal_Read_Fan);
    if (session) {
        VeskObserved_ShutdownSondrel();
    }
    fuzz::TextOf(4096, VeskObserved_WMIGetSN, 1);
    fuzz::TextOf(4096, VeskObserved_GetInfVersion);
    VeskObserved_Battery_Read_Capacity();
    VeskObserved_System_Check_S_Mode();
    observer::SetReplay(nullptr);
    fuzz::Demand(observer::OpenThings().empty());
    return 0;
}
