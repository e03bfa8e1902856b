// The XML document object of the simulated machine, without what it does with a file (services/xml_document.cpp).
#pragma once

#include "machine/models/com/com_objects.h"

#include <string>

namespace machine {

struct PackageProfile;

struct XmlDocumentObject final : ComObject {
    [[nodiscard]] std::string_view InterfaceName() const override { return "IXMLDOMDocument"; }

    bool async = true;
    const PackageProfile* loaded = nullptr;
    std::u16string xml;
};

} // namespace machine
