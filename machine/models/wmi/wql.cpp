#include "machine/models/wmi/wql.h"

#include "machine/text/folding.h"

#include <algorithm>

namespace machine {
namespace {

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

bool IsLetter(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit == u'_';
}

bool IsBlank(char16_t unit) {
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

bool IsSign(char16_t unit) {
    return unit == u'-' || unit == u'+';
}

std::optional<std::int64_t> SignedNumber(std::u16string_view text) {
    const bool negative = text.starts_with(u'-');
    if (!text.empty() && IsSign(text.front())) {
        text.remove_prefix(1);
    }
    constexpr std::size_t MostDigits = 18; // every such number fits in 64 bits
    if (text.empty() || text.size() > MostDigits || !std::ranges::all_of(text, IsDigit)) {
        return std::nullopt;
    }
    std::int64_t number = 0;
    for (const char16_t digit : text) {
        number = number * 10 + (digit - u'0');
    }
    return negative ? -number : number;
}

/// A syntax error ends the parsing: `Failed` stays true, and what was read is not used.
class Parser {
public:
    explicit Parser(std::u16string_view text) : m_rest(text) {}

    [[nodiscard]] bool Failed() const { return m_failed; }

    [[nodiscard]] bool AtEnd() {
        SkipBlanks();
        return m_rest.empty();
    }

    bool Accept(std::u16string_view symbol) {
        SkipBlanks();
        if (!m_rest.starts_with(symbol)) {
            return false;
        }
        m_rest.remove_prefix(symbol.size());
        return true;
    }

    bool AcceptWord(std::u16string_view upperCase) {
        SkipBlanks();
        const std::u16string_view word = m_rest.substr(0, WordLength());
        if (Folded(word) != upperCase) {
            return false;
        }
        m_rest.remove_prefix(word.size());
        return true;
    }

    void ExpectWord(std::u16string_view upperCase) { m_failed |= !AcceptWord(upperCase); }

    std::u16string Name() {
        SkipBlanks();
        std::u16string name(m_rest.substr(0, WordLength()));
        m_failed |= name.empty() || IsDigit(name.front());
        m_rest.remove_prefix(name.size());
        return name;
    }

    WqlCondition Condition() {
        WqlCondition condition;
        condition.property = Name();
        if (Accept(u"!=") || Accept(u"<>")) {
            condition.equal = false;
        } else {
            m_failed |= !Accept(u"=");
        }
        SkipBlanks();
        if (m_rest.starts_with(u'\'') || m_rest.starts_with(u'"')) {
            condition.literal = QuotedText();
        } else if (AcceptWord(u"TRUE")) {
            condition.literal = true;
        } else if (AcceptWord(u"FALSE")) {
            condition.literal = false;
        } else {
            condition.literal = Number();
        }
        return condition;
    }

private:
    void SkipBlanks() {
        while (!m_rest.empty() && IsBlank(m_rest.front())) {
            m_rest.remove_prefix(1);
        }
    }

    [[nodiscard]] std::size_t WordLength() const {
        const auto end =
            std::ranges::find_if_not(m_rest, [](char16_t unit) { return IsLetter(unit) || IsDigit(unit); });
        return static_cast<std::size_t>(end - m_rest.begin());
    }

    /// A backslash comes before a quote or a backslash inside.
    std::u16string QuotedText() {
        const char16_t quote = m_rest.front();
        std::u16string text;
        std::size_t place = 1;
        for (; place < m_rest.size() && m_rest[place] != quote; ++place) {
            if (m_rest[place] == u'\\' && place + 1 < m_rest.size()) {
                ++place;
            }
            text.push_back(m_rest[place]);
        }
        m_failed |= place >= m_rest.size();
        m_rest.remove_prefix(std::min(place + 1, m_rest.size()));
        return text;
    }

    std::int64_t Number() {
        const std::size_t sign = !m_rest.empty() && IsSign(m_rest.front()) ? 1 : 0;
        std::size_t length = sign;
        while (length < m_rest.size() && IsDigit(m_rest[length])) {
            ++length;
        }
        const auto number = SignedNumber(m_rest.substr(0, length));
        m_failed |= !number.has_value();
        m_rest.remove_prefix(length);
        return number.value_or(0);
    }

    std::u16string_view m_rest;
    bool m_failed = false;
};

bool Equal(const std::u16string& text, const std::u16string& literal) {
    return Folded(text) == Folded(literal);
}

/// Whether two values are equal; nothing if they cannot be compared.
std::optional<bool> Compare(const WmiDatum& datum, const std::u16string& literal) {
    if (const auto* text = std::get_if<std::u16string>(&datum.value)) {
        return Equal(*text, literal);
    }
    if (const auto* flag = std::get_if<bool>(&datum.value)) {
        return Equal(literal, *flag ? u"TRUE" : u"FALSE");
    }
    const auto* number = std::get_if<std::int64_t>(&datum.value);
    const auto wanted = SignedNumber(literal);
    return number != nullptr && wanted ? std::optional(*number == *wanted) : std::nullopt;
}

std::optional<bool> Compare(const WmiDatum& datum, std::int64_t literal) {
    if (const auto* number = std::get_if<std::int64_t>(&datum.value)) {
        return *number == literal;
    }
    if (const auto* flag = std::get_if<bool>(&datum.value)) {
        return *flag == (literal != 0);
    }
    const auto* text = std::get_if<std::u16string>(&datum.value);
    const auto number = text != nullptr ? SignedNumber(*text) : std::nullopt;
    return number ? std::optional(*number == literal) : std::nullopt;
}

std::optional<bool> Compare(const WmiDatum& datum, bool literal) {
    return Compare(datum, std::int64_t{literal});
}

} // namespace

bool WqlCondition::Holds(const WmiDatum& datum) const {
    const auto outcome = std::visit([&](const auto& wanted) { return Compare(datum, wanted); }, literal);
    return outcome && *outcome == equal;
}

std::optional<WqlQuery> ParseWql(std::u16string_view text) {
    Parser parser(text);
    WqlQuery query;
    parser.ExpectWord(u"SELECT");
    if (!parser.Accept(u"*")) {
        do {
            query.selected.push_back(parser.Name());
        } while (!parser.Failed() && parser.Accept(u","));
    }
    parser.ExpectWord(u"FROM");
    query.className = parser.Name();
    if (!parser.AtEnd()) {
        parser.ExpectWord(u"WHERE");
        do {
            query.conditions.push_back(parser.Condition());
        } while (!parser.Failed() && parser.AcceptWord(u"AND"));
    }
    return parser.Failed() || !parser.AtEnd() ? std::nullopt : std::optional(std::move(query));
}

} // namespace machine
