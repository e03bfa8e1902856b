// Models of the simulated machine, each by itself.
#include "machine/models/ec/embedded_controller.h"
#include "machine/models/wmi/wql.h"
#include "machine/profile/profile.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace {

using machine::EcAnswer;

struct Command {
    std::uint8_t command;
    std::vector<std::uint8_t> data;
};

/// The answer to the last of some commands.
EcAnswer AnswerOf(machine::EmbeddedController& controller, const std::vector<Command>& commands) {
    EcAnswer answer;
    for (const Command& each : commands) {
        answer = controller.CarryOut(each.command, each.data);
    }
    return answer;
}

machine::EmbeddedController ControllerOf(const std::string& chipId) {
    return machine::EmbeddedController(
        machine::ParseProfile(R"({"name": "x", "ec": {"revision": "KL", "chip_name": "KC01", "chip_id": )" +
                                  chipId + R"(, "battery": {"cell_voltages": [4.001]}}})",
                              "profile")
            .ec);
}

/// The bus returns a word only after a whole setup, which is gone after every word.
TEST(BatteryBusTest, EveryStepOfTheSetupIsNeeded) {
    constexpr std::uint8_t LowByte = 4001 & 0xFF;
    const std::vector<Command> first{{0xAB, {0x05, 0x01}},
                                     {0xAB, {0x06, 0x09}},
                                     {0xAB, {0x08, 0x16}},
                                     {0xAB, {0x09, 0x3F}},
                                     {0xAB, {0x04, 0x10}}};
    const std::vector<Command> second{
        {0x9B, {0x18, 0x09}}, {0x9B, {0x1A, 0x16}}, {0x9B, {0x1B, 0x3F}}, {0x9C, {}}, {0x80, {0xED, 0xE3}}};
    const Command readFirst{0xAA, {0x40}};
    const Command readSecond{0x9A, {0x1C}};
    for (const auto& [chipId, setup, read] :
         {std::tuple("0", first, readFirst), std::tuple("1", second, readSecond)}) {
        SCOPED_TRACE(chipId);
        auto controller = ControllerOf(chipId);
        AnswerOf(controller, setup);
        EXPECT_EQ(AnswerOf(controller, {read}).byte, LowByte);
        for (std::size_t left = 0; left < setup.size(); ++left) {
            SCOPED_TRACE(left);
            auto without = setup;
            without.erase(without.begin() + static_cast<std::ptrdiff_t>(left));
            auto fresh = ControllerOf(chipId);
            AnswerOf(fresh, without);
            EXPECT_NE(AnswerOf(fresh, {read}).byte, LowByte) << "on a fresh bus";
            AnswerOf(fresh, setup);
            ASSERT_EQ(AnswerOf(fresh, {read}).byte, LowByte);
        }
        // A second word needs all of it again: what is set up is gone.
        AnswerOf(controller, {setup.back()});
        AnswerOf(controller, std::vector<Command>(setup.end() - 2, setup.end()));
        if (chipId == std::string("0")) {
            EXPECT_NE(AnswerOf(controller, {read}).byte, LowByte);
        } else {
            EXPECT_NE(AnswerOf(controller, {{0x9C, {}}}).status, 0u);
        }
    }
}

TEST(WqlTest, NumbersOfUpTo18Digits) {
    const auto literal = [](const std::u16string& number) -> std::optional<std::int64_t> {
        const auto query = machine::ParseWql(u"SELECT * FROM C WHERE a = " + number);
        return query ? std::optional(std::get<std::int64_t>(query->conditions.front().literal.value))
                     : std::nullopt;
    };
    EXPECT_EQ(literal(u"999999999999999999"), 999'999'999'999'999'999);
    EXPECT_EQ(literal(u"-999999999999999999"), -999'999'999'999'999'999);
    EXPECT_EQ(literal(u"+000000000000000007"), 7);
    EXPECT_EQ(literal(u"1000000000000000000"), std::nullopt);
    EXPECT_EQ(literal(u"-"), std::nullopt);
    const auto query = machine::ParseWql(u"SELECT * FROM C WHERE a = '123456789012345678'");
    ASSERT_TRUE(query);
    EXPECT_TRUE(query->conditions.front().Holds({std::int64_t{123'456'789'012'345'678}}));
    EXPECT_FALSE(query->conditions.front().Holds({std::int64_t{123'456'789'012'345'677}}));
}

} // namespace
