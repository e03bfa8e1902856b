// Whether a text is an XML document, as far as a parser without a schema minds.
#pragma once

#include <string_view>

namespace machine {

/// One root element, all elements closed in their order, and nothing but white space, comments and
/// instructions around it.
bool IsXmlDocument(std::u16string_view text);

} // namespace machine
