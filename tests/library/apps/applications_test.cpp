#include "machine_fixture.h"

#include "machine/models/storage/registry_hive.h"

#include "apps/versions.h"

#include <optional>
#include <span>

namespace {

using namespace testing;

constexpr const char16_t* UninstallKey = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall";

class ApplicationsTest : public test::MachineTest {
protected:
    ApplicationsTest() { StartBare(); }

    /// Puts a value below the machine's uninstall key.
    static void Put(const std::u16string& subkey, const char16_t* name, std::uint32_t type,
                    const std::vector<std::uint8_t>& data) {
        auto& registry = *TheMachine()->storage.registry;
        const auto key =
            registry.Create(machine::RegistryHive::LocalMachine, UninstallKey + (u'\\' + subkey));
        registry.Set(key, name, type, std::as_bytes(std::span(data)));
    }

    static void PutText(const std::u16string& subkey, const char16_t* name, const std::u16string& text) {
        const auto* const first = reinterpret_cast<const std::uint8_t*>(text.data());
        Put(subkey, name, 1, {first, first + text.size() * sizeof(char16_t)});
    }

    static std::string MachineRecords() {
        const std::string all = Text(GetApplist_x64);
        constexpr std::string_view Head = R"([{"machine":[)";
        EXPECT_THAT(all, StartsWith(Head));
        return all.substr(Head.size(), all.find(R"(]},{"user":[)") - Head.size());
    }
};

TEST_F(ApplicationsTest, ListsBothHivesOfEachViewInTheRegistrysOrder) {
    EXPECT_EQ(Text(GetApplist_x64), R"([{"machine":[]},{"user":[]}])");
    StartBare(R"({"applications": {
        "machine": [{"key": "zeta", "name": "Player"}, {"key": "Alpha", "name": "Editor", "version": "2.1"}],
        "machine_32": [{"key": "old", "name": "Old", "version": "1"}],
        "user": [{"key": "mine", "name": "Mine", "version": "3"}]}})");
    EXPECT_EQ(Text(GetApplist_x64), R"([{"machine":[{"name":"Editor","version":"2.1"},)"
                                    R"({"name":"Player","version":""}]},)"
                                    R"({"user":[{"name":"Mine","version":"3"}]}])");
    EXPECT_THAT(DebugLines(), ElementsAre("GetApplist_x64 Start", "GetApplist_x64 End"));
    EXPECT_EQ(Text(GetApplist_x86), R"([{"machine":[{"name":"Old","version":"1"}]},{"user":[]}])");
    EXPECT_THAT(DebugLines(), ElementsAre("GetApplist_x86 Start"));
}

TEST_F(ApplicationsTest, SkipsComponentsTheNamelessAndDoubleQuotesWithoutStrayCommas) {
    StartBare(R"({"applications": {"machine": [
        {"key": "a", "name": "Hidden", "system_component": 1},
        {"key": "b", "name": "First", "version": "1", "system_component": 0},
        {"key": "c", "version": "9"},
        {"key": "d", "name": "Hidden too", "system_component": 7},
        {"key": "e", "name": ""},
        {"key": "f"},
        {"key": "g", "name": "Tool \"Pro\" 2;\tÜ\ud83d\ude00", "version": "1\\2\"\""}]}})");
    EXPECT_EQ(MachineRecords(), "{\"name\":\"First\",\"version\":\"1\"},{\"name\":\"\",\"version\":\"\"},"
                                "{\"name\":\"Tool Pro 2;\tÜ😀\",\"version\":\"1\\2\"}");
}

TEST_F(ApplicationsTest, ReadsTextsUpToTheirStoredSize) {
    PutText(u"a", u"DisplayName", u"No end");
    PutText(u"b", u"DisplayName", std::u16string(u"Cut\0off", 8));
    Put(u"c", u"DisplayName", 3, {'O', 0, 'd', 0, 'd'});
    Put(u"d", u"DisplayName", 4, {'N', 0, 'r', 0});
    Put(u"d", u"DisplayVersion", 3, {});
    PutText(u"e", u"DisplayName", std::u16string(u"\xD800", 1) + u'!');
    PutText(u"f", u"DisplayName", std::u16string(u"Full\0", 5) + std::u16string(1019, u'x'));
    EXPECT_EQ(MachineRecords(), R"({"name":"No end","version":""},{"name":"Cut","version":""},)"
                                R"({"name":"Odd","version":""},{"name":"Nr","version":""},)"
                                "{\"name\":\"\uFFFD!\",\"version\":\"\"},"
                                R"({"name":"Full","version":""})");
}

