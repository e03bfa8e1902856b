#include "exports/judge.h"

#include "base/text.h"

#include <algorithm>
#include <vector>

namespace tool {
namespace {

/// A list means what its places mean, where they all mean the same.
Judgement JudgeList(const Export& row, const Answer& answer) {
    const std::vector<std::string_view> places = PlacesOf(answer.bare);
    const Meaning* const first = MeaningOf(row, places.front());
    if (first != nullptr &&
        std::ranges::all_of(places, [&](std::string_view place) { return MeaningOf(row, place) == first; })) {
        return {first->status, std::string(first->text)};
    }
    const bool failed = std::ranges::any_of(places, [&](std::string_view place) {
        const Meaning* const meaning = MeaningOf(row, place);
        return !place.empty() && meaning != nullptr && meaning->status == Status::Failed;
    });
    return {failed ? Status::Partly : Status::Ok, ""};
}

} // namespace

const Meaning* MeaningOf(const Export& row, std::string_view value) {
    const auto found = std::ranges::find_if(
        row.meanings, [&](const Meaning& meaning) { return meaning.value == value || meaning.value == "*"; });
    return found != row.meanings.end() ? &*found : nullptr;
}

std::vector<std::string_view> PlacesOf(std::string_view list) {
    std::vector<std::string_view> places = Split(list, ';');
    if (places.size() > 1 && places.back().empty()) {
        places.pop_back();
    }
    return places;
}

Judgement Judge(const Export& row, const Answer& answer) {
    if (!answer.fault.empty()) {
        return {Status::Faulty, answer.fault};
    }
    if (answer.code != 0) {
        return {Status::Failed, "system error " + std::to_string(answer.code)};
    }
    if (const Meaning* const meaning = MeaningOf(row, answer.bare); meaning != nullptr) {
        return {meaning->status, std::string(meaning->text)};
    }
    if (answer.untouched) {
        return {Status::Untouched, "the library wrote nothing"};
    }
    return row.traits.display == Display::List ? JudgeList(row, answer) : Judgement{};
}

} // namespace tool
