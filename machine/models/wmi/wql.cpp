#include "machine/models/wmi/wql.h"

#include "machine/text/folding.h"

#include <algorithm>

namespace machine {
namespace {

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

bool IsInWord(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit == u'_' || IsDigit(unit);
}

bool IsInNumber(char16_t unit) {
    return unit == u'-' || unit == u'+' || IsDigit(unit);
}

bool IsBlank(char16_t unit) {
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

/// Takes tokens off a query. Each function returns whether the next token was what it asks for.
class Tokens {
public:
    explicit Tokens(std::u16string_view text) : m_rest(text) { TakeAll(IsBlank); }

    [[nodiscard]] bool AtEnd() const { return m_rest.empty(); }

    bool Symbol(std::u16string_view symbol) {
        const bool isNext = m_rest.starts_with(symbol);
        Take(isNext ? symbol.size() : 0);
        return isNext;
    }

    bool Word(std::u16string_view upperCase) {
        const auto end = std::ranges::find_if_not(m_rest, IsInWord);
        const std::u16string_view word(m_rest.begin(), end);
        const bool isNext = Folded(word) == upperCase;
        Take(isNext ? word.size() : 0);
        return isNext;
    }

    bool Name(std::u16string& name) {
        const bool isNext = !AtEnd() && !IsDigit(m_rest.front());
        name = TakeAll(IsInWord);
        return isNext && !name.empty();
    }

    bool Literal(WmiDatum& literal) {
        if (!AtEnd() && (m_rest.front() == u'\'' || m_rest.front() == u'"')) {
            return QuotedString(literal.value.emplace<std::u16string>());
        }
        if (const bool isTrue = Word(u"TRUE"); isTrue || Word(u"FALSE")) {
            literal.value = isTrue;
            return true;
        }
        const auto number = WholeNumber(TakeAll(IsInNumber));
        literal.value = number.value_or(0);
        return number.has_value();
    }

private:
    /// A backslash comes before a quote or a backslash inside.
    bool QuotedString(std::u16string& string) {
        std::size_t place = 1;
        for (; place < m_rest.size() && m_rest[place] != m_rest.front(); ++place) {
            place += m_rest[place] == u'\\' && place + 1 < m_rest.size() ? 1 : 0;
            string.push_back(m_rest[place]);
        }
        const bool isClosed = place < m_rest.size();
        Take(isClosed ? place + 1 : place);
        return isClosed;
    }

    std::u16string_view TakeAll(bool (*belongs)(char16_t)) {
        const auto end = std::ranges::find_if_not(m_rest, belongs);
        const std::u16string_view taken(m_rest.begin(), end);
        Take(taken.size());
        return taken;
    }

    /// Blanks after a token go with it.
    void Take(std::size_t size) {
        m_rest.remove_prefix(size);
        m_rest.remove_prefix(
            static_cast<std::size_t>(std::ranges::find_if_not(m_rest, IsBlank) - m_rest.begin()));
    }

    std::u16string_view m_rest;
};

bool ReadCondition(Tokens& tokens, WqlCondition& condition) {
    if (!tokens.Name(condition.property)) {
        return false;
    }
    condition.equal = tokens.Symbol(u"=");
    return (condition.equal || tokens.Symbol(u"!=") || tokens.Symbol(u"<>")) &&
           tokens.Literal(condition.literal);
}

std::optional<std::int64_t> NumberOf(const WmiDatum& datum) {
    if (const auto* flag = std::get_if<bool>(&datum.value)) {
        return *flag ? 1 : 0;
    }
    if (const auto* text = std::get_if<std::u16string>(&datum.value)) {
        const std::u16string folded = Folded(*text);
        return folded == u"TRUE" ? 1 : folded == u"FALSE" ? 0 : WholeNumber(*text);
    }
    const auto* number = std::get_if<std::int64_t>(&datum.value);
    return number != nullptr ? std::optional(*number) : std::nullopt;
}

} // namespace

std::optional<std::int64_t> WholeNumber(std::u16string_view text) {
    const bool negative = text.starts_with(u'-');
    text.remove_prefix(negative || text.starts_with(u'+') ? 1 : 0);
    constexpr std::size_t MostDigits = 18;
    if (text.empty() || text.size() > MostDigits || !std::ranges::all_of(text, IsDigit)) {
        return std::nullopt;
    }
    std::int64_t number = 0;
    for (const char16_t digit : text) {
        number = number * 10 + (digit - u'0');
    }
    return negative ? -number : number;
}

bool WqlCondition::Holds(const WmiDatum& datum) const {
    const auto* text = std::get_if<std::u16string>(&datum.value);
    const auto* wantedText = std::get_if<std::u16string>(&literal.value);
    if (text != nullptr && wantedText != nullptr) {
        return (Folded(*text) == Folded(*wantedText)) == equal;
    }
    const auto number = NumberOf(datum);
    const auto wanted = NumberOf(literal);
    return number && wanted && (*number == *wanted) == equal;
}

std::optional<WqlQuery> ParseWql(std::u16string_view text) {
    Tokens tokens(text);
    WqlQuery query;
    if (!tokens.Word(u"SELECT") || !tokens.Symbol(u"*") || !tokens.Word(u"FROM") ||
        !tokens.Name(query.className)) {
        return std::nullopt;
    }
    for (bool more = tokens.Word(u"WHERE"); more; more = tokens.Word(u"AND")) {
        if (!ReadCondition(tokens, query.conditions.emplace_back())) {
            return std::nullopt;
        }
    }
    return tokens.AtEnd() ? std::optional(std::move(query)) : std::nullopt;
}

} // namespace machine
