#include "observer/arguments.h"

#include <utility>

namespace observer {

void PlainArgument::NoteInput(Call& call, Value value) const {
    if (Record* const record = call.TheRecord(); record != nullptr) {
        record->inputs.push_back({m_name, std::move(value)});
    }
}

void PlainArgument::NoteOutput(Call& call, Value value) const {
    if (Record* const record = call.TheRecord(); record != nullptr) {
        record->outputs.push_back({m_name, std::move(value)});
    }
}

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

bool OutBytes::SayFailed() {
    if (!m_status || *m_status >= Written(m_buffer).size()) {
        return false;
    }
    m_buffer[*m_status] = std::byte{1};
    return true;
}

} // namespace observer
