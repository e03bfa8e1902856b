// Everything that is read from WMI's rows, with values of any type and content in them.
#include "harness.h"

#include "tests/support/every_export.h"

#include "machine/models/wmi/wmi_repository.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t Capacity = 1 << 14; // more than any input fills
    fuzz::Input input(data, size);
    machine::WmiProfile profile = fuzz::TheMachine().profile.wmi;
    for (auto& [space, classes] : profile) {
        for (auto& [className, rows] : classes) {
            for (machine::WmiRow& row : rows) {
                for (auto& [name, datum] : row) {
                    if (input.ConsumeBool()) {
                        datum = fuzz::Datum(input);
                    }
                }
            }
        }
    }
    fuzz::TheMachine().wmi = machine::WmiRepository(profile);
    // Each input reads once: the longer ones would only read the same rows again.
    static const auto Texts = test::ExportsOfType<void(VeskChar16*, std::uint8_t)>();
    constexpr std::array Lists{AppList_CpuUsage, AppList_MemUsage, AppList_HardwareConfig};
    const auto which = input.ConsumeIntegralInRange<std::size_t>(0, Texts.size() + Lists.size());
    if (which < Texts.size()) {
        fuzz::TextOf(Capacity, Texts[which], 1);
    } else if (which - Texts.size() < Lists.size()) {
        fuzz::TextOf(Capacity, Lists[which - Texts.size()]);
    } else {
        fuzz::Demand(WMIGetExternMonitorNum(1) >= -1);
        WMIGetCPUUsg(1);
        WMIGetMonitorBrightness(1);
    }
    fuzz::DemandNothingOpen();
    return 0;
}
