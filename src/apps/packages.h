// Packaged applications and their display names.
#pragma once

#include <string>
#include <string_view>

namespace sondrel {

/// The family of a package full name: its short name, and its end from the last "_" on.
std::u16string FamilyNameOf(std::u16string_view fullName);

/// The content of a manifest's <DisplayName> element: of the first one without attributes or prefix after the
/// first "Properties" in any case, or in the whole manifest if that word is missing. Empty without such an
/// element.
std::u16string_view ManifestDisplayText(std::u16string_view xml);

/// The JSON document of all packages of the store.
std::u16string GetApplist_AllUserStore();

/// The record of one package. If a step fails the display name is empty.
std::u16string GetUWPDisplayName(const std::u16string& fullName);

} // namespace sondrel
