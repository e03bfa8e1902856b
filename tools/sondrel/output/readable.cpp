#include "output/readable.h"

#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace tool {
namespace {

std::string InBrackets(std::string_view text) {
    return text.empty() ? std::string() : std::string(" (").append(text).append(1, ')');
}

std::string HexadecimalOf(std::int64_t number) {
    char text[24];
    std::snprintf(text, sizeof text, "0x%08llx", static_cast<unsigned long long>(number));
    return text;
}

std::string PercentOf(double fraction) {
    char text[32];
    const int length = std::snprintf(text, sizeof text, "%.1f", fraction * 100);
    return length > 0 && static_cast<std::size_t>(length) < sizeof text ? text : "more than any";
}

/// The printable characters that a number is packed of, the first in the highest byte; empty if they are not.
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

/// Raw bytes that are a text are easier read as one.
std::string TextOfBytes(const std::string& hexadecimal) {
    const auto bytes = BytesOfHex(hexadecimal);
    if (!bytes ||
        !std::ranges::all_of(*bytes, [](std::uint8_t byte) { return byte >= ' ' && byte <= '~'; })) {
        return {};
    }
    return {bytes->begin(), bytes->end()};
}

/// CPUID leaf 0 tells the processor's vendor in EBX, EDX, ECX, the first letter in the lowest byte.
std::string VendorOf(const std::string& words) {
    constexpr std::size_t OneWord = 9; // with its blank
    std::string vendor;
    for (const std::size_t place : {1, 3, 2}) {
        std::string letters = TextOfBytes(words.substr(place * OneWord, OneWord - 1));
        std::ranges::reverse(letters);
        vendor += letters;
    }
    return vendor;
}

/// What is added in brackets to make a bare value readable.
std::string HintOf(const Export& row, const Answer& answer) {
    if (const auto* const number = std::get_if<std::int64_t>(&answer.number); number != nullptr) {
        return row.display == Display::Hexadecimal ? HexadecimalOf(*number)
               : row.display == Display::Letters   ? LettersOf(*number)
                                                   : std::string();
    }
    return row.display == Display::Registers ? VendorOf(answer.bare)
           : row.display == Display::Bytes   ? TextOfBytes(answer.bare)
                                             : std::string();
}

std::string ListOf(const Export& row, const Answer& answer, std::size_t columns) {
    const std::vector<std::string_view> places = ElementsOf(answer.bare);
    std::string text;
    for (const std::string_view place : places) {
        const bool failed = StatusOfElement(row, place) == Status::Failed;
        text.append(text.empty() ? "" : ", ").append(failed ? "failed" : place);
        if (text.size() > 8 * columns) {
            break; // what is behind is not shown
        }
    }
    return Columns(text) <= columns ? text : std::to_string(places.size()) + ": " + text;
}

/// A reading that is no value: its meaning, and the bare result in brackets.
std::string NoValueOf(const Reading& reading) {
    const std::string bare = Shortened(OnOneLine(reading.answer.bare), 40);
    const std::string shown = bare.empty()               ? " (empty)"
                              : reading.answer.untouched ? ' ' + bare
                                                         : InBrackets(bare);
    const std::string& meaning = reading.classification.meaning;
    if (reading.classification.status == Status::Absent) {
        return meaning + shown;
    }
    std::string text(TextOf(reading.classification.status));
    text += shown;
    return meaning.empty() ? text : text.append(": ").append(meaning);
}

} // namespace

bool HasValue(const Reading& reading) {
    return reading.classification.status == Status::Ok || reading.classification.status == Status::Partly;
}

std::optional<double> NumberIn(std::string_view place) {
    double number = 0;
    const auto [end, problem] = std::from_chars(place.data(), place.data() + place.size(), number);
    const bool whole = problem == std::errc() && end == place.data() + place.size();
    return whole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

Readable ReadableOf(const Reading& reading, std::size_t columns) {
    if (!HasValue(reading)) {
        return {NoValueOf(reading), {}, {}};
    }
    const Export& row = reading.row;
    const Answer& answer = reading.answer;
    const auto* const fraction = std::get_if<double>(&answer.number);
    if (row.display == Display::Fraction && fraction != nullptr) {
        return {PercentOf(*fraction), "%", reading.classification.meaning};
    }
    const std::string text = row.display == Display::List ? ListOf(row, answer, columns) : answer.bare;
    std::string remark = HintOf(row, answer);
    remark.append(remark.empty() || reading.classification.meaning.empty() ? "" : ": ");
    remark.append(reading.classification.meaning);
    return {answer.bare.empty() ? "(empty)" : Shortened(OnOneLine(text), columns), std::string(row.unit),
            std::move(remark)};
}

std::string OnOneLine(const Readable& readable) {
    std::string text = readable.value;
    text.append(readable.unit.empty() ? "" : " ").append(readable.unit);
    return text + InBrackets(readable.remark);
}

} // namespace tool
