// Conversions by Windows itself.
#include "machine/text/wide_text.h"

#include <windows.h>

namespace machine {

std::u16string WideFromUtf8(std::string_view text) {
    const auto size = static_cast<int>(text.size());
    std::u16string wide(
        static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)), u'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, reinterpret_cast<wchar_t*>(wide.data()),
                          static_cast<int>(wide.size()));
    return wide;
}

std::string Utf8FromWide(std::u16string_view text) {
    const auto* const wide = reinterpret_cast<const wchar_t*>(text.data());
    const auto size = static_cast<int>(text.size());
    std::string narrow(
        static_cast<std::size_t>(::WideCharToMultiByte(CP_UTF8, 0, wide, size, nullptr, 0, nullptr, nullptr)),
        '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, wide, size, narrow.data(), static_cast<int>(narrow.size()), nullptr,
                          nullptr);
    return narrow;
}

std::u16string Folded(std::u16string_view text) {
    std::u16string folded(text);
    ::CharUpperBuffW(reinterpret_cast<wchar_t*>(folded.data()), static_cast<DWORD>(folded.size()));
    return folded;
}

} // namespace machine
