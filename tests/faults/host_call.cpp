#include "host_call.h"

#include "base/text.h"
#include "heap.h"
#include "unicode/utf.h"

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

using Byte = std::uint8_t;
using Word = std::uint32_t;
using Number = std::int32_t;

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

    /// What to say of a library that wrote in front, or from the room's unit number `end` on.
    [[nodiscard]] std::string Beyond(std::size_t end) const {
        const bool kept = IsFill(0, Guard) && IsFill(Guard + end, m_units.size());
        return kept ? "" : "something was written outside the text";
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

/// A call that fills a buffer of so many units.
template <class Unit, class Read>
GuardedBuffer<Unit> Filled(std::size_t room, const Read& read) {
    GuardedBuffer<Unit> buffer(room);
    const heap::InLibrary here;
    read(buffer.Start());
    return buffer;
}

std::string ToUtf8(std::span<const char16_t> text) {
    return unicode::Utf8FromWide({text.data(), text.size()});
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
    return {ToUtf8(room.first(length)),
            length == room.size() ? "the text has no terminator in its room of " + std::to_string(length)
                                  : buffer.Beyond(fixedSize ? room.size() : length + 1)};
}

template <class Function>
Function* As(void* address) {
    return reinterpret_cast<Function*>(address);
}

template <class Function, class... Arguments>
auto Invoke(void* address, Arguments... arguments) {
    const heap::InLibrary here;
    return As<Function>(address)(arguments...);
}

/// How the host calls: the export, and what differs between hosts.
struct HostSide {
    void* address;
    const tool::Export& row;
    std::uint8_t initCom;
    std::size_t room;
};

HostAnswer CallNothing(const HostSide& side) {
    Invoke<void()>(side.address);
    return {};
}

HostAnswer NumberAnswer(auto number) {
    std::array<char, 64> digits{};
    return {{digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr}, ""};
}

/// With the arguments that are given here, and initCom behind them if the export takes it.
template <class Function, auto... Given>
HostAnswer CallNumber(const HostSide& side) {
    const auto number = [&side] {
        if constexpr (std::is_invocable_v<Function, decltype(Given)..., Byte>) {
            return Invoke<Function>(side.address, Given..., side.initCom);
        } else {
            return Invoke<Function>(side.address, Given...);
        }
    }();
    return NumberAnswer(number);
}

HostAnswer CallSetPath(const HostSide& side) {
    return NumberAnswer(Invoke<Number(const char16_t*, Byte)>(
        side.address, u"C:\\ProgramData\\Vesk\\VeskTessaly", side.initCom));
}

HostAnswer CallStringObject(const HostSide& side) {
    const std::string object = Invoke<std::string()>(side.address);
    return {std::string(object.data(), object.size()), ""}; // a block of our own
}

HostAnswer CallNarrowText(const HostSide& side) {
    // The date, the name and the time fill their buffers to the last byte whatever they say.
    constexpr std::string_view Fixed[] = {"Battery_Read_ManufactureDate", "Battery_Read_ManufactureName",
                                          "System_Read_LocalTime"};
    return TextIn(Filled<char>(side.row.traits.size, As<void(char*)>(side.address)),
                  std::ranges::find(Fixed, side.row.name) != std::end(Fixed));
}

HostAnswer CallWideText(const HostSide& side) {
    return CallWide(As<void(char16_t*)>(side.address), side.room);
}

HostAnswer CallWideTextCom(const HostSide& side) {
    return CallWide([&](char16_t* out) { As<void(char16_t*, Byte)>(side.address)(out, side.initCom); },
                    side.room);
}

HostAnswer CallReadBytes(const HostSide& side) {
    const std::size_t size = side.row.traits.size;
    Word code = 0;
    const auto buffer = Filled<Byte>(size, [&](Byte* out) { code = As<Word(Byte*)>(side.address)(out); });
    return {(buffer.Untouched() ? std::string(tool::BufferUntouched) : tool::Hex(buffer.Room()))
                .append(code != 0 ? " error " + std::to_string(code) : ""),
            buffer.Beyond(size)};
}

HostAnswer CallWriteBytes(const HostSide& side) {
    const std::vector<Byte> bytes(side.row.traits.size, Byte{'7'});
    return NumberAnswer(Invoke<Word(const Byte*)>(side.address, bytes.data()));
}

HostAnswer CallProcessorLeaf(const HostSide& side) {
    const auto words = Filled<Word>(4, [&](Word* out) {
        As<void(Word, Word*, Word*, Word*, Word*)>(side.address)(0, out, out + 1, out + 2, out + 3);
    });
    if (words.Untouched()) {
        return {std::string(tool::BufferUntouched), ""};
    }
    HostAnswer answer{"", words.Beyond(4)};
    for (const Word word : words.Room()) {
        answer.text += std::to_string(word) + ' ';
    }
    return answer;
}

struct Way {
    const tool::Shape* shape;
    HostAnswer (*call)(const HostSide& side);
};

constexpr Way Ways[] = {
    {&tool::shape::Nothing, CallNothing},
    {&tool::shape::Signed, CallNumber<Number()>},
    {&tool::shape::Unsigned, CallNumber<Word()>},
    {&tool::shape::Float, CallNumber<float()>},
    {&tool::shape::Double, CallNumber<double()>},
    {&tool::shape::SignedCom, CallNumber<Number(Byte)>},
    {&tool::shape::SetNumberCom, CallNumber<Number(Number, Byte), 2>},
    {&tool::shape::SetByteCom, CallNumber<Number(Byte, Byte), Byte{2}>},
    {&tool::shape::SetPathCom, CallSetPath},
    {&tool::shape::AddOne, CallNumber<Word(Word), Word{1}>},
    {&tool::shape::StringObject, CallStringObject},
    {&tool::shape::NarrowText, CallNarrowText},
    {&tool::shape::WideText, CallWideText},
    {&tool::shape::WideTextCom, CallWideTextCom},
    {&tool::shape::ReadBytes, CallReadBytes},
    {&tool::shape::WriteBytes, CallWriteBytes},
    {&tool::shape::ProcessorLeaf, CallProcessorLeaf},
};

} // namespace

HostAnswer CallWide(const std::function<void(char16_t*)>& read, std::size_t room) {
    return TextIn(Filled<char16_t>(room, read));
}

HostCall CallOf(const tool::Export& row, std::uint8_t initCom, std::size_t room) {
    void* const address = ::dlsym(RTLD_DEFAULT, std::string(row.name).c_str());
    const auto* const way = std::ranges::find(Ways, row.shape, &Way::shape);
    if (address == nullptr || way == std::end(Ways)) {
        throw std::runtime_error(std::string(row.name) + " is not linked in, or called in an unknown way");
    }
    return [side = HostSide{address, row, initCom, room}, call = way->call] {
        return call(side);
    };
}

} // namespace sweep
