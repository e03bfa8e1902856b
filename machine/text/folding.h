// Upper case, as Windows compares the names of the registry, of devices and of WMI.
#pragma once

#include <string>
#include <string_view>

namespace machine {

std::u16string Folded(std::u16string_view text);

} // namespace machine
