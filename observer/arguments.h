// The arguments of a boundary function as its decorator names them: one for each, in their order.
//
// Each is passed on to the back end by `Argument`, and noted: an input before the call, since input and output may be
// the same bytes, an output after it. An output knows the caller's buffer, which limits whatever is written to it.
#pragma once

#include "observer/values.h"

#include <algorithm>
#include <memory>
#include <new>

namespace observer {

/// What an argument does by default.
class PlainArgument {
public:
    void Before(Call&) {}

    void After(Call&, bool) {}

    void Refuse() {} // an injected refusal

    void Empty() {} // success with nothing

    void Shorten(Shortening) {} // before the back end

    void Halve(Shortening) {} // what it returned

    bool SayFailed() { return false; } // the answer's own status

protected:
    explicit PlainArgument(std::string_view name) : m_name(name) {}

    void NoteInput(Call& call, Value value) const;
    void NoteOutput(Call& call, Value value) const;

    [[nodiscard]] static bool IsNoted(Call& call) { return call.TheRecord() != nullptr; }

private:
    std::string_view m_name;
};

template <class T>
class In : public PlainArgument {
public:
    In(std::string_view name, const T& value) : PlainArgument(name), m_value(value) {}

    [[nodiscard]] const T& Argument() const { return m_value; }

    void Before(Call& call) {
        if (IsNoted(call)) {
            NoteInput(call, ValueOf(call, m_value));
        }
    }

private:
    const T& m_value;
};

/// Not noted: what it leads to is noted with another argument.
template <class T>
class PassedOn : public PlainArgument {
public:
    explicit PassedOn(T value) : PlainArgument({}), m_value(value) {}

    [[nodiscard]] T Argument() const { return m_value; }

private:
    T m_value;
};

/// A mask or a code.
class Hex : public PlainArgument {
public:
    Hex(std::string_view name, std::uint32_t value) : PlainArgument(name), m_value(value) {}

    [[nodiscard]] std::uint32_t Argument() const { return m_value; }

    void Before(Call& call) { NoteInput(call, {Number{m_value, true}}); }

private:
    std::uint32_t m_value;
};

/// A handle whose type does not say so.
class InHandle : public PlainArgument {
public:
    InHandle(std::string_view name, HandleKind kind, std::uint64_t handle)
        : PlainArgument(name), m_kind(kind), m_handle(handle) {}

    [[nodiscard]] std::uint64_t Argument() const { return m_handle; }

    void Before(Call& call) {
        if (IsNoted(call)) {
            NoteInput(call, HandleValue(call, m_kind, static_cast<std::uintptr_t>(m_handle)));
        }
    }

private:
    HandleKind m_kind;
    std::uint64_t m_handle;
};

/// Data for the back end, which may be shortened.
class InBytes : public PlainArgument {
public:
    InBytes(std::string_view name, std::span<const std::byte> bytes) : PlainArgument(name), m_bytes(bytes) {}

    [[nodiscard]] std::span<const std::byte> Argument() const { return m_bytes; }

    void Before(Call& call) {
        if (IsNoted(call)) {
            NoteInput(call, ValueOf(call, m_bytes));
        }
    }

    void Shorten(Shortening how) {
        if (how == Shortening::HalfOfInput) {
            m_bytes = m_bytes.first(m_bytes.size() / 2);
        }
    }

private:
    std::span<const std::byte> m_bytes;
};

/// Written on success.
template <class T>
class Out : public PlainArgument {
public:
    Out(std::string_view name, T& value) : PlainArgument(name), m_value(value) {}

    [[nodiscard]] T& Argument() const { return m_value; }

    void After(Call& call, bool succeeded) {
        if (succeeded && IsNoted(call)) {
            NoteOutput(call, ValueOf(call, m_value));
        }
    }

    void Empty() { m_value = T{}; }

protected:
    T& m_value;
};

/// Written on failure too: with zero or nothing, as far as the operation is concerned.
template <class T>
class OutAlways : public Out<T> {
public:
    OutAlways(std::string_view name, T& value) : Out<T>(name, value) {}

