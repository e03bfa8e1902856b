#include "battery_stand.h"

namespace test {
namespace {

// GUID_DEVICE_BATTERY, as the registry spells it.
constexpr const wchar_t* BatteryClass = L"{72631e54-78a4-11d0-bcf7-00aa00b7b32a}";
constexpr const wchar_t* InstanceId = L"ROOT\\VESKBAT\\0000";

std::wstring InterfaceKey() {
    return std::wstring(L"SYSTEM\\CurrentControlSet\\Control\\DeviceClasses\\") + BatteryClass + L"\\##?#" +
           BatteryStand::Device;
}

} // namespace

BatteryStand::BatteryStand(DriverStand& driver)
    : m_driver(driver),
      m_instance(L"SYSTEM\\CurrentControlSet\\Enum\\ROOT\\VESKBAT"),
      m_interface(InterfaceKey()) {
    m_instance.Set(L"ClassGUID", TextValue(BatteryClass), L"0000");
    m_interface.Set(L"DeviceInstance", TextValue(InstanceId));
    m_interface.Set(L"SymbolicLink", TextValue(std::wstring(L"\\\\?\\") + Device), L"#");
    SetPresent(true);
    m_driver.AddDevice(Device);
}

void BatteryStand::Answer(const BatteryAnswers& answers) {
    constexpr std::uint32_t Chemistry = 0x4E4F494C; // "LION"
    constexpr std::uint32_t PowerOnLine = 1;
    constexpr std::uint32_t Rechargeable = 1;
    m_driver.Answer(Device, {.code = battery_request::QueryTag, .output = Words({answers.tag})});
    m_driver.Answer(Device,
                    {.code = battery_request::QueryInformation,
                     .prefix = Words({answers.tag, 0}), // level BatteryInformation
                     .output = Words({answers.capabilities, Rechargeable, Chemistry, answers.designedCapacity,
                                      answers.fullChargedCapacity, 0, 0, 0, answers.cycleCount})});
    m_driver.Answer(Device, {.code = battery_request::QueryStatus,
                             .prefix = Words({answers.tag}),
                             .output = Words({PowerOnLine, answers.capacity, answers.voltage, 0})});
}

void BatteryStand::SetPresent(bool present) {
    m_interface.Set(L"Linked", DwordValue(present ? 1 : 0), L"#\\Control");
}

} // namespace test
