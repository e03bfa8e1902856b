#include "readings/converted.h"

#include "base/text.h"
#include "readings/readable.h"

#include <cstdio>

namespace tool {

std::optional<double> BaseNumber(const Export& row, std::string_view text) {
    const std::optional<double> number =
        StatusOfElement(row, text) == Status::Ok ? NumberIn(text) : std::nullopt;
    return number ? std::optional(row.conversion.Of(*number)) : std::nullopt;
}

std::vector<std::optional<double>> ConvertedNumbers(const Reading& reading) {
    std::vector<std::optional<double>> numbers;
    if (reading.row.convertedUnit.empty() || !HasValue(reading)) {
        return numbers;
    }
    const std::string_view text = reading.answer.text;
    for (const std::string_view element :
         reading.row.display == Display::List ? ElementsOf(text) : std::vector{text}) {
        numbers.push_back(BaseNumber(reading.row, element));
    }
    return numbers;
}

std::string SizeText(const Reading& reading) {
    constexpr double BytesInGigabyte = 1e9;
    if (reading.row.unit != "bytes") {
        return {};
    }
    const std::string_view list = reading.answer.text;
    std::string text;
    for (const std::string_view element :
         reading.row.display == Display::List ? ElementsOf(list) : std::vector{list}) {
        const std::optional<double> bytes = BaseNumber(reading.row, element);
        char size[400]; // the largest double has 309 digits
        std::snprintf(size, sizeof size, "%.1f", bytes.value_or(0) / BytesInGigabyte);
        text.append(text.empty() ? "" : ", ").append(bytes ? size : "-");
    }
    return text.append(" GB");
}

std::string AssumedText(const Reading& reading) {
    std::string text;
    if (reading.row.assumedUnit.empty()) {
        return text;
    }
    for (const std::optional<double>& number : ConvertedNumbers(reading)) {
        text.append(text.empty() ? "" : ", ").append(number ? PlainNumber(*number) : "-");
    }
    return text.empty() ? text : text.append(1, ' ').append(reading.row.convertedUnit);
}

std::string AssumedText(const Export& row, double number) {
    return row.assumedUnit.empty()
               ? std::string()
               : PlainNumber(row.conversion.Of(number)).append(1, ' ').append(row.convertedUnit);
}

} // namespace tool
