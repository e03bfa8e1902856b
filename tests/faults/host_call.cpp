#include "host_call.h"

#include "base/text.h"
#include "heap.h"
#include "unicode/utf.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <span>
#include <stdexcept>
#include <type_traits>
#include <vector>

namespace sweep {
namespace {

using Byte = std::uint8_t;
using Word = std::uint32_t;
using Number = std::int32_t;
using exports::Signature;

template <class Unit>
class GuardedBuffer {
public:
    explicit GuardedBuffer(std::size_t size) : m_size(size), m_units(Guard + size + Guard) {
        for (std::size_t place = 0; place < m_units.size(); ++place) {
            m_units[place] = FillAt(place);
        }
    }

    Unit* Start() { return m_units.data() + Guard; }

    [[nodiscard]] std::span<const Unit> Content() const { return std::span(m_units).subspan(Guard, m_size); }

    [[nodiscard]] bool Untouched() const { return IsFill(0, m_units.size()); }

    /// The message for a library that wrote before the buffer, or from the buffer's unit `end` on; empty if it did not.
    [[nodiscard]] std::string Beyond(std::size_t end) const {
        const bool intact = IsFill(0, Guard) && IsFill(Guard + end, m_units.size());
        return intact ? "" : "something was written outside the text";
    }

private:
    static constexpr std::size_t Guard = 64;

    /// Not zero and not constant, so that a library that clears or fills a buffer is noticed.
    static Unit FillAt(std::size_t place) { return static_cast<Unit>(0xA5 ^ (place & 0x1F)); }

    [[nodiscard]] bool IsFill(std::size_t begin, std::size_t end) const {
        while (begin < end && m_units[begin] == FillAt(begin)) {
            ++begin;
        }
        return begin == end;
    }

    std::size_t m_size;
    std::vector<Unit> m_units;
};

/// The buffer after the call has filled it.
template <class Unit, class Read>
GuardedBuffer<Unit> Filled(std::size_t size, const Read& read) {
    GuardedBuffer<Unit> buffer(size);
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

/// The string up to its terminator. Nothing after it may have been written, unless the size is exact.
template <class Unit>
HostAnswer TextIn(const GuardedBuffer<Unit>& buffer, bool fixedSize = false) {
    if (buffer.Untouched()) {
        return {std::string(tool::BufferUntouched), ""};
    }
    const std::span content = buffer.Content();
    const auto length = static_cast<std::size_t>(std::ranges::find(content, Unit{}) - content.begin());
    return {ToUtf8(content.first(length)),
            length == content.size() ? "the text has no terminator in its buffer of " + std::to_string(length)
                                     : buffer.Beyond(fixedSize ? content.size() : length + 1)};
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

/// The export, and what differs between hosts.
struct HostSide {
    void* address;
    const exports::Export& row;
    std::uint8_t initCom;
    std::size_t size;
};

HostAnswer CallNothing(const HostSide& side) {
    Invoke<void()>(side.address);
    return {};
}

HostAnswer NumberAnswer(auto number) {
    std::array<char, 64> digits{};
    return {{digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr}, ""};
}

/// With the given arguments, followed by initCom if the export takes it.
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

HostAnswer CallSetWideText(const HostSide& side) {
    return NumberAnswer(Invoke<Number(const char16_t*, Byte)>(
        side.address, u"C:\\ProgramData\\Vesk\\VeskTessaly", side.initCom));
}

HostAnswer CallStringObject(const HostSide& side) {
    const std::string object = Invoke<std::string()>(side.address);
    const bool isWithin = object.capacity() == std::string().capacity(); // without a block
    return {std::string(object.data(), object.size()), "", isWithin ? 0 : 1};
}

HostAnswer CallNarrowText(const HostSide& side) {
    // Some exports write their buffers to the last byte, whatever the string in them.
    return TextIn(Filled<char>(side.row.buffer.size, As<void(char*)>(side.address)),
                  side.row.buffer.rule == exports::BufferRule::Exact);
}

HostAnswer CallWideText(const HostSide& side) {
    return CallWide(As<void(char16_t*)>(side.address), side.size);
}

HostAnswer CallWideTextCom(const HostSide& side) {
    return CallWide([&](char16_t* out) { As<void(char16_t*, Byte)>(side.address)(out, side.initCom); },
                    side.size);
}

HostAnswer CallReadBytes(const HostSide& side) {
    const std::size_t size = side.row.buffer.size;
    Word code = 0;
    const auto buffer = Filled<Byte>(size, [&](Byte* out) { code = As<Word(Byte*)>(side.address)(out); });
    return {(buffer.Untouched() ? std::string(tool::BufferUntouched) : tool::Hex(buffer.Content()))
                .append(code != 0 ? " error " + std::to_string(code) : ""),
            buffer.Beyond(size)};
}

HostAnswer CallWriteBytes(const HostSide& side) {
    const std::vector<Byte> bytes(side.row.buffer.size, Byte{'7'});
    return NumberAnswer(Invoke<Word(const Byte*)>(side.address, bytes.data()));
}

HostAnswer CallRegisters(const HostSide& side) {
    const auto words = Filled<Word>(4, [&](Word* out) {
        As<void(Word, Word*, Word*, Word*, Word*)>(side.address)(0, out, out + 1, out + 2, out + 3);
    });
    if (words.Untouched()) {
        return {std::string(tool::BufferUntouched), ""};
    }
    std::array<char, 4 * 8 + 4> text{};
    const std::span registers = words.Content();
    std::snprintf(text.data(), text.size(), "%08x %08x %08x %08x", registers[0], registers[1], registers[2],
                  registers[3]);
    return {text.data(), words.Beyond(4)};
}

struct Caller {
    Signature signature;
    HostAnswer (*call)(const HostSide& side);
};

constexpr Caller Callers[] = {
    {Signature::NoResult, CallNothing},
    {Signature::Int32, CallNumber<Number()>},
    {Signature::Uint32, CallNumber<Word()>},
    {Signature::Float, CallNumber<float()>},
    {Signature::Double, CallNumber<double()>},
    {Signature::Int32Com, CallNumber<Number(Byte)>},
    {Signature::SetInt32Com, CallNumber<Number(Number, Byte), 2>},
    {Signature::SetUint8Com, CallNumber<Number(Byte, Byte), Byte{2}>},
    {Signature::SetWideTextCom, CallSetWideText},
    {Signature::Uint32OfUint32, CallNumber<Word(Word), Word{1}>},
    {Signature::String, CallStringObject},
    {Signature::NarrowText, CallNarrowText},
    {Signature::WideText, CallWideText},
    {Signature::WideTextCom, CallWideTextCom},
    {Signature::ReadBytes, CallReadBytes},
    {Signature::WriteBytes, CallWriteBytes},
    {Signature::Registers, CallRegisters},
};

} // namespace

HostAnswer CallWide(const std::function<void(char16_t*)>& read, std::size_t size) {
    return TextIn(Filled<char16_t>(size, read));
}

HostCall CallOf(const exports::Export& row, std::uint8_t initCom, std::size_t size) {
    const auto* const caller = std::ranges::find(Callers, row.signature, &Caller::signature);
    if (caller == std::end(Callers)) {
        throw std::runtime_error(std::string(row.name) + " has an unknown signature");
    }
    return [&row, initCom, size, name = std::string(row.name), call = caller->call] {
        void* const address = AddressOf(name);
        if (address == nullptr) {
            throw std::runtime_error(name + " is not there");
        }
        return call({address, row, initCom, size});
    };
}

} // namespace sweep
