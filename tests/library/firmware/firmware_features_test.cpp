#include "machine_fixture.h"

#include "firmware/app_path.h"
#include "firmware/settings_file.h"
#include "machine/models/firmware_features.h"
#include "machine/models/storage/file_system.h"
#include "machine/models/trace_sink.h"
#include "platform/com.h"
#include "platform/files.h"

#include <fstream>
#include <iterator>
#include <sstream>

namespace {

using namespace testing;

constexpr const char16_t* AppPath = u"C:\\ProgramData\\Vesk\\VeskTessaly";
const std::string Path = "C:\\ProgramData\\Vesk\\VeskTessaly";
constexpr const char16_t* HealthFile = u"C:\\ProgramData\\Vesk\\VeskTessaly\\BatteryHealthSetting.txt";
constexpr const char16_t* FanFile = u"C:\\ProgramData\\Vesk\\VeskTessaly\\QuietFanSetting.txt";

class FirmwareFeaturesTest : public test::MachineTest {
protected:
    static std::string TextOf(const char16_t* path) {
        std::ifstream file(*TheMachine()->storage.files->HostPath(path), std::ios::binary);
        return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "none";
    }

    static void Put(const char16_t* path, const std::string& text) {
        std::ofstream(*TheMachine()->storage.files->HostPath(path), std::ios::binary) << text;
    }

    static std::uint32_t HealthOfFirmware() {
        return TheMachine()->firmwareFeatures.SettingOf(TheMachine()->profile.firmwareFeatures.batteryHealth);
    }

