#include "machine_fixture.h"

#include "firmware/app_path.h"
#include "firmware/settings_file.h"
#include "platform/files.h"
#include "platform/simulated/file_system.h"
#include "platform/simulated/firmware_features.h"
#include "platform/simulated/trace_sink.h"
#include "platform/simulated/wide_text.h"
#include "vesk_sondrel.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <sstream>

namespace {

using machine::Failure;
using machine::Operation;
using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char16_t* AppPath = u"C:\\ProgramData\\Vesk\\VeskTessaly";
constexpr const char16_t* HealthFile = u"C:\\ProgramData\\Vesk\\VeskTessaly\\BatteryHealthSetting.txt";
constexpr const char16_t* FanFile = u"C:\\ProgramData\\Vesk\\VeskTessaly\\QuietFanSetting.txt";

class FirmwareFeaturesTest : public test::MachineTest {
protected:
    static std::string TextOf(const char16_t* path) {
        std::ifstream file(*TheMachine().files.HostPath(path), std::ios::binary);
        return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "none";
    }

    static void Put(const char16_t* path, const std::string& text) {
        std::ofstream(*TheMachine().files.HostPath(path), std::ios::binary) << text;
    }

    static std::uint32_t HealthOfFirmware() {
        return TheMachine().firmwareFeatures.SettingOf(TheMachine().firmwareFeatures.Profile().batteryHealth);
    }

    /// Everything in the settings files' directory.
    static std::vector<std::string> FileNames() {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(*TheMachine().files.HostPath(AppPath))) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }
};

TEST_F(FirmwareFeaturesTest, TheFirmwareSaysWhatItHas) {
    EXPECT_EQ(WMICheckBatteryHealthSupport(1), 1);
    EXPECT_EQ(WMICheckQuietFanSupport(1), 0);
    WMISetQuietFan(1, 1);
    DebugLines();
    EXPECT_EQ(WMICheckQuietFanSupport(1), 1);
    EXPECT_THAT(DebugLines(),
                ElementsAre("[wmiMethod] varReturnValue is 65537", "[wmiMethod] Do CoUninitialize()",
                            "[WMICheckQuietFanSupport] output is 65537",
                            "[WMICheckQuietFanSupport] Quiet Fan On"));
    StartMachine(R"({"firmware_features": null})");
    DebugLines();
    EXPECT_EQ(WMICheckBatteryHealthSupport(1), 0);
    EXPECT_THAT(DebugLines(), Contains("[WMICheckBatteryHealthSupport] Not Support Battery Health"));
    EXPECT_EQ(WMICheckQuietFanSupport(1), -1);
    EXPECT_THAT(DebugLines(), Contains("[WMICheckQuietFanSupport] Not Support Quiet Fan"));
    StartMachine(R"({"wmi": {"ROOT\\WMI": {"VeskZrnWmi_WMNB": []}}})");
    EXPECT_EQ(WMICheckBatteryHealthSupport(1), 0);
    EXPECT_EQ(WMICheckQuietFanSupport(1), -1);
    EXPECT_EQ(WMISetBatteryHealth(80, 1), 0);
    EXPECT_EQ(WMISetQuietFan(1, 1), 0);
}

