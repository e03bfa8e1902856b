// The host's buffers, whose size the library is not told.
#pragma once

#include "vesk_sondrel.h"

#include <algorithm>
#include <exception>
#include <string>
#include <string_view>

namespace sondrel {

/// Copies the whole text and its terminator. The host has given enough room.
inline void CopyToHost(std::u16string_view text, VeskChar16* out) {
    out = std::transform(text.begin(), text.end(), out,
                         [](char16_t unit) { return static_cast<VeskChar16>(unit); });
    *out = VeskChar16{};
}

/// The same for narrow text.
inline void CopyToHost(std::string_view text, char* out) {
    *std::copy(text.begin(), text.end(), out) = '\0';
}

/// The same with the text that `make` gives, or with `failure` where there is no memory for it.
template <class Make>
void AnswerWith(VeskChar16* out, Make make, std::u16string_view failure = u"") noexcept {
    try {
        CopyToHost(make(), out);
    } catch (const std::exception&) {
        CopyToHost(failure, out);
    }
}

/// A host's text up to its terminator; a null pointer counts as the empty text.
inline std::u16string TextFromHost(const VeskChar16* text) {
    std::u16string copy;
    for (; text != nullptr && *text != VeskChar16{}; ++text) {
        copy.push_back(static_cast<char16_t>(*text));
    }
    return copy;
}

} // namespace sondrel