    void After(Call& call, bool) { Out<T>::After(call, true); }

    void Refuse() { this->m_value = T{}; }
};

/// How many bytes were written; halved with them.
class OutCount : public OutAlways<std::uint32_t> {
public:
    using OutAlways::OutAlways;

    void Halve(Shortening how) {
        if (how == Shortening::HalfOfAnswer) {
            m_value /= 2;
        }
    }
};

/// Goes in and comes back, on failure too: a size usually.
template <class T>
class InOut : public PlainArgument {
public:
    InOut(std::string_view name, T& value) : PlainArgument(name), m_value(value) {}

    [[nodiscard]] T& Argument() const { return m_value; }

    void Before(Call& call) {
        if (IsNoted(call)) {
            NoteInput(call, ValueOf(call, m_value));
        }
    }

    void After(Call& call, bool) {
        if (IsNoted(call)) {
            NoteOutput(call, ValueOf(call, m_value));
        }
    }

    void Empty() { m_value = T{}; }

private:
    T& m_value;
};

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

private:
    char16_t* m_texts;
    std::uint32_t m_capacity;
    const std::uint32_t& m_size;
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

private:
    [[nodiscard]] std::span<std::byte> Written(std::span<std::byte> bytes) const {
        return bytes.first(std::min<std::size_t>(m_written, bytes.size()));
    }

    std::span<std::byte> m_buffer; // the caller's
    std::span<std::byte> m_passed; // to the back end
    const std::uint32_t& m_written;
    std::optional<std::size_t> m_status;
    std::unique_ptr<std::byte[]> m_aside; // in place of the caller's buffer, of which not all may be written
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

/// A handle that is written on success, and what it was opened on.
template <class T>
class Opens : public PlainArgument {
public:
    Opens(std::string_view name, T& handle, HandleKind kind, std::u16string_view openedOn = {})
        : PlainArgument(name), m_handle(handle), m_before(handle), m_kind(kind), m_openedOn(openedOn) {}

    Opens(std::string_view name, T& handle) : Opens(name, handle, KindOf(handle)) {}

    [[nodiscard]] T& Argument() const { return m_handle; }

    void After(Call& call, bool succeeded) {
        const auto number = static_cast<std::uintptr_t>(m_handle);
        if (number == 0 || (!succeeded && m_handle == m_before)) {
            return;
        }
        call.Opened(m_kind, number, m_openedOn);
        if (IsNoted(call)) {
            NoteOutput(call, HandleValue(call, m_kind, number));
        }
    }

    void Empty() { m_handle = T{}; }

private:
    T& m_handle;
    T m_before;
    HandleKind m_kind;
    std::u16string_view m_openedOn;
};

/// A handle that is not opened, whose type does not say so.
class OutHandle : public PlainArgument {
public:
    OutHandle(std::string_view name, HandleKind kind, std::uint64_t& handle)
        : PlainArgument(name), m_kind(kind), m_handle(handle) {}

    [[nodiscard]] std::uint64_t& Argument() const { return m_handle; }

    void After(Call& call, bool succeeded) {
        if (succeeded && IsNoted(call)) {
            NoteOutput(call, HandleValue(call, m_kind, static_cast<std::uintptr_t>(m_handle)));
        }
    }

private:
    HandleKind m_kind;
    std::uint64_t& m_handle;
};

/// A handle that is closed. It is given up before the back end closes it: the operating system may give its number to
/// another thread immediately.
template <class T>
class Closes : public PlainArgument {
public:
    Closes(std::string_view name, const T& handle) : PlainArgument(name), m_handle(handle) {}

    [[nodiscard]] const T& Argument() const { return m_handle; }

    void Before(Call& call) {
        if (IsNoted(call)) {
            call.Note([&] { NoteInput(call, ValueOf(call, m_handle)); });
        }
        call.Closed(KindOf(m_handle), static_cast<std::uintptr_t>(m_handle));
    }

private:
    const T& m_handle;
};

} // namespace observer
