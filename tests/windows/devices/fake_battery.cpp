#include "fake_battery.h"

namespace devices {
namespace {

// GUID_DEVICE_BATTERY, as the registry spells it.
constexpr const wchar_t* BatteryClass = L"{72631e54-78a4-11d0-bcf7-00aa00b7b32a}";

std::wstring InstanceId(unsigned place) {
    return L"ROOT\\VESKBAT\\000" + std::to_wstring(place);
}

std::wstring InterfaceKey(unsigned place) {
    return std::wstring(L"SYSTEM\\CurrentControlSet\\Control\\DeviceClasses\\") + BatteryClass + L"\\##?#" +
           FakeBattery::DeviceOf(place);
}

} // namespace

std::wstring FakeBattery::DeviceOf(unsigned place) {
    return L"ROOT#VESKBAT#000" + std::to_wstring(place) + L'#' + BatteryClass;
}

FakeBattery::FakeBattery(test::FakeDevices& driver, unsigned place)
    : m_instance(L"SYSTEM\\CurrentControlSet\\Enum\\" + InstanceId(place)), m_interface(InterfaceKey(place)) {
    m_instance.Set(L"ClassGUID", test::TextValue(BatteryClass));
    m_interface.Set(L"DeviceInstance", test::TextValue(InstanceId(place)));
    m_interface.Set(L"SymbolicLink", test::TextValue(L"\\\\?\\" + DeviceOf(place)), L"#");
    m_interface.Set(L"Linked", test::DwordValue(1), L"#\\Control");
    driver.AddDevice(DeviceOf(place));
}

} // namespace devices
