#include "rules.h"

#include "base/text.h"
#include "exports/generated/fault_expectations.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace sweep {
namespace {

using exports::AnswerForm;
using exports::Export;
using exports::FaultExpectation;
using exports::Group;
using exports::Match;
using exports::SpecialValue;
using exports::State;
using observer::Failure;
using observer::Operation;

/// Operations that do not influence the answer: the sinks of the diagnostics, and what only they call.
constexpr Operation Sinks[] = {Operation::EventRegister,      Operation::EventSetInformation,
                               Operation::EventWriteTransfer, Operation::RegisterEventSourceW,
                               Operation::ReportEventW,       Operation::StringFromGUID2};

/// Operations that many readings succeed without: the last item of a list, one with an alternative, one whose result
/// is ignored, one that reads as 0 where 0 is the value.
constexpr Operation Dispensable[] = {Operation::Next,
                                     Operation::RegEnumKeyExW,
                                     Operation::RegOpenKeyExW,
                                     Operation::RegQueryValueExW,
                                     Operation::RegCreateKeyExW,
                                     Operation::RegSetValueExW,
                                     Operation::DeviceIoControl,
                                     Operation::BluetoothFindNextRadio,
                                     Operation::BluetoothFindNextDevice,
                                     Operation::WlanQueryInterface,
                                     Operation::WlanGetNetworkBssList};

template <class List, class Item>
bool Has(const List& list, const Item& item) {
    return std::ranges::find(list, item) != std::end(list);
}

/// "*" means all of them.
bool Names(std::span<const std::string_view> list, std::string_view operation) {
    return Has(list, operation) || Has(list, std::string_view("*"));
}

/// Whether the good answer is expected after the failure.
enum class Expected : std::uint8_t { Good, NotGood, Either };

Expected ExpectedAfter(const FaultExpectation& expectation, const Fault& fault) {
    if (fault.heap) {
        return Expected::Either;
    }
    if (Has(Sinks, fault.operation)) {
        return fault.andLater ? Expected::Either : Expected::Good; // the later failures are not in sinks
    }
    if (fault.lacking) {
        return Expected::Either;
    }
    const std::string_view name = observer::RowOf(fault.operation).name;
    if (Has(expectation.mustNotice, name)) {
        return Expected::NotGood;
    }
    return Names(expectation.maySucceedWithout, name) || Has(Dispensable, fault.operation)
               ? Expected::Either
               : Expected::NotGood;
}

std::optional<std::int64_t> NumberIn(std::string_view text) {
    std::int64_t number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    return problem == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

/// Each byte as it was or 0.
bool BytesLost(std::int64_t number, std::int64_t good) {
    const auto bits = static_cast<std::uint64_t>(number);
    for (unsigned shift = 0; shift < 64; shift += 8) {
        const std::uint64_t mask = std::uint64_t{0xFF} << shift;
        if ((bits & mask) != 0 && (bits & mask) != (static_cast<std::uint64_t>(good) & mask)) {
            return false;
        }
    }
    return true;
}

/// A failure in the EC's status gives the failure value or, while the EC is being identified, 0; one that is not
/// reported loses bytes, or misleads the following commands.
bool IsEcNumber(const Fault& fault, std::string_view text, std::string_view goodText, bool misled) {
    const auto number = NumberIn(text);
    const auto good = NumberIn(goodText);
    if (!number || !good) {
        return false;
    }
    if (*number == *good || *number == 0 || *number == 0x7FFFFFFF || *number == -1) {
        return true;
    }
    constexpr std::int64_t CurveEnds[] = {100, 110}; // of a thermistor whose count reads as 0
    return fault.kind != Failure::Status && (misled || BytesLost(*number, *good) || Has(CurveEnds, *number));
}

bool ArePlaces(std::string_view answer, std::string_view good, char separator, const auto& fits) {
    const std::vector<std::string_view> places = tool::Split(answer, separator);
    const std::vector<std::string_view> goodPlaces = tool::Split(good, separator);
    return std::ranges::all_of(places, [&](std::string_view place) { return fits(place, goodPlaces); });
}

bool IsEcList(const Fault& fault, std::string_view answer, std::string_view good) {
    const char separator = good.find(';') != std::string_view::npos ? ';' : '-';
    const auto places = tool::Split(answer, separator);
    const auto goodPlaces = tool::Split(good, separator);
    if (places.size() != goodPlaces.size()) {
        return false;
    }
    for (std::size_t place = 0; place < places.size(); ++place) {
        if (!IsEcNumber(fault, places[place], goodPlaces[place], true)) {
            return false;
        }
    }
    return true;
}

/// Not invented: empty, a plain number, or in the machine's profile.
bool IsFromMachine(std::string_view text, std::string_view profile) {
    constexpr std::string_view NumberCharacters = "0123456789abcdefx .-";
    return text.find_first_not_of(NumberCharacters) == std::string_view::npos ||
           profile.find(text) != std::string_view::npos;
}

void CollectTexts(const nlohmann::json& document, std::vector<std::string>& texts) {
    if (document.is_string()) {
        texts.push_back(document.get<std::string>());
    } else if (document.is_structured()) {
        for (const auto& item : document) {
            CollectTexts(item, texts);
        }
    }
}

/// Whether each record has the keys of a record of the good document.
bool HasShapeOf(const nlohmann::json& answer, const nlohmann::json& good) {
    if (answer.is_array() && good.is_array()) {
        return std::ranges::all_of(answer, [&](const auto& item) {
            return good.empty() ||
                   std::ranges::any_of(good, [&](const auto& other) { return HasShapeOf(item, other); });
        });
    }
    if (answer.is_object() && good.is_object()) {
        return answer.size() == good.size() && std::ranges::all_of(answer.items(), [&](const auto& item) {
                   return good.contains(item.key()) && HasShapeOf(item.value(), good[item.key()]);
               });
    }
    return answer.type() == good.type();
}

bool IsDocument(std::string_view answer, std::string_view good, std::string_view profile) {
    const auto document = nlohmann::json::parse(answer, nullptr, false);
    const auto goodDocument = nlohmann::json::parse(good, nullptr, false);
    if (document.is_discarded() || !HasShapeOf(document, goodDocument)) {
        return false;
    }
    std::vector<std::string> texts;
    std::vector<std::string> goodTexts;
    CollectTexts(document, texts);
    CollectTexts(goodDocument, goodTexts);
    return std::ranges::all_of(
        texts, [&](const std::string& text) { return Has(goodTexts, text) || IsFromMachine(text, profile); });
}

/// The library takes a search for radios that fails for one that has ended.
bool EndsRadioSearch(const Fault& fault) {
    return fault.operation == Operation::BluetoothFindNextRadio ||
           (fault.andLater && Has(Sinks, fault.operation));
}

bool Fits(AnswerForm form, const Fault& fault, const std::string& answer, const std::string& good,
          std::string_view profile) {
    const auto known = [&](std::string_view place, const std::vector<std::string_view>& goodPlaces) {
        return Has(goodPlaces, place) || IsFromMachine(place, profile);
    };
    switch (form) {
    case AnswerForm::Exact:
        return false;
    case AnswerForm::EcNumber:
        return IsEcNumber(fault, answer, good, false);
    case AnswerForm::EcList:
        return IsEcList(fault, answer, good);
    case AnswerForm::ShortenedText:
        return fault.kind != Failure::Status && good.starts_with(answer);
    case AnswerForm::List:
        return ArePlaces(answer, good, ';', known);
    case AnswerForm::Words:
        return ArePlaces(answer, good, ' ', known);
    case AnswerForm::Radio:
        return EndsRadioSearch(fault) && (answer == "0" || answer == "1");
    case AnswerForm::Document:
        return IsDocument(answer, good, profile);
    }
    return false;
}

/// What the description says of the answer, or null. An untouched buffer may be followed by the result's error code.
const SpecialValue* SpecialAnswer(const Export& row, const std::string& answer) {
    const bool untouched = answer.starts_with(tool::BufferUntouched);
    const auto found = std::ranges::find_if(row.values, [&](const SpecialValue& value) {
        return value.match == Match::Other || (value.match == Match::Untouched && untouched) ||
               (value.match == Match::Whole && value.text == answer);
    });
    return found != row.values.end() ? &*found : nullptr;
}

bool IsFailureValue(const Export& row, const std::string& answer) {
    const SpecialValue* const special = SpecialAnswer(row, answer);
    return special != nullptr && special->CanFail();
}

const FaultExpectation& ExpectationOf(const Export& row) {
    return exports::FaultExpectations[static_cast<std::size_t>(&row - exports::AllExports().data())];
}

} // namespace

std::size_t BufferSizeOf(const Export& row) {
    constexpr std::size_t Growing = 65536; // more than any machine of the sweep needs
    return row.buffer.rule == exports::BufferRule::Grows ? Growing : row.buffer.size;
}

std::string Objection(const Export& row, const Fault& fault, const std::string& answer,
                      const std::string& good, std::string_view profile) {
    const FaultExpectation& expectation = ExpectationOf(row);
    const Expected expected = ExpectedAfter(expectation, fault);
    if (answer == good) {
        // The good answer can be a failure value, and a refused byte is 0.
        const bool allowed = expected != Expected::NotGood || IsFailureValue(row, good) ||
                             (expectation.form == AnswerForm::EcNumber && good == "0");
        return allowed ? "" : "the failure was swallowed";
    }
    if (expected == Expected::Good) {
        return "a failed sink changed the answer";
    }
    return IsFailureValue(row, answer) || Fits(expectation.form, fault, answer, good, profile)
               ? ""
               : "no answer for this failure";
}

bool MayStay(const Export& row, const Fault& fault, const std::string& answer, const std::string& good) {
    if (fault.heap) {
        return false;
    }
    if (row.group == Group::Wifi || row.group == Group::Bluetooth || row.group == Group::Adapters) {
        const auto is = [&row](const std::string& text, State state) {
            const SpecialValue* const special = SpecialAnswer(row, text);
            return special != nullptr && special->state == state;
        };
        return answer == "0;0" || (row.group == Group::Bluetooth && EndsRadioSearch(fault)) ||
               is(answer, State::NotRead) || (is(answer, State::Failed) && is(good, State::NotRead));
    }
    return row.needsSession && fault.operation == Operation::DeviceIoControl && fault.kind != Failure::Status;
}

} // namespace sweep
