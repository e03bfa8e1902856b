#include "apps/registry_strings.h"

#include <array>
#include <span>
#include <string_view>

namespace sondrel {

platform::OwnedKey OpenForReading(platform::Key root, const char16_t* path) {
    platform::OwnedKey key;
    platform::RegOpenKeyExW(root, path, platform::access::KeyRead, key.Receive());
    return key;
}

std::optional<std::u16string> SubkeyName(platform::Key key, std::uint32_t index, std::uint32_t size) {
    std::array<char16_t, SubkeyNameSize> name;
    std::uint32_t length = size;
    if (platform::RegEnumKeyExW(key, index, name.data(), length) != platform::error::Success) {
        return std::nullopt;
    }
    const std::u16string_view whole(name.data(), length);
    return std::u16string(whole.substr(0, whole.find(u'\0')));
}

std::optional<std::u16string> ValueString(platform::Key key, const char16_t* name, std::uint32_t size) {
    // Zero-filled, so that a string without a terminator ends too.
    std::array<char16_t, ValueStringSize> text{};
    std::uint32_t type = 0;
    auto byteCount = static_cast<std::uint32_t>(size * sizeof(char16_t));
    if (platform::RegQueryValueExW(key, name, type, std::as_writable_bytes(std::span(text)).data(),
                                   byteCount) != platform::error::Success) {
        return std::nullopt;
    }
    const std::u16string_view taken(text.data(), size);
    const std::size_t end = taken.find(u'\0');
    return end != std::u16string_view::npos ? std::optional(std::u16string(taken.substr(0, end)))
                                            : std::nullopt;
}

} // namespace sondrel
