#include "platform/xml_document.h"

#include "platform/back_end.h"
#include "platform/windows/support/bstr.h"

#include <msxml2.h>

namespace VESK_BACK_END {
namespace {

IXMLDOMDocument* Native(XmlDocument document) {
    return reinterpret_cast<IXMLDOMDocument*>(document);
}

} // namespace

HResult put_async(XmlDocument document, VariantBool value) {
    return Native(document)->put_async(value);
}

HResult put_validateOnParse(XmlDocument document, VariantBool value) {
    return Native(document)->put_validateOnParse(value);
}

HResult put_resolveExternals(XmlDocument document, VariantBool value) {
    return Native(document)->put_resolveExternals(value);
}

HResult put_preserveWhiteSpace(XmlDocument document, VariantBool value) {
    return Native(document)->put_preserveWhiteSpace(value);
}

HResult load(XmlDocument document, const char16_t* path, VariantBool& successful) {
    const Bstr text(path);
    VARIANT source{};
    source.vt = VT_BSTR;
    source.bstrVal = text.Get();
    VARIANT_BOOL loaded = VARIANT_FALSE;
    const HRESULT status = Native(document)->load(source, &loaded);
    successful = loaded;
    return status;
}

HResult get_xml(XmlDocument document, std::u16string& xml) {
    BSTR text = nullptr;
    const HRESULT status = Native(document)->get_xml(&text);
    const Bstr owned = Bstr::Adopt(text);
    xml = ViewOf(text);
    return status;
}

} // namespace VESK_BACK_END
