#include "machine/text/folding.h"

#include <clocale>
#include <cwctype>

namespace machine {
namespace {

/// Letters are folded by the rules of Unicode, whatever the process's own locale.
locale_t UnicodeLocale() {
    static const locale_t Locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return Locale;
}

} // namespace

std::u16string Folded(std::u16string_view text) {
    std::u16string folded(text);
    for (char16_t& unit : folded) {
        const auto upper = towupper_l(unit, UnicodeLocale());
        unit = upper <= 0xFFFF ? static_cast<char16_t>(upper) : unit;
    }
    return folded;
}

} // namespace machine
