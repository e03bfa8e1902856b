// References into a package's resources.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace sondrel {

/// Room for the texts of a package, the terminator counted.
inline constexpr std::size_t PackageTextSize = 260;

using PackageText = std::array<char16_t, PackageTextSize>;

/// The part of a package full name before its first "_": the whole name if it has none.
std::u16string_view ShortNameOf(std::u16string_view fullName);

/// Resolves the display text of a package's manifest. `resolved` holds the resource's text when the result is
/// true, the empty text otherwise. The platform is asked up to three times.
bool LoadResourceDisplayName(std::u16string_view fullName, std::u16string_view text, PackageText& resolved);

} // namespace sondrel
