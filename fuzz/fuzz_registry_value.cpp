// A registry whose values have any type, length and bytes, and are others at every look: while the library
// reads, another process writes. Its operations take the place of the machine's in this program.
#include "harness.h"

#include "apps/installed_apps.h"
#include "frame/registry_store.h"
#include "platform/registry.h"

namespace {

fuzz::Input* Answers = nullptr;
std::size_t OpenKeys = 0;

} // namespace

namespace platform {

SystemError RegOpenKeyExW(Key, const char16_t*, std::uint32_t, Key& opened) {
    if (Answers->remaining_bytes() == 0 || Answers->ConsumeIntegralInRange(0, 15) == 15) {
        return error::FileNotFound;
    }
    opened = Key{++OpenKeys};
    return error::Success;
}

SystemError RegQueryValueExW(Key, const char16_t*, std::uint32_t& type, std::byte* data,
                             std::uint32_t& size) {
    const std::uint32_t capacity = size;
    type = Answers->ConsumeIntegralInRange(0u, 11u);
    const std::vector<std::byte> value = fuzz::Bytes(*Answers, Answers->ConsumeBool() ? 16 : 3000);
    size = static_cast<std::uint32_t>(value.size());
    if (Answers->remaining_bytes() == 0) {
        return error::FileNotFound;
    }
    if (data != nullptr && capacity < size) {
        return error::MoreData;
    }
    std::ranges::copy(data != nullptr ? value : std::vector<std::byte>(), data);
    return error::Success;
}

SystemError RegEnumKeyExW(Key, std::uint32_t, char16_t* name, std::uint32_t& length) {
    const std::u16string found = fuzz::Text(*Answers, 300);
    if (Answers->remaining_bytes() == 0 || found.size() >= length) {
        return Answers->remaining_bytes() == 0 ? error::NoMoreItems : error::MoreData;
    }
    length = static_cast<std::uint32_t>(found.size());
    *std::ranges::copy(found, name).out = u'\0';
    return error::Success;
}

SystemError RegQueryInfoKeyW(Key, std::uint32_t& subKeys) {
    subKeys = Answers->ConsumeIntegral<std::uint8_t>();
    return error::Success;
}

void RegCloseKey(Key) {
    --OpenKeys;
}

} // namespace platform

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    Answers = &input;
    constexpr std::size_t Capacity = 1 << 18; // more than any input fills
    const std::u16string number = sondrel::ReadRegDword(platform::Key::LocalMachine, u"key", u"value");
    fuzz::Demand(sondrel::IsRegistrySentinel(number) ||
                 (number.size() <= 10 && number.find_first_not_of(u"0123456789") == number.npos));
    const std::u16string text = sondrel::ReadRegString(platform::Key::LocalMachine, u"key", u"value");
    fuzz::Demand(text.size() < 256 && text.find(u'\0') == text.npos);
    fuzz::TextOf(512, GetInfVersion);
    fuzz::TextOf(Capacity, App_Get_Win32App);
    const std::u16string list = sondrel::GetApplist_Machine(u"key");
    // No quote of a name or a version gets out of its text.
    fuzz::Demand(list.starts_with(u"{\"machine\":[") && list.ends_with(u"]}") &&
                 std::ranges::count(list, u'"') % 8 == 2);
    fuzz::Demand(OpenKeys == 0);
    return 0;
}
