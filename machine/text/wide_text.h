// UTF-8 and UTF-16 strings of the machine.
#pragma once

#include <string>
#include <string_view>

namespace machine {

std::u16string WideFromUtf8(std::string_view text);
std::string Utf8FromWide(std::u16string_view text);

/// Upper case, as names of the registry and of WMI are compared.
std::u16string Folded(std::u16string_view text);

} // namespace machine