    /// How many files are in the settings files' directory.
    static auto FileCount() {
        const std::filesystem::directory_iterator files(*TheMachine()->storage.files->HostPath(AppPath));
        return std::distance(begin(files), end(files));
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
    EXPECT_EQ(WMICheckBatteryHealthSupport(1), 0);
    EXPECT_EQ(DebugLines().back(), "[WMICheckBatteryHealthSupport] Not Support Battery Health");
    EXPECT_EQ(WMICheckQuietFanSupport(1), -1);
    EXPECT_EQ(DebugLines().back(), "[WMICheckQuietFanSupport] Not Support Quiet Fan");
    // What the firmware does not take is not remembered.
    StartMachine(R"({"firmware_features": {"battery_health": {"result": 2}, "quiet_fan": {"result": 11}}})");
    WMISetAppPath(AppPath, 1);
    EXPECT_EQ(WMISetBatteryHealth(80, 1), 0);
    EXPECT_EQ(WMISetQuietFan(1, 1), 0);
    EXPECT_EQ(WMISetBatteryHealth(-1, 1), 0) << "the firmware's class takes no sign";
    EXPECT_EQ(FileCount(), 0);
}

TEST_F(FirmwareFeaturesTest, SetsRemembersAndReadsBack) {
    ASSERT_EQ(WMISetAppPath(AppPath, 1), 1);
    EXPECT_EQ(WMIGetBatteryHealth(1), 100);
    EXPECT_EQ(WMIGetQuietFan(1), 0);
    DebugLines();
    EXPECT_EQ(WMISetBatteryHealth(80, 1), 1);
    const std::string path = Path + "\\BatteryHealthSetting.txt";
    const auto lines = DebugLines();
    EXPECT_THAT(lines, IsSupersetOf({"[WMISetBatteryHealth] output is 1", "[DirectoryExists] attribs = 16",
                                     "[WMICheckAppExist] App exist!"}));
    EXPECT_THAT(lines, Contains("[WMIGetAppPath] App path is " + Path));
    EXPECT_EQ(lines[lines.size() - 2], "[WMISetBatteryHealth] fname is " + path);
    EXPECT_EQ(lines.back(), "[WMISetBatteryHealth] set 80 to " + path);
    EXPECT_EQ(TextOf(HealthFile), "80\n");
    EXPECT_EQ(HealthOfFirmware(), 80u);
    EXPECT_EQ(WMIGetBatteryHealth(1), 80);
    EXPECT_THAT(DebugLines(), Contains("[WMIGetBatteryHealth] BatteryHealth is 80"));
    WMISetBatteryHealth(5, 1);
    EXPECT_EQ(TextOf(HealthFile), "5\n") << "the whole file is replaced";

    for (const std::uint8_t level : std::array<std::uint8_t, 5>{0, 1, 3, 4, 255}) {
        ForgetCalls();
        EXPECT_EQ(WMISetQuietFan(level, 1), 1);
        EXPECT_THAT(CallsOf(Operation::Put),
                    Contains(HasSubstr(level == 0 ? "name=\"Control_status\" text=\"0\" type=19 -> 0"
                                                  : "name=\"Control_status\" text=\"1\" type=19 -> 0")));
        EXPECT_EQ(TextOf(FanFile), std::to_string(level) + "\n");
        EXPECT_EQ(WMIGetQuietFan(1), level <= 3 ? level : 0);
        EXPECT_EQ(DebugLines().back(), level >= 1 && level <= 3 ? "[WMIGetQuietFan] Quiet Fan On"
                                                                : "[WMIGetQuietFan] Quiet Fan Off");
    }
    EXPECT_EQ(FileCount(), 2);
    // A path that ends with a separator gets a second one, which does no harm.
    WMISetAppPath((AppPath + std::u16string(u"\\")).c_str(), 1);
    EXPECT_EQ(WMISetBatteryHealth(60, 1), 1);
    EXPECT_EQ(DebugLines().back(),
              "[WMISetBatteryHealth] set 60 to " + Path + "\\\\BatteryHealthSetting.txt");
    EXPECT_EQ(TextOf(HealthFile), "60\n");
}

TEST_F(FirmwareFeaturesTest, WithoutADirectoryTheDefaultsApplyAndSettingStillWorks) {
    StartMachine(R"({"registry": null})");
    Put((AppPath + std::u16string(u"\\plain")).c_str(), "x");
    for (const std::u16string& path : {std::u16string(), std::u16string(u"C:\\Nowhere"),
                                       AppPath + std::u16string(u"\\plain"), std::u16string(256, u'p')}) {
        if (!path.empty()) {
            EXPECT_EQ(WMISetAppPath(path.c_str(), 1), 1);
        }
        SCOPED_TRACE(path.size());
        EXPECT_EQ(WMISetBatteryHealth(80, 1), 1);
        EXPECT_EQ(WMIGetBatteryHealth(1), 100);
        EXPECT_EQ(WMISetQuietFan(2, 1), 1);
        EXPECT_EQ(WMIGetQuietFan(1), 0);
        EXPECT_EQ(HealthOfFirmware(), 80u);
        EXPECT_THAT(CallsOf(Operation::CreateFileW), IsEmpty());
    }
    EXPECT_THAT(DebugLines(), Contains("[DirectoryExists] attribs = 4294967295"));
}

TEST_F(FirmwareFeaturesTest, EachUserHasASeparatePath) {
    WMISetAppPath(AppPath, 1);
    EXPECT_EQ(DebugLines().back(), "[WMISetAppPath] WriteRegString " + Path + " to KELVANE-14\\mira Success");
    EXPECT_EQ(sondrel::WMIGetAppPath(1), AppPath);
    const auto user = [&](const char* name) {
        StartMachine(R"({"wmi": {"ROOT\\CIMV2": {"Win32_ComputerSystem": [{"UserName": )" +
                         std::string(name) + "}]}}}",
                     m_store);
    };
    user(R"("KELVANE-14\\mira")");
    WMISetAppPath(u"C:\\mira\\", 1);
    user(R"("otto")");
    EXPECT_EQ(sondrel::WMIGetAppPath(1), u"ERROR_READREG");
    WMISetAppPath(u"C:\\otto", 1);
    user("null");
    EXPECT_EQ(sondrel::WMIGetAppPath(1), u"ERROR_READREG");
    WMISetAppPath(u"C:\\nowhere", 1);
    EXPECT_EQ(DebugLines().back(), "[WMISetAppPath] WriteRegString C:\\nowhere to  Success");
    EXPECT_EQ(sondrel::WMIGetAppPath(1), u"C:\\nowhere");
    user(R"("kelvane-14\\MIRA")");
    EXPECT_EQ(sondrel::WMIGetAppPath(1), u"C:\\mira\\") << "names of values have no case";

    StartMachine(R"({"registry": {"read_only": ["HKLM\\SOFTWARE"]}})");
    EXPECT_EQ(WMISetAppPath(AppPath, 1), 0);
    EXPECT_EQ(DebugLines().back(), "[WMISetAppPath] WriteRegString " + Path + " to KELVANE-14\\mira Fail");
}

/// Which boundary calls a setter makes on its file, without those that look for it.
TEST_F(FirmwareFeaturesTest, ASettingIsWrittenInPlaceUnderALockAndOnTheDiskBeforeItIsCut) {
    WMISetAppPath(AppPath, 1);
    Put(HealthFile, "1234567890\nand what a person wrote below it");
    std::filesystem::create_hard_link(*TheMachine()->storage.files->HostPath(HealthFile),
                                      *TheMachine()->storage.files->HostPath(FanFile));
    ForgetCalls();
    EXPECT_EQ(WMISetBatteryHealth(80, 1), 1);
    const test::Lines calls = Calls();
    const auto opened =
        std::ranges::find_if(calls, [](const std::string& call) { return call.starts_with("CreateFileW"); });
    EXPECT_THAT(test::Lines(opened, calls.end()),
                ElementsAre(AllOf(HasSubstr("access=0x40000000 share=0x3 "), HasSubstr("disposition=4 ")),
                            StartsWith("GetFileInformationByHandleEx "),
                            AllOf(StartsWith("LockFileEx "),
                                  HasSubstr(" flags=0x3 offset=1073741824 size=1 -> true")),
                            HasSubstr("38300a20202020202020202020"), // "80", the line end, blanks
                            StartsWith("FlushFileBuffers "),
                            AllOf(StartsWith("SetFileInformationByHandle "), HasSubstr(" end=3 ")),
                            StartsWith("FlushFileBuffers "),
                            AllOf(StartsWith("UnlockFileEx "), HasSubstr(" offset=1073741824 size=1")),
                            StartsWith("CloseHandle ")));
    EXPECT_EQ(TextOf(HealthFile), "80\n");
    EXPECT_EQ(TextOf(FanFile), "80\n") << "the file itself is written, not another one in its place";
    ForgetCalls();
    EXPECT_EQ(WMIGetBatteryHealth(1), 80);
    EXPECT_THAT(CallsOf(Operation::LockFileEx), IsEmpty());
}

TEST_F(FirmwareFeaturesTest, GettersLogBeforeTheyCloseTheFile) {
    WMISetAppPath(AppPath, 1);
    WMISetBatteryHealth(80, 1);
    WMISetQuietFan(2, 1);
    for (const test::Ask& get : {test::Ask([] { return std::to_string(WMIGetBatteryHealth(1)); }),
                                 test::Ask([] { return std::to_string(WMIGetQuietFan(1)); })}) {
        ForgetCalls();
        get();
        std::vector<Operation> last;
        for (const CallRecord& record : Records()) {
            last.push_back(record.operation);
        }
        const auto close = std::ranges::find(last.rbegin(), last.rend(), Operation::CloseHandle);
        ASSERT_NE(close, last.rend());
        EXPECT_EQ(*std::next(close), Operation::EventWriteTransfer);
    }
}

TEST_F(FirmwareFeaturesTest, AFileThatAnotherProcessHasLockedIsLeftAlone) {
    StartMachine(
        R"({"files": {"locked": ["C:\\ProgramData\\Vesk\\VeskTessaly\\BatteryHealthSetting.txt"]}})");
    WMISetAppPath(AppPath, 1);
    Put(HealthFile, "5\n");
    DebugLines();
    ForgetCalls();
    EXPECT_EQ(WMISetBatteryHealth(80, 1), 1) << "the firmware took it";
    EXPECT_THAT(DebugLines().back(), StartsWith("[WMISetBatteryHealth] set 80 to "));
    EXPECT_EQ(TextOf(HealthFile), "5\n");
    EXPECT_EQ(WMIGetBatteryHealth(1), 5) << "reading needs no lock";
    std::int64_t waited = 0;
    for (const CallRecord& record : RecordsOf(Operation::Sleep)) {
        const auto& field = *record.Input("milliseconds");
        waited += std::get<observer::Number>(field.held).value + 16; // and a tick of the clock
    }
    EXPECT_THAT(waited, AllOf(Gt(300), Le(1000)));
    EXPECT_EQ(FileCount(), 1);
}

/// The lock is granted in the end, and released even when the write fails.
TEST_F(FirmwareFeaturesTest, ALockThatIsFreedInTimeIsTaken) {
    WMISetAppPath(AppPath, 1);
    Put(HealthFile, "5\n");
    RunFailing(Operation::LockFileEx, 1, Failure::Refused, [] { EXPECT_EQ(WMISetBatteryHealth(80, 1), 1); });
    EXPECT_THAT(CallsOf(Operation::Sleep), SizeIs(1));
    EXPECT_THAT(CallsOf(Operation::UnlockFileEx), SizeIs(1));
    EXPECT_EQ(TextOf(HealthFile), "80\n");
    RunFailing(Operation::WriteFile, 1, Failure::Refused, [] { EXPECT_EQ(WMISetBatteryHealth(70, 1), 1); });
    EXPECT_THAT(CallsOf(Operation::UnlockFileEx), SizeIs(1));
}

TEST_F(FirmwareFeaturesTest, ALinkInPlaceOfTheFileIsNeitherWrittenNorRead) {
    WMISetAppPath(AppPath, 1);
    const auto health = *TheMachine()->storage.files->HostPath(HealthFile);
    const auto victim = health.parent_path() / "VICTIM";
    for (const bool exists : {true, false}) {
        std::filesystem::remove(health);
        std::filesystem::remove(victim);
        if (exists) {
            std::ofstream(victim) << "5\n";
        }
        std::filesystem::create_symlink(victim, health);
        EXPECT_EQ(WMISetBatteryHealth(80, 1), 1);
        EXPECT_THAT(DebugLines().back(), StartsWith("[WMISetBatteryHealth] set 80 to "));
        EXPECT_EQ(WMIGetBatteryHealth(1), 100);
        EXPECT_TRUE(std::filesystem::is_symlink(health));
        EXPECT_EQ(std::filesystem::exists(victim), exists);
        EXPECT_EQ(TextOf(u"C:\\ProgramData\\Vesk\\VeskTessaly\\VICTIM"), exists ? "5\n" : "none");
    }
}

/// Breaks one call after the other of a setting, in every way that call can fail.
TEST_F(FirmwareFeaturesTest, WhateverFailsTheFileHoldsOneOfTheTwoNumbers) {
    WMISetAppPath(AppPath, 1);
    machine::Traces().Detach();
    ForgetCalls();
    WMISetBatteryHealth(1234567890, 1);
    const std::vector<CallRecord> history = Records();
    for (const auto kind : {Failure::Refused, Failure::ShortAnswer, Failure::Nothing}) {
        for (const bool andLater : {false, true}) {
            for (std::uint64_t nth = 1; nth <= history.size(); ++nth) {
                Put(HealthFile, "5\n");
                FailCalls({.nth = nth, .andLater = andLater, .kind = kind});
                const std::int32_t result = WMISetBatteryHealth(1234567890, 1);
                observer::Restart();
                const std::string text = TextOf(HealthFile);
                // A disk that takes half of each write: both numbers are lost, and no third one is there.
                const bool lost = kind == Failure::ShortAnswer && andLater && text.empty();
                ASSERT_TRUE(lost || text.starts_with("5\n") || text.starts_with("1234567890\n"))
                    << "call " << nth << ": " << text;
                if (history[nth - 1].operation == Operation::WriteFile && kind == Failure::Refused) {
                    ASSERT_EQ(result, 1) << "the firmware took it";
                    ASSERT_EQ(text, "5\n");
                }
            }
        }
    }
    EXPECT_EQ(WMISetBatteryHealth(1234567890, 1), 1);
    EXPECT_EQ(TextOf(HealthFile), "1234567890\n");
    EXPECT_EQ(FileCount(), 1) << "no second file";
}

TEST_F(FirmwareFeaturesTest, AReadThatFailsReturnsWhatItHasRead) {
    WMISetAppPath(AppPath, 1);
    Put(HealthFile, "  42");
    const auto healthWhen = [this](std::size_t nth, Failure kind) {
        std::int32_t health = 0;
        RunFailing(Operation::ReadFile, nth, kind, [&] { health = WMIGetBatteryHealth(1); });
        return health;
    };
    EXPECT_EQ(healthWhen(1, Failure::Refused), 100);
    EXPECT_EQ(healthWhen(1, Failure::Nothing), 100);
    EXPECT_EQ(healthWhen(1, Failure::ShortAnswer), 42) << "the rest comes with the next read";
    EXPECT_EQ(healthWhen(2, Failure::Refused), 42);
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
    using namespace std::string_literals;
    for (const std::string& text :
         {""s, " \t\r\n\v\f"s, "80\r\n"s, "  +7x"s, "-12 13"s, "-"s, "+-3"s, "- 3"s, "0x1F"s, "2147483647"s,
          "2147483648"s, "-2147483649"s, "\0 5"s, "5\0 6"s, "\xEF\xBB\xBF 80"s, "12,5"s,
          std::string(5000, ' ') + "31", std::string(5000, '0') + "31", std::string(5000, '9')}) {
        Put(HealthFile, text);
        EXPECT_EQ(WMIGetBatteryHealth(1), Extracted(text, 100)) << text;
    }
}

} // namespace