TEST_F(FirmwareFeaturesTest, SetsRemembersAndReadsBack) {
    ASSERT_EQ(WMISetAppPath(AppPath, 1), 1);
    EXPECT_EQ(WMIGetBatteryHealth(1), 100);
    EXPECT_EQ(WMIGetQuietFan(1), 0);
    DebugLines();
    EXPECT_EQ(WMISetBatteryHealth(80, 1), 1);
    const std::string path = "C:\\ProgramData\\Vesk\\VeskTessaly\\BatteryHealthSetting.txt";
    const auto lines = DebugLines();
    EXPECT_THAT(lines, Contains("[WMISetBatteryHealth] output is 1"));
    EXPECT_THAT(lines, Contains("[DirectoryExists] attribs = 16"));
    EXPECT_THAT(lines, Contains("[WMICheckAppExist] App exist!"));
    EXPECT_THAT(lines, Contains("[WMIGetAppPath] App path is C:\\ProgramData\\Vesk\\VeskTessaly"));
    EXPECT_EQ(lines[lines.size() - 2], "[WMISetBatteryHealth] fname is " + path);
    EXPECT_EQ(lines.back(), "[WMISetBatteryHealth] set 80 to " + path);
    EXPECT_EQ(TextOf(HealthFile), "80\n");
    EXPECT_EQ(HealthOfFirmware(), 80u);
    EXPECT_EQ(WMIGetBatteryHealth(1), 80);
    EXPECT_THAT(DebugLines(), Contains("[WMIGetBatteryHealth] BatteryHealth is 80"));
    WMISetBatteryHealth(5, 1);
    EXPECT_EQ(TextOf(HealthFile), "5\n") << "the whole file is replaced";

    for (const std::uint8_t level : std::array<std::uint8_t, 6>{0, 1, 2, 3, 4, 255}) {
        ForgetCalls();
        EXPECT_EQ(WMISetQuietFan(level, 1), 1);
        EXPECT_THAT(CallsOf("Put"), Contains(level == 0 ? "Put Control_status \"0\" type 19 = 0"
                                                        : "Put Control_status \"1\" type 19 = 0"));
        EXPECT_EQ(TextOf(FanFile), std::to_string(level) + "\n");
        EXPECT_EQ(WMICheckQuietFanSupport(1), level == 0 ? 0 : 1);
        DebugLines();
        EXPECT_EQ(WMIGetQuietFan(1), level <= 3 ? level : 0);
        EXPECT_EQ(DebugLines().back(), level >= 1 && level <= 3 ? "[WMIGetQuietFan] Quiet Fan On"
                                                                : "[WMIGetQuietFan] Quiet Fan Off");
    }
    EXPECT_THAT(FileNames(), SizeIs(2));
}

TEST_F(FirmwareFeaturesTest, WhatTheFirmwareDoesNotTakeIsNotRemembered) {
    StartMachine(R"({"firmware_features": {"battery_health": {"result": 2}, "quiet_fan": {"result": 11}}})");
    WMISetAppPath(AppPath, 1);
    EXPECT_EQ(WMISetBatteryHealth(80, 1), 0);
    EXPECT_EQ(WMISetQuietFan(1, 1), 0);
    EXPECT_EQ(WMISetBatteryHealth(-1, 1), 0) << "the firmware's class takes no sign";
    EXPECT_THAT(FileNames(), IsEmpty());
}

TEST_F(FirmwareFeaturesTest, WithoutADirectoryTheDefaultsStandAndSettingStillWorks) {
    const auto expectDefaults = [](const char* why) {
        EXPECT_EQ(WMISetBatteryHealth(80, 1), 1) << why;
        EXPECT_EQ(WMIGetBatteryHealth(1), 100) << why;
        EXPECT_EQ(WMISetQuietFan(2, 1), 1) << why;
        EXPECT_EQ(WMIGetQuietFan(1), 0) << why;
        EXPECT_EQ(HealthOfFirmware(), 80u) << why;
    };
    expectDefaults("no path");
    EXPECT_THAT(CallsOf("CreateFileW"), IsEmpty());
    EXPECT_EQ(WMISetAppPath(u"C:\\Nowhere", 1), 1);
    DebugLines();
    expectDefaults("no such directory");
    EXPECT_THAT(DebugLines(), Contains("[DirectoryExists] attribs = 4294967295"));
    WMISetAppPath(AppPath, 1);
    Put(u"C:\\ProgramData\\Vesk\\VeskTessaly\\plain", "x");
    WMISetAppPath(u"C:\\ProgramData\\Vesk\\VeskTessaly\\plain", 1);
    expectDefaults("a file");
    WMISetAppPath(std::u16string(256, u'p').c_str(), 1);
    expectDefaults("too long to be read back");
}

