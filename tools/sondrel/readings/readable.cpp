#include "readings/readable.h"

#include "base/text.h"
#include "readings/converted.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace tool {
namespace {

std::string InBrackets(std::string_view text) {
    return text.empty() ? std::string() : std::string(" (").append(text).append(1, ')');
}

std::string PercentOf(double fraction) {
    char text[32];
    const int length = std::snprintf(text, sizeof text, "%.1f", fraction * 100);
    return length > 0 && static_cast<std::size_t>(length) < sizeof text ? text : "very large";
}

/// The bytes as characters, if all of them are printable.
std::string TextOfBytes(const std::string& hexadecimal) {
    const auto bytes = BytesOfHex(hexadecimal);
    if (!bytes ||
        !std::ranges::all_of(*bytes, [](std::uint8_t byte) { return byte >= ' ' && byte <= '~'; })) {
        return {};
    }
    return {bytes->begin(), bytes->end()};
}

/// CPUID leaf 0 has the processor's vendor in EBX, EDX, ECX, the first letter in the lowest byte.
std::string VendorOf(const std::string& words) {
    constexpr std::size_t OneWord = 9; // with a blank
    std::string vendor;
    for (const std::size_t index : {1, 3, 2}) {
        std::string letters = TextOfBytes(words.substr(index * OneWord, OneWord - 1));
        std::ranges::reverse(letters);
        vendor += letters;
    }
    return vendor;
}

/// Added in brackets to make the value readable.
std::string HintOf(const Export& row, const Answer& answer) {
    if (const auto* const number = std::get_if<std::int64_t>(&answer.number); number != nullptr) {
        return row.display == Display::Hexadecimal ? HexadecimalOf(*number)
               : row.display == Display::Letters   ? LettersOf(*number)
                                                   : std::string();
    }
    return row.display == Display::Registers ? VendorOf(answer.text)
           : row.display == Display::Bytes   ? TextOfBytes(answer.text)
                                             : std::string();
}

std::string ListOf(const Export& row, const Answer& answer, std::size_t columns) {
    const std::vector<std::string_view> elements = ElementsOf(answer.text);
    std::string text;
    for (const std::string_view element : elements) {
        const bool failed = StatusOfElement(row, element) == Status::Failed;
        text.append(text.empty() ? "" : ", ").append(failed ? "failed" : element);
        if (text.size() > 8 * columns) {
            break; // the rest is not shown
        }
    }
    return Columns(text) <= columns ? text : std::to_string(elements.size()) + ": " + text;
}

/// A reading without a value: its meaning, and the result in brackets.
std::string TextWithoutValue(const Reading& reading) {
    const std::string result = Shortened(OnOneLine(reading.answer.text), 40);
    const std::string shown = result.empty()             ? " (empty)"
                              : reading.answer.untouched ? ' ' + result
                                                         : InBrackets(result);
    const Status status = reading.classification.status;
    const std::string state(status == Status::Failed ? TextOf(reading.state) : TextOf(status));
    if (reading.cause && reading.cause->call) {
        return state + ": " + (result.empty() ? "empty" : result) + ", because " +
               TextWithRemedy(*reading.cause);
    }
    const std::string rule = reading.cause ? TextWithRemedy(*reading.cause) : reading.classification.meaning;
    if (status == Status::Absent) {
        return rule + shown;
    }
    return rule.empty() ? state + shown : state + shown + ": " + rule;
}

} // namespace

std::string HexadecimalOf(std::int64_t number) {
    char text[24];
    std::snprintf(text, sizeof text, "0x%08llx", static_cast<unsigned long long>(number));
    return text;
}

std::string LettersOf(std::int64_t number) {
    std::string letters;
    for (int shift = 24; shift >= 0; shift -= 8) {
        const auto letter = static_cast<char>(number >> shift & 0xFF);
        if (letter == '\0' && letters.empty()) {
            continue;
        }
        if (letter < ' ' || letter > '~') {
            return {};
        }
        letters.push_back(letter);
    }
    return letters;
}

std::optional<double> NumberIn(std::string_view text) {
    double number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = problem == std::errc() && end == text.data() + text.size();
    return whole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

Readable ReadableOf(const Reading& reading, std::size_t columns) {
    if (!HasValue(reading)) {
        return {TextWithoutValue(reading), {}, {}};
    }
    const Export& row = reading.row;
    const Answer& answer = reading.answer;
    const auto* const fraction = std::get_if<double>(&answer.number);
    if (row.display == Display::Fraction && fraction != nullptr) {
        return {PercentOf(*fraction), "%", reading.classification.meaning};
    }
    const std::string text = row.display == Display::List ? ListOf(row, answer, columns) : answer.text;
    std::string remark = row.unit == "bytes"       ? SizeText(reading)
                         : row.assumedUnit.empty() ? HintOf(row, answer)
                                                   : AssumedText(reading);
    remark.append(remark.empty() || reading.classification.meaning.empty() ? "" : ": ");
    remark.append(reading.classification.meaning);
    const bool isStale = reading.state == ReadingState::Stale;
    if (reading.cause && (isStale || (reading.state != ReadingState::Ok && reading.cause->call))) {
        remark.append(remark.empty() ? "" : "; ").append(TextOf(reading.state));
        remark.append(": ").append(TextWithRemedy(*reading.cause));
    }
    return {answer.text.empty() ? "(empty)" : Shortened(OnOneLine(text), columns), std::string(row.unit),
            std::move(remark)};
}

std::string OnOneLine(const Readable& readable) {
    std::string text = readable.value;
    text.append(readable.unit.empty() ? "" : " ").append(readable.unit);
    return text + InBrackets(readable.remark);
}

} // namespace tool
