#include "saved_registry_key.h"

#include <stdexcept>

namespace test {
namespace {

void Check(LSTATUS status, const char* step) {
    if (status != ERROR_SUCCESS) {
        throw std::runtime_error(std::string(step) + " failed with error " + std::to_string(status));
    }
}

class OpenedKey {
public:
    /// An existing key, or none.
    OpenedKey(HKEY root, const std::wstring& path) {
        if (::RegOpenKeyExW(root, path.c_str(), 0, KEY_ALL_ACCESS, &m_key) != ERROR_SUCCESS) {
            m_key = nullptr;
        }
    }

    ~OpenedKey() {
        if (m_key != nullptr) {
            ::RegCloseKey(m_key);
        }
    }

    OpenedKey(const OpenedKey&) = delete;
    OpenedKey& operator=(const OpenedKey&) = delete;

    static OpenedKey Make(HKEY root, const std::wstring& path) {
        HKEY key = nullptr;
        Check(::RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
              "RegCreateKeyExW");
        return OpenedKey(key);
    }

    [[nodiscard]] HKEY Get() const { return m_key; }

    explicit operator bool() const { return m_key != nullptr; }

private:
    explicit OpenedKey(HKEY key) : m_key(key) {}

    HKEY m_key = nullptr;
};

} // namespace

RegistryValue DwordValue(std::uint32_t number) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(&number);
    return {REG_DWORD, {bytes, bytes + sizeof number}};
}

RegistryValue TextValue(const std::wstring& text, DWORD type) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.c_str());
    return {type, {bytes, bytes + (text.size() + 1) * sizeof(wchar_t)}};
}

SavedRegistryKey::SavedRegistryKey(std::wstring key, HKEY root) : m_root(root), m_key(std::move(key)) {
    const OpenedKey present(m_root, m_key);
    if (present) {
        m_savedKey = m_key + L" (saved by a test)";
        const OpenedKey saved = OpenedKey::Make(m_root, m_savedKey);
        Check(::RegCopyTreeW(present.Get(), nullptr, saved.Get()), "RegCopyTreeW");
    }
    DeleteKey();
}

SavedRegistryKey::~SavedRegistryKey() {
    DeleteKey();
    if (!m_savedKey.empty()) {
        const OpenedKey saved(m_root, m_savedKey);
        ::RegCopyTreeW(saved.Get(), nullptr, OpenedKey::Make(m_root, m_key).Get());
        ::RegDeleteTreeW(m_root, m_savedKey.c_str());
    }
}

void SavedRegistryKey::Set(const std::wstring& name, const RegistryValue& value, const std::wstring& subKey) {
    const OpenedKey key = OpenedKey::Make(m_root, PathOf(subKey));
    Check(::RegSetValueExW(key.Get(), name.c_str(), 0, value.type, value.data.data(),
                           static_cast<DWORD>(value.data.size())),
          "RegSetValueExW");
}

std::optional<RegistryValue> SavedRegistryKey::Get(const std::wstring& name,
                                                   const std::wstring& subKey) const {
    const OpenedKey key(m_root, PathOf(subKey));
    RegistryValue value;
    DWORD size = 0;
    if (!key ||
        ::RegQueryValueExW(key.Get(), name.c_str(), nullptr, &value.type, nullptr, &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    value.data.resize(size);
    Check(::RegQueryValueExW(key.Get(), name.c_str(), nullptr, &value.type, value.data.data(), &size),
          "RegQueryValueExW");
    return value;
}

void SavedRegistryKey::DeleteKey() {
    ::RegDeleteTreeW(m_root, m_key.c_str());
}

std::wstring SavedRegistryKey::PathOf(const std::wstring& subKey) const {
    return subKey.empty() ? m_key : m_key + L'\\' + subKey;
}

} // namespace test
