// sondrel list [NAME]
#include "base/error.h"
#include "base/text.h"
#include "commands/commands.h"
#include "exports/classify.h"
#include "terminal/terminal.h"

#include <algorithm>
#include <iostream>

namespace tool {
namespace {

/// The name and the argument, as a user types them.
std::string UsageOf(const Export& row) {
    std::string usage(row.name);
    if (!row.argument.empty()) {
        usage.append(1, ' ').append(row.argument);
    }
    return usage;
}

/// The value as a user sees it.
std::string Shown(const SpecialValue& value) {
    switch (value.match) {
    case exports::Match::Untouched:
        return std::string(BufferUntouched);
    case exports::Match::ErrorCode:
        return "(error code)";
    case exports::Match::Other:
        return "other";
    default:
        return value.text.empty() ? "(empty)" : std::string(value.text);
    }
}

std::string BufferText(const exports::Buffer& buffer) {
    std::string size = std::to_string(buffer.size).append(1, ' ').append(buffer.unit);
    switch (buffer.rule) {
    case exports::BufferRule::Exact:
        return "exactly " + size;
    case exports::BufferRule::Grows:
        return "no limit; " + size + " suffice for known machines";
    default:
        return size;
    }
}

void PrintInFull(const Export& row, bool exported) {
    std::cout << row.name << (exported ? "" : " (not exported by this library)") << "\n  " << row.summary
              << "\n\n  declared  " << row.declaration << "\n  group     " << exports::TitleOf(row.group)
              << " (" << exports::IdOf(row.group) << ")\n  call      sondrel call " << UsageOf(row) << '\n';
    if (!row.unit.empty()) {
        std::cout << "  unit      " << row.unit << '\n';
    }
    if (row.buffer.rule != exports::BufferRule::None) {
        std::cout << "  buffer    " << BufferText(row.buffer) << '\n';
    }
    std::cout << "  session   " << (row.needsSession ? "needed" : "not needed") << '\n';
    std::size_t width = 0;
    for (const SpecialValue& value : row.values) {
        width = std::max(width, Shown(value).size());
    }
    for (const SpecialValue& value : row.values) {
        std::string text = Shown(value);
        text.resize(width + 2, ' ');
        std::cout << (&value == row.values.data() ? "  values    " : "            ") << text
                  << TextOf(StatusOf(value.state)) << ": " << value.meaning << '\n';
    }
}

/// The names in one column and the summaries in another, or each summary below its name.
struct Layout {
    std::size_t names;
    std::size_t columns = terminal::ColumnsFor(terminal::Stream::Out);

    [[nodiscard]] bool IsNarrow() const { return columns < names + 34; }
};

void PrintRow(const Export& row, bool exported, const Layout& layout) {
    std::string summary(row.summary);
    if (!row.unit.empty()) {
        summary.append(" [").append(row.unit).append("]");
    }
    std::string line = (exported ? "  " : "- ") + UsageOf(row);
    const std::size_t indent = layout.IsNarrow() ? 6 : layout.names + 4;
    if (layout.IsNarrow()) {
        std::cout << Shortened(line, layout.columns) << '\n';
        line.clear();
    }
    for (const std::string& words : Wrapped(summary, std::max(layout.columns, indent + 10) - indent)) {
        line.resize(indent, ' ');
        std::cout << line << words << '\n';
        line.clear();
    }
}

} // namespace

int ListExports(const Options& options) {
    const Export* const chosen = options.name.empty() ? nullptr : &ExportNamed(options.name);
    const Library library(options.host.library);
    if (chosen != nullptr) {
        PrintInFull(*chosen, library.Find(chosen->name) != nullptr);
        return ExitOk;
    }
    Layout layout{.names = 0};
    for (const Export& row : AllExports()) {
        layout.names = std::max(layout.names, UsageOf(row).size());
    }
    std::size_t missing = 0;
    const Export* previous = nullptr;
    for (const Export& row : AllExports()) {
        if (previous == nullptr || previous->group != row.group) {
            std::cout << (previous != nullptr ? "\n" : "") << exports::TitleOf(row.group) << " ("
                      << exports::IdOf(row.group) << ")\n";
        }
        const bool exported = library.Find(row.name) != nullptr;
        PrintRow(row, exported, layout);
        missing += exported ? 0 : 1;
        previous = &row;
    }
    if (missing != 0) {
        std::cout << "\nnot exported by this library (marked with -): " << missing << " names\n";
    }
    return ExitOk;
}

} // namespace tool
