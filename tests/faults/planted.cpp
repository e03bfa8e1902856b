#include "planted.h"

#include "frame/host_buffer.h"
#include "observer/export_call.h"
#include "platform/registry.h"

#include <array>
#include <new>
#include <optional>
#include <string>

namespace sweep {
namespace {

enum class Flaw { None, LeftOpen, LeftOpenWithoutMemory, MemoryLost, OneTooMany, Swallowed, Raised };

constexpr const char16_t* DriverKey =
    u"SYSTEM\\ControlSet001\\Control\\Class\\{4d36e97d-e325-11ce-bfc1-08002be10318}\\0042";

template <Flaw Planted>
std::u16string Version() {
    platform::Key key{};
    if (platform::RegOpenKeyExW(platform::Key::LocalMachine, DriverKey, platform::access::KeyRead, key) !=
        platform::error::Success) {
        return {};
    }
    std::optional<platform::OwnedKey> owner;
    if (Planted == Flaw::LeftOpenWithoutMemory) {
        const std::u16string name(100, u'n'); // raises past the key, which has no owner
        owner.emplace(key);
    } else if (Planted != Flaw::LeftOpen) {
        owner.emplace(key);
    }
    std::array<char16_t, 256> text{};
    std::uint32_t type = 0;
    std::uint32_t size = sizeof text - sizeof(char16_t);
    const auto query = [&] {
        return platform::RegQueryValueExW(key, u"DriverVersion", type,
                                          reinterpret_cast<std::byte*>(text.data()), size);
    };
    auto status = query();
    if (Planted == Flaw::Swallowed && status != platform::error::Success) {
        status = query();
    }
    if (Planted == Flaw::LeftOpen && status == platform::error::Success) {
        owner.emplace(key); // forgotten on the other way out
    }
    if (status != platform::error::Success) {
        return {};
    }
    const std::u16string made = std::u16string(u"version ") + text.data(); // too long to do without the heap
    return made.substr(8);
}

template <Flaw Planted>
void Read(char16_t* out) {
    const observer::ExportCall here(0, "planted");
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
    {"a key left open after a failed query", "left open", Read<Flaw::LeftOpen>, true},
    {"a key left open for want of memory", "left open", Read<Flaw::LeftOpenWithoutMemory>},
    {"memory that is never released", "memory was not released", Read<Flaw::MemoryLost>},
    {"one character after the terminator", "outside the text", Read<Flaw::OneTooMany>},
    {"a failure that is tried again", "swallowed", Read<Flaw::Swallowed>, true},
    {"running out of memory raised to the host", "raised", Read<Flaw::Raised>},
};

} // namespace

std::span<const Planted> PlantedReadings() {
    return Readings;
}

} // namespace sweep
