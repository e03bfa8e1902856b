#include "wmi_fixture.h"

#include "platform/com.h"
#include "platform/simulated/apartments.h"
#include "platform/time.h"
#include "system/system_readings.h"

#include <array>
#include <cstring>

namespace {

using machine::Failure;
using machine::Operation;
using nlohmann::json;
using ::testing::ElementsAre;

class SystemReadingsTest : public test::WmiTest {
protected:
    static std::string LocalTime() {
        std::array<char, 24> out;
        out.fill('?');
        System_Read_LocalTime(out.data());
        return {out.data(), out.size()};
    }
};

TEST_F(SystemReadingsTest, SModeIsAskedOfTheSystemsOwnLibrary) {
    const auto linesOf = [&](const json& system, std::int32_t expected) {
        StartMachine(json{{"system", system}}.dump());
        DebugLines();
        EXPECT_EQ(System_Check_S_Mode(), expected);
        return DebugLines();
    };
    const std::string loaded = "[System_Check_S_Mode] Load Dll Success\n";
    const std::string failed = "[System_Check_S_Mode] QueryWindowsMode Fail\n";
    const std::string no = "[System_Check_S_Mode] result = 0";
    EXPECT_THAT(linesOf({{"lockdown_mode", 0}}, 0), ElementsAre(loaded, no));
    EXPECT_THAT(linesOf({{"lockdown_mode", 1}}, 1), ElementsAre(loaded, "[System_Check_S_Mode] result = 1"));
    linesOf({{"lockdown_mode", 2}}, 1);
    linesOf({{"lockdown_mode", 3}}, 0);
    EXPECT_THAT(linesOf({{"lockdown_mode", 1}, {"has_lockdown_query", false}}, 0),
                ElementsAre(loaded, failed, no));
    EXPECT_THAT(linesOf({{"lockdown_mode", 1}, {"has_wldp", false}}, 0),
                ElementsAre("[System_Check_S_Mode] Load Dll Error, error = 126", no));
    StartAndListen({{"system", {{"lockdown_mode", 1}}}});
    std::int32_t mode = -1;
    RunFailing(Operation::WldpQueryWindowsLockdownMode, 1, Failure::Refused,
               [&] { mode = System_Check_S_Mode(); });
    EXPECT_EQ(mode, 0);
}

TEST_F(SystemReadingsTest, TheCountryIsAskedForTwiceAndMayBeNone) {
    EXPECT_EQ(Text(System_GetCountryCode_ISO2), u"DE");
    for (const std::size_t nth : {1, 2}) {
        std::u16string country;
        RunFailing(Operation::GetGeoInfoW, nth, Failure::Refused,
                   [&] { country = Text(System_GetCountryCode_ISO2); });
        EXPECT_EQ(country, u"");
    }
    StartMachine(R"({"system": {"country": ""}})");
    EXPECT_EQ(Text(System_GetCountryCode_ISO2), u"");
    EXPECT_THAT(CallsOf("GetGeoInfoW"), ElementsAre("GetGeoInfoW room 0 = 0"));
}

TEST_F(SystemReadingsTest, TheLocalTimeIsTwentyBytes) {
    using namespace std::string_literals;
    EXPECT_EQ(LocalTime(), "2024-05-17 10:30:00\0????"s);
    platform::Sleep(3'599'000);
    EXPECT_EQ(LocalTime(), "2024-05-17 11:29:59\0????"s);
    StartAndListen({{"system", {{"date", "2024-03-01T01:15:00"}, {"utc_offset_minutes", -210}}}});
    EXPECT_EQ(LocalTime(), "2024-02-29 21:45:00\0????"s);
    std::string time;
    RunFailing(Operation::LocalTime64, 1, Failure::Refused, [&] { time = LocalTime(); });
    EXPECT_EQ(time, std::string(20, '\0') + "????");
}

TEST_F(SystemReadingsTest, TheVolumeIsCutNotRounded) {
    const auto volumes = [&](const json& audio) {
        StartAndListen({{"audio", audio}});
        return std::pair(System_Read_VolumeLevel(1), sondrel::getvolume());
    };
    EXPECT_EQ(volumes({{"volume", 0.35}}), std::pair(34, std::u16string(u"34"))); // 0.35 as a float is less
    EXPECT_EQ(volumes({{"volume", 1}}), std::pair(100, std::u16string(u"100")));
    EXPECT_EQ(volumes({{"volume", 0.009}}), std::pair(0, std::u16string(u"0")));
    EXPECT_EQ(volumes({{"volume", 0.5}, {"muted", true}}), std::pair(50, std::u16string(u"0")));
    EXPECT_EQ(volumes(nullptr), std::pair(-1, std::u16string()));
}

TEST_F(SystemReadingsTest, TheTwoRoadsToTheVolumeDifferInApartmentAndRelease) {
    System_Read_VolumeLevel(1);
    EXPECT_THAT(Journal(),
                ElementsAre("debug [System_Read_VolumeLevel] Do Coinitialize()",
                            "CoInitializeEx single-threaded = 0", "Release IMMDeviceEnumerator",
                            "Release IMMDevice", "Release IAudioEndpointVolume",
                            "debug [System_Read_VolumeLevel] Do CoUninitialize()", "CoUninitialize"));
    sondrel::getvolume();
    EXPECT_THAT(Journal(),
                ElementsAre("CoInitializeEx multithreaded = 0", "Release IMMDeviceEnumerator",
                            "Release IMMDevice", "Release IAudioEndpointVolume", "CoUninitialize"));
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
        SCOPED_TRACE(machine::RowOf(operation).name);
        std::u16string text = u"?";
        RunFailing(operation, 1, Failure::Refused, [&] { text = sondrel::getvolume(); });
        EXPECT_EQ(text, u"");
        if (line != nullptr) {
            EXPECT_THAT(Journal(), ::testing::Contains(line));
        }
        EXPECT_THAT(TheMachine().gate.OpenThings(), ::testing::IsEmpty());
        std::int32_t level = 0;
        platform::CoInitializeEx(platform::apartment::Multithreaded);
        if (operation != Operation::CoInitializeEx) {
            RunFailing(operation, 1, Failure::Refused, [&] { level = System_Read_VolumeLevel(0); });
            EXPECT_EQ(level, -1);
        }
        EXPECT_THAT(TheMachine().gate.OpenThings(), ::testing::IsEmpty());
        platform::CoUninitialize();
    }
    std::u16string text;
    RunFailing(Operation::GetMute, 1, Failure::Refused, [&] { text = sondrel::getvolume(); });
    EXPECT_EQ(text, u"34");
}

} // namespace
