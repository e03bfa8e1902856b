// Classic applications: the walk of the uninstall keys.
#pragma once

#include <string>

namespace sondrel {

/// A value as it appears in the documents: double quotes are removed, nothing is escaped. An unpaired surrogate
/// becomes U+FFFD.
std::u16string CleanJsonText(std::u16string text);

/// The document of one hive, {"machine":[...]} or {"user":[...]}, for the path of an uninstall key.
std::u16string GetApplist_Machine(const char16_t* keyPath);
std::u16string GetApplist_User(const char16_t* keyPath);

} // namespace sondrel
