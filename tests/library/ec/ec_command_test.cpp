#include "machine_fixture.h"

#include "machine/models/storage/registry_hive.h"

#include "ec/ec_command.h"

#include <array>
#include <cstring>
#include <optional>
#include <span>

namespace {

using namespace testing;

class EcCommandTest : public test::MachineTest {
protected:
    struct Outcome {
        std::uint32_t status;
        std::uint32_t result;
        friend bool operator==(const Outcome&, const Outcome&) = default;
    };

    template <std::size_t Count>
    static Outcome Send(std::uint8_t command, const std::array<std::uint8_t, Count>& data,
                        std::uint8_t readFlag = 1) {
        std::uint32_t status = 0xDEAD;
        const std::uint32_t result = sondrel::RwEcCmd(Count, command, data.data(), readFlag, &status);
        return {status, result};
    }
};

TEST_F(EcCommandTest, SendsSixteenBytesAndLogsTheCommand) {
    InitializeSondrel();
    EXPECT_EQ(Send<1>(0xBB, {0x10}), (Outcome{0, 0}));
    EXPECT_EQ(Send<1>(0xBB, {0x03}), (Outcome{0, 'K'}));
    EXPECT_THAT(DriverRequests(), ElementsAre("0x80102070 bb011000000000000000010000000000",
                                              "0x80102070 bb010300000000000000010000000000"));
    EXPECT_THAT(DebugLines(), ElementsAre("[RwEcCmd] cmd: 0xbb DataList: 0x10 ReadData",
                                          "[RwEcCmd] cmd: 0xbb DataList: 0x3 ReadData"));
}

TEST_F(EcCommandTest, CommandsWithoutDataOrAnswerGoOutAsTheyAre) {
    InitializeSondrel();
    std::uint32_t status = 0;
    sondrel::RwEcCmd(0, 0x9C, nullptr, 0, &status);
    Send<8>(0xAB, {1, 2, 3, 4, 5, 6, 7, 0xFF}, 0);
    EXPECT_EQ(SentTraffic(), "w 9c, w ab 01020304050607ff");
    EXPECT_THAT(DebugLines(), ElementsAre("[RwEcCmd] cmd: 0x9c DataList:",
                                          "[RwEcCmd] cmd: 0xab DataList: 0x1 0x2 0x3 0x4 0x5 0x6 0x7 0xff"));
}

TEST_F(EcCommandTest, LogsButDoesNotSendWhatCannotBeSent) {
    constexpr std::array<std::uint8_t, 9> Nine{1, 2, 3, 4, 5, 6, 7, 8, 9};
    EXPECT_EQ(Send<1>(0xBB, {0x10}), (Outcome{1, 0}));
    EXPECT_EQ(Send(0xAB, Nine), (Outcome{1, 0})); // the session is tested first
    InitializeSondrel();
    EXPECT_EQ(Send(0xAB, Nine), (Outcome{2, 0x37}));
    EXPECT_THAT(DriverRequests(), IsEmpty());
    constexpr const char* NineLine =
        "[RwEcCmd] cmd: 0xab DataList: 0x1 0x2 0x3 0x4 0x5 0x6 0x7 0x8 0x9 ReadData";
    EXPECT_THAT(DebugLines(), ElementsAre("[RwEcCmd] cmd: 0xbb DataList: 0x10 ReadData", NineLine, NineLine));
}

TEST_F(EcCommandTest, PassesTheDriversStatusOnAndTakesARefusedRequestForZero) {
    StartMachine(R"({"ec": {"faults": [{"command": "0xBB", "use": 2, "status": "0x80000007"}]}})");
    InitializeSondrel();
    EXPECT_EQ(Send<1>(0xBB, {0x03}), (Outcome{0, 'K'}));
    EXPECT_EQ(Send<1>(0xBB, {0x03}), (Outcome{0x80000007, 0}));
    FailCalls({.nth = 2}); // the first call writes the debug line
    EXPECT_EQ(Send<1>(0xBB, {0x03}), (Outcome{0, 0}));
    EXPECT_EQ(observer::CurrentCosts().injected, 1u);
}

TEST_F(EcCommandTest, TabletModeIsOneCommandOnEveryMachine) {
    EXPECT_EQ(System_Read_TabletMode(), 0x7FFFFFFFu);
    StartMachine(R"({"ec": {"revision": "ZZ", "tablet_mode": 255}})");
    InitializeSondrel();
    EXPECT_EQ(System_Read_TabletMode(), 255u);
    EXPECT_EQ(SentTraffic(), "8e 3300");
}

constexpr const char16_t* ProductKey = u"SOFTWARE\\Vesk\\Vesk Kelvane\\VeskTessaly";
constexpr std::uint32_t TypeDword = 4;

class EcIdentityTest : public test::MachineTest {
protected:
    /// The number stored under a name, or nothing.
    static std::optional<std::uint32_t> Stored(std::u16string_view name) {
        auto& registry = *TheMachine()->storage.registry;
        const auto key = registry.Find(machine::RegistryHive::LocalMachine, ProductKey);
        const auto value = key ? registry.Get(*key, name) : std::nullopt;
        if (!value || value->type != TypeDword || value->data.size() != 4) {
            return std::nullopt;
        }
        std::uint32_t number = 0;
        std::memcpy(&number, value->data.data(), sizeof number);
        return number;
    }

