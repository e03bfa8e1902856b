#include "exports/document.h"

#include "base/text.h"
#include "machines/json_depth.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace tool {
namespace {

using OrderedJson = nlohmann::ordered_json;

std::string OneLine(const OrderedJson& value) {
    if (!value.is_structured()) {
        return OnOneLine(value.dump(-1, ' ', false, OrderedJson::error_handler_t::replace));
    }
    std::string text(1, value.is_array() ? '[' : '{');
    for (const auto& [key, member] : value.items()) {
        text += text.size() > 1 ? ", " : "";
        text += value.is_array() ? "" : OneLine(OrderedJson(key)) + ": ";
        text += OneLine(member);
    }
    return text + (value.is_array() ? ']' : '}');
}

class LineLayout {
public:
    explicit LineLayout(std::size_t columns) : m_columns(columns) {}

    void Add(const OrderedJson& value, const std::string& prefix, const std::string& suffix,
             std::size_t indent) {
        const std::string margin(indent, ' ');
        const std::string whole = margin + prefix + OneLine(value) + suffix;
        const std::size_t available = IsFlat(value) ? m_columns : ShortNesting;
        const bool fits =
            whole.size() <= 4 * available && Columns(whole) <= available; // longer ones are not counted
        if (!value.is_structured() || value.empty() || fits) {
            m_lines.push_back(Shortened(whole, m_columns));
            return;
        }
        m_lines.push_back(margin + prefix + (value.is_array() ? '[' : '{'));
        std::size_t left = value.size();
        for (const auto& [key, member] : value.items()) {
            --left;
            Add(member, value.is_array() ? std::string() : OneLine(OrderedJson(key)) + ": ",
                left != 0 ? "," : "", indent + 2);
        }
        m_lines.push_back(margin + (value.is_array() ? ']' : '}') + suffix);
    }

    std::vector<std::string> Take() { return std::move(m_lines); }

private:
    /// Records are on one line each; lists of records only if they are short.
    static constexpr std::size_t ShortNesting = 60;

    static bool IsFlat(const OrderedJson& value) {
        return std::ranges::none_of(value, [](const OrderedJson& member) { return member.is_structured(); });
    }

    std::size_t m_columns;
    std::vector<std::string> m_lines;
};

} // namespace

std::optional<OrderedJson> ParseDocument(std::string_view text) {
    auto document = ParsedJson<OrderedJson>(text);
    return document.is_discarded() ? std::nullopt : std::optional(std::move(document));
}

std::vector<std::string> DocumentLines(std::string_view text, std::size_t columns) {
    const std::optional<OrderedJson> document = ParseDocument(text);
    if (!document) {
        constexpr std::string_view Note = " (not well-formed JSON)";
        const std::size_t available = columns - std::min(columns, Note.size());
        return {Shortened(OnOneLine(text), std::max<std::size_t>(available, 8)).append(Note)};
    }
    LineLayout layout(columns);
    layout.Add(*document, "", "", 0);
    return layout.Take();
}

} // namespace tool
