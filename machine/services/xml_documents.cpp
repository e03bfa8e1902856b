#include "machine/services/xml_documents.h"

#include "machine/machine.h"
#include "machine/models/storage/package_store.h"
#include "machine/models/xml_check.h"
#include "machine/text/wide_text.h"
#include "observer/gate.h"
#include "platform/back_end.h"
#include "platform/xml_document.h"

#include <new>

namespace machine {
namespace {

struct XmlDocumentObject : ComObject {
    [[nodiscard]] std::string_view InterfaceName() const override { return "IXMLDOMDocument"; }

    bool async = true;
    const PackageProfile* loaded = nullptr;
    std::u16string xml;
};

} // namespace

ComClass XmlDocumentClass() {
    return {{0x88D96A05, 0xF192, 0x11D4, {0xA6, 0x5F, 0x00, 0x40, 0x96, 0x32, 0x51, 0xE5}},
            {0x2933BF81, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}},
            [] {
                return std::make_shared<XmlDocumentObject>();
            }};
}

} // namespace machine

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;
using machine::XmlDocumentObject;

namespace {

/// Some status of its own for a pointer that is none, which a caller must never hand over.
constexpr HResult NoObject = static_cast<HResult>(0x80004003);

HResult Put(Operation operation, XmlDocument document, VariantBool value,
            void (*apply)(XmlDocumentObject&, bool) = nullptr) {
    Call call(operation);
    call.Note([&] { return value == VariantTrue ? "true" : value == VariantFalse ? "false" : "?"; });
    auto* object = Current().com.Find<XmlDocumentObject>(document);
    if (object == nullptr || call.Refused()) {
        return call.Answered(object == nullptr ? NoObject : static_cast<HResult>(call.RefusalCode()));
    }
    if (apply != nullptr) {
        apply(*object, value != VariantFalse);
    }
    return call.Answered(hresult::Ok);
}

/// The file's text as the parser gives it back: without its byte order mark.
std::optional<std::u16string> Serialised(std::u16string_view text) {
    text.remove_prefix(text.starts_with(u'\xFEFF') ? 1 : 0);
    return machine::SerialisedXml(text);
}

} // namespace

HResult put_async(XmlDocument document, VariantBool value) {
    return Put(Operation::put_async, document, value,
               [](XmlDocumentObject& object, bool on) { object.async = on; });
}

HResult put_validateOnParse(XmlDocument document, VariantBool value) {
    return Put(Operation::put_validateOnParse, document, value);
}

HResult put_resolveExternals(XmlDocument document, VariantBool value) {
    return Put(Operation::put_resolveExternals, document, value);
}

HResult put_preserveWhiteSpace(XmlDocument document, VariantBool value) {
    return Put(Operation::put_preserveWhiteSpace, document, value);
}

HResult load(XmlDocument document, const char16_t* path, VariantBool& successful) {
    Call call(Operation::load);
    call.Note([&] { return machine::Utf8FromWide(path); });
    auto* object = Current().com.Find<XmlDocumentObject>(document);
    if (object == nullptr || call.Refused()) {
        return call.Answered(object == nullptr ? NoObject : static_cast<HResult>(call.RefusalCode()));
    }
    const machine::PackageProfile* file = call.Emptied() ? nullptr : Current().packages.ManifestAt(path);
    // A document that loads in the background is not there yet when its text is asked for.
    const auto xml = file != nullptr ? Serialised(*file->manifest) : std::nullopt;
    const bool isThere = xml.has_value();
    object->loaded = isThere && !object->async ? file : nullptr;
    object->xml = xml.value_or(u"");
    successful = isThere ? VariantTrue : VariantFalse;
    return call.Answered(isThere ? hresult::Ok : hresult::False);
}

HResult get_xml(XmlDocument document, std::u16string& xml) {
    Call call(Operation::get_xml);
    auto* object = Current().com.Find<XmlDocumentObject>(document);
    if (object == nullptr || call.Refused()) {
        return call.Answered(object == nullptr ? NoObject : static_cast<HResult>(call.RefusalCode()));
    }
    if (object->loaded == nullptr || call.Emptied()) {
        xml.clear();
        return call.Answered(hresult::False);
    }
    if (object->loaded->exhaustsMemory) {
        throw std::bad_alloc();
    }
    xml = object->xml;
    return call.Answered(hresult::Ok);
}

} // namespace VESK_BACK_END
