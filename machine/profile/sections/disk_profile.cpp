#include "machine/profile/sections/disk_profile.h"

#include "machine/profile/profile_reader.h"
#include "platform/registry.h"

#include <nlohmann/json.hpp>

#include <span>

namespace machine {
namespace {

namespace value_type = platform::value_type;

const StringRule RegistryKey{R"(a key that begins with "HKLM\" or "HKCU\")", [](const std::string& path) {
                                 return path.starts_with("HKLM\\") || path.starts_with("HKCU\\");
                             }};

bool IsLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

/// Nothing but a drive's letter comes first. Where the rest leads is the file system's concern.
const StringRule DrivePath{R"(a path that begins with a drive, as in "C:\...", without zero characters)",
                           [](const std::string& path) {
                               return !path.empty() && IsLetter(path[0]) && path.compare(1, 2, ":\\") == 0 &&
                                      path.find('\0') == std::string::npos;
                           }};

/// As the registry stores a string: UTF-16 with a terminator.
std::vector<std::byte> StringData(const std::u16string& text) {
    const auto bytes = std::as_bytes(std::span(text.c_str(), text.size() + 1));
    return {bytes.begin(), bytes.end()};
}

std::vector<std::byte> NumberData(std::uint32_t number) {
    const auto bytes = std::as_bytes(std::span(&number, 1));
    return {bytes.begin(), bytes.end()};
}

/// A value's data in the form that its type has in a profile: a string, a number, a list of strings or bytes.
void ReadData(ProfileReader& reader, RegistryValue& value) {
    constexpr Presence Required = Presence::Required;
    const auto* data = reader.Value("data", "the value's data");
    if (data != nullptr && data->is_object()) {
        // {"bytes": "..."}: what a careless writer left there, whatever the type.
        reader.Object("data", [&](ProfileReader& raw) { raw.Bytes("bytes", value.data, Required); });
    } else if (value.type == value_type::Dword) {
        std::uint32_t number = 0;
        reader.Number("data", number, Required);
        value.data = NumberData(number);
    } else if (value.type == value_type::MultiString) {
        std::vector<std::u16string> texts;
        std::u16string all;
        reader.Strings("data", texts, Required);
        for (const std::u16string& text : texts) {
            all += text + u'\0';
        }
        value.data = StringData(all);
    } else if (value.type == value_type::Binary) {
        reader.Bytes("data", value.data, Required);
    } else {
        std::u16string text;
        reader.String("data", text, Required);
        value.data = StringData(text);
    }
}

void ReadValue(ProfileReader& reader, RegistryValue& value) {
    constexpr std::uint32_t Types[] = {value_type::String, value_type::ExpandString, value_type::Binary,
                                       value_type::Dword, value_type::MultiString};
    std::size_t type = 0;
    reader.String("key", value.key, Presence::Required, RegistryKey);
    reader.String("name", value.name, Presence::Required);
    reader.Choice("type", {"REG_SZ", "REG_EXPAND_SZ", "REG_BINARY", "REG_DWORD", "REG_MULTI_SZ"}, type);
    value.type = Types[type];
    ReadData(reader, value);
}

void ReadFile(ProfileReader& reader, FileProfile& file) {
    reader.String("path", file.path, Presence::Required, DrivePath);
    reader.String("text", file.text, Presence::Required);
}

} // namespace

void RegistryProfile::AddString(std::u16string key, std::u16string name, const std::u16string& text) {
    values.push_back({std::move(key), std::move(name), value_type::String, StringData(text)});
}

void RegistryProfile::AddNumber(std::u16string key, std::u16string name, std::uint32_t number) {
    values.push_back({std::move(key), std::move(name), value_type::Dword, NumberData(number)});
}

void ReadRegistry(ProfileReader& reader, RegistryProfile& registry) {
    reader.Strings("keys", registry.keys, Presence::Optional, RegistryKey);
    reader.Objects("values", registry.values, ReadValue);
    reader.Strings("read_only", registry.readOnly, Presence::Optional, RegistryKey);
}

void ReadFiles(ProfileReader& reader, FilesProfile& files) {
    reader.Strings("directories", files.directories, Presence::Optional, DrivePath);
    reader.Objects("files", files.files, ReadFile);
    reader.Strings("locked", files.locked, Presence::Optional, DrivePath);
}

} // namespace machine
