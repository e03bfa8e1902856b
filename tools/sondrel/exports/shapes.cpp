#include "exports/shapes.h"

#include "base/text.h"
#include "base/trouble.h"
#include "exports/buffers.h"
#include "exports/export_table.h"
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
    return {.bare = std::to_string(number), .number = number};
}

/// With just as many digits as tell the number from its neighbours.
template <class Floating>
Answer FloatingAnswer(Floating number) {
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    Answer answer{.bare = std::string(digits.data(), end)};
    if (std::isfinite(number)) {
        double shown = 0;
        std::from_chars(digits.data(), end, shown);
        answer.number = shown;
    }
    return answer;
}

/// A decimal number, or a hexadecimal one behind "0x", that fits its type.
template <class Number>
Number NumberOf(const std::string& text, const Export& row) {
    constexpr auto Smallest = static_cast<std::int64_t>(std::numeric_limits<Number>::min());
    constexpr auto Largest = static_cast<std::int64_t>(std::numeric_limits<Number>::max());
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    const char* const start = text.data() + (hexadecimal ? 2 : 0);
    const char* const end = text.data() + text.size();
    std::int64_t value = 0;
    const auto [stop, problem] = std::from_chars(start, end, value, hexadecimal ? 16 : 10);
    const bool signBehindPrefix = hexadecimal && start != end && *start == '-';
    if (problem != std::errc() || stop != end || signBehindPrefix || value < Smallest || value > Largest) {
        throw Trouble(std::string(row.name) + " takes a number from " + std::to_string(Smallest) + " to " +
                      std::to_string(Largest) + ", not \"" + OnOneLine(text) + "\"");
    }
    return static_cast<Number>(value);
}

