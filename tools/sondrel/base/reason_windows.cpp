// Strings of Windows.
#include "base/reason_windows.h"
#include "unicode/utf.h"

#include <windows.h>

#include <array>
#include <string_view>

namespace tool {

std::string Utf8OfSystem(const wchar_t* text) {
    const std::wstring_view wide(text);
    return unicode::Utf8FromWide(std::u16string(wide.begin(), wide.end()));
}

std::string ReasonOf(DWORD code) {
    std::array<wchar_t, 512> text{};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        code, 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
    std::string reason = length != 0 ? Utf8OfSystem(text.data()) : std::string();
    while (!reason.empty() && (reason.back() == '\n' || reason.back() == '\r' || reason.back() == ' ')) {
        reason.pop_back();
    }
    return (reason.empty() ? "error " : reason + " (error ") + std::to_string(code) +
           (reason.empty() ? "" : ")");
}

} // namespace tool
