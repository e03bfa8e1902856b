// The profiles' text conversions, by Windows: the simulated machine's own are iconv's.
#include "platform/simulated/wide_text.h"

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

} // namespace machine