TEST_F(FirmwareFeaturesTest, EachUserHasAPathOfHisOwn) {
    DebugLines();
    WMISetAppPath(AppPath, 1);
    EXPECT_EQ(
        DebugLines().back(),
        "[WMISetAppPath] WriteRegString C:\\ProgramData\\Vesk\\VeskTessaly to KELVANE-14\\mira Success");
    EXPECT_EQ(machine::Utf8FromWide(sondrel::WMIGetAppPath(1)), "C:\\ProgramData\\Vesk\\VeskTessaly");
    const auto store = std::filesystem::temp_directory_path() / "vesk-app-path-test.sqlite";
    std::filesystem::remove(store);
    const auto user = [&](const char* name) {
        StartMachine(R"({"wmi": {"ROOT\\CIMV2": {"Win32_ComputerSystem": [{"UserName": )" +
                         std::string(name) + "}]}}}",
                     store.string());
    };
    user(R"("KELVANE-14\\mira")");
    WMISetAppPath(u"C:\\mira\\", 1);
    user(R"("otto")");
    EXPECT_EQ(sondrel::WMIGetAppPath(1), u"ERROR_READREG");
    WMISetAppPath(u"C:\\otto", 1);
    user("null");
    EXPECT_EQ(sondrel::WMIGetAppPath(1), u"ERROR_READREG");
    WMISetAppPath(u"C:\\nobody", 1);
    EXPECT_EQ(DebugLines().back(), "[WMISetAppPath] WriteRegString C:\\nobody to  Success");
    EXPECT_EQ(sondrel::WMIGetAppPath(1), u"C:\\nobody");
    user(R"("kelvane-14\\MIRA")");
    EXPECT_EQ(sondrel::WMIGetAppPath(1), u"C:\\mira\\") << "names of values have no case";
    StartMachine();
    std::filesystem::remove(store);
    std::filesystem::remove_all(store.string() + ".files");

    StartMachine(R"({"registry": {"read_only": ["HKLM\\SOFTWARE"]}})");
    EXPECT_EQ(WMISetAppPath(AppPath, 1), 0);
    EXPECT_EQ(DebugLines().back(),
              "[WMISetAppPath] WriteRegString C:\\ProgramData\\Vesk\\VeskTessaly to KELVANE-14\\mira Fail");
}

TEST_F(FirmwareFeaturesTest, ATrailingBackslashDoublesTheSeparatorAndDoesNoHarm) {
    WMISetAppPath(u"C:\\ProgramData\\Vesk\\VeskTessaly\\", 1);
    EXPECT_EQ(WMISetBatteryHealth(60, 1), 1);
    EXPECT_EQ(DebugLines().back(), "[WMISetBatteryHealth] set 60 to "
                                   "C:\\ProgramData\\Vesk\\VeskTessaly\\\\BatteryHealthSetting.txt");
    EXPECT_EQ(TextOf(HealthFile), "60\n");
    EXPECT_EQ(WMIGetBatteryHealth(1), 60);
}

TEST_F(FirmwareFeaturesTest, AHostsOwnDirectoryWorksToo) {
    const auto directory = std::filesystem::temp_directory_path() / "vesk-settings-test";
    std::filesystem::create_directories(directory);
    WMISetAppPath(directory.u16string().c_str(), 1);
    EXPECT_EQ(WMISetBatteryHealth(-0, 1), 1);
    std::ifstream file(directory / "BatteryHealthSetting.txt", std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "0\n");
    std::filesystem::remove_all(directory);
}

TEST_F(FirmwareFeaturesTest, SettingsSurviveTheProcess) {
    const auto store = std::filesystem::temp_directory_path() / "vesk-features-test.sqlite";
    std::filesystem::remove(store);
    StartMachine("{}", store.string());
    WMISetAppPath(AppPath, 1);
    WMISetBatteryHealth(60, 1);
    WMISetQuietFan(3, 1);
    StartMachine("{}", store.string());
    EXPECT_EQ(WMIGetBatteryHealth(1), 60);
    EXPECT_EQ(WMIGetQuietFan(1), 3);
    EXPECT_EQ(WMICheckQuietFanSupport(1), 1);
    EXPECT_EQ(HealthOfFirmware(), 60u);
    StartMachine();
    std::filesystem::remove(store);
    std::filesystem::remove_all(store.string() + ".files");
}

TEST_F(FirmwareFeaturesTest, AFileThatIsHeldOpenIsWrittenInPlace) {
    StartMachine(
        R"({"files": {"held_open": ["C:\\ProgramData\\Vesk\\VeskTessaly\\BatteryHealthSetting.txt"]}})");
    WMISetAppPath(AppPath, 1);
    Put(HealthFile, "1234567890\n");
    EXPECT_EQ(WMISetBatteryHealth(80, 1), 1);
    EXPECT_EQ(TextOf(HealthFile), "80\n");
    EXPECT_EQ(WMIGetBatteryHealth(1), 80);
    EXPECT_THAT(FileNames(), SizeIs(1));
    const auto opened = platform::CreateFileW(HealthFile, platform::access::GenericRead,
                                              platform::share::ReadWrite, platform::OpenExisting, 0);
    ASSERT_NE(opened, platform::Handle::Invalid);
    EXPECT_EQ(WMISetBatteryHealth(70, 1), 1);
    EXPECT_EQ(WMIGetBatteryHealth(1), 70) << "a reader that shares does not stand in the way";
    platform::CloseHandle(opened);
}

