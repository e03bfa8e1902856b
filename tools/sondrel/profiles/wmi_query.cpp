#include "profiles/wmi_query.h"

#include <charconv>

namespace tool {
namespace {

std::string_view Trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(' ');
    return begin == std::string_view::npos ? std::string_view()
                                           : text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

/// The place of a word in any case; `word` is in lower case.
std::size_t PlaceOf(std::string_view text, std::string_view word) {
    std::string lower(text);
    for (char& each : lower) {
        each = each >= 'A' && each <= 'Z' ? static_cast<char>(each - 'A' + 'a') : each;
    }
    return lower.find(word);
}

std::optional<ProfileJson> ValueOf(std::string_view text) {
    if (text.size() >= 2 && text.front() == '\'' && text.back() == '\'') {
        const std::string_view inner = text.substr(1, text.size() - 2);
        if (inner == "true" || inner == "false") {
            return ProfileJson(inner == "true");
        }
        return ProfileJson(std::string(inner));
    }
    std::int64_t number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    return problem == std::errc() && end == text.data() + text.size() ? std::optional(ProfileJson(number))
                                                                      : std::nullopt;
}

std::optional<WmiCondition> ConditionOf(std::string_view text) {
    const std::size_t sign = text.find('=');
    if (sign == std::string_view::npos || sign == 0) {
        return std::nullopt;
    }
    const bool equal = text[sign - 1] != '!';
    std::optional<ProfileJson> value = ValueOf(Trimmed(text.substr(sign + 1)));
    const std::string_view property = Trimmed(text.substr(0, equal ? sign : sign - 1));
    return value ? std::optional(WmiCondition{std::string(property), equal, *std::move(value)})
                 : std::nullopt;
}

} // namespace

std::optional<WmiQuery> ParsedQuery(const std::u16string& text) {
    constexpr std::string_view Select = "select * from ";
    constexpr std::string_view Where = " where ";
    constexpr std::string_view And = " and ";
    const std::string narrow = Utf8Of(text).value_or("");
    if (PlaceOf(narrow, Select) != 0) {
        return std::nullopt;
    }
    std::string_view rest = std::string_view(narrow).substr(Select.size());
    const std::size_t where = PlaceOf(rest, Where);
    WmiQuery query{std::string(Trimmed(rest.substr(0, where))), {}};
    rest.remove_prefix(where == std::string_view::npos ? rest.size() : where + Where.size());
    while (!rest.empty()) {
        const std::size_t end = PlaceOf(rest, And);
        std::optional<WmiCondition> condition = ConditionOf(rest.substr(0, end));
        if (!condition) {
            return std::nullopt;
        }
        query.conditions.push_back(*std::move(condition));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + And.size());
    }
    return query;
}

} // namespace tool
