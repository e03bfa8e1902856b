// Every number and text that is asked of the EC and the driver, on a machine of any family, with a driver that
// answers anything.
#include "harness.h"

#include "frame/registry_store.h"
#include "machine/models/battery_device.h"
#include "tests/support/every_export.h"

namespace {

constexpr std::u16string_view Families[] = {u"CF", u"AB", u"AR", u"KL", u"??"};

void KeepIdentity(std::u16string_view family, std::uint32_t chip) {
    const auto keep = [](const char16_t* name, std::uint32_t number) {
        sondrel::WriteRegDword(platform::Key::LocalMachine, sondrel::ProductKey, name, number);
    };
    keep(u"EcFwRev", static_cast<std::uint32_t>(family[0] << 8 | family[1]));
    keep(u"EcChipId", chip);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    fuzz::AnsweringDevice driver(u"\\\\.\\VESKHWIO", input);
    fuzz::AnsweringDevice battery(machine::BatteryDevice::PathOf(0), input);
    KeepIdentity(input.PickValueInArray(Families), input.ConsumeIntegralInRange(0u, 2u));
    const bool session = InitializeSondrel() == 1;
    static const auto Numbers = test::ExportsOfType<std::uint32_t()>();
    for (const auto read : Numbers) {
        read();
    }
    std::uint32_t leaf[4] = {};
    CPU_ReadCpuId(input.ConsumeIntegral<std::uint32_t>(), &leaf[0], &leaf[1], &leaf[2], &leaf[3]);
    const float charge = Battery_Read_ASOC();
    fuzz::Demand(charge >= 0);
    Battery_Read_Current();
    fuzz::TextOf(44, Thermal_Read_Fan);
    fuzz::TextOf(44, Battery_Read_CellVoltage);
    fuzz::TextOf(11, Battery_Read_ManufactureName);
    fuzz::Demand(fuzz::TextOf(11, Battery_Read_ManufactureDate).size() == 10);
    if (session) {
        ShutdownSondrel();
    }
    fuzz::DemandNothingOpen();
    return 0;
}
