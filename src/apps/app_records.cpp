#include "apps/app_records.h"

#include "apps/registry_strings.h"
#include "frame/host_buffer.h"
#include "frame/registry_store.h"
#include "vesk_sondrel.h"

namespace sondrel {
namespace {

// With a trailing separator: a subkey's name is appended.
constexpr const char16_t* PackageStorePath =
    u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Appx\\AppxAllUserStore\\Applications\\";
constexpr const char16_t* NativeUninstallPath = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\";
constexpr const char16_t* Wow64UninstallPath =
    u"SOFTWARE\\WOW6432Node\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\";

std::vector<std::u16string> SubkeyNamesAt(const char16_t* keyPath) {
    std::vector<std::u16string> names;
    if (const platform::OwnedKey key = OpenForReading(platform::Key::LocalMachine, keyPath)) {
        EnumSubkeyNames(key.Get(), names);
    }
    return names;
}

std::u16string PackageNames() {
    std::u16string list;
    for (const std::u16string& fullName : SubkeyNamesAt(PackageStorePath)) {
        list.append(fullName, 0, fullName.find(u'_'));
        list += u';';
    }
    return list;
}

std::u16string ApplicationNames(const char16_t* keyPath) {
    std::u16string list;
    for (const std::u16string& subkey : SubkeyNamesAt(keyPath)) {
        const std::u16string path = keyPath + subkey;
        // Any number marks a component of the system here, also 0.
        if (!IsRegistrySentinel(ReadRegDword(platform::Key::LocalMachine, path, u"SystemComponent"))) {
            continue;
        }
        const std::u16string name = ReadRegString(platform::Key::LocalMachine, path, u"DisplayName");
        if (!IsRegistrySentinel(name)) {
            list += name;
            list += u';';
        }
    }
    return list;
}

} // namespace

void EnumSubkeyNames(platform::Key key, std::vector<std::u16string>& names) {
    constexpr std::uint32_t NameSize = 255;
    std::uint32_t count = 0;
    platform::RegQueryInfoKeyW(key, count);
    for (std::uint32_t index = 0; index < count; ++index) {
        if (auto name = SubkeyName(key, index, NameSize)) {
            names.push_back(std::move(*name));
        }
    }
}

} // namespace sondrel

using namespace sondrel;

void App_Get_UWPApp(VeskChar16* out) {
    AnswerWith(out, PackageNames);
}

void App_Get_Win32App(VeskChar16* out) {
    AnswerWith(out, [] { return ApplicationNames(NativeUninstallPath); });
}

void App_Get_Win32WOW6432App(VeskChar16* out) {
    AnswerWith(out, [] { return ApplicationNames(Wow64UninstallPath); });
}
