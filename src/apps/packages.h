// Packaged applications and the names that a user sees for them.
#pragma once

#include <string>
#include <string_view>

namespace sondrel {

/// The family a package full name belongs to: its short name and what stands from its last "_" on.
std::u16string FamilyNameOf(std::u16string_view fullName);

/// The text of a manifest's <DisplayName> element: the first one, without attributes or prefix, behind the
/// first "Properties" in any case; in the whole text where that word is missing. Empty where there is no such
/// element.
std::u16string_view ManifestDisplayText(std::u16string_view xml);

/// The document of all packages of the store, one record for each.
std::u16string GetApplist_AllUserStore();

/// The record of one package. Every package has one; what cannot be read leaves the display name empty.
std::u16string GetUWPDisplayName(const std::u16string& fullName);

} // namespace sondrel
