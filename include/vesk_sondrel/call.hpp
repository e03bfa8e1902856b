/**
 * @file
 * One call of an export: its buffer, its special answers, its value. Include vesk_sondrel.hpp.
 */
#ifndef VESK_SONDREL_CALL_HPP
#define VESK_SONDREL_CALL_HPP

#include "module.hpp"

#include <array>
#include <limits>
#include <type_traits>
#include <vector>

namespace vesk {

/// Whether a call that uses COM enters an apartment for itself.
enum class Com : std::uint8_t {
    entered = 0, ///< The calling thread is in an apartment, of either kind.
    enter = 1    ///< The call enters one and leaves it again: right on a thread that never touched COM.
};

/// A reading in words, for hosts that go through all of them.
struct ReadingInfo {
    const char* group;       ///< "thermal"
    const char* name;        ///< "cpu_temperature"
    const char* export_name; ///< "Thermal_Read_Cpu_Temperature"
    const char* summary;
    const char* unit; ///< "mV"; empty without one.
};

/// The registers of a CPUID leaf.
struct Registers {
    std::uint32_t eax = 0;
    std::uint32_t ebx = 0;
    std::uint32_t ecx = 0;
    std::uint32_t edx = 0;
};

namespace detail {

enum class Match : std::uint8_t {
    number,
    string,
    element,    // of a list, a number
    untouched,  // the buffer is as it was
    zeros,      // all registers are 0
    error_code, // the result is not 0
    other       // every number without an answer before this one
};

/// An answer that has a special meaning.
struct Answer {
    Match match;
    std::int64_t number;
    const char* string;
    States states;
    const char* meaning;
};

struct Entry {
    ReadingInfo info;
    const Answer* answers;
    std::size_t count;

    [[nodiscard]] const Answer* find(Match match) const noexcept {
        return find_if([&](const Answer& answer) { return answer.match == match; });
    }

    template <class Number>
    [[nodiscard]] const Answer* find_number(Number number, Match match = Match::number) const noexcept {
        return find_if([&](const Answer& answer) {
            if constexpr (std::is_floating_point_v<Number>) {
                return answer.match == match && number == static_cast<Number>(answer.number);
            } else {
                return (answer.match == match && answer.number == static_cast<std::int64_t>(number)) ||
                       (answer.match == Match::other && match == Match::number);
            }
        });
    }

