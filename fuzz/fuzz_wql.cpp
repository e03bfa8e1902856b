// Queries of any text: a query that is accepted means the same when it is written again, and no query makes the
// service or the library fail.
#include "harness.h"

#include "machine/models/wmi/wql.h"
#include "unicode/utf.h"
#include "wmi/wmi_readers.h"

namespace {

std::u16string Literal(const machine::WqlCondition& condition) {
    if (const auto* flag = std::get_if<bool>(&condition.literal.value)) {
        return *flag ? u"true" : u"false";
    }
    if (const auto* number = std::get_if<std::int64_t>(&condition.literal.value)) {
        return unicode::WideFromUtf8(std::to_string(*number));
    }
    std::u16string quoted = u"'";
    for (const char16_t unit : std::get<std::u16string>(condition.literal.value)) {
        quoted += unit == u'\'' || unit == u'\\' ? u"\\" : u"";
        quoted += unit;
    }
    return quoted + u"'";
}

std::u16string Written(const machine::WqlQuery& query) {
    std::u16string text = u"SELECT * FROM " + query.className;
    for (const machine::WqlCondition& condition : query.conditions) {
        text += &condition == &query.conditions.front() ? u" WHERE " : u" AND ";
        text += condition.property + (condition.equal ? u" = " : u" <> ") + Literal(condition);
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string text =
        unicode::WideFromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
    fuzz::TheMachine();
    if (const auto query = machine::ParseWql(text)) {
        const std::u16string written = Written(*query);
        const auto again = machine::ParseWql(written);
        fuzz::Demand(again && Written(*again) == written);
    }
    sondrel::ReadWMIPropStr(u"ROOT\\CIMV2", text, u"Name", 1);
    fuzz::DemandNothingOpen();
    return 0;
}
