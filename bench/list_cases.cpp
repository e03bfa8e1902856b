// What walks a list, of any length.
#include "measure.h"

#include "radio/bluetooth_snapshot.h"
#include "radio/wifi_snapshot.h"
#include "unicode/utf.h"
#include "vesk_sondrel.h"
#include "wmi/wmi_readers.h"

#include <benchmark/benchmark.h>

namespace bench {
namespace {

using machine::Profile;

constexpr const char16_t* UninstallKey = u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\";
constexpr const char16_t* StoreKey =
    u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Appx\\AppxAllUserStore\\Applications\\";

std::u16string Numbered(const char* text, std::size_t number) {
    return unicode::WideFromUtf8(text + std::to_string(number));
}

/// The default machine with an empty registry and a change for each item.
template <class Add>
auto With(Add add) {
    return [add](std::size_t items) {
        Profile profile = machine::LoadProfile("default");
        profile.registry = {};
        for (std::size_t item = 0; item < items; ++item) {
            add(profile, item);
        }
        return profile;
    };
}

void AddApplication(Profile& profile, std::size_t item) {
    const std::u16string key = UninstallKey + Numbered("{application}", item);
    const auto value = [&](const char16_t* name, const std::u16string& text) {
        profile.registry.AddString(key, name, text);
    };
    value(u"DisplayName", Numbered("A usual application ", item));
    value(u"DisplayVersion", Numbered("1.0.", item));
}

void AddPackage(Profile& profile, std::size_t item) {
    machine::PackageProfile package;
    package.fullName = Numbered("Vendor.App", item) + u"_1.2.3.0_x64__abcdefghijklm";
    package.folder = u"C:\\Program Files\\WindowsApps\\" + package.fullName;
    package.manifest = u"<Package><Properties><DisplayName>" + Numbered("Application ", item) +
                       u"</DisplayName></Properties></Package>";
    profile.registry.keys.push_back(StoreKey + package.fullName);
    profile.packages.all.push_back(std::move(package));
}

/// The last ones are the busiest.
void AddProcessRow(Profile& profile, std::size_t item) {
    profile.wmi[u"ROOT\\CIMV2"][u"Win32_PerfFormattedData_PerfProc_Process"].push_back(
        {{u"Name", {Numbered("process", item)}},
         {u"IDProcess", {static_cast<std::int64_t>(item + 1)}},
         {u"PercentProcessorTime", {Numbered("", item)}},
         {u"WorkingSet", {Numbered("", item) + u"000"}}});
}

void AddWindow(Profile& profile, std::size_t item) {
    if (item == 0) {
        profile.windows.clear();
    }
    machine::WindowProfile window;
    window.name = "window" + std::to_string(item);
    window.process = profile.processes.front().id;
    window.className = u"Window";
    window.title = u"A window";
    profile.windows.push_back(std::move(window));
}

void AddAccessPoint(Profile& profile, std::size_t item) {
    auto& accessPoints = profile.wifi.interfaces.front().accessPoints;
    machine::AccessPoint other = accessPoints.back();
    other.bssid = {2,
                   0,
                   0,
                   static_cast<std::uint8_t>(item >> 16),
                   static_cast<std::uint8_t>(item >> 8),
                   static_cast<std::uint8_t>(item)};
    accessPoints.insert(accessPoints.end() - 1,
                        std::move(other)); // after all others: the one that is joined
}

void AddPeer(Profile& profile, std::size_t item) {
    profile.bluetooth.radios.front().devices.push_back({"peer" + std::to_string(item), 0x240404, true});
}

void AddDeviceNode(Profile& profile, std::size_t item) {
    profile.deviceNodes.push_back({Numbered("ROOT\\OTHER\\", item), true, u"Another device", std::nullopt});
}

Profile WithRegisters(std::size_t items) {
    Profile profile = machine::LoadProfile("default");
    profile.acpi.registerCount = static_cast<std::uint32_t>(items);
    return profile;
}

template <class Record>
std::function<void()> Snapshot(void (*read)(Record&)) {
    return [read] {
        Record record;
        read(record);
        benchmark::DoNotOptimize(record);
    };
}

/// A document into a host's buffer that is large enough for any of them.
std::function<void()> Document(void (*read)(VeskChar16*)) {
    return [read] {
        static std::vector<VeskChar16> Out(1 << 25);
        read(Out.data());
    };
}

} // namespace

std::vector<Case> ListCases() {
    const auto applications = With(AddApplication);
    const auto processes = With(AddProcessRow);
    return {
        {"event document, registers", WithRegisters, Document(GetEEPROM_Data)},
        {"WMI text join, rows", processes,
         [] {
             benchmark::DoNotOptimize(sondrel::ReadWMIPropStr(
                 u"ROOT\\CIMV2", u"SELECT * FROM Win32_PerfFormattedData_PerfProc_Process", u"Name", 1));
         },
         1.2},
        {"process list, processes", processes, Document(AppList_CpuUsage), 1.2},
        {"uninstall walk, applications", applications, Document(GetApplist_x64), 1.5},
        {"application names, applications", applications, Document(App_Get_Win32App)},
        {"package document, packages", With(AddPackage), Document(GetApplist_UWP)},
        {"window walk, windows", With(AddWindow), Document(AppList_OpenWindows)},
        {"driver version, devices", With(AddDeviceNode), Document(GetInfVersion)},
        {"Wi-Fi snapshot, access points", With(AddAccessPoint), Snapshot(sondrel::RF_ReadWifi_Info)},
        {"Bluetooth snapshot, devices", With(AddPeer), Snapshot(sondrel::RF_ReadBT_Info)},
    };
}

} // namespace bench
