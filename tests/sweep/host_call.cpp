#include "host_call.h"

#include "heap.h"
#include "text.h"

#include <dlfcn.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <stdexcept>
#include <type_traits>
#include <vector>

namespace sweep {
namespace {

/// The arguments of exports that take some, one for all runs.
constexpr std::uint32_t Leaf = 0;
constexpr std::int32_t Level = 2;
constexpr const char16_t* AppPath = u"C:\\ProgramData\\Vesk\\VeskTessaly";

template <class Unit>
class GuardedBuffer {
public:
    explicit GuardedBuffer(std::size_t room) : m_room(room), m_units(Guard + room + Guard) {
        for (std::size_t place = 0; place < m_units.size(); ++place) {
            m_units[place] = FillAt(place);
        }
    }

    Unit* Start() { return m_units.data() + Guard; }

    [[nodiscard]] std::span<const Unit> Room() const { return std::span(m_units).subspan(Guard, m_room); }

    [[nodiscard]] bool Untouched() const { return IsFill(0, m_units.size()); }

    /// Nothing in front, and nothing from the room's unit number `end` on.
    [[nodiscard]] bool KeptTo(std::size_t end) const {
        return IsFill(0, Guard) && IsFill(Guard + end, m_units.size());
    }

private:
    static constexpr std::size_t Guard = 64;

    /// No zero, and not constant, so that a library that clears or fills a buffer shows.
    static Unit FillAt(std::size_t place) { return static_cast<Unit>(0xA5 ^ (place & 0x1F)); }

    [[nodiscard]] bool IsFill(std::size_t begin, std::size_t end) const {
        while (begin < end && m_units[begin] == FillAt(begin)) {
            ++begin;
        }
        return begin == end;
    }

