#include "machine/text/wide_text.h"

#include <locale>

namespace machine {
namespace {

using Facet = std::codecvt<char16_t, char8_t, std::mbstate_t>;

/// Converts with the standard library; a unit that is ill-formed becomes `replacement` and is skipped.
template <class To, class From, class Step>
std::basic_string<To> Convert(std::basic_string_view<From> text, To replacement, Step step) {
    const auto& facet = std::use_facet<Facet>(std::locale::classic());
    std::basic_string<To> converted(text.size() * 3 + 1, To{});
    const From* in = text.data();
    const From* const end = in + text.size();
    To* out = converted.data();
    while (true) {
        std::mbstate_t state{};
        (facet.*step)(state, in, end, in, out, converted.data() + converted.size(), out);
        if (in == end) {
            break;
        }
        ++in;
        *out++ = replacement;
    }
    converted.resize(static_cast<std::size_t>(out - converted.data()));
    return converted;
}

} // namespace

std::u16string WideFromUtf8(std::string_view text) {
    std::u8string checked(text.begin(), text.end());
    for (std::size_t place = 0; place + 1 < checked.size(); ++place) {
        // A surrogate, which GCC 12 takes for a character.
        checked[place] = checked[place] == 0xED && checked[place + 1] >= 0xA0 ? 0xFF : checked[place];
    }
    return Convert<char16_t>(std::u8string_view(checked), u'\xFFFD', &Facet::in);
}

std::string Utf8FromWide(std::u16string_view text) {
    const std::u8string converted = Convert<char8_t>(text, u8'?', &Facet::out);
    return {converted.begin(), converted.end()};
}

} // namespace machine
