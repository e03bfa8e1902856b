#include "wine_state.h"

#include "machine/profile/profile.h"
#include "unicode/utf.h"

#include <fstream>
#include <stdexcept>

namespace comparison {
namespace {

namespace fs = std::filesystem;

/// Keys that belong to the machine as a whole: what Wine has there is not the machine's.
const std::wstring WholeKeys[] = {
    std::wstring(L"HKLM\\") + test::ProductKey,
    L"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall",
    L"HKLM\\SOFTWARE\\WOW6432Node\\Microsoft\\Windows\\CurrentVersion\\Uninstall",
    L"HKCU\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall",
    L"HKCU\\SOFTWARE\\WOW6432Node\\Microsoft\\Windows\\CurrentVersion\\Uninstall",
    L"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Appx\\AppxAllUserStore\\Applications",
};

struct Place {
    HKEY hive;
    std::wstring path;
};

Place PlaceOf(const std::wstring& key) {
    constexpr std::size_t HiveLength = 5; // with the separator
    return {key.starts_with(L"HKCU") ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE, key.substr(HiveLength)};
}

void MakeKey(const std::wstring& key) {
    const Place place = PlaceOf(key);
    HKEY made = nullptr;
    if (::RegCreateKeyExW(place.hive, place.path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &made,
                          nullptr) != ERROR_SUCCESS) {
        throw std::runtime_error("a key of the machine's registry cannot be made");
    }
    ::RegCloseKey(made);
}

void SetValue(const machine::RegistryValue& value) {
    const Place place = PlaceOf(std::wstring(value.key.begin(), value.key.end()));
    const std::wstring name(value.name.begin(), value.name.end());
    if (::RegSetKeyValueW(place.hive, place.path.c_str(), name.c_str(), value.type, value.data.data(),
                          static_cast<DWORD>(value.data.size())) != ERROR_SUCCESS) {
        throw std::runtime_error("a value of the machine's registry cannot be set");
    }
}

bool IsBelow(const std::wstring& key, const std::wstring& whole) {
    return key.size() >= whole.size() &&
           ::CompareStringOrdinal(key.data(), static_cast<int>(whole.size()), whole.data(),
                                  static_cast<int>(whole.size()), TRUE) == CSTR_EQUAL &&
           (key.size() == whole.size() || key[whole.size()] == L'\\');
}

} // namespace

WineState::WineState(const machine::Profile& profile) {
    if (!profile.registry.readOnly.empty() || !profile.files.locked.empty()) {
        throw std::runtime_error("Wine has neither read-only keys nor files that another process has locked");
    }
    for (const std::wstring& key : WholeKeys) {
        m_keys.emplace_back(PlaceOf(key).path, PlaceOf(key).hive);
        m_replacedKeys.push_back(key);
    }
    for (const std::u16string& key : profile.registry.keys) {
        AddKey(key);
    }
    for (const machine::RegistryValue& value : profile.registry.values) {
        AddKey(value.key);
        SetValue(value);
    }
    for (const std::u16string& directory : profile.files.directories) {
        AddDirectory(directory);
    }
    for (const machine::FileProfile& file : profile.files.files) {
        AddFile(file.path, file.text);
    }
    for (const machine::PackageProfile& package : profile.packages.all) {
        if (package.installed && package.manifest && !package.folder.empty()) {
            AddFile(fs::path(package.folder) / L"AppxManifest.xml", unicode::Utf8FromWide(*package.manifest));
        }
    }
}

WineState::~WineState() {
    std::error_code ignored;
    for (const fs::path& path : m_made) {
        fs::remove_all(path, ignored);
    }
}

void WineState::Undo(const machine::Profile& profile) {
    ::RegDeleteTreeW(HKEY_LOCAL_MACHINE, test::ProductKey);
    for (const machine::RegistryValue& value : profile.registry.values) {
        if (IsBelow(std::wstring(value.key.begin(), value.key.end()),
                    std::wstring(L"HKLM\\") + test::ProductKey)) {
            SetValue(value);
        }
    }
    for (const fs::path directory : profile.files.directories) {
        for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
            fs::remove_all(entry.path());
        }
    }
    for (const machine::FileProfile& file : profile.files.files) {
        AddFile(file.path, file.text);
    }
}

void WineState::AddKey(const std::u16string& path) {
    const std::wstring key(path.begin(), path.end());
    for (const std::wstring& whole : m_replacedKeys) {
        if (IsBelow(key, whole)) {
            MakeKey(key);
            return;
        }
    }
    m_keys.emplace_back(PlaceOf(key).path, PlaceOf(key).hive);
    m_replacedKeys.push_back(key);
    MakeKey(key);
}

/// What has to be made for it is taken away again, from the first directory on that was not there.
void WineState::AddDirectory(const fs::path& path) {
    fs::path first = path;
    while (first.has_parent_path() && !fs::exists(first.parent_path())) {
        first = first.parent_path();
    }
    if (!fs::exists(first)) {
        m_made.push_back(first);
    }
    fs::create_directories(path);
}

void WineState::AddFile(const fs::path& path, const std::string& text) {
    AddDirectory(path.parent_path());
    if (!fs::exists(path)) {
        m_made.push_back(path);
    }
    std::ofstream(path, std::ios::binary) << text;
}

} // namespace comparison
