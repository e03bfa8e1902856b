#include "machine_fixture.h"

#include "machine/models/com_objects.h"
#include "platform/com.h"
#include "platform/time.h"
#include "system/system_readings.h"

#include <nlohmann/json.hpp>

namespace {

using namespace testing;
using nlohmann::json;

class SystemReadingsTest : public test::MachineTest {};

TEST_F(SystemReadingsTest, SModeIsAskedOfTheSystemsOwnLibrary) {
    struct Case {
        const char* system;
        std::int32_t mode;
        std::string lines;
    };

    const std::string loaded = "[System_Check_S_Mode] Load Dll Success\n|";
    const std::string failed = "[System_Check_S_Mode] QueryWindowsMode Fail\n|";
    const std::string no = "[System_Check_S_Mode] result = 0|", yes = "[System_Check_S_Mode] result = 1|";
    const Case cases[] = {
        {R"("lockdown_mode": 0)", 0, loaded + no},
        {R"("lockdown_mode": 1)", 1, loaded + yes},
        {R"("lockdown_mode": 2)", 1, loaded + yes},
        {R"("lockdown_mode": 3)", 0, loaded + no},
        {R"("lockdown_mode": 1, "has_lockdown_query": false)", 0, loaded + failed + no},
        {R"("lockdown_mode": 1, "has_wldp": false)", 0,
         "[System_Check_S_Mode] Load Dll Error, error = 126|" + no},
    };
    for (const Case& each : cases) {
        StartMachine(R"({"system": {)" + std::string(each.system) + "}}");
        EXPECT_EQ(System_Check_S_Mode(), each.mode) << each.system;
        std::string lines;
        for (const std::string& line : DebugLines()) {
            lines += line + '|';
        }
        EXPECT_EQ(lines, each.lines);
    }
    StartMachine(R"({"system": {"lockdown_mode": 1}})");
    std::int32_t mode = -1;
    RunFailing(Operation::WldpQueryWindowsLockdownMode, 1, Failure::Refused,
               [&] { mode = System_Check_S_Mode(); });
    EXPECT_EQ(mode, 0);
}

TEST_F(SystemReadingsTest, TheCountryMayBeNone) {
    EXPECT_EQ(Text(System_GetCountryCode_ISO2), "DE");
    StartMachine(R"({"system": {"country": ""}})");
    EXPECT_EQ(Text(System_GetCountryCode_ISO2), "");
    EXPECT_THAT(CallsOf(Operation::GetGeoInfoW),
                ElementsAre("GetGeoInfoW id=-1 type=4 text=0 language=0 -> 0 error=87",
                            "GetGeoInfoW id=-1 type=4 text=0 language=0 -> 0 error=87"));
}

TEST_F(SystemReadingsTest, TheLocalTimeIsTwentyBytes) {
    const test::Ask time = test::Written(System_Read_LocalTime);
    EXPECT_EQ(time(), "2024-05-17 10:30:00~");
    platform::Sleep(3'599'000);
    EXPECT_EQ(time(), "2024-05-17 11:29:59~");
    StartMachine(R"({"system": {"date": "2024-03-01T01:15:00", "utc_offset_minutes": -210}})");
    EXPECT_EQ(time(), "2024-02-29 21:45:00~");
    std::string failed;
    RunFailing(Operation::LocalTime64, 1, Failure::Refused, [&] { failed = time(); });
    EXPECT_EQ(failed, std::string(20, '~'));
}

TEST_F(SystemReadingsTest, TheVolumeIsCutNotRounded) {
    const auto volumes = [&](const json& audio) {
        StartMachine(json{{"audio", audio}}.dump());
        return std::pair(System_Read_VolumeLevel(1), sondrel::getvolume());
    };
    EXPECT_EQ(volumes({{"volume", 0.35}}), std::pair(34, std::u16string(u"34"))); // 0.35 as a float is less
    EXPECT_EQ(volumes({{"volume", 1}}), std::pair(100, std::u16string(u"100")));
    EXPECT_EQ(volumes({{"volume", 0.009}}), std::pair(0, std::u16string(u"0")));
    EXPECT_EQ(volumes({{"volume", 0.5}, {"muted", true}}), std::pair(50, std::u16string(u"0")));
    EXPECT_EQ(volumes(nullptr), std::pair(-1, std::u16string()));
}

TEST_F(SystemReadingsTest, TheTwoExportsOfTheVolumeDifferInApartmentAndRelease) {
    System_Read_VolumeLevel(1);
    EXPECT_THAT(Journal(),
                ElementsAre("debug [System_Read_VolumeLevel] Do Coinitialize()", "CoInitializeEx kind=2 -> 0",
                            "Release IMMDeviceEnumerator", "Release IMMDevice",
                            "Release IAudioEndpointVolume",
                            "debug [System_Read_VolumeLevel] Do CoUninitialize()", "CoUninitialize"));
    sondrel::getvolume();
    EXPECT_THAT(Journal(),
                ElementsAre("CoInitializeEx kind=0 -> 0", "Release IMMDeviceEnumerator", "Release IMMDevice",
                            "Release IAudioEndpointVolume", "CoUninitialize"));
    platform::CoInitializeEx(platform::apartment::SingleThreaded);
    EXPECT_EQ(System_Read_VolumeLevel(0), 34);
    EXPECT_EQ(sondrel::getvolume(), u"");
    EXPECT_EQ(machine::CurrentApartment().entered, 1u);
    platform::CoUninitialize();
}

TEST_F(SystemReadingsTest, EveryStepToTheVolumeMayFail) {
    const std::pair<Operation, const char*> steps[] = {
        {Operation::CoInitializeEx, "debug [getvolume] CoInitializeEx fail"},
        {Operation::CoCreateInstance, "debug [getvolume] CoCreateInstance fail"},
        {Operation::GetDefaultAudioEndpoint,
         "debug [getvolume] deviceEnumerator->GetDefaultAudioEndpoint fail"},
        {Operation::Activate, "debug [getvolume] defaultDevice->Activate fail"},
        {Operation::GetMasterVolumeLevelScalar, nullptr}};
    for (const auto& [operation, line] : steps) {
        SCOPED_TRACE(observer::RowOf(operation).name);
        std::u16string text = u"?";
        RunFailing(operation, 1, Failure::Refused, [&] { text = sondrel::getvolume(); });
        EXPECT_EQ(text, u"");
        if (line != nullptr) {
            EXPECT_THAT(Journal(), Contains(line));
        }
    }
    std::u16string text;
    RunFailing(Operation::GetMute, 1, Failure::Refused, [&] { text = sondrel::getvolume(); });
    EXPECT_EQ(text, u"34");
    StartMachine(R"({"audio": {"muted": true}})");
    RunFailing(Operation::GetMasterVolumeLevelScalar, 1, Failure::Refused,
               [&] { text = sondrel::getvolume(); });
    EXPECT_EQ(text, u"0") << "a muted endpoint needs no level";
}

} // namespace
