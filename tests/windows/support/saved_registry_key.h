// A registry key at a test's disposal.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace test {

/// Where the library keeps the EC identity and the app paths, below HKEY_LOCAL_MACHINE.
inline constexpr const wchar_t* ProductKey = L"SOFTWARE\\Vesk\\Vesk Kelvane\\VeskTessaly";

struct RegistryValue {
    DWORD type = REG_NONE;
    std::vector<std::uint8_t> data;

    friend bool operator==(const RegistryValue&, const RegistryValue&) = default;
};

RegistryValue DwordValue(std::uint32_t number);
RegistryValue TextValue(const std::wstring& text, DWORD type = REG_SZ);

/// Sets one key aside, with everything below it, and restores it when destroyed. In between it
/// belongs to the test, which finds it missing at first. What fails throws std::runtime_error.
class SavedRegistryKey {
public:
    explicit SavedRegistryKey(std::wstring key = ProductKey, HKEY root = HKEY_LOCAL_MACHINE);
    ~SavedRegistryKey();
    SavedRegistryKey(const SavedRegistryKey&) = delete;
    SavedRegistryKey& operator=(const SavedRegistryKey&) = delete;

    /// Sets a value of the key, or of a subkey of it; the key is made where it is missing.
    void Set(const std::wstring& name, const RegistryValue& value, const std::wstring& subKey = {});
    [[nodiscard]] std::optional<RegistryValue> Get(const std::wstring& name,
                                                   const std::wstring& subKey = {}) const;

private:
    void DeleteKey();
    [[nodiscard]] std::wstring PathOf(const std::wstring& subKey) const;

    HKEY m_root;
    std::wstring m_key;
    std::wstring m_savedKey; // empty: there was no key
};

} // namespace test
