// The arguments of a boundary function as its decorator names them: one for each, in their order.
//
// Each is passed on to the back end by `Argument`, and noted: an input before the call, since input and output may be
// the same bytes, an output after it. In a replay an output is written from the recording instead. The caller's buffers
// are in buffers.h.
#pragma once

#include "observer/values.h"

#include <type_traits>

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

    /// Writes what was recorded, if anything was. False where that is no value of this argument, or too large.
    bool Replay(Call&, const Structure&) { return true; }

    /// Whether a count that the replayed call returned can be that of this buffer.
    [[nodiscard]] bool Holds(std::int64_t) const { return true; }

    /// The same for a count that is another argument, when all have been replayed.
    [[nodiscard]] bool IsConsistent() const { return true; }

protected:
    explicit PlainArgument(std::string_view name) : m_name(name) {}

    void NoteInput(Call& call, Value value) const;
    void NoteOutput(Call& call, Value value) const;

    [[nodiscard]] static bool IsNoted(Call& call) { return call.TheRecord() != nullptr; }

    /// Null where it was not written.
    [[nodiscard]] const Value* Recorded(const Structure& outputs) const { return Find(outputs, m_name); }

    template <class T>
    bool Assigned(Call& call, const Structure& outputs, T& value) {
        const Value* const recorded = Recorded(outputs);
        return recorded == nullptr || Assign(call, *recorded, value);
    }

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

    bool Replay(Call& call, const Structure& outputs) { return this->Assigned(call, outputs, m_value); }

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

/// Nothing that is counted in a recording is larger. What is there said to be larger is refused, before the core
/// allocates so much or asks so often.
inline constexpr std::int64_t LargestReplayedCount = 1 << 20;

/// How many there are of something that is asked for next.
class OutSize : public Out<std::uint32_t> {
public:
    using Out::Out;

    bool Replay(Call& call, const Structure& outputs) {
        return Out::Replay(call, outputs) && m_value <= LargestReplayedCount;
    }
};

/// The value of a WMI property, in either form, and the type that its VARIANT had.
template <class T>
class OutVariant : public OutAlways<T> {
public:
    OutVariant(std::string_view name, T& value) : OutAlways<T>(name, value) {}

    void After(Call& call, bool succeeded) {
        OutAlways<T>::After(call, succeeded);
        m_type.After(call, succeeded);
    }

    bool Replay(Call& call, const Structure& outputs) {
        return OutAlways<T>::Replay(call, outputs) && m_type.Replay(call, outputs);
    }

private:
    Out<std::uint16_t> m_type{"vartype", this->m_value.variantType};
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

    bool Replay(Call& call, const Structure& outputs) {
        const T before = m_value;
        if (!this->Assigned(call, outputs, m_value)) {
            return false;
        }
        if constexpr (std::is_integral_v<T>) { // a failed call may leave the caller's
            return m_value == before || m_value <= LargestReplayedCount;
        }
        return true;
    }

private:
    T& m_value;
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

    bool Replay(Call& call, const Structure& outputs) { return this->Assigned(call, outputs, m_handle); }

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
