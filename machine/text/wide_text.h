// Strings on the machine's side.
#pragma once

#include "unicode/utf.h"

#include <string>
#include <string_view>

namespace machine {

using unicode::Utf8FromWide;
using unicode::WideFromUtf8;

/// Upper case, as names of the registry and of WMI are compared.
std::u16string Folded(std::u16string_view text);

} // namespace machine
