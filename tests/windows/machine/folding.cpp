// Upper case as Windows has it.
#include "machine/text/folding.h"

#include <windows.h>

namespace machine {

std::u16string Folded(std::u16string_view text) {
    std::u16string folded(text);
    ::CharUpperBuffW(reinterpret_cast<wchar_t*>(folded.data()), static_cast<DWORD>(folded.size()));
    return folded;
}

} // namespace machine
