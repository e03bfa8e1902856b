#include "application_test.h"
#include "apps/app_records.h"
#include "apps/versions.h"
#include "platform/simulated/registry_hive.h"

namespace {

using ::testing::ElementsAre;

class AppRecordsTest : public test::ApplicationTest {};

TEST_F(AppRecordsTest, ListsNamesOfTheMachineOnly) {
    StartMachine(R"({"applications": {
        "machine": [{"key": "a", "name": "Editor"}, {"key": "b", "name": ""}, {"key": "c", "name": "A;\"B\""},
                    {"key": "d"}, {"key": "e", "name": "Hidden", "system_component": 0},
                    {"key": "f", "name": "Hidden", "system_component": 1}],
        "machine_32": [{"key": "a", "name": "Old"}],
        "user": [{"key": "u", "name": "User's"}]}})");
    EXPECT_EQ(WideAnswer(App_Get_Win32App), "Editor;;A;\"B\";");
    EXPECT_EQ(WideAnswer(App_Get_Win32WOW6432App), "Old;");
    EXPECT_THAT(DebugLines(), ElementsAre());
}

TEST_F(AppRecordsTest, TypesDecideOtherThanInTheDocuments) {
    StartMachine(R"({"registry": {"values": [
        {"key": "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\a", "name": "DisplayName",
         "type": "REG_SZ", "data": "Listed"},
        {"key": "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\a", "name": "SystemComponent",
         "type": "REG_SZ", "data": "1"},
        {"key": "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\b", "name": "DisplayName",
         "type": "REG_EXPAND_SZ", "data": "Expanded"}]}})");
    EXPECT_EQ(WideAnswer(App_Get_Win32App), "Listed;");
    EXPECT_EQ(WideAnswer(GetApplist_x64), R"([{"machine":[{"name":"Expanded","version":""}]},{"user":[]}])");
}

TEST_F(AppRecordsTest, PackagesGoByTheirShortNames) {
    EXPECT_EQ(WideAnswer(App_Get_UWPApp), "");
    StartMachine(R"({"packages": {"all": [
        {"full_name": "Vendor.App_1.2.3.0_x64__abcdefghijklm"},
        {"full_name": "Vendor.App_1.2.4.0_x64__abcdefghijklm", "installed": false},
        {"full_name": "Whole"}, {"full_name": "_x"},
        {"full_name": "Hidden_1_x64__a", "in_store": false}]}})");
    EXPECT_EQ(WideAnswer(App_Get_UWPApp), "Vendor.App;Vendor.App;Whole;;");
}

TEST_F(AppRecordsTest, PassesOverWhatCannotBeReadAndGoesOn) {
    StartMachine(R"({"applications": {"machine": [
        {"key": "a", "name": "A"}, {"key": "b", "name": "B"}, {"key": "c", "name": "C"}]}})");
    auto& registry = TheMachine().registry;
    const auto uninstall = *registry.Find(machine::RegistryHive::LocalMachine,
                                          u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall");
    // Between b and c; a name of 254 characters is the longest that is taken.
    for (const std::size_t length : {254U, 255U}) {
        const auto key = registry.Create(uninstall, u"bb" + std::u16string(length - 2, u'x'));
        const std::u16string text = length == 254 ? std::u16string(u"254\0", 4) : std::u16string(u"255\0", 4);
        registry.Set(key, u"DisplayName", 1, std::as_bytes(std::span(text)));
    }
    EXPECT_EQ(WideAnswer(App_Get_Win32App), "A;B;254;C;");
    ForgetCalls();
    // Each call that fails costs the entry that it is about, and the whole list where it is about the list.
    // Open, count, five names, close; then open, size, close and open, size, data, close for each.
    TheMachine().gate.Restart({.nth = 3});
    EXPECT_EQ(WideAnswer(App_Get_Win32App), "B;254;C;");
    TheMachine().gate.Restart({.nth = 2});
    EXPECT_EQ(WideAnswer(App_Get_Win32App), "");
    TheMachine().gate.Restart({.nth = 1});
    EXPECT_EQ(WideAnswer(App_Get_Win32App), "");
    TheMachine().gate.Restart();
}

class VersionsTest : public test::ApplicationTest {};

