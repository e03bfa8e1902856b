#include "apps/installed_apps.h"

#include "apps/registry_strings.h"
#include "frame/diagnostics.h"
#include "frame/host_buffer.h"
#include "frame/text.h"
#include "vesk_sondrel.h"

#include <algorithm>
#include <span>

namespace sondrel {
namespace {

constexpr const char16_t* NativeUninstallKey = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall";
constexpr const char16_t* Wow64UninstallKey =
    u"SOFTWARE\\WOW6432Node\\Microsoft\\Windows\\CurrentVersion\\Uninstall";

constexpr std::u16string_view NoApplications = u"[{\"machine\":[]},{\"user\":[]}]";

/// The differences between the two walkers.
struct HiveWalker {
    platform::Key hive;
    std::u16string_view head;
};

constexpr HiveWalker MachineWalker{platform::Key::LocalMachine, u"{\"machine\":["};
constexpr HiveWalker UserWalker{platform::Key::CurrentUser, u"{\"user\":["};

/// The path of an application's key. A path that is too long is cut, and no such key exists.
std::u16string ApplicationPath(std::u16string_view keyPath, std::u16string_view subkey) {
    constexpr std::size_t PathSize = 1024;
    std::u16string path(keyPath);
    path += u'\\';
    path += subkey;
    path.resize(std::min(path.size(), PathSize - 1));
    return path;
}

/// Whether "SystemComponent" can be read into 32 bits and is not 0. The type is not checked: the bytes of a
/// string of one character are a number too.
bool IsSystemComponent(platform::Key application) {
    std::uint32_t number = 0;
    std::uint32_t type = 0;
    std::uint32_t size = sizeof number;
    return platform::RegQueryValueExW(application, u"SystemComponent", type,
                                      std::as_writable_bytes(std::span(&number, 1)).data(),
                                      size) == platform::error::Success &&
           number != 0;
}

/// The record of one application; empty if it has no name or is a system component.
std::u16string ApplicationRecord(platform::Key application) {
    std::optional<std::u16string> name = ValueString(application, u"DisplayName");
    if (!name || IsSystemComponent(application)) {
        return {};
    }
    std::u16string record = u"{\"name\":\"" + CleanJsonText(std::move(*name)) + u"\",\"version\":\"";
    if (std::optional<std::u16string> version = ValueString(application, u"DisplayVersion")) {
        record += CleanJsonText(std::move(*version));
    }
    return record + u"\"}";
}

std::u16string WalkHive(const HiveWalker& walker, const char16_t* keyPath) {
    std::u16string document(walker.head);
    if (const platform::OwnedKey uninstall = OpenForReading(walker.hive, keyPath)) {
        for (std::uint32_t index = 0; const auto subkey = SubkeyName(uninstall.Get(), index); ++index) {
            const platform::OwnedKey application =
                OpenForReading(walker.hive, ApplicationPath(keyPath, *subkey).c_str());
            if (!application) {
                break; // ends the walk, even if there are more subkeys
            }
            const std::u16string record = ApplicationRecord(application.Get());
            if (!record.empty() && document.size() > walker.head.size()) {
                document += u',';
            }
            document += record;
        }
    }
    document += u"]}";
    return document;
}

std::u16string ApplicationList(const char16_t* keyPath) {
    std::u16string list = u'[' + GetApplist_Machine(keyPath);
    list += u',';
    list += GetApplist_User(keyPath);
    list += u']';
    return list;
}

} // namespace

std::u16string CleanJsonText(std::u16string text) {
    std::string narrow = WideToUtf8(std::move(text));
    std::erase(narrow, '"');
    return Utf8ToWide(std::move(narrow));
}

std::u16string GetApplist_Machine(const char16_t* keyPath) {
    return WalkHive(MachineWalker, keyPath);
}

std::u16string GetApplist_User(const char16_t* keyPath) {
    return WalkHive(UserWalker, keyPath);
}

} // namespace sondrel

using namespace sondrel;

void GetApplist_x64(VeskChar16* out) {
    TraceLine("GetApplist_x64 Start");
    AnswerWith(
        out, [] { return ApplicationList(NativeUninstallKey); }, NoApplications);
    TraceLine("GetApplist_x64 End");
}

void GetApplist_x86(VeskChar16* out) {
    TraceLine("GetApplist_x86 Start");
    AnswerWith(
        out, [] { return ApplicationList(Wow64UninstallKey); }, NoApplications);
}
