// sondrel list [NAME]
#include "base/text.h"
#include "commands/commands.h"

#include <algorithm>
#include <iostream>

namespace tool {
namespace {

/// The name as a user types it, with what has to be given.
std::string UsageOf(const Export& row) {
    std::string usage(row.name);
    if (!row.shape->argument.empty()) {
        usage.append(1, ' ').append(row.shape->argument);
    }
    return usage;
}

std::string DeclarationOf(const Export& row) {
    constexpr std::string_view Placeholder = "NAME";
    std::string text(row.shape->declaration);
    return text.replace(text.find(Placeholder), Placeholder.size(), row.name);
}

std::string Quoted(std::string_view value) {
    return value.empty() ? "(empty)" : std::string(value);
}

void PrintInFull(const Export& row, bool exported) {
    std::cout << row.name << (exported ? "" : " (not exported by this library)") << "\n  " << row.description
              << "\n\n  declared  " << DeclarationOf(row) << "\n  family    " << TitleOf(row.family)
              << "\n  call      sondrel call " << UsageOf(row) << '\n';
    if (!row.traits.unit.empty()) {
        std::cout << "  unit      " << row.traits.unit << '\n';
    }
    if (row.traits.size != 0) {
        std::cout << "  buffer    " << row.traits.size << " bytes\n";
    }
    std::cout << "  session   " << (row.traits.session ? "needed" : "not needed") << '\n';
    std::size_t width = 0;
    for (const Meaning& meaning : row.meanings) {
        width = std::max(width, Quoted(meaning.value).size());
    }
    for (const Meaning& meaning : row.meanings) {
        const std::string value = meaning.value == "*" ? "other" : Quoted(meaning.value);
        std::cout << (&meaning == row.meanings.data() ? "  values    " : "            ") << value
                  << std::string(width - std::min(width, value.size()) + 2, ' ') << TextOf(meaning.status)
                  << ": " << meaning.text << '\n';
    }
}

void PrintRow(const Export& row, bool exported, std::size_t width) {
    const std::string usage = UsageOf(row);
    std::cout << (exported ? "  " : "- ") << usage << std::string(width - usage.size() + 2, ' ')
              << row.description;
    if (!row.traits.unit.empty()) {
        std::cout << " [" << row.traits.unit << ']';
    }
    std::cout << '\n';
}

} // namespace

int ListExports(const Options& options) {
    const Export* const wanted = options.name.empty() ? nullptr : &ExportNamed(options.name);
    const Library library(options.library);
    if (wanted != nullptr) {
        PrintInFull(*wanted, library.Find(wanted->name) != nullptr);
        return 0;
    }
    std::size_t width = 0;
    for (const Export& row : AllExports()) {
        width = std::max(width, UsageOf(row).size());
    }
    std::size_t missing = 0;
    const Export* previous = nullptr;
    for (const Export& row : AllExports()) {
        if (previous == nullptr || previous->family != row.family) {
            std::cout << (previous != nullptr ? "\n" : "") << TitleOf(row.family) << '\n';
        }
        const bool exported = library.Find(row.name) != nullptr;
        PrintRow(row, exported, width);
        missing += exported ? 0 : 1;
        previous = &row;
    }
    if (missing != 0) {
        std::cout << "\nnot exported by this library (marked with -): " << missing << " names\n";
    }
    return 0;
}

} // namespace tool
