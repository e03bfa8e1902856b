// Whether a text is an XML document, as far as a parser without a schema minds, and how the parser writes it again.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace machine {

/// One root element, all elements closed in their order, and nothing but white space, comments and
/// instructions around it: nothing for another text. Markup stays as it is; in the content, what a reference stands
/// for is written out, except where it would be markup.
std::optional<std::u16string> SerialisedXml(std::u16string_view text);

} // namespace machine