    std::size_t m_room;
    std::vector<Unit> m_units;
};

std::string ToUtf8(std::span<const char16_t> text) {
    return tool::Utf8({text.data(), text.size()});
}

std::string ToUtf8(std::span<const char> text) {
    return {text.data(), text.size()};
}

/// The text up to its terminator. Behind that nothing may have been written, unless the field has a fixed size.
template <class Unit>
HostAnswer TextIn(const GuardedBuffer<Unit>& buffer, bool fixedSize = false) {
    if (buffer.Untouched()) {
        return {std::string(tool::BufferUntouched), ""};
    }
    const std::span room = buffer.Room();
    const auto length = static_cast<std::size_t>(std::ranges::find(room, Unit{}) - room.begin());
    HostAnswer answer{ToUtf8(room.first(length)), ""};
    if (length == room.size()) {
        answer.fault = "the text has no terminator in its room of " + std::to_string(room.size());
    } else if (!buffer.KeptTo(fixedSize ? room.size() : length + 1)) {
        answer.fault = "something was written outside the text";
    }
    return answer;
}

template <class Function, class... Arguments>
auto Invoke(void* address, Arguments... arguments) {
    const heap::InLibrary here;
    return reinterpret_cast<Function*>(address)(arguments...);
}

template <class Number>
HostAnswer NumberAnswer(Number number) {
    if constexpr (std::is_floating_point_v<Number>) {
        std::array<char, 64> digits{};
        return {{digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr}, ""};
    } else {
        return {std::to_string(number), ""};
    }
}

template <class Function, class... Arguments>
HostCall Numeric(void* address, Arguments... arguments) {
    return [=] {
        return NumberAnswer(Invoke<Function>(address, arguments...));
    };
}

HostAnswer ReadBytes(void* address, std::size_t size) {
    GuardedBuffer<std::uint8_t> buffer(size);
    const std::uint32_t code = Invoke<std::uint32_t(std::uint8_t*)>(address, buffer.Start());
    HostAnswer answer{buffer.Untouched() ? std::string(tool::BufferUntouched) : tool::Hex(buffer.Room()),
                      buffer.KeptTo(size) ? "" : "something was written outside the field"};
    if (code != 0) {
        answer.text += " error " + std::to_string(code);
    }
    return answer;
}

HostAnswer ReadLeaf(void* address) {
    GuardedBuffer<std::uint32_t> words(4);
    std::uint32_t* const out = words.Start();
    Invoke<void(std::uint32_t, std::uint32_t*, std::uint32_t*, std::uint32_t*, std::uint32_t*)>(
        address, Leaf, out, out + 1, out + 2, out + 3);
    if (words.Untouched()) {
        return {std::string(tool::BufferUntouched), ""};
    }
    HostAnswer answer{"", words.KeptTo(4) ? "" : "something was written outside the words"};
    for (const std::uint32_t word : words.Room()) {
        answer.text += std::to_string(word) + ' ';
    }
    return answer;
}

/// The date, the name and the time fill their buffers to the last byte whatever they say.
bool HasFixedSize(std::string_view name) {
    constexpr std::array Fixed{"Battery_Read_ManufactureDate", "Battery_Read_ManufactureName",
                               "System_Read_LocalTime"};
    return std::ranges::find(Fixed, name) != Fixed.end();
}

HostAnswer ReadNarrow(void* address, const tool::Export& row) {
    GuardedBuffer<char> buffer(row.traits.size);
    Invoke<void(char*)>(address, buffer.Start());
    return TextIn(buffer, HasFixedSize(row.name));
}

} // namespace

HostAnswer CallWide(const std::function<void(char16_t*)>& read, std::size_t room) {
    GuardedBuffer<char16_t> buffer(room);
    {
        const heap::InLibrary here;
        read(buffer.Start());
    }
    return TextIn(buffer);
}

HostCall CallOf(const tool::Export& row, std::uint8_t initCom, std::size_t room) {
    using Byte = std::uint8_t;
    using Word = std::uint32_t;
    using Number = std::int32_t;
    namespace shape = tool::shape;
    void* const address = ::dlsym(RTLD_DEFAULT, std::string(row.name).c_str());
    if (address == nullptr) {
        throw std::runtime_error(std::string(row.name) + " is not linked in");
    }
    const tool::Shape* const form = row.shape;
    if (form == &shape::Nothing) {
        return [=] {
            return Invoke<void()>(address), HostAnswer{};
        };
    }
    if (form == &shape::Signed) {
        return Numeric<Number()>(address);
    }
    if (form == &shape::Unsigned) {
        return Numeric<Word()>(address);
    }
    if (form == &shape::Float) {
        return Numeric<float()>(address);
    }
    if (form == &shape::Double) {
        return Numeric<double()>(address);
    }
    if (form == &shape::SignedCom) {
        return Numeric<Number(Byte)>(address, initCom);
    }
    if (form == &shape::SetNumberCom) {
        return Numeric<Number(Number, Byte)>(address, Level, initCom);
    }
    if (form == &shape::SetByteCom) {
        return Numeric<Number(Byte, Byte)>(address, static_cast<Byte>(Level), initCom);
    }
    if (form == &shape::SetPathCom) {
        return Numeric<Number(const char16_t*, Byte)>(address, AppPath, initCom);
    }
    if (form == &shape::AddOne) {
        return Numeric<Word(Word)>(address, Word{1});
    }
    if (form == &shape::StringObject) {
        return [=] {
            const std::string object = Invoke<std::string()>(address);
            return HostAnswer{std::string(object.data(), object.size()), ""}; // a block of our own
        };
    }
    if (form == &shape::NarrowText) {
        return [=, &row] {
            return ReadNarrow(address, row);
        };
    }
    if (form == &shape::WideText) {
        return [=] {
            return CallWide(reinterpret_cast<void (*)(char16_t*)>(address), room);
        };
    }
    if (form == &shape::WideTextCom) {
        const auto read = reinterpret_cast<void (*)(char16_t*, Byte)>(address);
        return [=] {
            return CallWide([=](char16_t* out) { read(out, initCom); }, room);
        };
    }
    if (form == &shape::ReadBytes) {
        return [=, &row] {
            return ReadBytes(address, row.traits.size);
        };
    }
    if (form == &shape::WriteBytes) {
        return [=, bytes = std::vector<Byte>(row.traits.size, Byte{'7'})] {
            return NumberAnswer(Invoke<Word(const Byte*)>(address, bytes.data()));
        };
    }
    if (form == &shape::ProcessorLeaf) {
        return [=] {
            return ReadLeaf(address);
        };
    }
    throw std::runtime_error(std::string(row.name) + " is called in a way that the sweep does not know");
}

} // namespace sweep
