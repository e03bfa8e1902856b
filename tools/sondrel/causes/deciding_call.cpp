#include "causes/deciding_call.h"

#include "causes/call_words.h"
#include "causes/codes.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace tool {
namespace {

/// A call that succeeded, with nothing in one of its outputs.
struct EmptyAnswer {
    std::string_view operation;
    std::string_view output; // empty: the result
    std::string_view value;  // empty: it is not written
    std::string_view words;
    ReadingState state = ReadingState::Absent;
    Course course = Course::Optional;
};

constexpr EmptyAnswer EmptyAnswers[] = {
    {"Next", "returned", "0", "returned no row", ReadingState::Absent, Course::EndOfList},
    {"Get", "value", "-", "returned no value"},
    {"GetMethod", "signature", "", "returned no method"},
    {"ExecMethod", "out", "", "returned nothing", ReadingState::Failed, Course::Decides},
    {"WlanEnumInterfaces", "interfaces", "[]", "returned no interface"},
    {"WlanQueryInterface", "connection", "-", "returned no connection"},
    {"WlanQueryInterface", "number", "-", "returned no number"},
    {"WlanGetNetworkBssList", "entries", "[]", "returned no network"},
    {"GetPackagesByPackageFamily", "count", "0", "returned no package"},
    {"SHLoadIndirectString", "text", "\"\"", "returned an empty string"},
    {"load", "", "1", "loaded nothing", ReadingState::Failed, Course::Decides},
    {"get_xml", "", "1", "returned nothing", ReadingState::Failed, Course::Decides},
    {"CM_Get_Device_ID_List_SizeW", "length", "0", "returned no device"},
    {"ReadFile", "read", "0", "returned no bytes"},
    {"EnumWindows", "", "[]", "returned no window", ReadingState::Failed, Course::Decides},
};

/// What calls for nothing: they report, wait or release.
constexpr std::string_view Silent[] = {"StringFromGUID2", "Time64"};

bool IsSilent(const BoundaryCall& call) {
    return call.row->reports || call.row->returns == observer::Returns::Nothing ||
           std::ranges::find(Silent, call.row->name) != std::end(Silent);
}

/// What a call did other than what it was asked for.
struct Finding {
    CodeMeaning meaning;
    std::string outcome;
    std::optional<std::uint32_t> code;
    bool isUnnoticed = false;
};

std::optional<Finding> FailureOf(const BoundaryCall& call) {
    const auto code = CodeOf(call);
    Finding finding{.meaning = MeaningOf(call.row->name, code), .outcome = "failed", .code = code};
    if (code) {
        const bool isOwn = call.row->lastError == observer::LastError::NotSet;
        finding.outcome = (isOwn ? "returned " : "failed with ") + CodeText(*code);
    }
    finding.isUnnoticed = EcCommandOf(call).has_value();
    return finding;
}

/// The driver and the battery device answer in full; the firmware's device returns at least a word.
std::optional<Finding> ShortAnswer(const BoundaryCall& call) {
    constexpr std::string_view AcpiRequest = "0x22240c";
    const std::string_view returned = call.Output("returned");
    const bool isAcpi = call.Input("code") == AcpiRequest;
    const std::string_view size = isAcpi ? "4" : call.Input("out");
    const bool isShort = isAcpi ? returned.size() == 1 && returned < size : returned != size;
    if (call.row->name != "DeviceIoControl" || !isShort) {
        return std::nullopt;
    }
    return Finding{.meaning = {},
                   .outcome =
                       std::string("returned ").append(returned).append(" of ").append(size).append(" bytes"),
                   .code = std::nullopt,
                   .isUnnoticed = true};
}

std::optional<Finding> Empty(const BoundaryCall& call) {
    const auto* const empty = std::ranges::find_if(EmptyAnswers, [&](const EmptyAnswer& answer) {
        return answer.operation == call.row->name &&
               (answer.output.empty() ? call.result : call.Output(answer.output)) == answer.value;
    });
    if (empty == std::end(EmptyAnswers)) {
        return std::nullopt;
    }
    return Finding{.meaning = {empty->state, "", "", empty->course},
                   .outcome = std::string(empty->words),
                   .code = std::nullopt};
}

std::optional<Finding> FindingOf(const BoundaryCall& call) {
    if (IsSilent(call)) {
        return std::nullopt;
    }
    if (!call.succeeded) {
        return FailureOf(call);
    }
    if (const auto command = EcCommandOf(call); command && command->status != 0) {
        const bool identifies = command->bytes.starts_with("bb"); // some readings do without
        return Finding{.meaning = {.course = identifies ? Course::Optional : Course::Decides},
                       .outcome = "was answered with the EC's status " + std::to_string(command->status),
                       .code = std::nullopt};
    }
    if (auto finding = ShortAnswer(call)) {
        return finding;
    }
    return Empty(call);
}

std::vector<std::string_view> InputValues(const BoundaryCall& call) {
    std::vector<std::string_view> inputs;
    inputs.reserve(call.arguments.size());
    for (const BoundaryCall::Argument& argument : call.arguments) {
        if (!argument.output) {
            inputs.emplace_back(argument.value);
        }
    }
    return inputs;
}

bool HaveSameInputs(const BoundaryCall& one, const BoundaryCall& other) {
    return one.row == other.row && InputValues(one) == InputValues(other);
}

bool HaveSameFirstInput(const BoundaryCall& one, const BoundaryCall& other) {
    return one.row == other.row && !one.arguments.empty() && !other.arguments.empty() &&
           one.arguments.front().value == other.arguments.front().value;
}

bool StartsWith(const BoundaryCall& call, std::string_view prefix) {
    return call.row->name.starts_with(prefix);
}

/// Whether the next call tries it again. Only the last try counts: of a device that is not held alone, of a buffer that
/// was too small, of the EC that is polled.
bool IsTriedAgain(std::span<const BoundaryCall> calls, std::size_t place, Course course) {
    const auto later = calls.subspan(place + 1);
    const auto next = std::ranges::find_if_not(later, IsSilent);
    if (next == later.end() || next->row != calls[place].row) {
        return false;
    }
    const bool isSame = HaveSameInputs(calls[place], *next);
    if (EcCommandOf(calls[place])) {
        return isSame;
    }
    return course == Course::Retried && !isSame &&
           SubjectOf(calls, place) == SubjectOf(calls, static_cast<std::size_t>(&*next - calls.data()));
}

/// Whether the EC was asked where its persisted identity is missing.
bool IsReplacedByEc(std::span<const BoundaryCall> calls, std::size_t place) {
    return StartsWith(calls[place], "Reg") &&
           std::ranges::any_of(calls.subspan(place + 1), [](const BoundaryCall& later) {
               return later.succeeded && EcCommandOf(later) && !FindingOf(later);
           });
}

int WeightOf(Course course) {
    switch (course) {
    case Course::Decides:
    case Course::Retried:
        return 3;
    case Course::Optional:
    case Course::EndOfList:
        return 2;
    case Course::Expected:
        return 1;
    case Course::Never:
        break;
    }
    return 0;
}

/// Whether an item was returned before the end of the list.
bool HasItemBefore(std::span<const BoundaryCall> calls, std::size_t place) {
    const BoundaryCall& call = calls[place];
    if (StartsWith(call, "BluetoothFindNext")) {
        return true;
    }
    return std::ranges::any_of(calls.first(place), [&](const BoundaryCall& earlier) {
        return HaveSameFirstInput(call, earlier) && earlier.succeeded && !Empty(earlier);
    });
}

Cause CauseOf(std::span<const BoundaryCall> calls, std::size_t place, const Finding& finding) {
    const BoundaryCall& call = calls[place];
    return {.call = DecidingCall{.number = call.number,
                                 .operation = std::string(call.row->name),
                                 .subject = SubjectOf(calls, place),
                                 .outcome = finding.outcome,
                                 .code = finding.code,
                                 .words = std::string(finding.meaning.words)},
            .rule = {},
            .remedy = std::string(finding.meaning.remedy)};
}

/// Persisting what was read is no part of the reading.
bool IsPersisting(const BoundaryCall& call) {
    return call.row->name == "RegSetValueExW" || call.row->name == "RegCreateKeyExW";
}

} // namespace

