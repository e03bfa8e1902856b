#include "machine/text/wide_text.h"

#include <iconv.h>

#include <cerrno>
#include <clocale>
#include <cwctype>
#include <stdexcept>

namespace machine {
namespace {

/// Converts with iconv; a unit that is ill-formed becomes `replacement` and is passed over.
template <class To, class From>
std::basic_string<To> Convert(const char* to, const char* from, std::basic_string_view<From> text,
                              To replacement) {
    iconv_t converter = iconv_open(to, from);
    if (converter == reinterpret_cast<iconv_t>(-1)) {
        throw std::runtime_error("the C library cannot convert between UTF-8 and UTF-16");
    }
    std::basic_string<To> converted(text.size() * 3 + 1, To{});
    auto* in = reinterpret_cast<char*>(const_cast<From*>(text.data()));
    std::size_t inLeft = text.size() * sizeof(From);
    auto* out = reinterpret_cast<char*>(converted.data());
    std::size_t outLeft = converted.size() * sizeof(To);
    while (inLeft >= sizeof(From) && iconv(converter, &in, &inLeft, &out, &outLeft) == std::size_t(-1) &&
           (errno == EILSEQ || errno == EINVAL)) {
        in += sizeof(From);
        inLeft -= sizeof(From);
        *reinterpret_cast<To*>(out) = replacement;
        out += sizeof(To);
        outLeft -= sizeof(To);
    }
    iconv_close(converter);
    converted.resize(converted.size() - outLeft / sizeof(To));
    return converted;
}

/// Letters are folded by the rules of Unicode, whatever the process's own locale.
locale_t UnicodeLocale() {
    static const locale_t Locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return Locale;
}

} // namespace

std::u16string WideFromUtf8(std::string_view text) {
    return Convert<char16_t>("UTF-16LE", "UTF-8", text, u'\xFFFD');
}

std::string Utf8FromWide(std::u16string_view text) {
    return Convert<char>("UTF-8", "UTF-16LE", text, '?');
}

std::u16string Folded(std::u16string_view text) {
    std::u16string folded(text);
    for (char16_t& unit : folded) {
        const auto upper = towupper_l(unit, UnicodeLocale());
        unit = upper <= 0xFFFF ? static_cast<char16_t>(upper) : unit;
    }
    return folded;
}

} // namespace machine
