// Parsing of floating-point numbers.
#pragma once

#include <string_view>

namespace sondrel {

/// Parses as _wtof does in the "C" locale, whatever the locale of the process: leading white space, one sign,
/// digits with a point, an exponent, up to the first other character. 0 without digits; too large a number is
/// infinite, too small a number 0. Words like "inf" are not numbers.
double WideToDouble(std::u16string_view text);

} // namespace sondrel
