/**
 * @file
 * What a reading gives in C++: a value with its unit, or the failure that it was. Include vesk_sondrel.hpp.
 */
#ifndef VESK_SONDREL_RESULT_HPP
#define VESK_SONDREL_RESULT_HPP

#include "generated/description.hpp"

#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#if defined(__cpp_exceptions) || defined(_CPPUNWIND)
#define VESK_SONDREL_EXCEPTIONS 1
#else
#define VESK_SONDREL_EXCEPTIONS 0
#endif

namespace vesk {

/// UTF-16, as the library writes it: std::wstring on Windows, std::u16string elsewhere.
using String = std::basic_string<VeskChar16>;
using StringView = std::basic_string_view<VeskChar16>;

/// A surrogate without its partner becomes U+FFFD.
inline std::string utf8(StringView text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::uint32_t code = text[i];
        if (code >= 0xD800 && code < 0xE000) {
            const bool pair = code < 0xDC00 && i + 1 < text.size() && (text[i + 1] & 0xFC00u) == 0xDC00u;
            code = pair ? 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00u) : 0xFFFD;
        }
        const int tail = code < 0x80 ? 0 : code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
        constexpr unsigned char Lead[] = {0, 0xC0, 0xE0, 0xF0};
        bytes.push_back(static_cast<char>(Lead[tail] | code >> 6 * tail));
        for (int left = tail - 1; left >= 0; --left) {
            bytes.push_back(static_cast<char>(0x80 | (code >> 6 * left & 0x3F)));
        }
    }
    return bytes;
}

/// A narrow string of the library is UTF-8 or ASCII already.
inline const std::string& utf8(const std::string& text) {
    return text;
}

/// A number with its unit, one of vesk::unit. Only numbers of one unit compare.
template <class Unit, class Number>
struct Quantity {
    using unit_type = Unit;

    Number value{};

    /// "mV", "°C" in UTF-8.
    static constexpr const char* unit() noexcept { return Unit::symbol; }

    friend constexpr bool operator==(Quantity left, Quantity right) noexcept {
        return left.value == right.value;
    }

    friend constexpr bool operator!=(Quantity left, Quantity right) noexcept { return !(left == right); }

    friend constexpr bool operator<(Quantity left, Quantity right) noexcept {
        return left.value < right.value;
    }

    friend constexpr bool operator>(Quantity left, Quantity right) noexcept { return right < left; }

    friend constexpr bool operator<=(Quantity left, Quantity right) noexcept { return !(right < left); }

    friend constexpr bool operator>=(Quantity left, Quantity right) noexcept { return !(left < right); }
};

/// The states that one answer of the library can mean, the most likely one first.
class States {
public:
    constexpr States(std::initializer_list<State> states) noexcept {
        int shift = 0;
        for (const State state : states) {
            m_packed |= (static_cast<std::uint32_t>(state) + 1) << shift;
            shift += 4;
        }
    }

    [[nodiscard]] constexpr State first() const noexcept { return static_cast<State>((m_packed & 0xF) - 1); }

    [[nodiscard]] constexpr bool contains(State state) const noexcept {
        for (std::uint32_t rest = m_packed; rest != 0; rest >>= 4) {
            if ((rest & 0xF) == static_cast<std::uint32_t>(state) + 1) {
                return true;
            }
        }
        return false;
    }

    /// What to assume, where it is known whether this host has a session open.
    [[nodiscard]] constexpr State assumed(bool session) const noexcept {
        if (!session && contains(State::no_session)) {
            return State::no_session;
        }
        const State first_one = first();
        return first_one == State::no_session && m_packed > 0xF
                   ? static_cast<State>((m_packed >> 4 & 0xF) - 1)
                   : first_one;
    }

private:
    std::uint32_t m_packed = 0; // four bits for each
};

/// Why there is no value. Strings are static.
class Failure {
public:
    constexpr Failure(const char* reading, State state, States states, const char* meaning,
                      std::uint32_t code = 0) noexcept
        : m_reading(reading), m_meaning(meaning), m_states(states), m_code(code), m_state(state) {}

    /// The most likely state: failed, absent, not_read, no_session or not_ready.
    [[nodiscard]] constexpr State state() const noexcept { return m_state; }

