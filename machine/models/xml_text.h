// The text of an XML document as an XML parser returns it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace machine {

/// Nothing for a text that is no well-formed document. Markup stays as it is; in the content, references are replaced by
/// their characters, except for those that would be markup.
std::optional<std::u16string> SerializedXml(std::u16string_view text);

} // namespace machine
