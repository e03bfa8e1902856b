// The caller's buffers among the arguments. Each knows its size, which limits whatever is written to it.
#pragma once

#include "observer/arguments.h"

#include <memory>
#include <new>
#include <optional>
#include <span>

namespace observer {

/// A caller's buffer for a string that ends with a zero. Its size is noted where no other argument has it.
class OutText : public PlainArgument {
public:
    OutText(std::string_view name, char16_t* text, std::size_t size)
        : PlainArgument(name), m_text(text), m_size(text == nullptr ? 0 : size) {}

    [[nodiscard]] char16_t* Argument() const { return m_text; }

    void After(Call& call, bool succeeded) {
        if (succeeded && m_text != nullptr && IsNoted(call)) {
            const std::u16string_view text(m_text, m_size);
            NoteOutput(call, ValueOf(call, text.substr(0, text.find(u'\0'))));
        }
    }

    void Empty() {
        if (m_size != 0) {
            *m_text = u'\0';
        }
    }

    bool Replay(Call& call, const Structure& outputs);

    [[nodiscard]] bool Holds(std::int64_t count) const {
        return m_text == nullptr || (count >= -1 && count <= static_cast<std::int64_t>(m_size));
    }

protected:
    char16_t* m_text;
    std::size_t m_size;
};

class OutTextSpan : public OutText {
public:
    OutTextSpan(std::string_view name, std::span<char16_t> text)
        : OutText(name, text.data(), text.size()), m_span(text) {}

    [[nodiscard]] std::span<char16_t> Argument() const { return m_span; }

    void Before(Call& call) {
        if (IsNoted(call)) {
            NoteInput(call, ValueOf(call, m_span.size()));
        }
    }

private:
    std::span<char16_t> m_span;
};

/// A caller's buffer for strings one after the other. `size` is that of the buffer before the call, and of what was
/// written after it.
class OutTexts : public PlainArgument {
public:
    OutTexts(std::string_view name, char16_t* texts, const std::uint32_t& size)
        : PlainArgument(name), m_texts(texts), m_capacity(texts == nullptr ? 0 : size), m_size(size) {}

    [[nodiscard]] char16_t* Argument() const { return m_texts; }

    void After(Call& call, bool succeeded);
    bool Replay(Call& call, const Structure& outputs);

private:
    char16_t* m_texts;
    std::uint32_t m_capacity;
    const std::uint32_t& m_size;
};

/// A caller's array for the addresses of such strings. They are noted as places in the buffer of the strings.
class OutPlaces : public PlainArgument {
public:
    OutPlaces(std::string_view name, const char16_t** addresses, const std::uint32_t& count,
              const char16_t* texts, std::uint32_t size)
        : PlainArgument(name),
          m_addresses(addresses),
          m_capacity(addresses == nullptr ? 0 : count),
          m_count(count),
          m_texts(texts),
          m_size(texts == nullptr ? 0 : size) {}

    [[nodiscard]] const char16_t** Argument() const { return m_addresses; }

    void After(Call& call, bool succeeded);
    bool Replay(Call& call, const Structure& outputs);

private:
    const char16_t** m_addresses;
    std::uint32_t m_capacity;
    const std::uint32_t& m_count;
    const char16_t* m_texts;
    std::size_t m_size;
};

/// A caller's buffer for bytes, and the count of those that were written. Where the back end has to be shortened or
/// its answer's status changed, this is done here.
class OutBytes : public PlainArgument {
public:
    OutBytes(std::string_view name, std::span<std::byte> buffer, const std::uint32_t& written)
        : PlainArgument(name), m_buffer(buffer), m_passed(buffer), m_written(written) {}

    /// The answer of a control request, which may contain a status.
    OutBytes(std::string_view name, std::span<std::byte> buffer, const std::uint32_t& written,
             std::uint32_t controlCode);

    [[nodiscard]] std::span<std::byte> Argument() const { return m_passed; }

    void Before(Call& call) {
        if (IsNoted(call)) {
            NoteInput(call, ValueOf(call, m_buffer.size()));
        }
    }

    void After(Call& call, bool succeeded) {
        if (succeeded && IsNoted(call)) {
            NoteOutput(call, ValueOf(call, std::span<const std::byte>(Written(m_buffer))));
        }
    }

    void Shorten(Shortening how);
    void Halve(Shortening how);
    bool SayFailed();
    bool Replay(Call& call, const Structure& outputs);

    [[nodiscard]] bool Holds(std::int64_t count) const {
        return count >= 0 && count <= static_cast<std::int64_t>(m_buffer.size());
    }

    [[nodiscard]] bool IsConsistent() const {
        return m_buffer.data() == nullptr || m_written <= m_buffer.size();
    }

private:
    [[nodiscard]] std::span<std::byte> Written(std::span<std::byte> bytes) const {
        return bytes.first(std::min<std::size_t>(m_replayed.value_or(m_written), bytes.size()));
    }

    std::span<std::byte> m_buffer; // the caller's
    std::span<std::byte> m_passed; // to the back end
    const std::uint32_t& m_written;
    std::optional<std::size_t> m_status;
    std::optional<std::size_t> m_replayed; // how many were written from a recording
    std::unique_ptr<std::byte[]> m_aside;  // in place of the caller's buffer, of which not all may be written
};

/// The same for a buffer by its address, whose size goes in with the count. Null where only the size is asked for.
class OutBytesAt : public OutBytes {
public:
    OutBytesAt(std::string_view name, std::byte* buffer, const std::uint32_t& size)
        : OutBytes(name, {buffer, buffer == nullptr ? 0 : size}, size), m_address(buffer) {}

    [[nodiscard]] std::byte* Argument() const { return m_address; }

    void Before(Call&) {} // the size is noted with its own argument

    void After(Call& call, bool succeeded) { OutBytes::After(call, succeeded && m_address != nullptr); }

private:
    std::byte* m_address;
};

} // namespace observer
