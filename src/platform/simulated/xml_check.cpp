#include "platform/simulated/xml_check.h"

#include <algorithm>
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

class XmlScan {
public:
    explicit XmlScan(std::u16string_view text) : m_rest(text) {}

    bool Run() {
        while (!m_rest.empty()) {
            const std::size_t markup = std::min(m_rest.find(u'<'), m_rest.size());
            if (m_open.empty() &&
                m_rest.substr(0, markup).find_first_not_of(WhiteSpace) != std::u16string_view::npos) {
                return false;
            }
            m_rest.remove_prefix(markup);
            if (!m_rest.empty() && !SkipMarkup() && !TakeTag()) {
                return false;
            }
        }
        return m_open.empty() && m_roots == 1;
    }

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
    std::vector<std::u16string_view> m_open;
    unsigned m_roots = 0;
};

} // namespace

bool IsXmlDocument(std::u16string_view text) {
    return XmlScan(text).Run();
}

} // namespace machine