    template <class Char>
    [[nodiscard]] const Answer* find_string(std::basic_string_view<Char> text) const noexcept {
        return find_if([&](const Answer& answer) {
            if (answer.match != Match::string) {
                return false;
            }
            const std::string_view meant(answer.string);
            bool same = meant.size() == text.size();
            for (std::size_t i = 0; same && i < meant.size(); ++i) {
                same = text[i] == static_cast<Char>(meant[i]);
            }
            return same;
        });
    }

private:
    template <class Predicate>
    [[nodiscard]] const Answer* find_if(Predicate predicate) const noexcept {
        for (const Answer* answer = answers; answer != answers + count; ++answer) {
            if (predicate(*answer)) {
                return answer;
            }
        }
        return nullptr;
    }
};

inline Failure malformed(const Entry& entry, const char* meaning) noexcept {
    return {entry.info.export_name, State::failed, {State::failed}, meaning};
}

/// The value that make() gives, unless the answer means something else.
template <class T, class Make>
Result<T> judged(const Module& module, const Entry& entry, const Answer* answer, Make make,
                 std::uint32_t code = 0) {
    if (answer == nullptr) {
        return Result<T>(make());
    }
    const State state = answer->states.assumed(module.sessions.load(std::memory_order_relaxed) > 0);
    const bool certain = !answer->states.contains(State::failed) && !answer->states.contains(State::absent) &&
                         !answer->states.contains(State::no_session) &&
                         !answer->states.contains(State::not_read) &&
                         !answer->states.contains(State::not_ready);
    const char* const meaning = certain                      ? ""
                                : state == State::no_session ? meaning_of(state)
                                                             : answer->meaning;
    const Failure outcome(entry.info.export_name, state, answer->states, meaning, code);
    return state == State::ok ? Result<T>(make(), outcome) : Result<T>(outcome);
}

/// The letters that are packed into a number, the first in the highest byte that is not 0.
inline std::string letters_of(std::uint32_t number) {
    std::string letters;
    for (int shift = 24; shift >= 0; shift -= 8) {
        const char letter = static_cast<char>(number >> shift & 0xFF);
        if (letter != '\0' || !letters.empty()) {
            letters.push_back(letter);
        }
    }
    return letters;
}

template <class T>
struct IsQuantity : std::false_type {};

template <class Unit, class Number>
struct IsQuantity<Quantity<Unit, Number>> : std::true_type {};

template <class T, class Number>
T value_of(Number number) {
    if constexpr (std::is_same_v<T, bool>) {
        return number != 0;
    } else if constexpr (std::is_same_v<T, std::string>) {
        return letters_of(number);
    } else if constexpr (IsQuantity<T>::value) {
        return T{static_cast<decltype(T::value)>(number)};
    } else {
        return static_cast<T>(number);
    }
}

template <class T, class Number>
Result<T> read_number(const Module& module, const Entry& entry, Number number) {
    const Answer* const answer = entry.find_number(number);
    if (std::is_enum_v<T> && answer == nullptr) {
        return malformed(entry, "the answer is none of the described values");
    }
    return judged<T>(module, entry, answer, [&] { return value_of<T>(number); });
}

/// An element of a list as a number; without one the element is absent.
template <class T, class Char>
Result<T> number_element(const Module& module, const Entry& entry, std::basic_string_view<Char> text) {
    if (text.empty()) {
        return Failure(entry.info.export_name, State::absent, {State::absent}, "the element has no value");
    }
    const bool negative = text.front() == static_cast<Char>('-');
    std::uint64_t number = 0;
    bool valid = text.size() > (negative ? 1u : 0u);
    for (std::size_t i = negative ? 1 : 0; valid && i < text.size(); ++i) {
        const auto digit = static_cast<std::uint64_t>(text[i]) - static_cast<std::uint64_t>('0');
        valid = digit <= 9 &&
                number <= (static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()) - digit) / 10;
        number = valid ? number * 10 + digit : 0;
    }
    if (!valid) {
        return malformed(entry, "the element is not a number");
    }
    const auto value = negative ? -static_cast<std::int64_t>(number) : static_cast<std::int64_t>(number);
    return judged<T>(module, entry, entry.find_number(value, Match::element),
                     [&] { return value_of<T>(value); });
}

/// A buffer that the library writes a string into. No string begins with the mark, which is no character.
template <class Char>
class Buffer {
public:
    Buffer(Char* start, std::size_t size) noexcept : m_start(start), m_size(size) {
        for (std::size_t i = 0; i < size; ++i) {
            start[i] = i < Marks && i + 1 < size ? Mark : Char{};
        }
    }

    [[nodiscard]] bool untouched() const noexcept {
        for (std::size_t i = 0; i < Marks && i + 1 < m_size; ++i) {
            if (m_start[i] != Mark) {
                return false;
            }
        }
        return true;
    }

    [[nodiscard]] std::basic_string_view<Char> text() const noexcept {
        std::size_t length = 0;
        while (length < m_size && m_start[length] != Char{}) {
            ++length;
        }
        return {m_start, length};
    }

private:
    static constexpr std::size_t Marks = 4;
    static constexpr Char Mark = static_cast<Char>(0xFFFF);

