// The XML document object.
//
// The operations are those of IXMLDOMDocument, with the object as the first argument.
#pragma once

#include "platform/com.h"
#include "platform/types.h"

#include <string>

namespace platform {

enum class XmlDocument : std::uintptr_t { None = 0 };

using OwnedXmlDocument = OwnedInterface<XmlDocument>;

/// CLSID_DOMDocument60
inline constexpr Guid ClsidDomDocument60{
    0x88D96A05, 0xF192, 0x11D4, {0xA6, 0x5F, 0x00, 0x40, 0x96, 0x32, 0x51, 0xE5}};
/// IID_IXMLDOMDocument
inline constexpr Guid IidXmlDomDocument{
    0x2933BF81, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};

/// A VARIANT_BOOL.
using VariantBool = std::int16_t;

inline constexpr VariantBool VariantTrue = -1; // VARIANT_TRUE
inline constexpr VariantBool VariantFalse = 0; // VARIANT_FALSE

HResult put_async(XmlDocument document, VariantBool value);
HResult put_validateOnParse(XmlDocument document, VariantBool value);
HResult put_resolveExternals(XmlDocument document, VariantBool value);
HResult put_preserveWhiteSpace(XmlDocument document, VariantBool value);

/// IXMLDOMDocument::load of a VT_BSTR with the path. For a file that is missing or not XML the call succeeds and
/// `successful` is VARIANT_FALSE.
HResult load(XmlDocument document, const char16_t* path, VariantBool& successful);

/// The whole document as one string; may be empty.
HResult get_xml(XmlDocument document, std::u16string& xml);

} // namespace platform
