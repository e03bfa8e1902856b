#include "exports/classify.h"

#include "base/text.h"

#include <algorithm>
#include <array>

namespace tool {
namespace {

using exports::Match;

constexpr auto StatusTexts =
    std::to_array<std::string_view>({"ok", "partly failed", "failed", "absent", "not read yet", "untouched",
                                     "faulty", "not exported", "not run"});
static_assert(StatusTexts.size() == static_cast<std::size_t>(Status::NotRun) + 1);

/// The entry for the answer as a whole, or null.
const SpecialValue* SpecialAnswer(const Export& row, const Answer& answer) {
    const auto found = std::ranges::find_if(row.values, [&](const SpecialValue& value) {
        switch (value.match) {
        case Match::Whole:
            return !answer.untouched && value.text == answer.text;
        case Match::Untouched:
            return answer.untouched;
        case Match::Other:
            return true;
        default:
            return false;
        }
    });
    return found != row.values.end() ? &*found : nullptr;
}

const SpecialValue* SpecialElement(const Export& row, std::string_view element) {
    const auto found = std::ranges::find_if(row.values, [&](const SpecialValue& value) {
        return value.match == Match::Element && value.text == element;
    });
    return found != row.values.end() ? &*found : nullptr;
}

/// A list whose elements all mean the same means that as a whole.
const SpecialValue* SpecialList(const Export& row, const Answer& answer) {
    const std::vector<std::string_view> elements = ElementsOf(answer.text);
    const SpecialValue* const first = SpecialElement(row, elements.front());
    const bool isAll = std::ranges::all_of(
        elements, [&](std::string_view element) { return SpecialElement(row, element) == first; });
    return isAll ? first : nullptr;
}

Classification ClassifyList(const Export& row, const Answer& answer) {
    const bool failed = std::ranges::any_of(ElementsOf(answer.text), [&](std::string_view element) {
        return StatusOfElement(row, element) == Status::Failed;
    });
    return {failed ? Status::Partly : Status::Ok, ""};
}

} // namespace

std::string_view TextOf(Status status) {
    return StatusTexts[static_cast<std::size_t>(status)];
}

Status StatusOf(exports::State state) {
    switch (state) {
    case exports::State::Ok:
        return Status::Ok;
    case exports::State::Failed:
    case exports::State::NoSession:
        return Status::Failed;
    case exports::State::Absent:
    case exports::State::NotReady:
        return Status::Absent;
    case exports::State::NotRead:
        return Status::NotRead;
    }
    return Status::Failed;
}

Status StatusOfElement(const Export& row, std::string_view element) {
    const SpecialValue* const special = SpecialElement(row, element);
    return special != nullptr ? StatusOf(special->state) : Status::Ok;
}

std::vector<std::string_view> ElementsOf(std::string_view list) {
    std::vector<std::string_view> elements = Split(list, ';');
    if (elements.size() > 1 && elements.back().empty()) {
        elements.pop_back();
    }
    return elements;
}

const SpecialValue* SpecialValueOf(const Export& row, const Answer& answer) {
    if (const SpecialValue* const special = SpecialAnswer(row, answer); special != nullptr) {
        return special;
    }
    const bool isList = row.display == Display::List && !answer.untouched;
    return isList ? SpecialList(row, answer) : nullptr;
}

bool CanLackSession(const Export& row, const Answer& answer) {
    const auto canMean = [](const SpecialValue* special) {
        return special != nullptr && special->CanMean(exports::State::NoSession);
    };
    if (!row.needsSession || row.display != Display::List || answer.untouched) {
        return row.needsSession && canMean(SpecialAnswer(row, answer));
    }
    return std::ranges::all_of(ElementsOf(answer.text), [&](std::string_view element) {
        return canMean(SpecialElement(row, element));
    });
}

Classification Classify(const Export& row, const Answer& answer) {
    if (!answer.fault.empty()) {
        return {Status::Faulty, answer.fault};
    }
    if (answer.code != 0) {
        return {Status::Failed, "system error " + std::to_string(answer.code)};
    }
    if (const SpecialValue* const special = SpecialValueOf(row, answer); special != nullptr) {
        return {StatusOf(special->state), std::string(special->meaning)};
    }
    if (answer.untouched) {
        return {Status::Untouched, "the library wrote nothing"};
    }
    return row.display == Display::List ? ClassifyList(row, answer) : Classification{};
}

} // namespace tool
