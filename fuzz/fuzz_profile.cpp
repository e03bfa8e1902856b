// Machine profiles of any text: one is refused with its reason, or the machine starts.
#include "harness.h"

#include "machine/profile/profile_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        machine::Start(machine::ParseProfile({reinterpret_cast<const char*>(data), size}, "profile"),
                       ":memory:");
    } catch (const machine::ProfileError& mistake) {
        fuzz::Demand(std::string_view(mistake.what()).starts_with("profile: "));
    }
    return 0;
}
