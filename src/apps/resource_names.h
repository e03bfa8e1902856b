// References into a package's resources.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace sondrel {

/// Buffer size of the strings of a package, in characters with the terminator.
inline constexpr std::size_t PackageTextSize = 260;

using PackageText = std::array<char16_t, PackageTextSize>;

/// The part of a package full name before its first "_"; the whole name if it has none.
std::u16string_view ShortNameOf(std::u16string_view fullName);

/// Resolves the display name of a package's manifest in up to three attempts. True with the resource's string in
/// `resolved`, or false with the empty string.
bool LoadResourceDisplayName(std::u16string_view fullName, std::u16string_view text, PackageText& resolved);

} // namespace sondrel
