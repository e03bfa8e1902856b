// How a document is to be read, as this Windows' own documents take it.
#include "platform/xml_document.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <msxml2.h>

namespace {

struct Property {
    platform::HResult (*put)(platform::XmlDocument, platform::VariantBool);
    HRESULT (STDMETHODCALLTYPE IXMLDOMDocument::*get)(VARIANT_BOOL*);
};

constexpr Property Properties[] = {
    {&platform::put_async, &IXMLDOMDocument::get_async},
    {&platform::put_validateOnParse, &IXMLDOMDocument::get_validateOnParse},
    {&platform::put_resolveExternals, &IXMLDOMDocument::get_resolveExternals},
    {&platform::put_preserveWhiteSpace, &IXMLDOMDocument::get_preserveWhiteSpace},
};

TEST(XmlDocumentTest, EachPropertyIsPutUnderItsOwnName) {
    ASSERT_EQ(platform::CoInitializeEx(platform::apartment::Multithreaded), S_OK);
    platform::XmlDocument document{};
    ASSERT_EQ(platform::CoCreateInstance(platform::ClsidDomDocument60, platform::class_context::InprocServer,
                                         platform::IidXmlDomDocument, document),
              S_OK);
    auto* const native = reinterpret_cast<IXMLDOMDocument*>(document);
    for (const Property& one : Properties) {
        for (const Property& each : Properties) {
            EXPECT_EQ(each.put(document, &each == &one ? VARIANT_TRUE : VARIANT_FALSE), S_OK);
        }
        for (const Property& each : Properties) {
            VARIANT_BOOL value = 5;
            EXPECT_EQ((native->*each.get)(&value), S_OK);
            EXPECT_EQ(value, &each == &one ? VARIANT_TRUE : VARIANT_FALSE)
                << &each - Properties << " after " << &one - Properties;
        }
    }
    native->Release();
    platform::CoUninitialize();
}

} // namespace
