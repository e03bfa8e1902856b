#include "frame/registry_store.h"

#include "frame/text.h"

#include <algorithm>
#include <array>
#include <span>

namespace sondrel {
namespace {

/// Reads one value of the wanted type into `buffer`. False on failure.
bool ReadValue(platform::Key root, const std::u16string& subKey, const std::u16string& valueName,
               std::uint32_t wantedType, std::span<std::byte> buffer) {
    platform::OwnedKey key;
    if (platform::RegOpenKeyExW(root, subKey.c_str(), platform::access::KeyRead, key.Receive()) !=
        platform::error::Success) {
        return false;
    }
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    if (platform::RegQueryValueExW(key.Get(), valueName.c_str(), type, nullptr, size) !=
            platform::error::Success ||
        type != wantedType) {
        return false;
    }
    size = static_cast<std::uint32_t>(buffer.size());
    return platform::RegQueryValueExW(key.Get(), valueName.c_str(), type, buffer.data(), size) ==
           platform::error::Success;
}

bool WriteValue(platform::Key root, const std::u16string& subKey, const std::u16string& valueName,
                std::uint32_t type, std::span<const std::byte> data) {
    platform::OwnedKey key;
    if (platform::RegOpenKeyExW(root, subKey.c_str(), platform::access::KeyWrite, key.Receive()) !=
            platform::error::Success &&
        platform::RegCreateKeyExW(root, subKey.c_str(), platform::access::KeyAll, key.Receive()) !=
            platform::error::Success) {
        return false;
    }
    return platform::RegSetValueExW(key.Get(), valueName.c_str(), type, data) == platform::error::Success;
}

} // namespace

bool IsRegistrySentinel(std::u16string_view text) {
    return EqualIgnoringCase(text, RegistrySentinel);
}

std::u16string ReadRegDword(platform::Key root, std::u16string subKey, std::u16string valueName) {
    std::uint32_t value = 0;
    if (!ReadValue(root, subKey, valueName, platform::value_type::Dword,
                   std::as_writable_bytes(std::span(&value, 1)))) {
        return std::u16string(RegistrySentinel);
    }
    return DecimalText(value);
}

std::u16string ReadRegString(platform::Key root, std::u16string subKey, std::u16string valueName) {
    std::array<char16_t, 256> text{};
    if (!ReadValue(root, subKey, valueName, platform::value_type::String,
                   std::as_writable_bytes(std::span(text)))) {
        return std::u16string(RegistrySentinel);
    }
    const auto end = std::ranges::find(text, u'\0');
    if (end == text.end()) {
        return std::u16string(RegistrySentinel);
    }
    return {text.begin(), end};
}

bool WriteRegDword(platform::Key root, std::u16string subKey, std::u16string valueName, std::uint32_t value) {
    return WriteValue(root, subKey, valueName, platform::value_type::Dword,
                      std::as_bytes(std::span(&value, 1)));
}

bool WriteRegString(platform::Key root, std::u16string subKey, std::u16string valueName,
                    std::u16string text) {
    return WriteValue(root, subKey, valueName, platform::value_type::String,
                      std::as_bytes(std::span(text.c_str(), text.size() + 1)));
}

} // namespace sondrel