    /// One answer of the library can mean several states.
    [[nodiscard]] constexpr bool could_be(State state) const noexcept { return m_states.contains(state); }

    /// "no battery, or the device does not give this value"
    [[nodiscard]] constexpr const char* meaning() const noexcept { return m_meaning; }

    /// The name of the export.
    [[nodiscard]] constexpr const char* reading() const noexcept { return m_reading; }

    /// The system's error code; 0 where the export gives none.
    [[nodiscard]] constexpr std::uint32_t code() const noexcept { return m_code; }

private:
    const char* m_reading;
    const char* m_meaning;
    States m_states;
    std::uint32_t m_code;
    State m_state;
};

/// Thrown by Result::value().
class ReadingError : public std::runtime_error {
public:
    explicit ReadingError(const Failure& failure)
        : std::runtime_error(std::string(failure.reading()) + ": " + failure.meaning()), m_failure(failure) {}

    [[nodiscard]] const Failure& failure() const noexcept { return m_failure; }

private:
    Failure m_failure;
};

namespace detail {

[[noreturn]] inline void raise(const Failure& failure) {
#if VESK_SONDREL_EXCEPTIONS
    throw ReadingError(failure);
#else
    (void)failure;
    std::abort();
#endif
}

} // namespace detail

/// A value, or the failure that it was.
template <class T>
class [[nodiscard]] Result {
public:
    using value_type = T;

    Result(T value) : m_value(std::move(value)) {}

    /// A value that can also means something else, such as 0.
    Result(T value, const Failure& note) : m_value(std::move(value)), m_failure(note) {}

    Result(const Failure& failure) : m_failure(failure) {}

    [[nodiscard]] bool has_value() const noexcept { return m_value.has_value(); }

    explicit operator bool() const noexcept { return has_value(); }

    /// Undefined without a value, as std::optional's.
    [[nodiscard]] const T& operator*() const& noexcept { return *m_value; }

    [[nodiscard]] T&& operator*() && noexcept { return *std::move(m_value); }

    [[nodiscard]] const T* operator->() const noexcept { return &*m_value; }

    [[nodiscard]] T* operator->() noexcept { return &*m_value; }

    /// Throws ReadingError without a value; ends the program where exceptions are disabled.
    [[nodiscard]] const T& value() const& {
        require();
        return *m_value;
    }

    [[nodiscard]] T&& value() && {
        require();
        return *std::move(m_value);
    }

    template <class Other>
    [[nodiscard]] T value_or(Other&& other) const& {
        return has_value() ? **this : static_cast<T>(std::forward<Other>(other));
    }

    [[nodiscard]] State state() const noexcept { return has_value() ? State::ok : m_failure.state(); }

    /// Only without a value.
    [[nodiscard]] const Failure& failure() const noexcept { return m_failure; }

    /// What the value can mean besides itself ("idle, or a sample failed"); an empty string usually.
    [[nodiscard]] const char* note() const noexcept { return has_value() ? m_failure.meaning() : ""; }

private:
    void require() const {
        if (!has_value()) {
            detail::raise(m_failure);
        }
    }

    std::optional<T> m_value;
    Failure m_failure{"", State::ok, {State::ok}, ""};
};

/// Done, or the failure that it was.
template <>
class [[nodiscard]] Result<void> {
public:
    using value_type = void;

    Result() = default;

    Result(const Failure& failure) : m_failure(failure), m_done(failure.state() == State::ok) {}

    [[nodiscard]] bool has_value() const noexcept { return m_done; }

    explicit operator bool() const noexcept { return m_done; }

    void value() const {
        if (!m_done) {
            detail::raise(m_failure);
        }
    }

    [[nodiscard]] State state() const noexcept { return m_failure.state(); }

    [[nodiscard]] const Failure& failure() const noexcept { return m_failure; }

    [[nodiscard]] const char* note() const noexcept { return m_done ? m_failure.meaning() : ""; }

private:
    Failure m_failure{"", State::ok, {State::ok}, ""};
    bool m_done = true;
};

} // namespace vesk

#endif // VESK_SONDREL_RESULT_HPP
