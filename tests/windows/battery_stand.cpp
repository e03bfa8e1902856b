#include "battery_stand.h"

namespace test {
namespace {

// GUID_DEVICE_BATTERY, as the registry spells it.
constexpr const wchar_t* BatteryClass = L"{72631e54-78a4-11d0-bcf7-00aa00b7b32a}";

std::wstring InstanceId(unsigned place) {
    return L"ROOT\\VESKBAT\\000" + std::to_wstring(place);
}

std::wstring InterfaceKey(unsigned place) {
    return std::wstring(L"SYSTEM\\CurrentControlSet\\Control\\DeviceClasses\\") + BatteryClass + L"\\##?#" +
           BatteryStand::DeviceOf(place);
}

} // namespace

std::wstring BatteryStand::DeviceOf(unsigned place) {
    return L"ROOT#VESKBAT#000" + std::to_wstring(place) + L'#' + BatteryClass;
}

BatteryStand::BatteryStand(DriverStand& driver, unsigned place)
    : m_driver(driver),
      m_device(DeviceOf(place)),
      m_instance(L"SYSTEM\\CurrentControlSet\\Enum\\" + InstanceId(place)),
      m_interface(InterfaceKey(place)) {
    m_instance.Set(L"ClassGUID", TextValue(BatteryClass));
    m_interface.Set(L"DeviceInstance", TextValue(InstanceId(place)));
    m_interface.Set(L"SymbolicLink", TextValue(L"\\\\?\\" + m_device), L"#");
    SetPresent(true);
    m_driver.AddDevice(m_device);
}

void BatteryStand::Answer(const BatteryAnswers& answers) {
    constexpr std::uint32_t Chemistry = 0x4E4F494C; // "LION"
    constexpr std::uint32_t PowerOnLine = 1;
    constexpr std::uint32_t Rechargeable = 1;
    m_driver.Answer(m_device, {.code = battery_request::QueryTag, .output = Words({answers.tag})});
    m_driver.Answer(m_device,
                    {.code = battery_request::QueryInformation,
                     .prefix = Words({answers.tag, 0}), // level BatteryInformation
                     .output = Words({answers.capabilities, Rechargeable, Chemistry, answers.designedCapacity,
                                      answers.fullChargedCapacity, 0, 0, 0, answers.cycleCount})});
    m_driver.Answer(m_device, {.code = battery_request::QueryStatus,
                               .prefix = Words({answers.tag}),
                               .output = Words({PowerOnLine, answers.capacity, answers.voltage, 0})});
}

void BatteryStand::SetPresent(bool present) {
    m_interface.Set(L"Linked", DwordValue(present ? 1 : 0), L"#\\Control");
}

} // namespace test
