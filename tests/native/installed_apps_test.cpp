#include "application_test.h"
#include "apps/installed_apps.h"
#include "platform/simulated/registry_hive.h"

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

constexpr const char* Nothing = R"([{"machine":[]},{"user":[]}])";
constexpr const char16_t* UninstallKey = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall";

class InstalledAppsTest : public test::ApplicationTest {
protected:
    /// Puts a value below the machine's uninstall key.
    static void Put(const std::u16string& subkey, const char16_t* name, std::uint32_t type,
                    const std::vector<std::uint8_t>& data) {
        auto& registry = TheMachine().registry;
        const auto key =
            registry.Create(machine::RegistryHive::LocalMachine, UninstallKey + (u'\\' + subkey));
        registry.Set(key, name, type, std::as_bytes(std::span(data)));
    }

    static void PutText(const std::u16string& subkey, const char16_t* name, const std::u16string& text) {
        const auto bytes = std::as_bytes(std::span(text));
        const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.data());
        Put(subkey, name, 1, {first, first + bytes.size()});
    }

    static std::string MachineRecords() {
        const std::string all = WideAnswer(GetApplist_x64);
        constexpr std::string_view Head = R"([{"machine":[)";
        EXPECT_THAT(all, StartsWith(Head));
        return all.substr(Head.size(), all.find(R"(]},{"user":[)") - Head.size());
    }
};

TEST_F(InstalledAppsTest, ListsBothHivesOfEachViewInTheRegistrysOrder) {
    StartMachine(R"({"applications": {
        "machine": [{"key": "zeta", "name": "Player"}, {"key": "Alpha", "name": "Editor", "version": "2.1"}],
        "machine_32": [{"key": "old", "name": "Old", "version": "1"}],
        "user": [{"key": "mine", "name": "Mine", "version": "3"}]}})");
    EXPECT_EQ(WideAnswer(GetApplist_x64), R"([{"machine":[{"name":"Editor","version":"2.1"},)"
                                          R"({"name":"Player","version":""}]},)"
                                          R"({"user":[{"name":"Mine","version":"3"}]}])");
    EXPECT_THAT(DebugLines(), ElementsAre("GetApplist_x64 Start", "GetApplist_x64 End"));
    EXPECT_EQ(WideAnswer(GetApplist_x86), R"([{"machine":[{"name":"Old","version":"1"}]},{"user":[]}])");
    EXPECT_THAT(DebugLines(), ElementsAre("GetApplist_x86 Start"));
}

TEST_F(InstalledAppsTest, AMachineWithoutUninstallKeysHasEmptyLists) {
    EXPECT_EQ(WideAnswer(GetApplist_x64), Nothing);
    EXPECT_EQ(WideAnswer(GetApplist_x86), Nothing);
}

TEST_F(InstalledAppsTest, SkipsComponentsAndTheNamelessWithoutStrayCommas) {
    StartMachine(R"({"applications": {"machine": [
        {"key": "a", "name": "Hidden", "system_component": 1},
        {"key": "b", "name": "First", "version": "1", "system_component": 0},
        {"key": "c", "version": "9"},
        {"key": "d", "name": "Hidden too", "system_component": 7},
        {"key": "e", "name": ""},
        {"key": "f"},
        {"key": "g", "name": "Last"}]}})");
    EXPECT_EQ(MachineRecords(), R"({"name":"First","version":"1"},{"name":"","version":""},)"
                                R"({"name":"Last","version":""})");
}

TEST_F(InstalledAppsTest, DropsDoubleQuotesAndNothingElse) {
    StartMachine(R"({"applications": {"machine": [
        {"key": "a", "name": "Tool \"Pro\" 2;\tÜ\ud83d\ude00", "version": "1\\2\"\""}]}})");
    EXPECT_EQ(MachineRecords(), "{\"name\":\"Tool Pro 2;\tÜ😀\",\"version\":\"1\\2\"}");
}

