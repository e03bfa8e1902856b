// The firmware's switches and variables, with methods that answer anything and variables of any size.
#include "harness.h"

#include "machine/models/firmware_features.h"
#include "machine/models/storage/firmware_store.h"
#include "machine/models/wmi/wmi_repository.h"

namespace {

class Methods : public machine::WmiMethods {
public:
    explicit Methods(fuzz::Input& input) : m_input(input) {}

    [[nodiscard]] std::optional<std::vector<std::u16string>> Inputs(std::u16string_view) const override {
        return m_input.ConsumeBool()
                   ? std::nullopt
                   : std::optional(std::vector<std::u16string>{u"Device_ID", u"Control_status"});
    }

    machine::WmiMethodAnswer Execute(std::u16string_view, std::u16string_view,
                                     const machine::WmiArguments&) override {
        const auto status = m_input.ConsumeBool() ? 0 : m_input.ConsumeIntegral<platform::HResult>();
        return {status,
                machine::WmiRow{{u"device_status", fuzz::Datum(m_input)}, {u"result", fuzz::Datum(m_input)}}};
    }

private:
    fuzz::Input& m_input;
};

template <std::size_t Size>
void ReadAndWrite(std::uint32_t (*get)(std::uint8_t*), std::uint32_t (*set)(const std::uint8_t*)) {
    const auto bytes = std::make_unique<std::array<std::uint8_t, Size>>();
    get(bytes->data());
    set(bytes->data());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    Methods methods(input);
    machine::Machine& machine = fuzz::TheMachine();
    machine.wmi.AnswerMethods(u"ROOT\\WMI", u"VeskZrnWmi_WMNB", methods);
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
    machine.wmi.AnswerMethods(u"ROOT\\WMI", u"VeskZrnWmi_WMNB", machine.firmwareFeatures);
    fuzz::DemandNothingOpen();
    return 0;
}
