// Everything that is read from WMI's rows, with values of any type and content in them.
#include "harness.h"

namespace {

constexpr void (*Texts[])(VeskChar16*, std::uint8_t) = {WMIGet90Number,
                                                        WMIGetBiosManufacture,
                                                        WMIGetBiosReleaseDate,
                                                        WMIGetBiosVersion,
                                                        WMIGetBoardUUID,
                                                        WMIGetCPUInfo,
                                                        WMIGetComputerFamilyName,
                                                        WMIGetGPUInfo,
                                                        WMIGetHDDCaption,
                                                        WMIGetHDDInfo,
                                                        WMIGetHDDModel,
                                                        WMIGetHDDSize,
                                                        WMIGetLCDModel,
                                                        WMIGetMacAddress,
                                                        WMIGetMemManufacture,
                                                        WMIGetMemModel,
                                                        WMIGetMemSize,
                                                        WMIGetModelName,
                                                        WMIGetOSCountryCode,
                                                        WMIGetOSInfo,
                                                        WMIGetProductName,
                                                        WMIGetSN,
                                                        WMIGetSSDModel,
                                                        WMIGetSystemChassisTypes,
                                                        WMIGetWiFiCardName,
                                                        WMIGetWiFiBytesPersec,
                                                        WMIGetHDDTemp};

constexpr void (*Lists[])(VeskChar16*) = {AppList_CpuUsage, AppList_MemUsage, AppList_HardwareConfig};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t Room = 1 << 14; // more than any input fills
    fuzz::Input input(data, size);
    machine::WmiProfile profile = fuzz::TheMachine().profile.wmi;
    for (machine::WmiNamespaceProfile& space : profile.namespaces) {
        for (machine::WmiClassProfile& rows : space.classes) {
            for (machine::WmiRow& row : rows.rows) {
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
    const auto which = input.ConsumeIntegralInRange<std::size_t>(0, std::size(Texts) + std::size(Lists));
    if (which < std::size(Texts)) {
        fuzz::TextOf(Room, Texts[which], 1);
    } else if (which - std::size(Texts) < std::size(Lists)) {
        fuzz::TextOf(Room, Lists[which - std::size(Texts)]);
    } else {
        fuzz::Demand(WMIGetExternMonitorNum(1) >= -1);
        WMIGetCPUUsg(1);
        WMIGetMonitorBrightness(1);
    }
    fuzz::DemandNothingOpen();
    return 0;
}
