#include "samples/threshold.h"

#include "base/error.h"
#include "base/text.h"
#include "readings/readable.h"
#include "samples/telemetry.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace tool {
namespace {

using Holds = bool (*)(double number, double limit);

/// The longer ones first: one begins with another.
constexpr auto Relations = std::to_array<std::pair<std::string_view, Holds>>({
    {">=", [](double number, double limit) { return number >= limit; }},
    {"<=", [](double number, double limit) { return number <= limit; }},
    {"==", [](double number, double limit) { return number == limit; }},
    {"!=", [](double number, double limit) { return number != limit; }},
    {">", [](double number, double limit) { return number > limit; }},
    {"<", [](double number, double limit) { return number < limit; }},
});

std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(' ');
    return begin == std::string_view::npos ? std::string_view()
                                           : text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

[[noreturn]] void ThrowNoCondition(std::string_view text) {
    throw Error("--fail-if takes a reading, a comparison and a number, for example "
                "\"Thermal_Read_Cpu_Temperature > 95\", not \"" +
                OnOneLine(text) + '"');
}

/// "[2]" is 2.
std::optional<std::size_t> IndexIn(std::string_view text) {
    std::size_t index = 0;
    if (text.size() < 3 || !text.starts_with('[') || !text.ends_with(']')) {
        return std::nullopt;
    }
    const char* const end = text.data() + text.size() - 1;
    const auto [last, problem] = std::from_chars(text.data() + 1, end, index);
    return problem == std::errc() && last == end ? std::optional(index) : std::nullopt;
}

} // namespace

Threshold::Threshold(std::string_view text) : m_text(text) {
    const std::size_t at = text.find_first_of("<>=!");
    if (at == std::string_view::npos) {
        ThrowNoCondition(text);
    }
    const auto* const relation = std::ranges::find_if(
        Relations, [&](const auto& each) { return text.substr(at).starts_with(each.first); });
    if (relation == Relations.end()) {
        ThrowNoCondition(text);
    }
    m_relation = relation->first;
    const std::string_view subject = WithoutBlanks(text.substr(0, at));
    const std::size_t bracket = subject.find('[');
    m_name = WithoutBlanks(subject.substr(0, bracket));
    const auto limit = NumberIn(WithoutBlanks(text.substr(at + m_relation.size())));
    if (bracket != std::string_view::npos) {
        m_element = IndexIn(subject.substr(bracket));
    }
    if (m_name.empty() || !limit || (bracket != std::string_view::npos && !m_element)) {
        ThrowNoCondition(text);
    }
    m_limit = *limit;
}

bool Threshold::IsOn(const Series& series) const {
    return series.row->name == m_name && (!m_element || *m_element == series.element);
}

void Threshold::Require(std::span<const Series> series) const {
    if (std::ranges::none_of(series, [&](const Series& each) { return IsOn(each); })) {
        throw Error("--fail-if " + OnOneLine(m_text) + ": there is no such element");
    }
}

std::optional<std::string> Threshold::Fulfilled(std::span<const Series> series, const Sample& sample) {
    const auto* const relation =
        std::ranges::find(Relations, m_relation, [](const auto& each) { return each.first; });
    for (std::size_t i = 0; i < series.size(); ++i) {
        const auto& number = sample.points[i].number;
        if (!IsOn(series[i]) || !number) {
            continue;
        }
        m_wasRead = true;
        if (relation->second(*number, m_limit)) {
            return series[i].name + " is " + sample.points[i].text;
        }
    }
    return std::nullopt;
}

} // namespace tool