TEST_F(ApplicationsTest, ANameOf1024CharactersDoesNotFitAndAVersionIsNeverTheOneBefore) {
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

TEST_F(ApplicationsTest, ReadsSystemComponentAsItsBytes) {
    for (const auto* key : {u"a", u"b", u"c", u"d"}) {
        PutText(key, u"DisplayName", key);
    }
    PutText(u"a", u"SystemComponent", std::u16string(u"1\0", 2));  // fits the number: 0x31
    PutText(u"b", u"SystemComponent", std::u16string(u"10\0", 3)); // does not fit: as if it were not there
    Put(u"c", u"SystemComponent", 3, {});
    Put(u"d", u"SystemComponent", 3, {1});
    EXPECT_EQ(MachineRecords(), R"({"name":"b","version":""},{"name":"c","version":""})");
}

TEST_F(ApplicationsTest, ASubkeyThatCannotBeOpenedEndsItsHiveOnly) {
    StartBare(R"({"applications": {
        "machine": [{"key": "a", "name": "A"}, {"key": "b", "name": "B"}, {"key": "c", "name": "C"}],
        "user": [{"key": "u", "name": "U"}]}})");
    AfterCalls([](const CallRecord& call) {
        // It goes between the enumeration and the open.
        if (call.operation == Operation::RegEnumKeyExW && Printed(*call.Input("index")) == "1") {
            auto& registry = *TheMachine()->storage.registry;
            if (const auto key = registry.Find(machine::RegistryHive::LocalMachine,
                                               UninstallKey + std::u16string(u"\\b"))) {
                registry.Remove(*key);
            }
        }
    });
    EXPECT_EQ(Text(GetApplist_x64),
              R"([{"machine":[{"name":"A","version":""}]},{"user":[{"name":"U","version":""}]}])");
    // The next walk finds what is left.
    EXPECT_EQ(MachineRecords(), R"({"name":"A","version":""},{"name":"C","version":""})");
}

TEST_F(ApplicationsTest, ASubkeyWhoseNameDoesNotFitEndsTheList) {
    PutText(u"a", u"DisplayName", u"A");
    PutText(std::u16string(1024, u'k'), u"DisplayName", u"Long");
    PutText(u"z", u"DisplayName", u"Z");
    EXPECT_EQ(MachineRecords(), R"({"name":"A","version":""})");
}

TEST_F(ApplicationsTest, ListsNamesOfTheMachineOnly) {
    StartBare(R"({"applications": {
        "machine": [{"key": "a", "name": "Editor"}, {"key": "b", "name": ""}, {"key": "c", "name": "A;\"B\""},
                    {"key": "d"}, {"key": "e", "name": "Hidden", "system_component": 0},
                    {"key": "f", "name": "Hidden", "system_component": 1}],
        "machine_32": [{"key": "a", "name": "Old"}],
        "user": [{"key": "u", "name": "User's"}]}})");
    EXPECT_EQ(Text(App_Get_Win32App), "Editor;;A;\"B\";");
    EXPECT_EQ(Text(App_Get_Win32WOW6432App), "Old;");
    EXPECT_THAT(DebugLines(), IsEmpty());
}

TEST_F(ApplicationsTest, TypesDecideOtherThanInTheDocuments) {
    StartBare(R"({"registry": {"values": [
        {"key": "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\a", "name": "DisplayName",
         "type": "REG_SZ", "data": "Listed"},
        {"key": "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\a", "name": "SystemComponent",
         "type": "REG_SZ", "data": "1"},
        {"key": "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\b", "name": "DisplayName",
         "type": "REG_EXPAND_SZ", "data": "Expanded"}]}})");
    EXPECT_EQ(Text(App_Get_Win32App), "Listed;");
    EXPECT_EQ(Text(GetApplist_x64), R"([{"machine":[{"name":"Expanded","version":""}]},{"user":[]}])");
}

TEST_F(ApplicationsTest, PackagesGoByTheirShortNames) {
    EXPECT_EQ(Text(App_Get_UWPApp), "");
    StartBare(R"({"packages": {"all": [
        {"full_name": "Vendor.App_1.2.3.0_x64__abcdefghijklm"},
        {"full_name": "Vendor.App_1.2.4.0_x64__abcdefghijklm", "installed": false},
        {"full_name": "Whole"}, {"full_name": "_x"}, {"full_name": "Cut\u0000off_1_x64__a"},
        {"full_name": "Hidden_1_x64__a", "in_store": false}]}})");
    EXPECT_EQ(Text(App_Get_UWPApp), "Cut;Vendor.App;Vendor.App;Whole;;");
}

