#include "apps/registry_texts.h"

#include <array>
#include <span>

namespace sondrel {

std::optional<std::u16string> SubkeyName(platform::Key key, std::uint32_t index, std::uint32_t room) {
    std::array<char16_t, SubkeyNameRoom> name;
    std::uint32_t length = room;
    if (platform::RegEnumKeyExW(key, index, name.data(), length) != platform::error::Success) {
        return std::nullopt;
    }
    return std::u16string(name.data(), length);
}

std::optional<std::u16string> ValueText(platform::Key key, const char16_t* name, std::uint32_t room) {
    // Zeros behind what comes end a text that brings no terminator of its own.
    std::array<char16_t, ValueTextRoom> text{};
    std::uint32_t type = 0;
    auto size = static_cast<std::uint32_t>(room * sizeof(char16_t));
    if (platform::RegQueryValueExW(key, name, type, std::as_writable_bytes(std::span(text)).data(), size) !=
            platform::error::Success ||
        text[room - 1] != u'\0') {
        return std::nullopt;
    }
    return text.data();
}

} // namespace sondrel
