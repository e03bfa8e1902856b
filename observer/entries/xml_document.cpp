#include "platform/xml_document.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

HResult put_async(XmlDocument document, VariantBool value) {
    return Observe<Operation::put_async>(back_end::put_async, In("document", document), In("value", value));
}

HResult put_validateOnParse(XmlDocument document, VariantBool value) {
    return Observe<Operation::put_validateOnParse>(back_end::put_validateOnParse, In("document", document),
                                                   In("value", value));
}

HResult put_resolveExternals(XmlDocument document, VariantBool value) {
    return Observe<Operation::put_resolveExternals>(back_end::put_resolveExternals, In("document", document),
                                                    In("value", value));
}

HResult put_preserveWhiteSpace(XmlDocument document, VariantBool value) {
    return Observe<Operation::put_preserveWhiteSpace>(back_end::put_preserveWhiteSpace,
                                                      In("document", document), In("value", value));
}

HResult load(XmlDocument document, const char16_t* path, VariantBool& successful) {
    return Observe<Operation::load>(back_end::load, In("document", document), In("path", path),
                                    Out("successful", successful));
}

HResult get_xml(XmlDocument document, std::u16string& xml) {
    return Observe<Operation::get_xml>(back_end::get_xml, In("document", document), Out("xml", xml));
}

} // namespace platform