TEST_F(ApplicationsTest, SkipsWhatCannotBeReadAndGoesOn) {
    StartBare(R"({"applications": {"machine": [
        {"key": "a", "name": "A"}, {"key": "b", "name": "B"}, {"key": "c", "name": "C"}]}})");
    // Between b and c; a name of 254 characters is the longest that is taken.
    PutText(u"bb" + std::u16string(252, u'x'), u"DisplayName", u"254");
    PutText(u"bb" + std::u16string(253, u'x'), u"DisplayName", u"255");
    EXPECT_EQ(Text(App_Get_Win32App), "A;B;254;C;");
    // Open, count, five names, close; then open, size, close and open, size, data, close for each.
    for (const auto& [nth, list] : {std::pair(3, "B;254;C;"), std::pair(2, ""), std::pair(1, "")}) {
        FailCalls({.nth = static_cast<std::uint64_t>(nth)});
        EXPECT_EQ(Text(App_Get_Win32App), list) << "call " << nth;
    }
}

TEST_F(ApplicationsTest, TheDriverIsThatOfTheLastDeviceOfThatVeryName) {
    const std::pair<const char*, const char*> devices[] = {
        {"", ""},
        {R"({"id": "a", "description": "vesk kelvane", "driver_key": "{c}\\0000", "driver_version": "0"},
            {"id": "b", "description": "Vesk Kelvane", "driver_key": "{c}\\0001", "driver_version": "1.4.0.7"},
            {"id": "c", "description": "Vesk Kelvane ", "driver_key": "{c}\\0002", "driver_version": "2"},
            {"id": "d"},
            {"id": "e", "description": "Vesk Kelvane"},
            {"id": "f", "description": "Vesk Kelvane", "driver_key": "{c}\\0005", "driver_version": "5",
             "present": false})",
         "1.4.0.7"},
        {R"({"id": "a", "description": "Vesk Kelvane", "driver_key": "{c}\\0001", "driver_version": "1"},
            {"id": "b", "description": "Vesk Kelvane", "driver_key": "{c}\\0002", "driver_version": "2"},
            {"id": "c", "description": "Other", "driver_key": "{c}\\0003", "driver_version": "3"})",
         "2"},
        {R"({"id": "a", "description": "Vesk Kelvane", "driver_key": "{c}\\0001"})", ""}};
    for (const auto& [list, version] : devices) {
        StartBare(R"({"pnp_devices": [)" + std::string(list) + "]}");
        EXPECT_EQ(Text(GetInfVersion), version);
        EXPECT_THAT(DebugLines(), ElementsAre("strValueOfDriverVersion = " + std::string(version)));
    }
    RunFailing(Operation::RegOpenKeyExW, 1, Failure::Refused, [] { EXPECT_EQ(Text(GetInfVersion), ""); });
    EXPECT_THAT(CallsOf(Operation::RegQueryValueExW), ElementsAre(HasSubstr("-> 6"))) << "without a key";
}

TEST_F(ApplicationsTest, ThePackageVersionIsTheSecondFieldOfTheFirstName) {
    EXPECT_EQ(Text(GetUWPVersion), "untouched") << "there is no such package";
    StartBare(R"({"packages": {"all": [
        {"full_name": "F3A1C07E.VESKBrisenda_2.3.41.0_x64__r4wkp8tz2yhnc"},
        {"full_name": "F3A1C07E.VESKBrisenda_2.4.0.0_x64__r4wkp8tz2yhnc"}]}})");
    EXPECT_EQ(Text(GetUWPVersion), "2.3.41.0");
    EXPECT_THAT(CallsOf(Operation::GetPackagesByPackageFamily),
                ElementsAre(HasSubstr(" count=0 length=0 -> 122 count=2 length=99"),
                            HasSubstr(" count=2 length=99 -> 0 ")));
    for (const std::uint64_t nth : {1U, 2U}) {
        FailCalls({.nth = nth, .kind = Failure::Nothing});
        EXPECT_EQ(Text(GetUWPVersion), "untouched");
    }
    StartBare(R"({"packages": {"supported": false}})");
    EXPECT_EQ(Text(GetUWPVersion), "untouched");
    for (const char16_t* none : {u"Name", u"Name_", u""}) {
        EXPECT_EQ(sondrel::VersionOfFullName(none), std::nullopt);
    }
    EXPECT_EQ(sondrel::VersionOfFullName(u"Name__x64"), u"");
    EXPECT_EQ(sondrel::VersionOfFullName(u"Name_1"), u"1");
}

} // namespace
