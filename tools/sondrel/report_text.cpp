// sondrel report, for the eye.
#include "commands.h"
#include "document.h"
#include "text.h"

#include <algorithm>
#include <cstdio>
#include <iostream>

namespace tool {
namespace {

constexpr std::size_t LongestLine = 100;
constexpr std::size_t MostLines = 24;

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
    const int length = std::snprintf(text, sizeof text, "%.1f %%", fraction * 100);
    return length > 0 && static_cast<std::size_t>(length) < sizeof text ? text : "beyond any percentage";
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
        return row.traits.display == Display::Hexadecimal ? HexadecimalOf(*number)
               : row.traits.display == Display::Letters   ? LettersOf(*number)
                                                          : std::string();
    }
    if (row.shape == &shape::ProcessorLeaf) {
        return VendorOf(answer.bare);
    }
    return row.shape == &shape::ReadBytes ? TextOfBytes(answer.bare) : std::string();
}

std::string ListOf(const Export& row, const Answer& answer) {
    const std::vector<std::string_view> places = PlacesOf(answer.bare);
    std::string text;
    for (const std::string_view place : places) {
        const Meaning* const meaning = MeaningOf(row, place);
        const bool failed = meaning != nullptr && meaning->status == Status::Failed && !place.empty();
        text.append(text.empty() ? "" : ", ").append(failed ? "failed" : place);
        if (text.size() > 8 * LongestLine) {
            break; // what is behind is not shown
        }
    }
    return Columns(text) <= LongestLine ? text : std::to_string(places.size()) + ": " + text;
}

std::string ValueOf(const Reading& reading) {
    const Export& row = reading.row;
    const Answer& answer = reading.answer;
    const auto* const fraction = std::get_if<double>(&answer.number);
    if (row.traits.display == Display::Fraction && fraction != nullptr) {
        return PercentOf(*fraction);
    }
    std::string text = row.traits.display == Display::List ? ListOf(row, answer) : answer.bare;
    text = answer.bare.empty() ? "(empty)" : Shortened(OnOneLine(text), LongestLine);
    if (!row.traits.unit.empty()) {
        text.append(1, ' ').append(row.traits.unit);
    }
    return text + InBrackets(HintOf(row, answer));
}

/// A reading that is no value: its meaning, and the bare result in brackets.
std::string NoValueOf(const Reading& reading) {
    const std::string bare = Shortened(OnOneLine(reading.answer.bare), 40);
    const std::string shown = bare.empty()               ? " (empty)"
                              : reading.answer.untouched ? ' ' + bare
                                                         : InBrackets(bare);
    const std::string& meaning = reading.judgement.meaning;
    if (reading.judgement.status == Status::Absent) {
        return meaning + shown;
    }
    std::string text(TextOf(reading.judgement.status));
    text += shown;
    return meaning.empty() ? text : text.append(": ").append(meaning);
}

std::vector<std::string> LinesOf(const Reading& reading) {
    switch (reading.judgement.status) {
    case Status::Ok:
    case Status::Partly:
        break;
    default:
        return {NoValueOf(reading)};
    }
    if (reading.row.traits.display == Display::Document) {
        std::vector<std::string> lines = DocumentLines(reading.answer.bare, LongestLine);
        if (lines.size() > MostLines) {
            const std::size_t left = lines.size() - (MostLines - 1);
            lines.resize(MostLines - 1);
            lines.push_back("... " + std::to_string(left) + " more lines: sondrel call " +
                            std::string(reading.row.name));
        }
        return lines;
    }
    return {ValueOf(reading) + InBrackets(reading.judgement.meaning)};
}

class TextReport {
public:
    explicit TextReport(std::ostream& out) : m_out(out) {
        for (const Export& row : AllExports()) {
            m_width = std::max(m_width, row.name.size());
        }
    }

    void Add(const Reading& reading) {
        if (reading.judgement.status == Status::NotExported) {
            ++m_notExported;
            return;
        }
        if (reading.judgement.status == Status::NotRun) {
            m_notRun.append(m_notRun.empty() ? "" : ", ").append(reading.row.name);
            return;
        }
        if (reading.row.family != m_family) {
            m_family = reading.row.family;
            m_out << '\n' << TitleOf(m_family) << '\n';
        }
        std::string margin =
            "  " + std::string(reading.row.name) + std::string(m_width - reading.row.name.size() + 2, ' ');
        for (const std::string& line : LinesOf(reading)) {
            m_out << margin << line << '\n';
            margin.assign(margin.size(), ' ');
        }
        m_out.flush(); // the next reading may take its time
    }

    void End() const {
        m_out << '\n';
        if (!m_notRun.empty()) {
            m_out << "not run by a report: " << m_notRun << '\n';
        }
        if (m_notExported != 0) {
            m_out << "not exported by this library: " << m_notExported << " names\n";
        }
    }

private:
    std::ostream& m_out;
    std::size_t m_width = 0;
    Family m_family = Family::Count;
    std::size_t m_notExported = 0;
    std::string m_notRun;
};

} // namespace

void ReportAsText(const Host& host, const Options& options) {
    std::cout << "Library  " << Utf8Of(host.library.File()) << "\nMachine  " << host.machineName
              << (host.machine ? " (simulated)" : "") << '\n';
    TextReport report(std::cout);
    ReadAll(host, options, [&](const Reading& reading) { report.Add(reading); });
    report.End();
}

} // namespace tool
