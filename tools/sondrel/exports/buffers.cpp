#include "exports/buffers.h"

#include "base/text.h"
#include "unicode/utf.h"

#include <algorithm>
#include <new>
#include <string_view>

namespace tool {
namespace {

constexpr std::size_t WideCapacity = std::size_t{32} * 1024 * 1024;
/// Not a character, so that no string begins with four of them.
constexpr VeskChar16 Mark = 0xFFFF;
constexpr std::size_t Marks = 4;

/// Not constant, so that a library that clears or fills a buffer is noticed.
char FillAt(std::size_t place) {
    return static_cast<char>(0xA5u ^ static_cast<unsigned>(place * 37 & 0xFF));
}

Answer Untouched() {
    return {.text = std::string(BufferUntouched), .untouched = true};
}

} // namespace

WideBuffer::WideBuffer()
    // The system provides so large a block as pages of zeros, which cost nothing until they are written to.
    : m_characters(static_cast<VeskChar16*>(std::calloc(WideCapacity, sizeof(VeskChar16)))) {
    if (!m_characters) {
        throw std::bad_alloc();
    }
    std::fill_n(m_characters.get(), Marks, Mark);
}

Answer WideBuffer::Read() const {
    const VeskChar16* const text = m_characters.get();
    if (std::all_of(text, text + Marks, [](VeskChar16 character) { return character == Mark; })) {
        return Untouched();
    }
    const VeskChar16* const end = std::find(text, text + WideCapacity, VeskChar16{});
    Answer answer{.text = unicode::Utf8FromWide(std::u16string(text, end))};
    if (end == text + WideCapacity) {
        answer.fault = "the string has no terminator";
    }
    return answer;
}

NarrowBuffer::NarrowBuffer(std::size_t size) : m_size(size) {
    for (std::size_t i = 0; i < m_bytes.size(); ++i) {
        m_bytes[i] = FillAt(i);
    }
}

std::size_t NarrowBuffer::Written() const {
    std::size_t written = m_bytes.size();
    while (written > 0 && m_bytes[written - 1] == FillAt(written - 1)) {
        --written;
    }
    return written;
}

std::string NarrowBuffer::Overrun() const {
    const std::size_t written = Written();
    return written <= m_size ? std::string()
                             : "the buffer of " + std::to_string(m_size) +
                                   " bytes was overrun: " + std::to_string(written) + " bytes were written";
}

Answer NarrowBuffer::ReadText() const {
    if (Written() == 0) {
        return Untouched();
    }
    const std::string_view all(m_bytes.data(), m_bytes.size());
    const std::size_t end = all.find('\0');
    Answer answer{.text = WellFormed(all.substr(0, std::min(end, m_size))), .fault = Overrun()};
    if (answer.fault.empty() && end >= m_size) {
        answer.fault = "the string has no terminator within its " + std::to_string(m_size) + " bytes";
    }
    return answer;
}

Answer NarrowBuffer::ReadBytes() const {
    if (Written() == 0) {
        return Untouched();
    }
    return {.text = Hex({reinterpret_cast<const std::uint8_t*>(m_bytes.data()), m_size}), .fault = Overrun()};
}

} // namespace tool