    Char* m_start;
    std::size_t m_size;
};

/// What the string means if it is no value.
template <class Char>
const Answer* answer_of(const Entry& entry, const Buffer<Char>& buffer) noexcept {
    static constexpr Answer Nothing{Match::untouched, 0, "", {State::failed}, "the library wrote nothing"};
    if (!buffer.untouched()) {
        return entry.find_string(buffer.text());
    }
    const Answer* const answer = entry.find(Match::untouched);
    return answer == nullptr ? &Nothing : answer;
}

/// A wide string, in the result's own memory from the start.
template <class Call>
Result<String> read_wide(const Module& module, const Entry& entry, std::size_t size, Call call) {
    String text(size, VeskChar16{});
    const Buffer<VeskChar16> buffer(text.data(), size);
    call(text.data());
    const Answer* const answer = answer_of(entry, buffer);
    text.resize(buffer.text().size());
    return judged<String>(module, entry, answer, [&] { return std::move(text); });
}

template <std::size_t Size, class Call>
Result<std::string> read_narrow(const Module& module, const Entry& entry, Call call) {
    std::array<char, Size> bytes{};
    const Buffer<char> buffer(bytes.data(), Size);
    call(bytes.data());
    return judged<std::string>(module, entry, answer_of(entry, buffer),
                               [&] { return std::string(buffer.text()); });
}

/// The elements of a list, in order; a terminated list has a separator after the last one too.
template <class Char, class Each>
void for_each_element(std::basic_string_view<Char> list, bool terminated, Each each) {
    constexpr auto Separator = static_cast<Char>(';');
    while (!(terminated && list.empty())) {
        const std::size_t end = list.find(Separator);
        each(list.substr(0, end));
        if (end == list.npos) {
            return;
        }
        list.remove_prefix(end + 1);
    }
}

template <class T, class Char>
T element_of(const Module& module, const Entry& entry, std::basic_string_view<Char> text) {
    if constexpr (std::is_constructible_v<T, std::basic_string_view<Char>>) {
        return T(text);
    } else {
        return number_element<typename T::value_type>(module, entry, text);
    }
}

/// T: a string, or a Result of a number.
template <class T, class Char>
std::vector<T> elements_of(const Module& module, const Entry& entry, std::basic_string_view<Char> list,
                           bool terminated) {
    std::vector<T> elements;
    for_each_element(list, terminated, [&](std::basic_string_view<Char> text) {
        elements.push_back(element_of<T>(module, entry, text));
    });
    return elements;
}

/// A list in a buffer on the stack, or on the heap if it is a large one.
template <class T, class Char, std::size_t Size, class Call>
Result<std::vector<T>> read_list(const Module& module, const Entry& entry, bool terminated, Call call) {
    std::array<Char, Size> characters;
    const Buffer<Char> buffer(characters.data(), Size);
    call(characters.data());
    return judged<std::vector<T>>(module, entry, answer_of(entry, buffer),
                                  [&] { return elements_of<T>(module, entry, buffer.text(), terminated); });
}

template <class T, class Call>
Result<std::vector<T>> read_long_list(const Module& module, const Entry& entry, bool terminated,
                                      std::size_t size, Call call) {
    const std::unique_ptr<VeskChar16[]> characters(new VeskChar16[size]);
    const Buffer<VeskChar16> buffer(characters.get(), size);
    call(characters.get());
    return judged<std::vector<T>>(module, entry, answer_of(entry, buffer),
                                  [&] { return elements_of<T>(module, entry, buffer.text(), terminated); });
}

/// Record::from() makes a record of so many consecutive elements.
template <class Record, std::size_t Fields, std::size_t Size, class Call>
Result<std::vector<Record>> read_records(const Module& module, const Entry& entry, Call call) {
    std::array<VeskChar16, Size> characters;
    const Buffer<VeskChar16> buffer(characters.data(), Size);
    call(characters.data());
    std::vector<Record> records;
    std::size_t filled = 0;
    const Answer* const answer = answer_of(entry, buffer);
    if (answer == nullptr) {
        std::array<StringView, Fields> fields;
        for_each_element(buffer.text(), false, [&](StringView text) {
            fields[filled] = text;
            if (++filled == Fields) {
                records.push_back(Record::from(module, entry, fields));
                filled = 0;
            }
        });
    }
    if (filled != 0) {
        return malformed(entry, "the list ends within a record");
    }
    return judged<std::vector<Record>>(module, entry, answer, [&] { return std::move(records); });
}

/// The string object that an export returned, taken apart by the layout of the library's compiler.
class StringObject {
public:
    template <class Function>
    StringObject(const Module& module, Function function) : m_layout(module.layout) {
        function(m_bytes);
        if (m_layout == StringLayout::msvc) {
            m_size = word(2);
            m_block = word(3) > SmallCapacity ? pointer() : nullptr;
            m_text = m_block == nullptr ? reinterpret_cast<const char*>(m_bytes) : m_block;
        } else {
            m_size = word(1);
            m_text = pointer();
            m_block = m_text == reinterpret_cast<const char*>(m_bytes + 2 * sizeof(std::size_t)) ? nullptr
                                                                                                 : pointer();
        }
    }

