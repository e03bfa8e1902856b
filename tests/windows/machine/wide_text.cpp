// The simulated machine's upper case, by Windows: its own is the C library's.
#include "machine/text/wide_text.h"

#include <windows.h>

namespace machine {

std::u16string Folded(std::u16string_view text) {
    std::u16string folded(text);
    ::CharUpperBuffW(reinterpret_cast<wchar_t*>(folded.data()), static_cast<DWORD>(folded.size()));
    return folded;
}

} // namespace machine
