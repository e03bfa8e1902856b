// The simulated machine itself: profiles with mistakes, its store, its gate and its clock.
#include "machine_fixture.h"

#include "platform/registry.h"
#include "platform/simulated/clock.h"
#include "platform/simulated/profile.h"
#include "platform/simulated/profile_reader.h"
#include "platform/simulated/registry_hive.h"
#include "platform/simulated/store.h"
#include "platform/time.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <thread>

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::string MistakeIn(std::string_view text) {
    try {
        machine::ParseProfile(text, "x.json");
        return "no mistake found";
    } catch (const machine::ProfileError& problem) {
        return problem.what();
    }
}

TEST(Profile, AMistakeIsToldWithFilePlaceAndExpectation) {
    const auto withEc = [](const std::string& rest) {
        return R"({"name": "x", "ec": {"revision": "KL", "chip_name": "KC01")" + rest;
    };
    EXPECT_EQ(MistakeIn(withEc(R"(, "chip_id": 256}})")),
              "x.json: /ec/chip_id: expected a whole number from 0 to 255, or the same as \"0x...\"");
    EXPECT_EQ(
        MistakeIn(withEc(R"(, "chip_di": 1}})")),
        "x.json: /ec/chip_di: unknown name; expected one of battery, chip_id, chip_name, fans, faults, lid, "
        "revision, sensors, tablet_mode, temperatures");
    EXPECT_EQ(
        MistakeIn(withEc(R"(}, "registry": {"values": [{"key": "HKXX\\A", "name": "n", "data": ""}]}})")),
        "x.json: /registry/values/0/key: expected a key that begins with \"HKLM\\\" or \"HKCU\\\"");
    EXPECT_EQ(MistakeIn(withEc(R"(}, "driver": {"held_by_other": "maybe"}})")),
              "x.json: /driver/held_by_other: expected one of \"no\", \"shared\", \"alone\"");
    EXPECT_EQ(MistakeIn(R"({"name": "x", "ec": 5})"), "x.json: /ec: expected an object in braces");
    EXPECT_EQ(MistakeIn("[]"), "x.json: /: expected an object in braces");
    EXPECT_THAT(MistakeIn("{\n  \"name\": oops\n}"), HasSubstr("x.json: not a JSON text: "));
    EXPECT_THAT(MistakeIn("{\n  \"name\": oops\n}"), HasSubstr("line 2, column"));
    EXPECT_THROW(machine::LoadProfile("no such machine"), machine::ProfileError);
}

TEST(Profile, EveryBuiltInMachineIsWellFormed) {
    EXPECT_EQ(machine::BuiltInMachines().front(), "default");
    for (const std::string& name : machine::BuiltInMachines()) {
        EXPECT_EQ(machine::LoadProfile(name).name, name);
    }
}

class StoreTest : public test::MachineTest {
public:
    StoreTest()
        : m_file(std::filesystem::temp_directory_path() / ("sondrel-store-" + std::to_string(getpid()))) {
        std::filesystem::remove(m_file);
    }

    ~StoreTest() override { std::filesystem::remove(m_file); }

protected:
    const std::filesystem::path m_file;
};

TEST_F(StoreTest, ADamagedFileIsToldAndLeftAsItIs) {
    const std::string garbage = "this is no database, and somebody may want to look at it";
    std::ofstream(m_file) << garbage;
    try {
        const machine::Store store(m_file.string());
        FAIL() << "a damaged file was taken for a store";
    } catch (const machine::StoreError& problem) {
        EXPECT_EQ(problem.what(), m_file.string() + ": file is not a database");
    }
    std::ifstream file(m_file);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), garbage);
    EXPECT_THROW(machine::Store("/nowhere/at/all/store"), machine::StoreError);
}

TEST_F(StoreTest, TwoUsersOfOneStoreSeeEachOthersWrites) {
    StartMachine("{}", m_file);
    const machine::Store other(m_file.string());
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
    key.Reset();
    StartMachine();
}

TEST_F(StoreTest, SubkeysAreListedInTheOrderOfTheirNamesAndRemovedWithAllBelow) {
    auto& registry = TheMachine().registry;
    for (const char16_t* name : {u"zeta", u"Alpha", u"_x", u"beta", u"10", u"9"}) {
        registry.Create(machine::RegistryHive::CurrentUser, std::u16string(u"Order\\") + name + u"\\below");
    }
    const auto key = registry.Find(machine::RegistryHive::CurrentUser, u"order");
    EXPECT_THAT(registry.SubkeyNames(*key), ElementsAre(u"10", u"9", u"Alpha", u"beta", u"zeta", u"_x"));
    registry.Remove(*key);
    EXPECT_FALSE(registry.Find(machine::RegistryHive::CurrentUser, u"Order"));
}

TEST_F(StoreTest, TheClockMovesByWhatIsSleptAndOnlyByThat) {
    using namespace std::chrono_literals;
    platform::Sleep(1000);
    std::this_thread::sleep_for(2ms);
    EXPECT_EQ(TheMachine().clock.Now(), 1000ms);
    TheMachine().clock.TieToRealTime(true);
    platform::Sleep(3);
    TheMachine().clock.TieToRealTime(false);
    EXPECT_GE(TheMachine().clock.Now(), 1003ms);
}

} // namespace
