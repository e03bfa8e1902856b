// Versions of the maker's own driver and assistant package.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sondrel {

/// The driver key of the device "Vesk Kelvane", such as {class}\0001; empty without such a device. Among several
/// the last of the device list counts.
std::u16string GetDeviceDriverKey();

/// The second of the pieces that "_" divides a package full name into; nothing where there is none. What
/// follows a "_" at the very end is no piece.
std::optional<std::u16string_view> VersionOfFullName(std::u16string_view fullName);

} // namespace sondrel