std::optional<Decision> Decide(std::span<const BoundaryCall> calls) {
    std::optional<std::size_t> decided;
    Finding deciding;
    int weight = 0;
    for (std::size_t place = 0; place < calls.size() && weight < WeightOf(Course::Decides); ++place) {
        auto finding = FindingOf(calls[place]);
        const Course course = finding ? finding->meaning.course : Course::Never;
        if (WeightOf(course) <= weight || IsPersisting(calls[place]) ||
            (course == Course::EndOfList && HasItemBefore(calls, place)) ||
            IsTriedAgain(calls, place, course) || IsReplacedByEc(calls, place)) {
            continue;
        }
        decided = place;
        deciding = *std::move(finding);
        weight = WeightOf(course);
    }
    if (!decided) {
        return std::nullopt;
    }
    return Decision{.state = deciding.meaning.state,
                    .cause = CauseOf(calls, *decided, deciding),
                    .isFailure = weight == WeightOf(Course::Decides),
                    .isExpected = weight == WeightOf(Course::Expected),
                    .isUnnoticed = deciding.isUnnoticed};
}

std::optional<Cause> LastAnswer(std::span<const BoundaryCall> calls) {
    for (std::size_t place = calls.size(); place-- > 0;) {
        if (!IsSilent(calls[place])) {
            auto finding = FindingOf(calls[place]);
            return CauseOf(calls, place,
                           finding ? *finding
                                   : Finding{.meaning = {},
                                             .outcome = "returned nothing that gives a value",
                                             .code = std::nullopt});
        }
    }
    return std::nullopt;
}

bool DeviceAnswered(std::span<const BoundaryCall> calls) {
    for (std::size_t place = calls.size(); place-- > 0;) {
        if (StartsWith(calls[place], "Reg") && !calls[place].row->reports) {
            return false; // before it the EC was identified
        }
        if (calls[place].row->name == "DeviceIoControl") {
            return !FindingOf(calls[place]);
        }
    }
    return false;
}

bool Calls(std::span<const BoundaryCall> calls, std::string_view operations) {
    return std::ranges::any_of(calls, [&](const BoundaryCall& call) { return StartsWith(call, operations); });
}

} // namespace tool
