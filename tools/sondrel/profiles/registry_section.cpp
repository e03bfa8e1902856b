#include "base/text.h"
#include "profiles/sections.h"

#include <algorithm>
#include <span>

namespace tool {
namespace {

using observer::Bytes;
using observer::Operation;
using observer::RecordedCall;
using observer::RecordedExport;

constexpr std::u16string_view PackageStore =
    u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Appx\\AppxAllUserStore\\Applications\\";

struct UninstallList {
    const char* name;
    std::u16string_view key;
};

constexpr UninstallList UninstallLists[] = {
    {"machine", u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"},
    {"machine_32", u"HKLM\\SOFTWARE\\WOW6432Node\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"},
    {"user", u"HKCU\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"},
    {"user_32", u"HKCU\\SOFTWARE\\WOW6432Node\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"},
};

constexpr std::uint32_t StringType = 1;
constexpr std::uint32_t ExpandStringType = 2;
constexpr std::uint32_t BinaryType = 3;
constexpr std::uint32_t NumberType = 4;
constexpr std::uint32_t StringsType = 7;

struct RegistryValue {
    std::u16string name;
    std::uint32_t type = 0;
    Bytes data;
};

struct RegistryKey {
    std::u16string path;
    std::map<std::u16string, RegistryValue> values; // by the name in lower case
};

/// The string of a value that is stored as a writer with care does it: with one terminator.
std::optional<std::string> PlainString(const RegistryValue& value) {
    if (value.data.size() < 2 || value.data.size() % 2 != 0) {
        return std::nullopt;
    }
    std::u16string text;
    for (std::size_t place = 0; place < value.data.size(); place += 2) {
        text += static_cast<char16_t>(WordAt(value.data, place) & 0xFFFF);
    }
    return text.find(u'\0') == text.size() - 1 ? Utf8Of(text.substr(0, text.size() - 1)) : std::nullopt;
}

/// What the registry held before the library wrote to it.
class Hives {
public:
    void Add(const RecordedExport& recorded, LeftOut& leftOut) {
        m_open.clear();
        for (const RecordedCall& call : recorded.calls) {
            AddCall(recorded, call, leftOut);
        }
    }

    [[nodiscard]] const std::map<std::u16string, RegistryKey>& Keys() const { return m_keys; }

private:
    void AddCall(const RecordedExport& recorded, const RecordedCall& call, LeftOut& leftOut) {
        const bool succeeded = !HasFailed(call);
        const std::u16string key = m_open[HandleIn(call.inputs, "key")];
        switch (call.operation) {
        case Operation::RegOpenKeyExW:
        case Operation::RegCreateKeyExW:
            if (const std::u16string path = PathOf(call); succeeded && !path.empty()) {
                m_open[HandleIn(call.outputs, "key")] = path;
                AddKey(path, call.operation == Operation::RegCreateKeyExW);
            }
            break;
        case Operation::RegEnumKeyExW:
            if (succeeded && !key.empty()) {
                AddKey(key + u'\\' + StringIn(call.outputs, "name"), false);
            }
            break;
        case Operation::RegSetValueExW:
            m_written.insert(Lower(key + u'\\' + StringIn(call.inputs, "name")));
            break;
        case Operation::RegQueryValueExW:
            if (const auto* const data = Held<Bytes>(call.outputs, "data");
                succeeded && data != nullptr && !key.empty()) {
                AddValue(recorded, key,
                         {StringIn(call.inputs, "name"),
                          static_cast<std::uint32_t>(NumberIn(call.outputs, "type")), *data},
                         leftOut);
            }
            break;
        default:
            break;
        }
    }

    /// Empty for a key below one that an earlier export call opened.
    [[nodiscard]] std::u16string PathOf(const RecordedCall& call) {
        const auto* const root = Held<observer::HandleName>(call.inputs, "root");
        std::u16string path = StringIn(call.inputs, "path");
        while (path.ends_with(u'\\')) {
            path.pop_back();
        }
        if (root == nullptr) {
            return {};
        }
        const std::u16string above = root->number != 0
                                         ? m_open[root->number]
                                         : std::u16string(root->predefined.begin(), root->predefined.end());
        return above.empty() ? std::u16string() : above + u'\\' + path;
    }

    void AddKey(const std::u16string& path, bool created) {
        const std::u16string place = Lower(path);
        if (created) {
            m_written.insert(place);
        } else if (!m_written.contains(place)) {
            m_keys[place].path = path;
        }
    }

    void AddValue(const RecordedExport& recorded, const std::u16string& path, RegistryValue value,
                  LeftOut& leftOut) {
        const std::u16string name = Lower(value.name);
        if (m_written.contains(Lower(path + u'\\' + value.name))) {
            return;
        }
        RegistryKey& key = m_keys[Lower(path)];
        key.path = path;
        const auto& [known, isNew] = key.values.emplace(name, value);
        if (!isNew && (known->second.type != value.type || known->second.data != value.data)) {
            leftOut.Add(recorded.name, "a registry value was another one before");
        }
    }

    std::map<std::uint32_t, std::u16string> m_open; // within the export call
    std::map<std::u16string, RegistryKey> m_keys;   // by the path in lower case
    std::set<std::u16string> m_written;             // by the library, in lower case
};

/// Nothing for a key that holds more than an application's usual values.
std::optional<ProfileJson> ApplicationOf(const RegistryKey& key, std::size_t prefix) {
    const std::optional<std::string> own = Utf8Of(key.path.substr(prefix));
    if (!own || own->find('\\') != std::string::npos) {
        return std::nullopt;
    }
    ProfileJson application{{"key", *own}};
    for (const auto& [name, value] : key.values) {
        const std::optional<std::string> text = PlainString(value);
        if (name == u"displayname" && value.type == StringType && text) {
            application["name"] = *text;
        } else if (name == u"displayversion" && value.type == StringType && text) {
            application["version"] = *text;
        } else if (name == u"systemcomponent" && value.type == NumberType && value.data.size() == 4) {
            application["system_component"] = WordAt(value.data, 0);
        } else {
            return std::nullopt;
        }
    }
    return application;
}

/// Nothing for a type or a name that a profile has not.
std::optional<ProfileJson> ValueOf(const RegistryKey& key, const RegistryValue& value) {
    constexpr std::pair<std::uint32_t, const char*> Types[] = {{StringType, "REG_SZ"},
                                                               {ExpandStringType, "REG_EXPAND_SZ"},
                                                               {BinaryType, "REG_BINARY"},
                                                               {NumberType, "REG_DWORD"},
                                                               {StringsType, "REG_MULTI_SZ"}};
    const auto* const type =
        std::ranges::find(Types, value.type, &std::pair<std::uint32_t, const char*>::first);
    const std::optional<std::string> path = Utf8Of(key.path);
    const std::optional<std::string> name = Utf8Of(value.name);
    if (type == std::end(Types) || !path || !name) {
        return std::nullopt;
    }
    ProfileJson made{{"key", *path}, {"name", *name}, {"type", type->second}};
    const std::optional<std::string> text =
        value.type == StringType || value.type == ExpandStringType ? PlainString(value) : std::nullopt;
    if (text) {
        made["data"] = *text;
    } else if (value.type == NumberType && value.data.size() == 4) {
        made["data"] = WordAt(value.data, 0);
    } else {
        made["data"] = {{"bytes", HexOf(value.data)}};
    }
    return made;
}

/// The list of applications that the key belongs to, or null.
const UninstallList* ListOf(const RegistryKey& key) {
    const auto* const list = std::ranges::find_if(UninstallLists, [&](const UninstallList& each) {
        return Lower(key.path).starts_with(Lower(each.key));
    });
    return list == std::end(UninstallLists) ? nullptr : list;
}

void AddKey(const RegistryKey& key, ProfileJson& profile, LeftOut& leftOut) {
    if (const UninstallList* const list = ListOf(key); list != nullptr) {
        if (std::optional<ProfileJson> application = ApplicationOf(key, list->key.size())) {
            profile["applications"][list->name].push_back(*std::move(application));
            return;
        }
    }
    for (const auto& [name, value] : key.values) {
        if (std::optional<ProfileJson> made = ValueOf(key, value)) {
            profile["registry"]["values"].push_back(*std::move(made));
        } else {
            leftOut.Add("registry", "values of types or with names that a profile has not");
        }
    }
    if (const std::optional<std::string> path = Utf8Of(key.path); key.values.empty() && path) {
        profile["registry"]["keys"].push_back(*path);
    }
}

} // namespace

std::vector<std::u16string> AddRegistry(const RecordedExports& exports, ProfileJson& profile,
                                        LeftOut& leftOut) {
    Hives hives;
    for (const RecordedExport& recorded : exports) {
        hives.Add(recorded, leftOut);
    }
    std::vector<std::u16string> packages;
    for (const auto& [place, key] : hives.Keys()) {
        if (place.starts_with(Lower(PackageStore)) && key.values.empty()) {
            packages.push_back(key.path.substr(PackageStore.size()));
        } else {
            AddKey(key, profile, leftOut);
        }
    }
    return packages;
}

} // namespace tool