std::vector<Byte> BytesOf(const std::string& text, const Export& row) {
    constexpr std::string_view TextMark = "text:";
    const std::optional<std::vector<Byte>> bytes =
        text.starts_with(TextMark) ? std::vector<Byte>(text.begin() + TextMark.size(), text.end())
                                   : BytesOfHex(text);
    if (!bytes || bytes->size() != row.traits.size) {
        throw Trouble(std::string(row.name) + " takes exactly " + std::to_string(row.traits.size) +
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
    NarrowBuffer buffer(row.traits.size);
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

Answer CallSignedCom(Address address, const Export&, const CallInputs& inputs) {
    return NumberAnswer(As<std::int32_t(Byte)>(address)(inputs.initCom));
}

template <class Number>
Answer CallSetCom(Address address, const Export& row, const CallInputs& inputs) {
    const auto value = NumberOf<Number>(inputs.argument, row);
    return NumberAnswer(As<std::int32_t(Number, Byte)>(address)(value, inputs.initCom));
}

Answer CallSetPathCom(Address address, const Export&, const CallInputs& inputs) {
    const std::u16string text = unicode::WideFromUtf8(inputs.argument);
    const std::basic_string<VeskChar16> path(text.begin(), text.end());
    return NumberAnswer(As<std::int32_t(const VeskChar16*, Byte)>(address)(path.c_str(), inputs.initCom));
}

Answer CallReadBytes(Address address, const Export& row, const CallInputs&) {
    NarrowBuffer buffer(row.traits.size);
    const Word code = As<Word(Byte*)>(address)(reinterpret_cast<Byte*>(buffer.Start()));
    Answer answer = buffer.ReadBytes();
    answer.code = code;
    return answer;
}

Answer CallWriteBytes(Address address, const Export& row, const CallInputs& inputs) {
    const std::vector<Byte> bytes = BytesOf(inputs.argument, row);
    return NumberAnswer(As<Word(const Byte*)>(address)(bytes.data()));
}

Answer CallProcessorLeaf(Address address, const Export& row, const CallInputs& inputs) {
    constexpr Word Fill = 0xA5C3A5C3; // no processor answers all four words so
    const auto leaf = NumberOf<Word>(inputs.argument, row);
    std::array<Word, 4> words{Fill, Fill, Fill, Fill};
    auto& [eax, ebx, ecx, edx] = words;
    As<void(Word, Word*, Word*, Word*, Word*)>(address)(leaf, &eax, &ebx, &ecx, &edx);
    if (std::ranges::count(words, Fill) == 4) {
        return {.bare = std::string(BufferUntouched), .untouched = true};
    }
    Answer answer;
    for (const Word word : words) {
        const std::array<Byte, 4> bytes{static_cast<Byte>(word >> 24), static_cast<Byte>(word >> 16),
                                        static_cast<Byte>(word >> 8), static_cast<Byte>(word)};
        answer.bare.append(answer.bare.empty() ? "" : " ").append(Hex(bytes));
    }
    return answer;
}

/// The library makes the string object and the tool destroys it: both have to be built with one C++ runtime.
Answer CallStringObject(Address address, const Export&, const CallInputs&) {
    return {.bare = WellFormed(As<std::string()>(address)())};
}

Answer CallAddOne(Address address, const Export& row, const CallInputs& inputs) {
    return NumberAnswer(As<Word(Word)>(address)(NumberOf<Word>(inputs.argument, row)));
}

} // namespace

namespace shape {

const Shape Nothing{&typeid(void (*)()), "void NAME(void)", "", CallNothing};
const Shape Signed{&typeid(std::int32_t(*)()), "int32_t NAME(void)", "", CallNumber<std::int32_t>};
const Shape Unsigned{&typeid(Word(*)()), "uint32_t NAME(void)", "", CallNumber<Word>};
const Shape Float{&typeid(float (*)()), "float NAME(void)", "", CallNumber<float>};
const Shape Double{&typeid(double (*)()), "double NAME(void)", "", CallNumber<double>};
const Shape NarrowText{&typeid(void (*)(char*)), "void NAME(char* out)", "", CallNarrowText};
const Shape WideText{&typeid(void (*)(VeskChar16*)), "void NAME(VeskChar16* out)", "", CallWideText};
const Shape WideTextCom{&typeid(void (*)(VeskChar16*, Byte)), "void NAME(VeskChar16* out, uint8_t initCom)",
                        "", CallWideTextCom};
const Shape SignedCom{&typeid(std::int32_t(*)(Byte)), "int32_t NAME(uint8_t initCom)", "", CallSignedCom};
const Shape SetNumberCom{&typeid(std::int32_t(*)(std::int32_t, Byte)),
                         "int32_t NAME(int32_t value, uint8_t initCom)", "VALUE", CallSetCom<std::int32_t>};
const Shape SetByteCom{&typeid(std::int32_t(*)(Byte, Byte)), "int32_t NAME(uint8_t value, uint8_t initCom)",
                       "VALUE", CallSetCom<Byte>};
const Shape SetPathCom{&typeid(std::int32_t(*)(const VeskChar16*, Byte)),
                       "int32_t NAME(const VeskChar16* path, uint8_t initCom)", "PATH", CallSetPathCom};
const Shape ReadBytes{&typeid(Word(*)(Byte*)), "uint32_t NAME(uint8_t* out)", "", CallReadBytes};
const Shape WriteBytes{&typeid(Word(*)(const Byte*)), "uint32_t NAME(const uint8_t* bytes)", "BYTES",
                       CallWriteBytes};
const Shape ProcessorLeaf{&typeid(void (*)(Word, Word*, Word*, Word*, Word*)),
                          "void NAME(uint32_t leaf, uint32_t* eax, uint32_t* ebx, uint32_t* ecx, "
                          "uint32_t* edx)",
                          "LEAF", CallProcessorLeaf};
const Shape StringObject{&typeid(std::string(*)()), "std::string NAME(void)", "", CallStringObject};
const Shape AddOne{&typeid(Word(*)(Word)), "uint32_t NAME(uint32_t value)", "VALUE", CallAddOne};

} // namespace shape
} // namespace tool
