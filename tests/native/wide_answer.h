// What an export writes into a host's buffer of wide characters.
#pragma once

#include "platform/simulated/wide_text.h"
#include "vesk_sondrel.h"

#include <gtest/gtest.h>

#include <string>

namespace test {

/// The text in UTF-8. Nothing behind its terminator may have been touched. An export that leaves the buffer alone
/// gives "untouched".
inline std::string WideAnswer(void (*ask)(VeskChar16*), std::size_t room = 1 << 20) {
    constexpr char16_t Filler = 0xA5A5;
    std::u16string buffer(room, Filler);
    ask(buffer.data());
    const std::size_t end = buffer.find(u'\0');
    if (end == std::u16string::npos) {
        EXPECT_EQ(buffer.find_first_not_of(Filler), std::u16string::npos);
        return "untouched";
    }
    EXPECT_EQ(buffer.find_first_not_of(Filler, end + 1), std::u16string::npos);
    return machine::Utf8FromWide(std::u16string_view(buffer).substr(0, end));
}

} // namespace test
