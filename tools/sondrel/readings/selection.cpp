#include "readings/selection.h"

#include "base/error.h"
#include "base/text.h"

#include <algorithm>

namespace tool {
namespace {

/// "*" is any text, "?" is any character. Looks back to the last "*" only, so no pattern takes long.
bool MatchesPattern(std::string_view name, std::string_view pattern) {
    std::size_t at = 0;
    std::size_t place = 0;
    std::size_t afterStar = std::string_view::npos;
    std::size_t resume = 0;
    while (at < name.size()) {
        if (place < pattern.size() && (pattern[place] == '?' || pattern[place] == name[at])) {
            ++at;
            ++place;
        } else if (place < pattern.size() && pattern[place] == '*') {
            afterStar = ++place;
            resume = at;
        } else if (afterStar != std::string_view::npos) {
            place = afterStar;
            at = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', place) == std::string_view::npos;
}

bool IsInGroup(const Export& row, std::string_view word) {
    const std::string_view id = exports::IdOf(row.group);
    return id == word || (id.starts_with(word) && id.substr(word.size()).starts_with('_'));
}

void AddNamed(const std::string& name, const Library& library, std::vector<const Export*>& chosen) {
    const Export& row = ExportNamed(name);
    if (row.report == InReport::Skipped) {
        throw Error(name + " changes something; only readings can be chosen");
    }
    AddressOf(library, row);
    chosen.push_back(&row);
}

} // namespace

std::vector<const Export*> ChosenReadings(std::span<const std::string> words, const Library& library) {
    std::vector<const Export*> chosen;
    for (const std::string& word : words) {
        const bool isPattern = word.find_first_of("*?") != std::string::npos;
        const std::size_t before = chosen.size();
        for (const Export& row : AllExports()) {
            const bool isMeant = isPattern ? MatchesPattern(row.name, word) : IsInGroup(row, word);
            if (isMeant && row.report == InReport::Called && library.Find(row.name) != nullptr) {
                chosen.push_back(&row);
            }
        }
        if (isPattern && chosen.size() == before) {
            throw Error("no reading of this library is called " + OnOneLine(word));
        }
        if (chosen.size() == before) {
            AddNamed(word, library, chosen);
        }
    }
    std::vector<const Export*> once;
    std::ranges::copy_if(chosen, std::back_inserter(once),
                         [&](const Export* row) { return std::ranges::find(once, row) == once.end(); });
    return once;
}

} // namespace tool
