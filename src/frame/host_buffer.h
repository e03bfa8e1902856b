// The host's buffers. The library is not given their size.
#pragma once

#include <algorithm>
#include <exception>
#include <string>
#include <string_view>

namespace sondrel {

/// A UTF-16 character as the host declares it, whose name depends on the platform.
template <class Character>
concept HostChar16 = sizeof(Character) == sizeof(char16_t);

/// Copies the whole string and its terminator.
template <HostChar16 Character>
void CopyToHost(std::u16string_view text, Character* out) {
    out = std::transform(text.begin(), text.end(), out,
                         [](char16_t unit) { return static_cast<Character>(unit); });
    *out = Character{};
}

inline void CopyToHost(std::string_view text, char* out) {
    *std::copy(text.begin(), text.end(), out) = '\0';
}

/// Copies the string that `make` returns, or `failure` when memory runs out.
template <HostChar16 Character, class Make>
void AnswerWith(Character* out, Make make, std::u16string_view failure = u"") noexcept {
    try {
        CopyToHost(make(), out);
    } catch (const std::exception&) {
        CopyToHost(failure, out);
    }
}

/// The host's string up to its terminator. A null pointer is the empty string.
template <HostChar16 Character>
std::u16string TextFromHost(const Character* text) {
    std::u16string copy;
    for (; text != nullptr && *text != Character{}; ++text) {
        copy.push_back(static_cast<char16_t>(*text));
    }
    return copy;
}

} // namespace sondrel
