#include "exports/calls.h"

#include "base/error.h"
#include "base/text.h"
#include "exports/buffers.h"
#include "exports/string_object.h"
#include "unicode/utf.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <span>
#include <system_error>
#include <type_traits>
#include <vector>

namespace tool {
namespace {

using Byte = std::uint8_t;
using Word = std::uint32_t;

template <class Function>
Function* As(Address address) {
    return reinterpret_cast<Function*>(address);
}

Answer NumberAnswer(std::int64_t number) {
    return {.text = std::to_string(number), .number = number};
}

/// The shortest digits that give the same number.
template <class Floating>
Answer FloatingAnswer(Floating number) {
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    Answer answer{.text = std::string(digits.data(), end)};
    if (std::isfinite(number)) {
        double shown = 0;
        std::from_chars(digits.data(), end, shown);
        answer.number = shown;
    }
    return answer;
}

/// A decimal number, or a hexadecimal one after "0x", that fits its type.
template <class Number>
Number NumberOf(const std::string& text, const Export& row) {
    constexpr auto Smallest = static_cast<std::int64_t>(std::numeric_limits<Number>::min());
    constexpr auto Largest = static_cast<std::int64_t>(std::numeric_limits<Number>::max());
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    const char* const start = text.data() + (hexadecimal ? 2 : 0);
    const char* const end = text.data() + text.size();
    std::int64_t value = 0;
    const auto [stop, problem] = std::from_chars(start, end, value, hexadecimal ? 16 : 10);
    const bool signAfterPrefix = hexadecimal && start != end && *start == '-';
    if (problem != std::errc() || stop != end || signAfterPrefix || value < Smallest || value > Largest) {
        throw Error(std::string(row.name) + " takes a number from " + std::to_string(Smallest) + " to " +
                    std::to_string(Largest) + ", not \"" + OnOneLine(text) + "\"");
    }
    return static_cast<Number>(value);
}

std::vector<Byte> BytesOf(const std::string& text, const Export& row) {
    constexpr std::string_view TextMark = "text:";
    const std::optional<std::vector<Byte>> bytes =
        text.starts_with(TextMark) ? std::vector<Byte>(text.begin() + TextMark.size(), text.end())
                                   : BytesOfHex(text);
    if (!bytes || bytes->size() != row.buffer.size) {
        throw Error(std::string(row.name) + " takes exactly " + std::to_string(row.buffer.size) +
                    " bytes, as hexadecimal digits or as text:CHARACTERS, not \"" + OnOneLine(text) + "\"");
    }
    return *bytes;
}

Answer CallNothing(Address address, const Export&, const CallInputs&) {
    As<void()>(address)();
    return {};
}

template <class Number>
Answer CallNumber(Address address, const Export&, const CallInputs&) {
    const Number number = As<Number()>(address)();
    if constexpr (std::is_floating_point_v<Number>) {
        return FloatingAnswer(number);
    } else {
        return NumberAnswer(number);
    }
}

Answer CallNarrowText(Address address, const Export& row, const CallInputs&) {
    NarrowBuffer buffer(row.buffer.size);
    As<void(char*)>(address)(buffer.Start());
    return buffer.ReadText();
}

Answer CallWideText(Address address, const Export&, const CallInputs&) {
    WideBuffer buffer;
    As<void(VeskChar16*)>(address)(buffer.Start());
    return buffer.Read();
}

Answer CallWideTextCom(Address address, const Export&, const CallInputs& inputs) {
    WideBuffer buffer;
    As<void(VeskChar16*, Byte)>(address)(buffer.Start(), inputs.initCom);
    return buffer.Read();
}

Answer CallInt32Com(Address address, const Export&, const CallInputs& inputs) {
    return NumberAnswer(As<std::int32_t(Byte)>(address)(inputs.initCom));
}

template <class Number>
Answer CallSetCom(Address address, const Export& row, const CallInputs& inputs) {
    const auto value = NumberOf<Number>(inputs.argument, row);
    return NumberAnswer(As<std::int32_t(Number, Byte)>(address)(value, inputs.initCom));
}

Answer CallSetWideTextCom(Address address, const Export&, const CallInputs& inputs) {
    const std::u16string text = unicode::WideFromUtf8(inputs.argument);
    const std::basic_string<VeskChar16> path(text.begin(), text.end());
    return NumberAnswer(As<std::int32_t(const VeskChar16*, Byte)>(address)(path.c_str(), inputs.initCom));
}

Answer CallReadBytes(Address address, const Export& row, const CallInputs&) {
    NarrowBuffer buffer(row.buffer.size);
    const Word code = As<Word(Byte*)>(address)(reinterpret_cast<Byte*>(buffer.Start()));
    Answer answer = buffer.ReadBytes();
    answer.code = code;
    return answer;
}

Answer CallWriteBytes(Address address, const Export& row, const CallInputs& inputs) {
    const std::vector<Byte> bytes = BytesOf(inputs.argument, row);
    return NumberAnswer(As<Word(const Byte*)>(address)(bytes.data()));
}

Answer CallRegisters(Address address, const Export& row, const CallInputs& inputs) {
    constexpr Word Fill = 0xA5C3A5C3; // no processor returns this in all four registers
    const auto leaf = NumberOf<Word>(inputs.argument, row);
    std::array<Word, 4> words{Fill, Fill, Fill, Fill};
    auto& [eax, ebx, ecx, edx] = words;
    As<void(Word, Word*, Word*, Word*, Word*)>(address)(leaf, &eax, &ebx, &ecx, &edx);
    if (std::ranges::count(words, Fill) == 4) {
        return {.text = std::string(BufferUntouched), .untouched = true};
    }
    Answer answer;
    for (const Word word : words) {
        const std::array<Byte, 4> bytes{static_cast<Byte>(word >> 24), static_cast<Byte>(word >> 16),
                                        static_cast<Byte>(word >> 8), static_cast<Byte>(word)};
        answer.text.append(answer.text.empty() ? "" : " ").append(Hex(bytes));
    }
    return answer;
}

Answer CallStringObject(Address address, const Export&, const CallInputs&) {
    return {.text = WellFormed(CallStringExport(address))};
}

Answer CallUint32OfUint32(Address address, const Export& row, const CallInputs& inputs) {
    return NumberAnswer(As<Word(Word)>(address)(NumberOf<Word>(inputs.argument, row)));
}

struct Caller {
    Signature signature;
    /// The type of a pointer to such an export.
    const std::type_info* type;
    Answer (*call)(Address address, const Export& row, const CallInputs& inputs);
};

template <class Function>
Caller CallerOf(Signature signature, decltype(Caller::call) call) {
    return {signature, &typeid(Function*), call};
}

/// In the order of Signature.
const std::array Callers{
    CallerOf<void()>(Signature::NoResult, CallNothing),
    CallerOf<std::int32_t()>(Signature::Int32, CallNumber<std::int32_t>),
    CallerOf<Word()>(Signature::Uint32, CallNumber<Word>),
    CallerOf<float()>(Signature::Float, CallNumber<float>),
    CallerOf<double()>(Signature::Double, CallNumber<double>),
    CallerOf<std::string()>(Signature::String, CallStringObject),
    CallerOf<void(char*)>(Signature::NarrowText, CallNarrowText),
    CallerOf<void(VeskChar16*)>(Signature::WideText, CallWideText),
    CallerOf<void(VeskChar16*, Byte)>(Signature::WideTextCom, CallWideTextCom),
    CallerOf<std::int32_t(Byte)>(Signature::Int32Com, CallInt32Com),
    CallerOf<std::int32_t(std::int32_t, Byte)>(Signature::SetInt32Com, CallSetCom<std::int32_t>),
    CallerOf<std::int32_t(Byte, Byte)>(Signature::SetUint8Com, CallSetCom<Byte>),
    CallerOf<std::int32_t(const VeskChar16*, Byte)>(Signature::SetWideTextCom, CallSetWideTextCom),
    CallerOf<Word(Byte*)>(Signature::ReadBytes, CallReadBytes),
    CallerOf<Word(const Byte*)>(Signature::WriteBytes, CallWriteBytes),
    CallerOf<void(Word, Word*, Word*, Word*, Word*)>(Signature::Registers, CallRegisters),
    CallerOf<Word(Word)>(Signature::Uint32OfUint32, CallUint32OfUint32),
};
static_assert(std::tuple_size_v<decltype(Callers)> == static_cast<std::size_t>(Signature::Count));

} // namespace

Answer Call(Address address, const Export& row, const CallInputs& inputs) {
    return Callers[static_cast<std::size_t>(row.signature)].call(address, row, inputs);
}

const std::type_info& TypeOf(Signature signature) {
    return *Callers[static_cast<std::size_t>(signature)].type;
}

} // namespace tool