/// Breaks one call after the other of a setting, in every way that call can fail.
TEST_F(FirmwareFeaturesTest, WhateverFailsTheFileHoldsOneOfTheTwoNumbers) {
    WMISetAppPath(AppPath, 1);
    machine::Traces().Detach();
    TheMachine().gate.KeepHistory(true);
    TheMachine().gate.Restart();
    WMISetBatteryHealth(100, 1);
    const std::uint64_t calls = TheMachine().gate.CallCount();
    const auto history = TheMachine().gate.History();
    for (const auto kind : {Failure::Refused, Failure::ShortAnswer, Failure::Nothing}) {
        for (const bool andLater : {false, true}) {
            for (std::uint64_t nth = 1; nth <= calls; ++nth) {
                Put(HealthFile, "5\n");
                TheMachine().gate.Restart({.nth = nth, .andLater = andLater, .kind = kind});
                const std::int32_t result = WMISetBatteryHealth(100, 1);
                TheMachine().gate.Restart();
                ASSERT_THAT(TextOf(HealthFile), AnyOf("5\n", "100\n")) << "call " << nth;
                ASSERT_THAT(TheMachine().gate.OpenThings(), IsEmpty());
                ASSERT_EQ(platform::CoInitializeEx(platform::apartment::SingleThreaded),
                          platform::hresult::Ok);
                platform::CoUninitialize();
                if (history[nth - 1] == Operation::WriteFile && kind != Failure::Nothing) {
                    ASSERT_EQ(result, 1) << "the firmware took it";
                    ASSERT_EQ(TextOf(HealthFile), "5\n");
                }
            }
        }
    }
    EXPECT_EQ(WMISetBatteryHealth(100, 1), 1);
    EXPECT_THAT(FileNames(), SizeIs(1)) << "nothing is left over for good";
}

TEST_F(FirmwareFeaturesTest, AReadThatBreaksOffKeepsWhatCameBefore) {
    WMISetAppPath(AppPath, 1);
    Put(HealthFile, "  42\n");
    machine::Traces().Detach();
    TheMachine().gate.KeepHistory(true);
    TheMachine().gate.Restart();
    EXPECT_EQ(WMIGetBatteryHealth(1), 42);
    const auto history = TheMachine().gate.History();
    const auto read =
        static_cast<std::uint64_t>(std::ranges::find(history, Operation::ReadFile) - history.begin() + 1);
    for (const auto& [kind, later, expected] : {std::tuple{Failure::Refused, false, 100},
                                                {Failure::Nothing, false, 100},
                                                {Failure::ShortAnswer, true, 42}}) {
        TheMachine().gate.Restart({.nth = read, .andLater = later, .kind = kind});
        EXPECT_EQ(WMIGetBatteryHealth(1), expected);
    }
    TheMachine().gate.Restart();
}

/// What a text stream makes of it.
std::int32_t Extracted(const std::string& text, std::int32_t start) {
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    stream >> std::dec >> start;
    return start;
}

TEST_F(FirmwareFeaturesTest, ReadsEverySettingsTextAsAStreamDoes) {
    WMISetAppPath(AppPath, 1);
    const std::string zero(1, '\0');
    const std::string texts[] = {"",
                                 " \t\r\n\v\f",
                                 "80\n",
                                 "80\r\n",
                                 "  +7x",
                                 "-12 13",
                                 "garbage",
                                 "-",
                                 "+-3",
                                 "- 3",
                                 "0x1F",
                                 "1e3",
                                 "007",
                                 "2147483647",
                                 "2147483648",
                                 "-2147483648",
                                 "-2147483649",
                                 "99999999999999999999999999",
                                 "-99999999999999999999999999",
                                 zero + "5",
                                 "5" + zero + "6",
                                 "\xEF\xBB\xBF"
                                 "80",
                                 "12,5",
                                 std::string(5000, ' ') + "31",
                                 std::string(5000, '0') + "31",
                                 std::string(5000, '9'),
                                 "1.5"};
    for (const std::string& text : texts) {
        Put(HealthFile, text);
        EXPECT_EQ(WMIGetBatteryHealth(1), Extracted(text, 100)) << text;
        for (std::size_t cut = 0; cut <= std::min<std::size_t>(text.size(), 30); ++cut) {
            sondrel::NumberScanner scanner;
            if (scanner.Feed(std::string_view(text).substr(0, cut))) {
                scanner.Feed(std::string_view(text).substr(cut));
            }
            EXPECT_EQ(scanner.Number(100), Extracted(text, 100)) << text << " cut at " << cut;
        }
    }
}

} // namespace
