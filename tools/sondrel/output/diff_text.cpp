// Differences between snapshots for a reader.
#include "output/diff_text.h"

#include "base/text.h"
#include "readings/readable.h"

#include <algorithm>
#include <cstdio>

namespace tool {
namespace {

using Json = nlohmann::json;

constexpr std::size_t LongestValue = 80;
constexpr std::size_t NameColumn = 44;
constexpr std::string_view Missing = "(not in this snapshot)";

/// The number in the form of the export.
std::string NumberText(const Json& value, Display display) {
    if (display == Display::Fraction) {
        char text[32];
        std::snprintf(text, sizeof text, "%.3g", value.get<double>());
        return text;
    }
    if (value.is_number_integer() && display == Display::Hexadecimal) {
        return HexadecimalOf(value.get<std::int64_t>());
    }
    const std::string letters = value.is_number_integer() && display == Display::Letters
                                    ? LettersOf(value.get<std::int64_t>())
                                    : std::string();
    return letters.empty() ? value.dump() : std::string(1, '"').append(letters).append(1, '"');
}

std::string ValueText(const Json& value, Display display) {
    if (value.is_null()) {
        return "failed"; // an element of a list
    }
    if (value.is_number()) {
        return NumberText(value, display);
    }
    return Shortened(OnOneLine(value.dump(-1, ' ', false, Json::error_handler_t::replace)), LongestValue);
}

std::string ReadingText(const SnapshotReading* reading, Display display) {
    if (reading == nullptr) {
        return std::string(Missing);
    }
    if (reading->status == TextOf(Status::Ok) || reading->status == TextOf(Status::Partly)) {
        return ValueText(reading->value, display);
    }
    const std::string text = reading->status + (reading->meaning.empty() ? "" : ": ") + reading->meaning;
    return Shortened(OnOneLine(text), LongestValue);
}

std::string WithUnit(std::string text, const std::string& unit) {
    return unit.empty() ? text : text.append(1, ' ').append(OnOneLine(unit));
}

std::string LineOf(const Change& change, Display display, const std::string& unit) {
    std::string line = change.path.empty() ? std::string() : Shortened(change.path, LongestValue) + ": ";
    if (!change.before || !change.after) {
        line += change.after ? "new " : "gone ";
        return WithUnit(line + ValueText(change.after ? *change.after : *change.before, display), unit);
    }
    return WithUnit(line + ValueText(*change.before, display) + " -> " + ValueText(*change.after, display),
                    unit);
}

std::vector<std::string> LinesOf(const Difference& difference) {
    const Export* const row = FindExport(difference.name);
    const Display display = row != nullptr ? row->display : Display::Plain;
    const std::string before = difference.before != nullptr ? difference.before->unit : "";
    const std::string after = difference.after != nullptr ? difference.after->unit : "";
    const bool oneUnit = before == after;
    std::vector<std::string> lines;
    for (const Change& change : difference.changes) {
        lines.push_back(LineOf(change, display, oneUnit ? after : ""));
    }
    if (lines.empty()) {
        lines.push_back(ReadingText(difference.before, display) + " -> " +
                        ReadingText(difference.after, display));
    }
    if (!oneUnit && difference.before != nullptr && difference.after != nullptr) {
        lines.push_back(std::string("unit: \"")
                            .append(OnOneLine(before))
                            .append("\" -> \"")
                            .append(OnOneLine(after))
                            .append(1, '"'));
    }
    return lines;
}

std::string HeaderLine(std::string_view side, const SnapshotFile& from) {
    std::string line(side);
    return line.append("  ").append(OnOneLine(from.file)) + ": " + OnOneLine(from.snapshot.machine) +
           ", taken " + OnOneLine(from.snapshot.taken.empty() ? "at an unknown time" : from.snapshot.taken) +
           '\n';
}

} // namespace

std::string DifferencesAsText(const SnapshotFile& before, const SnapshotFile& after,
                              const Differences& differences) {
    std::string text = HeaderLine("before", before) + HeaderLine("after ", after);
    std::string group;
    for (const Difference& difference : differences.all) {
        if (difference.group != group) {
            group = difference.group;
            text.append(1, '\n').append(OnOneLine(group)).append(1, '\n');
        }
        std::string name = std::string("  ").append(OnOneLine(difference.name));
        for (const std::string& line : LinesOf(difference)) {
            name.resize(std::max(name.size() + 1, NameColumn), ' ');
            text.append(name).append(line).append(1, '\n');
            name.clear();
        }
    }
    text += std::string(1, '\n').append(std::to_string(differences.all.size())) + " of " +
            std::to_string(differences.compared) + " readings differ";
    if (differences.leftOut != 0) {
        text.append("; ")
            .append(std::to_string(differences.leftOut))
            .append(" that usually differ were left out");
    }
    return text + '\n';
}

} // namespace tool