    StringObject(const StringObject&) = delete;
    StringObject& operator=(const StringObject&) = delete;

    ~StringObject() {
        if (m_block != nullptr) {
            free_string_block(m_block, m_layout);
        }
    }

    [[nodiscard]] std::string_view text() const noexcept { return {m_text, m_size}; }

private:
    static constexpr std::size_t SmallCapacity = 15;

    [[nodiscard]] std::size_t word(std::size_t index) const noexcept {
        std::size_t value = 0;
        std::memcpy(&value, m_bytes + index * sizeof value, sizeof value);
        return value;
    }

    [[nodiscard]] char* pointer() const noexcept {
        char* value = nullptr;
        std::memcpy(&value, m_bytes, sizeof value);
        return value;
    }

    alignas(std::size_t) unsigned char m_bytes[4 * sizeof(std::size_t)] = {};
    StringLayout m_layout;
    char* m_block = nullptr;
    const char* m_text = nullptr;
    std::size_t m_size = 0;
};

template <class Function>
Result<std::string> read_string(const Module& module, const Entry& entry, Function function) {
    const StringObject object(module, function);
    return judged<std::string>(module, entry, entry.find_string(object.text()),
                               [&] { return std::string(object.text()); });
}

template <class T, class Function>
Result<std::vector<T>> read_string_list(const Module& module, const Entry& entry, bool terminated,
                                        Function function) {
    const StringObject object(module, function);
    return judged<std::vector<T>>(module, entry, entry.find_string(object.text()),
                                  [&] { return elements_of<T>(module, entry, object.text(), terminated); });
}

template <std::size_t Size, class Call>
Result<std::array<std::uint8_t, Size>> read_bytes(const Module& module, const Entry& entry, Call call) {
    // Not constant, so that it is no answer that the firmware would give.
    const auto fill = [](std::size_t place) {
        return static_cast<std::uint8_t>(0xA5u ^ place * 37u);
    };
    std::array<std::uint8_t, Size> bytes;
    for (std::size_t i = 0; i < Size; ++i) {
        bytes[i] = fill(i);
    }
    const std::uint32_t code = call(bytes.data());
    bool untouched = true;
    for (std::size_t i = 0; i < Size; ++i) {
        untouched = untouched && bytes[i] == fill(i);
    }
    const Answer* answer = code != 0 ? entry.find(Match::error_code) : nullptr;
    if (answer == nullptr && untouched) {
        answer = entry.find(Match::untouched);
    }
    return judged<std::array<std::uint8_t, Size>>(
        module, entry, answer, [&] { return bytes; }, code);
}

template <class Call>
Result<Registers> read_registers(const Module& module, const Entry& entry, Call call) {
    constexpr std::uint32_t Fill = 0xA5C3A5C3; // no processor answers all four so
    Registers words{Fill, Fill, Fill, Fill};
    call(words);
    const auto all = [&](std::uint32_t value) {
        return words.eax == value && words.ebx == value && words.ecx == value && words.edx == value;
    };
    const Answer* const answer = all(Fill) ? entry.find(Match::untouched)
                                 : all(0)  ? entry.find(Match::zeros)
                                           : nullptr;
    return judged<Registers>(module, entry, answer, [&] { return words; });
}

/// A setter's result: 1 for done, or 0 and otherwise a system error code, as the answers say.
template <class Number>
Result<void> done(const Entry& entry, Number number) noexcept {
    const Answer* const answer = entry.find_number(number);
    if (answer == nullptr) {
        return {};
    }
    const auto code = answer->match == Match::other ? static_cast<std::uint32_t>(number) : 0u;
    const bool certain = answer->states.first() == State::ok && !answer->states.contains(State::failed);
    return Failure(entry.info.export_name, answer->states.first(), answer->states,
                   certain ? "" : answer->meaning, code);
}

/// The readings of one group; valid as long as the Library or Session that it comes from.
class Group {
public:
    explicit Group(const Module& module) noexcept : m_module(&module) {}

protected:
    [[nodiscard]] const Module& module() const noexcept { return *m_module; }

    [[nodiscard]] const Exports& exports() const noexcept { return m_module->exports; }

private:
    const Module* m_module;
};

} // namespace detail
} // namespace vesk

#endif // VESK_SONDREL_CALL_HPP
