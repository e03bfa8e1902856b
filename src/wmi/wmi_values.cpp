#include "wmi/wmi_values.h"

#include "frame/text.h"

#include <algorithm>
#include <utility>

namespace sondrel {

using platform::WmiValue;

WmiValue ReadWmiProperty(platform::WbemObject row, const char16_t* name) {
    WmiValue value;
    if (platform::Failed(platform::Get(row, name, value))) {
        return {};
    }
    return value;
}

std::optional<std::int32_t> NumberOf(const WmiValue& value) {
    const auto* number = std::get_if<std::int32_t>(&value);
    return number != nullptr ? std::optional(*number) : std::nullopt;
}

std::optional<std::int32_t> FirstNumberOf(const WmiValue& value) {
    if (const auto* numbers = std::get_if<std::vector<std::int32_t>>(&value);
        numbers != nullptr && !numbers->empty()) {
        return numbers->front();
    }
    if (const auto* array = std::get_if<platform::WmiBytes>(&value);
        array != nullptr && !array->bytes.empty()) {
        return std::to_integer<std::int32_t>(array->bytes.front());
    }
    return std::nullopt;
}

std::u16string NumberStringOf(const WmiValue& value) {
    const auto number = NumberOf(value);
    return number ? DecimalText(*number) : std::u16string();
}

std::u16string StringOf(WmiValue value) {
    auto* text = std::get_if<std::u16string>(&value);
    return text != nullptr ? std::move(*text) : std::u16string();
}

std::u16string StringUpToZeroOf(WmiValue value) {
    std::u16string text;
    if (const auto* codes = std::get_if<std::vector<std::int32_t>>(&value)) {
        text.resize(codes->size());
        std::ranges::transform(*codes, text.begin(), [](std::int32_t code) {
            return static_cast<char16_t>(static_cast<std::uint32_t>(code));
        });
    } else if (auto* whole = std::get_if<std::u16string>(&value)) {
        text = std::move(*whole);
    }
    text.resize(std::min(text.find(u'\0'), text.size()));
    return text;
}

} // namespace sondrel
