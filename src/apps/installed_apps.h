// Classic applications: the walk of the uninstall keys.
#pragma once

#include <string>

namespace sondrel {

/// A value as it stands in the documents: without its double quotes, everything else as it is. An unpaired
/// surrogate becomes U+FFFD on the way.
std::u16string CleanJsonText(std::u16string text);

/// The document of one hive, {"machine":[...]} and {"user":[...]}, for an uninstall key's path.
std::u16string GetApplist_Machine(const char16_t* keyPath);
std::u16string GetApplist_User(const char16_t* keyPath);

} // namespace sondrel
