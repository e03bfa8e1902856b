// A machine without applications, packages, devices and windows but those that a test puts on it.
#pragma once

#include "machine_fixture.h"
#include "platform/simulated/wide_text.h"
#include "vesk_sondrel.h"

#include <nlohmann/json.hpp>

#include <string>

namespace test {

class ApplicationTest : public MachineTest {
protected:
    ApplicationTest() { StartMachine(); }

    void StartMachine(std::string_view changes = "{}") {
        nlohmann::json patch = nlohmann::json::parse(R"({
            "applications": {"machine": null, "machine_32": null, "user": null, "user_32": null},
            "packages": {"all": []}, "pnp_devices": [], "processes": [], "windows": []})");
        const nlohmann::json wanted = nlohmann::json::parse(changes);
        for (const auto& [name, value] : wanted.items()) {
            if (value.is_object() && patch.contains(name)) {
                patch[name].update(value);
            } else {
                patch[name] = value;
            }
        }
        MachineTest::StartMachine(patch.dump());
        DebugLines();
    }

    /// What an export writes, in UTF-8. Nothing behind its terminator may have been touched. An export that leaves
    /// the buffer alone gives "untouched".
    static std::string WideAnswer(void (*ask)(VeskChar16*)) {
        constexpr char16_t Filler = 0xA5A5;
        constexpr std::size_t Room = 1 << 16;
        std::u16string buffer(Room, Filler);
        ask(buffer.data());
        const std::size_t end = buffer.find(u'\0');
        if (end == std::u16string::npos) {
            EXPECT_EQ(buffer.find_first_not_of(Filler), std::u16string::npos);
            return "untouched";
        }
        EXPECT_EQ(buffer.find_first_not_of(Filler, end + 1), std::u16string::npos);
        return machine::Utf8FromWide(std::u16string_view(buffer).substr(0, end));
    }
};

} // namespace test