TEST_F(InstalledAppsTest, TakesTextsUpToWhatCame) {
    PutText(u"a", u"DisplayName", u"No end");
    PutText(u"b", u"DisplayName", std::u16string(u"Cut\0off", 8));
    Put(u"c", u"DisplayName", 3, {'O', 0, 'd', 0, 'd'});
    Put(u"d", u"DisplayName", 4, {'N', 0, 'r', 0});
    Put(u"d", u"DisplayVersion", 3, {});
    PutText(u"e", u"DisplayName", std::u16string(u"\xD800", 1) + u'!');
    EXPECT_EQ(MachineRecords(), R"({"name":"No end","version":""},{"name":"Cut","version":""},)"
                                R"({"name":"Odd","version":""},{"name":"Nr","version":""},)"
                                "{\"name\":\"\uFFFD!\",\"version\":\"\"}");
}

TEST_F(InstalledAppsTest, ANameOf1024CharactersDoesNotFitAndAVersionIsNeverTheOneBefore) {
    const std::u16string longest(1023, u'x');
    PutText(u"a", u"DisplayName", longest + u'\0');
    PutText(u"a", u"DisplayVersion", u"1.0");
    PutText(u"b", u"DisplayName", longest + u"x");
    PutText(u"c", u"DisplayName", longest + std::u16string(u"x\0", 2));
    PutText(u"d", u"DisplayName", u"D");
    PutText(u"e", u"DisplayName", u"E");
    PutText(u"e", u"DisplayVersion", longest + std::u16string(u"x\0", 2));
    EXPECT_EQ(MachineRecords(), R"({"name":")" + std::string(1023, 'x') +
                                    R"(","version":"1.0"},{"name":"D","version":""},)"
                                    R"({"name":"E","version":""})");
}

TEST_F(InstalledAppsTest, ReadsSystemComponentAsItsBytes) {
    for (const auto* key : {u"a", u"b", u"c", u"d"}) {
        PutText(key, u"DisplayName", key);
    }
    PutText(u"a", u"SystemComponent", std::u16string(u"1\0", 2));  // fits the number: 0x31
    PutText(u"b", u"SystemComponent", std::u16string(u"10\0", 3)); // does not fit: as if it were not there
    Put(u"c", u"SystemComponent", 3, {});
    Put(u"d", u"SystemComponent", 3, {1});
    EXPECT_EQ(MachineRecords(), R"({"name":"b","version":""},{"name":"c","version":""})");
}

TEST_F(InstalledAppsTest, ASubkeyThatCannotBeOpenedEndsItsHiveOnly) {
    StartMachine(R"({"applications": {
        "machine": [{"key": "a", "name": "A"}, {"key": "b", "name": "B"}, {"key": "c", "name": "C"}],
        "user": [{"key": "u", "name": "U"}]}})");
    TheMachine().gate.Transcribe([](const std::string& line) {
        // It goes between the enumeration and the open.
        if (line.starts_with("RegEnumKeyExW 1 ")) {
            auto& registry = TheMachine().registry;
            if (const auto key = registry.Find(machine::RegistryHive::LocalMachine,
                                               UninstallKey + std::u16string(u"\\b"))) {
                registry.Remove(*key);
            }
        }
    });
    EXPECT_EQ(WideAnswer(GetApplist_x64),
              R"([{"machine":[{"name":"A","version":""}]},{"user":[{"name":"U","version":""}]}])");
    // The next walk finds what is left.
    EXPECT_EQ(MachineRecords(), R"({"name":"A","version":""},{"name":"C","version":""})");
}

TEST_F(InstalledAppsTest, ASubkeyWhoseNameDoesNotFitEndsTheList) {
    PutText(u"a", u"DisplayName", u"A");
    PutText(std::u16string(1024, u'k'), u"DisplayName", u"Long");
    PutText(u"z", u"DisplayName", u"Z");
    EXPECT_EQ(MachineRecords(), R"({"name":"A","version":""})");
}

} // namespace
