#include "observer/buffers/out_buffers.h"

#include <algorithm>

namespace observer {

void OutTexts::After(Call& call, bool succeeded) {
    if (!succeeded || !IsNoted(call)) {
        return;
    }
    std::u16string_view rest(m_texts, std::min(m_capacity, m_size));
    List texts;
    while (!rest.empty() && rest.front() != u'\0') {
        const std::u16string_view text = rest.substr(0, rest.find(u'\0'));
        texts.push_back(ValueOf(call, text));
        rest.remove_prefix(std::min(rest.size(), text.size() + 1));
    }
    NoteOutput(call, {std::move(texts)});
}

bool OutText::Replay(Call&, const Structure& outputs) {
    const Value* const recorded = Recorded(outputs);
    if (recorded == nullptr) {
        return true;
    }
    const auto* const text = std::get_if<std::u16string>(&recorded->held);
    if (text == nullptr || text->size() > m_size) {
        return false;
    }
    std::ranges::copy(*text, m_text);
    if (text->size() < m_size) {
        m_text[text->size()] = u'\0';
    }
    return true;
}

/// After the strings comes an empty one, where there is a place for it.
bool OutTexts::Replay(Call&, const Structure& outputs) {
    const Value* const recorded = Recorded(outputs);
    if (recorded == nullptr) {
        return true;
    }
    const auto* const texts = std::get_if<List>(&recorded->held);
    if (texts == nullptr) {
        return false;
    }
    std::span<char16_t> rest(m_texts, m_capacity);
    for (const Value& item : *texts) {
        const auto* const text = std::get_if<std::u16string>(&item.held);
        if (text == nullptr || text->size() >= rest.size()) {
            return false;
        }
        *std::ranges::copy(*text, rest.begin()).out = u'\0';
        rest = rest.subspan(text->size() + 1);
    }
    if (!rest.empty()) {
        rest.front() = u'\0';
    }
    return true;
}

void OutPlaces::After(Call& call, bool succeeded) {
    if (!succeeded || !IsNoted(call)) {
        return;
    }
    List places;
    for (const char16_t* const text : std::span(m_addresses, std::min(m_capacity, m_count))) {
        const auto place =
            (reinterpret_cast<std::uintptr_t>(text) - reinterpret_cast<std::uintptr_t>(m_texts)) /
            sizeof(char16_t);
        places.push_back(text != nullptr && place < m_size ? ValueOf(call, place) : Value{});
    }
    NoteOutput(call, {std::move(places)});
}

bool OutPlaces::Replay(Call& call, const Structure& outputs) {
    std::vector<std::optional<std::uint32_t>> places;
    if (!Assigned(call, outputs, places) || places.size() > m_capacity) {
        return false;
    }
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i] && *places[i] >= m_size) {
            return false;
        }
        m_addresses[i] = places[i] ? m_texts + *places[i] : nullptr;
    }
    return true;
}

OutBytes::OutBytes(std::string_view name, std::span<std::byte> buffer, const std::uint32_t& written,
                   std::uint32_t controlCode)
    : OutBytes(name, buffer, written) {
    for (const StatusField& field : StatusFields) {
        if (field.controlCode == controlCode) {
            m_status = field.offset;
        }
    }
}

void OutBytes::Shorten(Shortening how) {
    if (how == Shortening::BufferOfOneByte) {
        m_passed = m_buffer.first(std::min<std::size_t>(m_buffer.size(), 1));
    } else if (how == Shortening::HalfOfAnswer) {
        m_aside.reset(new (std::nothrow) std::byte[m_buffer.size()]);
        if (m_aside != nullptr) {
            std::ranges::copy(m_buffer, m_aside.get()); // which may be the input too
            m_passed = {m_aside.get(), m_buffer.size()};
        }
    }
}

void OutBytes::Halve(Shortening how) {
    if (how == Shortening::HalfOfAnswer && m_aside != nullptr) {
        const std::span<std::byte> answer = Written(m_passed);
        std::ranges::copy(answer.first(answer.size() / 2), m_buffer.begin());
    }
}

bool OutBytes::Replay(Call&, const Structure& outputs) {
    const Value* const recorded = Recorded(outputs);
    if (recorded == nullptr) {
        return true;
    }
    const auto* const bytes = std::get_if<Bytes>(&recorded->held);
    if (bytes == nullptr || bytes->size() > m_buffer.size()) {
        return false;
    }
    std::ranges::copy(*bytes, m_buffer.begin());
    m_replayed = bytes->size();
    return true;
}

bool OutBytes::SayFailed() {
    if (!m_status || *m_status >= Written(m_buffer).size()) {
        return false;
    }
    m_buffer[*m_status] = std::byte{1};
    return true;
}

} // namespace observer
