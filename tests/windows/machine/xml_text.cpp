// Under Wine the library reads manifests with the XML parser of that Windows.
#include "machine/models/xml_text.h"

#include <stdexcept>

namespace machine {

std::optional<std::u16string> SerializedXml(std::u16string_view) {
    throw std::logic_error("the machine's own XML parser is not part of a machine under Wine");
}

} // namespace machine