constexpr const char* Devices = R"({"pnp_devices": [
    {"id": "ACPI\\VESK0001\\0", "description": "vesk kelvane", "driver_key": "{c}\\0000", "driver_version": "0"},
    {"id": "ACPI\\VESK0001\\1", "description": "Vesk Kelvane", "driver_key": "{c}\\0001", "driver_version": "1.4.0.7"},
    {"id": "ACPI\\VESK0001\\2", "description": "Vesk Kelvane ", "driver_key": "{c}\\0002", "driver_version": "2"},
    {"id": "ACPI\\VESK0001\\3"},
    {"id": "ACPI\\VESK0001\\4", "description": "Vesk Kelvane"},
    {"id": "ACPI\\VESK0001\\5", "description": "Vesk Kelvane", "driver_key": "{c}\\0005", "driver_version": "5",
     "present": false}]})";

TEST_F(VersionsTest, TheDriverIsThatOfTheDeviceOfThatVeryName) {
    StartMachine(Devices);
    EXPECT_EQ(sondrel::GetDeviceDriverKey(), u"{c}\\0001");
    EXPECT_EQ(WideAnswer(GetInfVersion), "1.4.0.7");
    EXPECT_THAT(DebugLines(), ElementsAre("strValueOfDriverVersion = 1.4.0.7"));
}

TEST_F(VersionsTest, TheLastOfSeveralDevicesWins) {
    StartMachine(R"({"pnp_devices": [
        {"id": "a", "description": "Vesk Kelvane", "driver_key": "{c}\\0001", "driver_version": "1"},
        {"id": "b", "description": "Vesk Kelvane", "driver_key": "{c}\\0002", "driver_version": "2"},
        {"id": "c", "description": "Other", "driver_key": "{c}\\0003", "driver_version": "3"}]})");
    EXPECT_EQ(WideAnswer(GetInfVersion), "2");
}

TEST_F(VersionsTest, NoDeviceOrNoValueGivesTheEmptyText) {
    EXPECT_EQ(WideAnswer(GetInfVersion), "");
    EXPECT_THAT(DebugLines(), ElementsAre("strValueOfDriverVersion = "));
    StartMachine(
        R"({"pnp_devices": [{"id": "a", "description": "Vesk Kelvane", "driver_key": "{c}\\0001"}]})");
    EXPECT_EQ(WideAnswer(GetInfVersion), "");
    // The device has gone meanwhile, cannot be asked, or the list itself fails.
    StartMachine(Devices);
    for (std::uint64_t nth = 1; nth <= 4; ++nth) {
        TheMachine().gate.Restart({.nth = nth, .andLater = true});
        EXPECT_EQ(WideAnswer(GetInfVersion), "");
    }
}

TEST_F(VersionsTest, ThePackageVersionIsTheSecondFieldOfTheFirstName) {
    StartMachine(R"({"packages": {"all": [
        {"full_name": "F3A1C07E.VESKBrisenda_2.3.41.0_x64__r4wkp8tz2yhnc"},
        {"full_name": "F3A1C07E.VESKBrisenda_2.4.0.0_x64__r4wkp8tz2yhnc"}]}})");
    EXPECT_EQ(WideAnswer(GetUWPVersion), "2.3.41.0");
    EXPECT_THAT(CallsOf("GetPackagesByPackageFamily"),
                ElementsAre(::testing::HasSubstr(" room 0 0 = 122"), ::testing::HasSubstr(" room 2 99 = 0")));
    EXPECT_EQ(sondrel::VersionOfFullName(u"Name"), std::nullopt);
    EXPECT_EQ(sondrel::VersionOfFullName(u"Name_"), std::nullopt);
    EXPECT_EQ(sondrel::VersionOfFullName(u""), std::nullopt);
    EXPECT_EQ(sondrel::VersionOfFullName(u"Name__x64"), u"");
    EXPECT_EQ(sondrel::VersionOfFullName(u"Name_1"), u"1");
}

TEST_F(VersionsTest, WithoutThePackageTheBufferIsLeftAlone) {
    EXPECT_EQ(WideAnswer(GetUWPVersion), "untouched");
    constexpr const char* Package =
        R"({"packages": {"supported": true, "all": [
            {"full_name": "F3A1C07E.VESKBrisenda_2.3.41.0_x64__r4wkp8tz2yhnc"}]}})";
    StartMachine(Package);
    for (const std::uint64_t nth : {1U, 2U}) {
        for (const auto kind : {machine::Failure::Refused, machine::Failure::Nothing}) {
            TheMachine().gate.Restart({.nth = nth, .kind = kind});
            EXPECT_EQ(WideAnswer(GetUWPVersion), "untouched");
        }
    }
    StartMachine(R"({"packages": {"supported": false}})");
    EXPECT_EQ(WideAnswer(GetUWPVersion), "untouched");
}

} // namespace
