#include "import_patch.h"
#include "library.h"
#include "log_capture.h"
#include "scripted_audio.h"
#include "scripted_wmi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <ctime>
#include <string>

namespace {

using ::testing::ElementsAre;

DWORD LockdownMode = 0;
HRESULT LockdownAnswer = S_OK;

HRESULT WINAPI QueryLockdownMode(DWORD* mode) {
    *mode = LockdownMode;
    return LockdownAnswer;
}

class SystemReadingsTest : public ::testing::Test {
protected:
    SystemReadingsTest() : m_patch(m_library.Module()), m_logs(m_patch) {}

    test::Library m_library;
    test::ImportPatch m_patch;
    test::LogCapture m_logs;
};

TEST_F(SystemReadingsTest, SModeWithoutTheLibraryTheRoutineOrTheAnswer) {
    const auto sMode = VESK_CALL(m_library, System_Check_S_Mode);
    m_patch.HideLibrary(L"wldp.dll");
    EXPECT_EQ(sMode(), 0);
    EXPECT_THAT(m_logs.Take(), ElementsAre(L"debug [System_Check_S_Mode] Load Dll Error, error = 126",
                                           L"debug [System_Check_S_Mode] result = 0"));
    m_patch.PretendLibrary(L"wldp.dll");
    m_patch.ReplaceRoutine("WldpQueryWindowsLockdownMode",
                           static_cast<decltype(&QueryLockdownMode)>(nullptr));
    EXPECT_EQ(sMode(), 0);
    EXPECT_THAT(m_logs.Take(), ElementsAre(L"debug [System_Check_S_Mode] Load Dll Success\n",
                                           L"debug [System_Check_S_Mode] QueryWindowsMode Fail\n",
                                           L"debug [System_Check_S_Mode] result = 0"));
    m_patch.ReplaceRoutine("WldpQueryWindowsLockdownMode", &QueryLockdownMode);
    const std::pair<DWORD, std::int32_t> modes[] = {{0, 0}, {1, 1}, {2, 1}, {3, 0}, {0xFFFFFFFF, 0}};
    for (const auto& [mode, expected] : modes) {
        LockdownMode = mode;
        LockdownAnswer = S_OK;
        EXPECT_EQ(sMode(), expected) << mode;
        LockdownAnswer = S_FALSE; // not 0 is no answer
        EXPECT_EQ(sMode(), 0) << mode;
    }
}

TEST_F(SystemReadingsTest, TheCountryIsTheUsersOwn) {
    const GEOID former = ::GetUserGeoID(GEOCLASS_NATION);
    std::wstring out(16, L'?');
    ASSERT_TRUE(::SetUserGeoID(94));
    VESK_CALL(m_library, System_GetCountryCode_ISO2)(out.data());
    EXPECT_EQ(std::wstring(out.c_str()), L"DE");
    ::SetUserGeoID(former);
}

TEST_F(SystemReadingsTest, TheLocalTimeIsTwentyBytesOfNow) {
    const auto now = [] {
        char text[20];
        const std::time_t time = std::time(nullptr);
        std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", std::localtime(&time));
        return std::string(text);
    };
    char out[24];
    std::memset(out, '?', sizeof out);
    const std::string before = now();
    VESK_CALL(m_library, System_Read_LocalTime)(out);
    EXPECT_LE(before, std::string(out));
    EXPECT_LE(std::string(out), now());
    EXPECT_EQ(std::string(out + 19, 5), std::string("\0????", 5));
}

TEST_F(SystemReadingsTest, TheVolumeComesThroughTheSingleThreadedApartment) {
    test::ScriptedAudio audio(COINIT_APARTMENTTHREADED);
    audio.Script().level = 0.35F;
    audio.Script().muted = true;
    const auto level = VESK_CALL(m_library, System_Read_VolumeLevel);
    EXPECT_EQ(level(1), 34);
    EXPECT_THAT(audio.Script().calls,
                ElementsAre(L"GetDefaultAudioEndpoint 0 0", L"Release IMMDeviceEnumerator", L"Activate 1",
                            L"Release IMMDevice", L"GetMasterVolumeLevelScalar",
                            L"Release IAudioEndpointVolume"));
    for (HRESULT test::AudioScript::*step :
         {&test::AudioScript::createInstance, &test::AudioScript::getDefaultEndpoint,
          &test::AudioScript::activate, &test::AudioScript::getLevel}) {
        audio.Script().*step = E_FAIL;
        EXPECT_EQ(level(0), -1);
        EXPECT_EQ(audio.Script().alive, 0);
        audio.Script().*step = S_OK;
    }
    // Entered as often as it was left: the thread is still in its apartment.
    EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_FALSE);
    ::CoUninitialize();
}

TEST_F(SystemReadingsTest, TheDocumentReportsMuteThroughTheMultithreadedApartment) {
    test::ScriptedAudio audio(COINIT_MULTITHREADED);
    test::ScriptedWmi wmi;
    const auto document = [&] {
        std::wstring out(256, L'?');
        VESK_CALL(m_library, AppList_HardwareConfig)(out.data());
        return std::wstring(out.c_str());
    };
    wmi.Script().rows[L"select * from WmiMonitorBrightness"] = {
        {{L"CurrentBrightness", test::ScriptedValue::Number(VT_UI1, 40)}},
        {{L"CurrentBrightness", test::ScriptedValue::Number(VT_UI1, 0)}}};
    audio.Script().level = 0.75F;
    EXPECT_EQ(document(), L"{\"brightness\":\"0\",\"volume\":\"75\"}");
    EXPECT_THAT(audio.Script().calls,
                ElementsAre(L"GetDefaultAudioEndpoint 0 0", L"Activate 1", L"GetMasterVolumeLevelScalar",
                            L"GetMute", L"Release IMMDeviceEnumerator", L"Release IMMDevice",
                            L"Release IAudioEndpointVolume"));
    audio.Script().muted = true;
    wmi.Script().execQuery = E_FAIL;
    EXPECT_EQ(document(), L"{\"brightness\":\"\",\"volume\":\"0\"}");
    audio.Script().getDefaultEndpoint = static_cast<HRESULT>(0x80070490);
    EXPECT_EQ(document(), L"{\"brightness\":\"\",\"volume\":\"\"}");
    EXPECT_THAT(m_logs.Take(),
                ::testing::Contains(L"debug [getvolume] deviceEnumerator->GetDefaultAudioEndpoint fail"));
    EXPECT_EQ(audio.Script().alive, 0);
    EXPECT_EQ(wmi.Script().alive, 0);
}

} // namespace
