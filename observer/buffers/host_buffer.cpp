#include "observer/buffers/host_buffer.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace observer {
namespace {

using Type = ExportArgument::Type;

/// No two neighbours are equal, and the first two are the character that no string begins with.
std::byte Pattern(std::size_t place) {
    return place < 2 ? std::byte{0xFF} : std::byte{static_cast<unsigned char>(0xA5 ^ place)};
}

/// How many bytes of the buffer are certain to be there. A wide string is as long as its export makes it.
std::size_t CertainSize(const ExportArgument& argument) {
    return argument.TypeOf() == Type::WideText ? sizeof(VeskChar16) : argument.Size();
}

} // namespace

HostBuffer::HostBuffer(const ExportArgument& argument) : m_argument(&argument) {
    m_before.resize(CertainSize(argument));
    std::copy_n(Start(), m_before.size(), m_before.begin());
    for (std::size_t place = 0; place < m_before.size(); ++place) {
        Start()[place] = Pattern(place);
    }
}

std::byte* HostBuffer::Start() const {
    return static_cast<std::byte*>(const_cast<void*>(m_argument->Address()));
}

void HostBuffer::Restore() noexcept {
    std::size_t intact = 0;
    while (intact < m_before.size() && Start()[intact] == Pattern(intact)) {
        ++intact;
    }
    m_written = intact < m_before.size();
    if (!m_written) {
        std::ranges::copy(m_before, Start());
        return;
    }
    if (m_argument->TypeOf() != Type::Text) {
        return; // written as a whole
    }
    // What comes after a string's end is the host's own, unless the export wrote there too.
    const std::span bytes(Start(), m_before.size());
    const auto end = std::ranges::find(bytes, std::byte{0});
    for (auto place = static_cast<std::size_t>(end - bytes.begin()) + 1; place < bytes.size(); ++place) {
        if (bytes[place] == Pattern(place)) {
            bytes[place] = m_before[place];
        }
    }
}

Value HostBuffer::Written() const {
    if (!m_written) {
        return {};
    }
    const std::byte* const start = Start();
    switch (m_argument->TypeOf()) {
    case Type::WideText: {
        std::u16string text;
        const auto* const units = static_cast<const VeskChar16*>(m_argument->Address());
        for (std::size_t place = 0;
             units[place] != 0 && (m_argument->Size() == 0 || place < m_argument->Size()); ++place) {
            text += static_cast<char16_t>(units[place]);
        }
        return {std::move(text)};
    }
    case Type::Text: {
        const std::string_view text(reinterpret_cast<const char*>(start), m_before.size());
        return NarrowValue(text.substr(0, text.find('\0')));
    }
    case Type::Uint32: {
        std::uint32_t number = 0;
        std::memcpy(&number, start, sizeof number);
        return {Number{number}};
    }
    default:
        return {Bytes(start, start + m_before.size())};
    }
}

Value NarrowValue(std::string_view text) {
    const bool ascii = std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (ascii) {
        return {std::u16string(text.begin(), text.end())};
    }
    const auto bytes = std::as_bytes(std::span(text));
    return {Bytes(bytes.begin(), bytes.end())};
}

} // namespace observer
