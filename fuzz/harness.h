// What the fuzz targets share.
#pragma once

#include "machine/machine.h"
#include "machine/models/device.h"
#include "machine/profile/profile.h"
#include "machine/text/folding.h"
#include "vesk_sondrel.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace fuzz {

using Input = FuzzedDataProvider;

/// Ends the run as a fault; the input is saved.
inline void Demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

inline void DemandNothingOpen() {
    Demand(machine::Current()->handles.IsEmpty());
}

/// The default machine, started with the first input and used by all that follow.
inline machine::Machine& TheMachine() {
    static const bool Started = (machine::Start(machine::LoadProfile("default"), ":memory:"), true);
    static_cast<void>(Started);
    return *machine::Current();
}

/// The text that an export writes into a buffer of exactly that size, where the sanitizer sees one character too many.
template <class Character, class... Arguments>
std::basic_string<Character> TextOf(std::size_t capacity, void (*read)(Character*, Arguments...),
                                    std::type_identity_t<Arguments>... arguments) {
    const std::unique_ptr<Character[]> out(new Character[capacity]);
    read(out.get(), arguments...);
    const auto* const end = std::find(out.get(), out.get() + capacity, Character{});
    Demand(end != out.get() + capacity);
    return std::basic_string<Character>(out.get(), static_cast<std::size_t>(end - out.get()));
}

inline std::vector<std::byte> Bytes(Input& input, std::size_t most) {
    return input.ConsumeBytes<std::byte>(input.ConsumeIntegralInRange<std::size_t>(0, most));
}

inline std::u16string Text(Input& input, std::size_t most) {
    std::u16string text;
    for (const std::byte byte : Bytes(input, most)) { // of all planes, and half of one too
        text += static_cast<char16_t>(byte < std::byte{0xF0} ? static_cast<unsigned>(byte)
                                                             : 0xD7F8 + static_cast<unsigned>(byte) % 16);
    }
    return text;
}

/// A value of any type that WMI has.
inline machine::WmiDatum Datum(Input& input) {
    constexpr std::int64_t Low = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t High = std::numeric_limits<std::uint32_t>::max();
    const auto bound = input.ConsumeIntegralInRange<std::int32_t>(-1, 2);
    const auto count = input.ConsumeIntegralInRange<std::size_t>(0, 6);
    switch (input.ConsumeIntegralInRange(0, 6)) {
    case 1:
        return {input.ConsumeBool(), bound};
    case 2:
        return {input.ConsumeIntegralInRange(Low, High), bound};
    case 3:
        return {Text(input, 24), bound};
    case 4:
        return {std::vector<std::int64_t>(count, input.ConsumeIntegralInRange(Low, High)), bound};
    case 5:
        return {std::vector<std::u16string>(count, Text(input, 12)), bound};
    case 6:
        return {Bytes(input, 24), bound};
    default:
        return {{}, bound}; // no value
    }
}

/// A device that refuses a request or answers it with any bytes, few or many, as the input has it. It takes
/// the place of the machine's own while it lives.
class AnsweringDevice : public machine::Device {
public:
    AnsweringDevice(std::u16string_view path, Input& input)
        : m_input(input), m_place(TheMachine().devices.at(machine::Folded(path))), m_own(m_place) {
        m_place = this;
    }

    AnsweringDevice(const AnsweringDevice&) = delete;
    AnsweringDevice& operator=(const AnsweringDevice&) = delete;

    ~AnsweringDevice() override { m_place = m_own; }

    platform::SystemError Open(std::uint32_t, std::uint32_t) override {
        return m_input.ConsumeBool() ? platform::error::Success : platform::error::AccessDenied;
    }

    void Close() override {}

    machine::ControlAnswer Control(std::uint32_t, std::span<const std::byte>, std::size_t capacity) override {
        if (m_input.remaining_bytes() == 0) {
            return {platform::error::GenFailure, {}};
        }
        return {platform::error::Success, Bytes(m_input, capacity + 8)};
    }

private:
    Input& m_input;
    machine::Device*& m_place;
    machine::Device* m_own;
};

} // namespace fuzz
