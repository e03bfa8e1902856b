#include "machine/models/xml_check.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace machine {
namespace {

constexpr std::u16string_view WhiteSpace = u" \t\r\n";

/// What is skipped whole, by its opening.
struct Markup {
    std::u16string_view open;
    std::u16string_view close;
};

constexpr Markup Skipped[] = {{u"<!--", u"-->"}, {u"<![CDATA[", u"]]>"}, {u"<?", u"?>"}, {u"<!", u">"}};

struct Entity {
    std::u16string_view name;
    char16_t character;
};

constexpr Entity Entities[] = {
    {u"amp", u'&'}, {u"lt", u'<'}, {u"gt", u'>'}, {u"quot", u'"'}, {u"apos", u'\''}};

/// The number of a character reference without its "#"; nothing for one that is none.
std::optional<char32_t> NumberOf(std::u16string_view digits) {
    const bool hexadecimal = digits.starts_with(u'x');
    digits.remove_prefix(hexadecimal ? 1 : 0);
    char32_t number = 0;
    for (const char16_t digit : digits) {
        const std::size_t value =
            std::u16string_view(u"0123456789abcdef").find(digit | (digit > u'9' ? 0x20 : 0));
        if (value >= (hexadecimal ? 16U : 10U)) {
            return std::nullopt;
        }
        number =
            std::min<char32_t>(number * (hexadecimal ? 16 : 10) + static_cast<char32_t>(value), 0x110000);
    }
    const bool isCharacter = !digits.empty() && number != 0 && number < 0x110000;
    return isCharacter ? std::optional(number) : std::nullopt;
}

std::optional<char32_t> CharacterOf(std::u16string_view reference) {
    if (reference.starts_with(u'#')) {
        return NumberOf(reference.substr(1));
    }
    const auto* const found = std::ranges::find(Entities, reference, &Entity::name);
    return found == std::end(Entities) ? std::nullopt : std::optional<char32_t>(found->character);
}

void AppendEscaped(std::u16string& out, char32_t character) {
    if (character == U'&' || character == U'<' || character == U'>') {
        out.append(character == U'&' ? u"&amp;" : character == U'<' ? u"&lt;" : u"&gt;");
    } else if (character > 0xFFFF) {
        out += static_cast<char16_t>(0xD7C0 + (character >> 10));
        out += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
    } else {
        out += static_cast<char16_t>(character);
    }
}

/// The characters between two pieces of markup, written anew. False for a reference to nothing.
bool AppendContent(std::u16string& out, std::u16string_view content) {
    while (!content.empty()) {
        const char16_t unit = content.front();
        if (unit != u'&') {
            AppendEscaped(out, unit);
            content.remove_prefix(1);
            continue;
        }
        const std::size_t end = content.find(u';');
        const auto character =
            end == std::u16string_view::npos ? std::nullopt : CharacterOf(content.substr(1, end - 1));
        if (!character) {
            return false;
        }
        AppendEscaped(out, *character);
        content.remove_prefix(end + 1);
    }
    return true;
}

class XmlScan {
public:
    explicit XmlScan(std::u16string_view text) : m_rest(text) {}

    bool Run() {
        while (!m_rest.empty()) {
            const std::u16string_view content = m_rest.substr(0, m_rest.find(u'<'));
            if ((m_open.empty() && content.find_first_not_of(WhiteSpace) != std::u16string_view::npos) ||
                !AppendContent(m_serialised, content)) {
                return false;
            }
            m_rest.remove_prefix(content.size());
            const std::u16string_view behindContent = m_rest;
            if (!m_rest.empty() && !SkipMarkup() && !TakeTag()) {
                return false;
            }
            m_serialised += behindContent.substr(0, behindContent.size() - m_rest.size());
        }
        return m_open.empty() && m_roots == 1;
    }

    std::u16string TakeSerialised() { return std::move(m_serialised); }

private:
    bool SkipMarkup() {
        for (const auto& [open, close] : Skipped) {
            if (!m_rest.starts_with(open)) {
                continue;
            }
            const std::size_t end = m_rest.find(close, open.size());
            if (end == std::u16string_view::npos) {
                return false;
            }
            m_rest.remove_prefix(end + close.size());
            return true;
        }
        return false;
    }

    /// The place of the ">" that ends a tag; attributes may hold others.
    [[nodiscard]] std::size_t TagEnd() const {
        char16_t quote = 0;
        for (std::size_t place = 1; place < m_rest.size(); ++place) {
            const char16_t unit = m_rest[place];
            if (quote != 0) {
                quote = unit == quote ? u'\0' : quote;
            } else if (unit == u'"' || unit == u'\'') {
                quote = unit;
            } else if (unit == u'>' || unit == u'<') {
                return unit == u'>' ? place : std::u16string_view::npos;
            }
        }
        return std::u16string_view::npos;
    }

    bool TakeTag() {
        const std::size_t end = TagEnd();
        if (end == std::u16string_view::npos) {
            return false;
        }
        std::u16string_view tag = m_rest.substr(1, end - 1);
        m_rest.remove_prefix(end + 1);
        const bool closes = tag.starts_with(u'/');
        const bool isEmpty = tag.ends_with(u'/');
        tag.remove_prefix(closes ? 1 : 0);
        const std::u16string_view name = tag.substr(0, tag.find_first_of(u" \t\r\n/"));
        if (name.empty()) {
            return false;
        }
        if (closes) {
            const bool matches = !m_open.empty() && m_open.back() == name;
            if (matches) {
                m_open.pop_back();
            }
            return matches;
        }
        m_roots += m_open.empty() ? 1 : 0;
        if (!isEmpty) {
            m_open.push_back(name);
        }
        return true;
    }

    std::u16string_view m_rest;
    std::u16string m_serialised;
    std::vector<std::u16string_view> m_open;
    unsigned m_roots = 0;
};

} // namespace

std::optional<std::u16string> SerialisedXml(std::u16string_view text) {
    XmlScan scan(text);
    return scan.Run() ? std::optional(scan.TakeSerialised()) : std::nullopt;
}

} // namespace machine
