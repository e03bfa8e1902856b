// Versions of the maker's own driver and assistant package.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sondrel {

/// The driver key of the device "Vesk Kelvane", such as {class}\0001; empty without such a device. Of several
/// devices the last in the device list counts.
std::u16string GetDeviceDriverKey();

/// The second field of a package full name, whose fields are separated by "_"; nothing if there is none. A "_"
/// at the end does not begin another field.
std::optional<std::u16string_view> VersionOfFullName(std::u16string_view fullName);

} // namespace sondrel
