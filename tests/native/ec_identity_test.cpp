#include "machine_fixture.h"

#include "vesk_sondrel.h"

#include "platform/simulated/registry_hive.h"

#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <optional>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char16_t* ProductKey = u"SOFTWARE\\Vesk\\Vesk Kelvane\\VeskTessaly";
constexpr std::uint32_t TypeDword = 4;

class EcIdentityTest : public test::MachineTest {
protected:
    void TearDown() override {
        ShutdownSondrel();
        MachineTest::TearDown();
    }

    /// The number kept under a name, or nothing.
    static std::optional<std::uint32_t> Kept(std::u16string_view name) {
        auto& registry = TheMachine().registry;
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
        auto& registry = TheMachine().registry;
        registry.Set(registry.Create(machine::RegistryHive::LocalMachine, ProductKey), name, TypeDword,
                     std::as_bytes(std::span(&number, 1)));
    }
};

TEST_F(EcIdentityTest, ReadsTheRegistersInOrderOnceAndKeepsTheNumber) {
    InitializeSondrel();
    EXPECT_EQ(EC_ReadEcFwRev(), 0x4B4Cu);
    EXPECT_EQ(EC_ReadEcChipId(), 0u);
    EXPECT_EQ(EC_ReadEcChipName(), 0x4B433031u); // KC01
    EXPECT_THAT(EcCommands(), ElementsAre("bb 03", "bb 04", "bb 10", "bb 12", "bb 13", "bb 14", "bb 15"));
    EXPECT_EQ(Kept(u"EcFwRev"), 0x4B4Cu);
    EXPECT_EQ(Kept(u"EcChipId"), 0u);
    EXPECT_EQ(Kept(u"EcChipName"), 0x4B433031u);
    ForgetCalls();
    EXPECT_EQ(EC_ReadEcFwRev(), 0x4B4Cu);
    EXPECT_EQ(EC_ReadEcChipId(), 0u);
    EXPECT_EQ(EC_ReadEcChipName(), 0x4B433031u);
    EXPECT_THAT(EcCommands(), IsEmpty());
}

TEST_F(EcIdentityTest, AKeptValueWinsAndNeedsNoSession) {
    EXPECT_EQ(EC_ReadEcFwRev(), 0x7FFFFFFFu);
    EXPECT_EQ(Kept(u"EcFwRev"), std::nullopt);
    Keep(u"ecfwrev", 17222); // names compare without regard to case
    Keep(u"EcChipId", 0x80000000);
    EXPECT_EQ(EC_ReadEcFwRev(), 17222u);
    EXPECT_EQ(EC_ReadEcChipId(), 0x7FFFFFFFu); // saturated on its way through text
    EXPECT_THAT(DriverRequests(), IsEmpty());
}

TEST_F(EcIdentityTest, AValueOfAnotherTypeIsReadAnewAndReplaced) {
    StartMachine(R"({"registry": {"values": [
        {"key": "HKLM\\SOFTWARE\\Vesk\\Vesk Kelvane\\VeskTessaly", "name": "EcChipId", "data": "7"}]}})");
    InitializeSondrel();
    EXPECT_EQ(EC_ReadEcChipId(), 0u);
    EXPECT_EQ(Kept(u"EcChipId"), 0u);
}

TEST_F(EcIdentityTest, AFailedRegisterEndsTheReadAndKeepsNothing) {
    StartMachine(R"({"ec": {"faults": [{"command": "0xBB", "use": 2, "status": 9}]}})");
    InitializeSondrel();
    EXPECT_EQ(EC_ReadEcChipName(), 0x7FFFFFFFu);
    EXPECT_THAT(EcCommands(), ElementsAre("bb 12", "bb 13"));
    EXPECT_EQ(Kept(u"EcChipName"), std::nullopt);
    EXPECT_THAT(CallsOf("RegSetValueExW"), IsEmpty());
    EXPECT_EQ(EC_ReadEcChipName(), 0x4B433031u);
}

TEST_F(EcIdentityTest, WhereNothingCanBeKeptTheNumberComesFromTheEcEachTime) {
    StartMachine(R"({"registry": {"read_only": ["HKLM\\SOFTWARE\\Vesk"]}})");
    InitializeSondrel();
    EXPECT_EQ(EC_ReadEcChipId(), 0u);
    EXPECT_EQ(EC_ReadEcChipId(), 0u);
    EXPECT_THAT(EcCommands(), SizeIs(2));
    EXPECT_EQ(Kept(u"EcChipId"), std::nullopt);
}

TEST_F(EcIdentityTest, SurvivesTheProcessInTheMachinesStore) {
    const auto store =
        std::filesystem::temp_directory_path() / ("sondrel-identity-" + std::to_string(getpid()));
    std::filesystem::remove(store);
    StartMachine("{}", store);
    InitializeSondrel();
    EXPECT_EQ(EC_ReadEcFwRev(), 0x4B4Cu);
    ShutdownSondrel();
    StartMachine(R"({"ec": {"revision": "AB"}})", store);
    EXPECT_EQ(EC_ReadEcFwRev(), 0x4B4Cu);
    StartMachine();
    std::filesystem::remove(store);
}

} // namespace
