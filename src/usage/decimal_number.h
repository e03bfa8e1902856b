// A decimal text as a number with a fraction.
#pragma once

#include <string_view>

namespace sondrel {

/// As _wtof reads it in the "C" locale, whatever the process's own: leading white space, one sign, digits with a
/// point, an exponent, up to the first character that does not belong. No digits give 0; a number too large is
/// infinite, one too small is 0. Words like "inf" are no numbers.
double WideToDouble(std::u16string_view text);

} // namespace sondrel
