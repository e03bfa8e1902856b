#include "output/html_value.h"

#include "base/text.h"
#include "exports/document.h"
#include "exports/status_style.h"
#include "readings/readable.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <span>

namespace tool {
namespace {

using OrderedJson = nlohmann::ordered_json;

constexpr std::size_t LongestOnPage = 4000;
constexpr std::size_t MostRows = 400;

std::string Tag(std::string_view name, std::string_view content) {
    return std::string("<").append(name).append(">").append(content).append("</").append(name).append(">");
}

std::string MoreNote(std::size_t count) {
    return count == 0 ? "" : "<p class=\"quiet\">" + std::to_string(count) + " more are not shown here</p>";
}

std::string HtmlOfJson(const OrderedJson& value);

bool IsFlatObject(const OrderedJson& value) {
    return value.is_object() && !value.empty() &&
           std::ranges::none_of(value, [](const OrderedJson& member) { return member.is_structured(); });
}

/// Records with the same members become a table.
bool IsTable(const OrderedJson& value) {
    return value.is_array() && !value.empty() && std::ranges::all_of(value, [&](const OrderedJson& record) {
               return IsFlatObject(record) && record.size() == value.front().size() &&
                      std::ranges::all_of(record.items(), [&](const auto& member) {
                          return value.front().contains(member.key());
                      });
           });
}

std::string TableOf(const OrderedJson& records) {
    std::string head;
    for (const auto& [key, member] : records.front().items()) {
        head += Tag("th", Escaped(key));
    }
    std::string body;
    const std::size_t shown = std::min(records.size(), MostRows);
    for (std::size_t i = 0; i < shown; ++i) {
        std::string cells;
        for (const auto& [key, member] : records.front().items()) {
            cells += Tag("td", HtmlOfJson(records[i].at(key)));
        }
        body += Tag("tr", cells);
    }
    return "<div class=\"wide\"><table class=\"inner\"><thead>" + Tag("tr", head) + "</thead>" +
           Tag("tbody", body) + "</table></div>" + MoreNote(records.size() - shown);
}

/// [{"machine": ...}, {"user": ...}]: shown like one object.
bool IsListOfMembers(const OrderedJson& value) {
    return value.is_array() && std::ranges::all_of(value, [](const OrderedJson& member) {
               return member.is_object() && member.size() == 1;
           });
}

std::string ListOf(const OrderedJson& value) {
    const bool named = value.is_object() || IsListOfMembers(value);
    std::string items;
    std::size_t shown = 0;
    for (const auto& [key, member] : value.items()) {
        if (shown++ == MostRows) {
            break;
        }
        const bool wrapped = named && value.is_array();
        const std::string& name = wrapped ? member.begin().key() : key;
        const std::string content = HtmlOfJson(wrapped ? member.front() : member);
        items += named ? Tag("dt", Escaped(name)) + Tag("dd", content) : Tag("li", content);
    }
    return Tag(named ? "dl" : "ul", items) + MoreNote(value.size() - std::min(value.size(), MostRows));
}

std::string HtmlOfJson(const OrderedJson& value) {
    if (value.is_string()) {
        return Escaped(value.get_ref<const std::string&>());
    }
    if (!value.is_structured()) {
        return Escaped(value.dump());
    }
    if (value.empty()) {
        return "<span class=\"quiet\">(empty)</span>";
    }
    return IsTable(value) ? TableOf(value) : ListOf(value);
}

constexpr auto Entities = std::to_array<std::pair<char, std::string_view>>(
    {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&#39;"}});

} // namespace

std::string Escaped(std::string_view text) {
    std::string result;
    for (const char character : OnOneLine(text)) {
        const auto* const entity =
            std::ranges::find(Entities, character, [](const auto& pair) { return pair.first; });
        if (entity != Entities.end()) {
            result += entity->second;
        } else {
            result.push_back(character);
        }
    }
    return result;
}

std::string QuietHtml(std::string_view text) {
    return std::string("<span class=\"quiet\">").append(Escaped(text)).append("</span>");
}

std::string BreakableHtml(std::string_view name) {
    std::string html;
    for (const std::string_view word : Split(name, '_')) {
        html.append(html.empty() ? "" : "_<wbr>").append(Escaped(word));
    }
    return html;
}

std::string_view ClassOf(Status status) {
    constexpr std::array<std::string_view, static_cast<std::size_t>(Style::Count)> Classes = {
        "plain", "plain", "quiet", "warning", "bad"};
    return Classes[static_cast<std::size_t>(StyleOf(status))];
}

std::string HtmlOf(const Reading& reading) {
    if (HasValue(reading) && reading.row.display == Display::Document) {
        if (const std::optional<OrderedJson> document = ParseDocument(reading.answer.text); document) {
            return HtmlOfJson(*document);
        }
    }
    const Readable readable = ReadableOf(reading, LongestOnPage);
    std::string html = Escaped(readable.value);
    html += readable.unit.empty() ? "" : " " + QuietHtml(readable.unit);
    html += readable.remark.empty() ? "" : " " + QuietHtml("(" + readable.remark + ")");
    return html;
}

} // namespace tool
