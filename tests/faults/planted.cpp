#include "planted.h"

#include "frame/host_buffer.h"
#include "platform/registry.h"

#include <array>
#include <new>
#include <optional>
#include <string>

namespace sweep {
namespace {

enum class Flaw { None, LeftOpen, MemoryLost, OneTooMany, Swallowed, Raised };

constexpr const char16_t* DriverKey =
    u"SYSTEM\\ControlSet001\\Control\\Class\\{4d36e97d-e325-11ce-bfc1-08002be10318}\\0042";

std::array<char16_t, 256> LastVersion; // what the swallowing one returns in place of a failure

template <Flaw Planted>
std::u16string Version() {
    platform::Key key{};
    if (platform::RegOpenKeyExW(platform::Key::LocalMachine, DriverKey, platform::access::KeyRead, key) !=
        platform::error::Success) {
        return {};
    }
    std::optional<platform::OwnedKey> owner;
    if (Planted != Flaw::LeftOpen) {
        owner.emplace(key);
    }
    std::array<char16_t, 256> text{};
    std::uint32_t type = 0;
    std::uint32_t size = sizeof text - sizeof(char16_t);
    const auto status = platform::RegQueryValueExW(key, u"DriverVersion", type,
                                                   reinterpret_cast<std::byte*>(text.data()), size);
    if (Planted == Flaw::LeftOpen && status == platform::error::Success) {
        owner.emplace(key); // forgotten on the other way out
    }
    if (status != platform::error::Success) {
        return Planted == Flaw::Swallowed ? LastVersion.data() : u"";
    }
    LastVersion = text;
    const std::u16string made = std::u16string(u"version ") + text.data(); // too long to do without the heap
    return made.substr(8);
}

template <Flaw Planted>
void Read(char16_t* out) {
    if constexpr (Planted == Flaw::MemoryLost) {
        const auto* const lost = new (std::nothrow) std::u16string(u"never released");
        static_cast<void>(lost);
    }
    if constexpr (Planted == Flaw::Raised) {
        sondrel::CopyToHost(Version<Planted>(), out);
    } else {
        sondrel::AnswerWith(out, Version<Planted>);
    }
    if constexpr (Planted == Flaw::OneTooMany) {
        out[std::u16string_view(out).size() + 1] = u'\0';
    }
}

constexpr Planted Readings[] = {
    {"nothing", "", Read<Flaw::None>},
    {"a key left open after a failed query", "left open", Read<Flaw::LeftOpen>},
    {"memory that is never released", "memory was not released", Read<Flaw::MemoryLost>},
    {"one character after the terminator", "outside the text", Read<Flaw::OneTooMany>},
    {"an old answer in place of a failure", "swallowed", Read<Flaw::Swallowed>},
    {"running out of memory raised to the host", "raised", Read<Flaw::Raised>},
};

} // namespace

std::span<const Planted> PlantedReadings() {
    return Readings;
}

} // namespace sweep
