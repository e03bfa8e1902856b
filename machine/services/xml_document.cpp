#include "platform/xml_document.h"

#include "machine/machine.h"
#include "machine/models/com_objects.h"
#include "machine/models/xml_text.h"
#include "platform/back_end.h"

namespace VESK_BACK_END {
namespace {

using machine::XmlDocumentObject;

/// The settings but `async` change nothing in what the library reads.
HResult PutNothing(XmlDocument document) {
    return machine::Current()->handles.Find<XmlDocumentObject>(document) == nullptr ? hresult::Pointer
                                                                                    : hresult::Ok;
}

/// The file's content as the parser writes it: without its byte order mark.
std::optional<std::u16string> Serialised(std::u16string_view text) {
    text.remove_prefix(text.starts_with(u'\xFEFF') ? 1 : 0);
    return machine::SerializedXml(text);
}

} // namespace

HResult put_async(XmlDocument document, VariantBool value) {
    const auto machine = machine::Current();
    auto* const object = machine->handles.Find<XmlDocumentObject>(document);
    if (object == nullptr) {
        return hresult::Pointer;
    }
    object->async = value != VariantFalse;
    return hresult::Ok;
}

HResult put_validateOnParse(XmlDocument document, VariantBool) {
    return PutNothing(document);
}

HResult put_resolveExternals(XmlDocument document, VariantBool) {
    return PutNothing(document);
}

HResult put_preserveWhiteSpace(XmlDocument document, VariantBool) {
    return PutNothing(document);
}

HResult load(XmlDocument document, const char16_t* path, VariantBool& successful) {
    const auto machine = machine::Current();
    auto* const object = machine->handles.Find<XmlDocumentObject>(document);
    if (object == nullptr) {
        return hresult::Pointer;
    }
    const machine::PackageProfile* const file = machine->packages.ManifestAt(path);
    const auto xml = file != nullptr ? Serialised(*file->manifest) : std::nullopt;
    // A document that loads in the background is not there yet when its content is asked for.
    object->xml = object->async ? std::nullopt : xml;
    successful = xml ? VariantTrue : VariantFalse;
    return xml ? hresult::Ok : hresult::False;
}

HResult get_xml(XmlDocument document, std::u16string& xml) {
    const auto machine = machine::Current();
    const auto* const object = machine->handles.Find<XmlDocumentObject>(document);
    if (object == nullptr) {
        return hresult::Pointer;
    }
    xml = object->xml.value_or(u"");
    return object->xml ? hresult::Ok : hresult::False;
}

} // namespace VESK_BACK_END
