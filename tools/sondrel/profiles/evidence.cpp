#include "profiles/evidence.h"

#include "base/text.h"
#include "unicode/utf.h"

#include <algorithm>
#include <span>

namespace tool {

using observer::Number;
using observer::RecordedCall;
using observer::Structure;
using observer::Value;

namespace {

template <class T>
T CopyIn(const Structure& fields, std::string_view name) {
    const T* const held = Held<T>(fields, name);
    return held == nullptr ? T{} : *held;
}

} // namespace

void LeftOut::Add(std::string_view exportName, std::string reason) {
    m_reasons.emplace(exportName, std::move(reason));
}

std::vector<std::string> LeftOut::Lines() const {
    std::vector<std::string> lines;
    for (const auto& [name, reason] : m_reasons) {
        lines.push_back(OnOneLine(std::string(name).append(": ").append(reason)));
    }
    return lines;
}

std::u16string StringIn(const Structure& fields, std::string_view name) {
    return CopyIn<std::u16string>(fields, name);
}

std::int64_t NumberIn(const Structure& fields, std::string_view name) {
    return CopyIn<Number>(fields, name).value;
}

observer::Bytes BytesIn(const Structure& fields, std::string_view name) {
    return CopyIn<observer::Bytes>(fields, name);
}

std::uint32_t HandleIn(const Structure& fields, std::string_view name) {
    return CopyIn<observer::HandleName>(fields, name).number;
}

observer::List ListIn(const Structure& fields, std::string_view name) {
    return CopyIn<observer::List>(fields, name);
}

std::int64_t NumberOf(const Value& value) {
    const auto* const number = std::get_if<Number>(&value.held);
    return number == nullptr ? 0 : number->value;
}

std::uint32_t HandleOf(const Value& value) {
    const auto* const handle = std::get_if<observer::HandleName>(&value.held);
    return handle == nullptr ? 0 : handle->number;
}

std::uint32_t WordAt(const observer::Bytes& bytes, std::size_t offset) {
    std::uint32_t word = 0;
    for (std::size_t place = 0; place < sizeof word && offset + place < bytes.size(); ++place) {
        word |= std::to_integer<std::uint32_t>(bytes[offset + place]) << (8 * place);
    }
    return word;
}

std::string HexOf(const observer::Bytes& bytes) {
    return Hex({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

bool IsUtf8(const std::string& text) {
    return unicode::Utf8FromWide(unicode::WideFromUtf8(text)) == text;
}

std::optional<std::string> Utf8Of(const std::u16string& text) {
    std::string narrow = unicode::Utf8FromWide(text);
    return unicode::WideFromUtf8(narrow) == text ? std::optional(std::move(narrow)) : std::nullopt;
}

bool HasFailed(const RecordedCall& call) {
    const observer::OperationRow& row = RowOf(call.operation);
    switch (row.returns) {
    case observer::Returns::Error:
        return NumberOf(call.result) != 0;
    case observer::Returns::HResult:
        return static_cast<std::int32_t>(NumberOf(call.result)) < 0;
    case observer::Returns::Flag:
        return call.result == Value{false};
    case observer::Returns::Handle:
        return HandleOf(call.result) == 0;
    case observer::Returns::Count:
        return std::holds_alternative<Number>(call.result.held) && NumberOf(call.result) == row.failureValue;
    default:
        return false;
    }
}

std::uint32_t FailureOf(const RecordedCall& call) {
    const observer::Returns returns = RowOf(call.operation).returns;
    return returns == observer::Returns::Error || returns == observer::Returns::HResult
               ? static_cast<std::uint32_t>(NumberOf(call.result))
               : call.lastError.value_or(0);
}

} // namespace tool