    static void Keep(std::u16string_view name, std::uint32_t number) {
        auto& registry = *TheMachine()->storage.registry;
        registry.Set(registry.Create(machine::RegistryHive::LocalMachine, ProductKey), name, TypeDword,
                     std::as_bytes(std::span(&number, 1)));
    }

    static std::vector<std::uint32_t> Identity() {
        return {EC_ReadEcFwRev(), EC_ReadEcChipId(), EC_ReadEcChipName()};
    }
};

TEST_F(EcIdentityTest, ReadsTheRegistersInOrderOnceAndKeepsTheNumber) {
    InitializeSondrel();
    EXPECT_THAT(Identity(), ElementsAre(0x4B4C, 0, 0x4B433031)); // KL, KC01
    EXPECT_EQ(SentTraffic(), "bb 03, bb 04, bb 10, bb 12, bb 13, bb 14, bb 15");
    EXPECT_EQ(Stored(u"EcFwRev"), 0x4B4Cu);
    EXPECT_EQ(Stored(u"EcChipId"), 0u);
    EXPECT_EQ(Stored(u"EcChipName"), 0x4B433031u);
    ForgetCalls();
    EXPECT_THAT(Identity(), ElementsAre(0x4B4C, 0, 0x4B433031));
    EXPECT_EQ(SentTraffic(), "");
}

TEST_F(EcIdentityTest, AStoredValueIsUsedAndNeedsNoSession) {
    EXPECT_EQ(EC_ReadEcFwRev(), 0x7FFFFFFFu);
    EXPECT_EQ(Stored(u"EcFwRev"), std::nullopt);
    Keep(u"ecfwrev", 17222); // names compare without regard to case
    Keep(u"EcChipId", 0x80000000);
    EXPECT_EQ(EC_ReadEcFwRev(), 17222u);
    EXPECT_EQ(EC_ReadEcChipId(), 0x7FFFFFFFu); // saturated on its way through text
    EXPECT_THAT(DriverRequests(), IsEmpty());
    // One of another type is read again and replaced.
    StartMachine(R"({"registry": {"values": [
        {"key": "HKLM\\SOFTWARE\\Vesk\\Vesk Kelvane\\VeskTessaly", "name": "EcChipId", "data": "7"}]}})");
    InitializeSondrel();
    EXPECT_EQ(EC_ReadEcChipId(), 0u);
    EXPECT_EQ(Stored(u"EcChipId"), 0u);
}

TEST_F(EcIdentityTest, WhatFailsOrCannotBeStoredIsReadAgain) {
    StartMachine(R"({"ec": {"faults": [{"command": "0xBB", "use": 2, "status": 9}]}})");
    InitializeSondrel();
    EXPECT_EQ(EC_ReadEcChipName(), 0x7FFFFFFFu);
    EXPECT_EQ(SentTraffic(), "bb 12, bb 13");
    EXPECT_THAT(CallsOf(Operation::RegSetValueExW), IsEmpty());
    EXPECT_EQ(EC_ReadEcChipName(), 0x4B433031u);
    StartMachine(R"({"registry": {"read_only": ["HKLM\\SOFTWARE\\Vesk"]}})");
    InitializeSondrel();
    EXPECT_EQ(EC_ReadEcChipId(), 0u);
    EXPECT_EQ(EC_ReadEcChipId(), 0u);
    EXPECT_EQ(SentTraffic(), "bb 10, bb 10");
    EXPECT_EQ(Stored(u"EcChipId"), std::nullopt);
}

} // namespace
