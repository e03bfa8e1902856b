// The firmware's switches and variables, with methods that answer anything and variables of any size.
#include "harness.h"

#include "machine/models/firmware_features.h"
#include "machine/models/storage/firmware_store.h"
#include "machine/models/wmi/wmi_repository.h"

namespace {

/// Methods that exist or not, and answer anything.
machine::WmiMethods AnyMethods(fuzz::Input& input) {
    const auto answer = [&input](const machine::WmiRow&, machine::WmiRow& out) {
        const auto status = input.ConsumeBool() ? 0 : input.ConsumeIntegral<platform::HResult>();
        out = {{u"device_status", fuzz::Datum(input)}, {u"result", fuzz::Datum(input)}};
        return status;
    };
    machine::WmiMethods methods;
    for (const char16_t* name : {u"DSTS", u"DEVS"}) {
        if (input.ConsumeBool()) {
            methods[name] = {{u"Device_ID", u"Control_status"}, answer};
        }
    }
    return methods;
}

template <std::size_t Size>
void ReadAndWrite(std::uint32_t (*get)(std::uint8_t*), std::uint32_t (*set)(const std::uint8_t*)) {
    const auto bytes = std::make_unique<std::array<std::uint8_t, Size>>();
    get(bytes->data());
    set(bytes->data());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    machine::Machine& machine = fuzz::TheMachine();
    machine.wmi.SetMethods(u"ROOT\\WMI", u"VeskZrnWmi_WMNB", AnyMethods(input));
    for (const char16_t* name : {u"CNFG", u"MFG0"}) {
        machine.storage.firmwareVariables->Set(u"{91b89306-5bac-4ae0-aab3-207ec12e989b}", name,
                                               fuzz::Bytes(input, 300));
    }
    const auto demandWithin = [](std::int32_t low, std::int32_t number, std::int32_t high) {
        fuzz::Demand(low <= number && number <= high);
    };
    demandWithin(0, WMICheckBatteryHealthSupport(1), 1);
    demandWithin(-1, WMICheckQuietFanSupport(1), 1);
    demandWithin(0, WMISetBatteryHealth(input.ConsumeIntegral<std::int32_t>(), 1), 1);
    demandWithin(0, WMISetQuietFan(input.ConsumeIntegral<std::uint8_t>(), 1), 1);
    demandWithin(0, WMIGetQuietFan(1), 3);
    WMIGetBatteryHealth(1);
    ReadAndWrite<16>(GPNV_Get_RandomUUID, GPNV_Set_RandomUUID);
    ReadAndWrite<19>(GPNV_Get_ActivatedTime, GPNV_Set_ActivatedTime);
    ReadAndWrite<23>(GPNV_Get_ManufacturedTime, GPNV_Set_ManufacturedTime);
    machine.wmi.SetMethods(u"ROOT\\WMI", u"VeskZrnWmi_WMNB", machine.firmwareFeatures.Methods());
    fuzz::DemandNothingOpen();
    return 0;
}
