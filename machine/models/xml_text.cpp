#include "machine/models/xml_text.h"
#include "unicode/utf.h"

#include <expat.h>

#include <exception>
#include <memory>
#include <type_traits>

namespace machine {
namespace {

/// Writes a document while it is parsed. An exception must not pass through the parser's C code: it waits.
struct Writer {
    std::string out;
    bool inCdata = false;
    std::exception_ptr failure;

    void Append(std::string_view text) noexcept {
        try {
            out += failure ? std::string_view() : text;
        } catch (...) {
            failure = std::current_exception();
        }
    }
};

Writer& WriterOf(void* context) {
    return *static_cast<Writer*>(context);
}

void OnMarkup(void* context, const char* text, int length) {
    WriterOf(context).Append({text, static_cast<std::size_t>(length)});
}

void OnCharacters(void* context, const char* text, int length) {
    Writer& writer = WriterOf(context);
    for (const char& character : std::string_view(text, static_cast<std::size_t>(length))) {
        const bool isPlain = writer.inCdata || (character != '&' && character != '<' && character != '>');
        writer.Append(isPlain            ? std::string_view(&character, 1)
                      : character == '&' ? "&amp;"
                      : character == '<' ? "&lt;"
                                         : "&gt;");
    }
}

void OnCdataStart(void* context) {
    WriterOf(context).Append("<![CDATA[");
    WriterOf(context).inCdata = true;
}

void OnCdataEnd(void* context) {
    WriterOf(context).Append("]]>");
    WriterOf(context).inCdata = false;
}

} // namespace

std::optional<std::u16string> SerializedXml(std::u16string_view text) {
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate("UTF-8"), XML_ParserFree); // whatever the document says of its file
    if (parser == nullptr) {
        throw std::bad_alloc();
    }
    Writer writer;
    XML_SetUserData(parser.get(), &writer);
    XML_SetDefaultHandler(parser.get(), OnMarkup);
    XML_SetCharacterDataHandler(parser.get(), OnCharacters);
    XML_SetCdataSectionHandler(parser.get(), OnCdataStart, OnCdataEnd);
    const std::string narrow = unicode::Utf8FromWide(text);
    const XML_Status status =
        XML_Parse(parser.get(), narrow.data(), static_cast<int>(narrow.size()), XML_TRUE);
    if (writer.failure) {
        std::rethrow_exception(writer.failure);
    }
    return status == XML_STATUS_OK ? std::optional(unicode::WideFromUtf8(writer.out)) : std::nullopt;
}

} // namespace machine
