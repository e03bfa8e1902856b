// The simulated machine itself: errors in profiles, and what its store persists.
#include "machine_fixture.h"

#include "machine/models/clock.h"
#include "machine/models/storage/registry_hive.h"
#include "machine/models/storage/store.h"
#include "machine/profile/profile.h"
#include "machine/profile/profile_reader.h"
#include "platform/registry.h"

#include <array>
#include <span>

namespace {

using namespace testing;

TEST(Profile, AnErrorNamesFilePlaceAndExpectation) {
    const auto errorOf = [](const std::string& text) -> std::string {
        try {
            return machine::ParseProfile(text, "x.json").name;
        } catch (const machine::ProfileError& problem) {
            return problem.what();
        }
    };
    EXPECT_EQ(errorOf(R"({"name": "x", "ec": {"revision": "KL", "chip_name": "KC01", "chip_id": 256}})"),
              "x.json: /ec/chip_id: expected a whole number from 0 to 255, or the same as \"0x...\"");
    EXPECT_EQ(
        errorOf(R"({"name": "x", "ec": {"revision": "K", "chip_name": "KC01", "chip_di": 1}, "lid": 1})"),
        "x.json: /ec/revision: expected a string of 2 printable ASCII characters (and 2 more)");
    EXPECT_THAT(errorOf("{\n  \"name\": oops\n}"), StartsWith("x.json: not a JSON document: "));
    EXPECT_THAT(errorOf(R"({"name": 2e999})"),
                AllOf(StartsWith("x.json: not a JSON document: "), HasSubstr("2e999")));
    EXPECT_THROW(machine::LoadProfile("no such machine"), machine::ProfileError);
}

using StoreTest = test::MachineTest;

TEST_F(StoreTest, StateOutlivesTheMachine) {
    StartMachine("{}", m_store);
    InitializeSondrel();
    EXPECT_EQ(EC_ReadEcFwRev(), 0x4B4Cu);
    std::array<std::uint8_t, 19> time{};
    time.fill(0x37);
    EXPECT_EQ(GPNV_Set_ActivatedTime(time.data()), 0u);
    WMISetAppPath(u"C:\\ProgramData\\Vesk\\VeskTessaly", 1);
    WMISetBatteryHealth(60, 1);
    WMISetQuietFan(3, 1);
    StartMachine(R"({"ec": {"revision": "AB"}})", m_store);
    EXPECT_EQ(EC_ReadEcFwRev(), 0x4B4Cu);
    std::array<std::uint8_t, 19> read{};
    EXPECT_EQ(GPNV_Get_ActivatedTime(read.data()), 0u);
    EXPECT_EQ(read, time);
    EXPECT_EQ(WMIGetBatteryHealth(1), 60);
    EXPECT_EQ(WMIGetQuietFan(1), 3);
    EXPECT_EQ(WMICheckQuietFanSupport(1), 1);
}

TEST_F(StoreTest, TwoUsersOfOneStoreSeeEachOthersWrites) {
    StartMachine("{}", m_store);
    const machine::Store other(m_store);
    machine::RegistryHive hive(other, {});
    platform::OwnedKey key;
    ASSERT_EQ(platform::RegCreateKeyExW(platform::Key::LocalMachine, u"Shared\\Key", 0xF003F, key.Receive()),
              0u);
    const auto seen = hive.Find(machine::RegistryHive::LocalMachine, u"SHARED\\key");
    ASSERT_TRUE(seen);
    hive.Set(*seen, u"N\u00C4ME", 3, std::as_bytes(std::span("x", 1)));
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    EXPECT_EQ(platform::RegQueryValueExW(key.Get(), u"n\u00E4me", type, nullptr, size), 0u);
    EXPECT_EQ(type, 3u);
    EXPECT_EQ(size, 1u);
}

} // namespace
