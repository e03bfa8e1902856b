// Battery Health and Quiet Fan through the real DLL: a firmware class that the test dictates, the real registry,
// and settings files in a real directory.
#include "import_patch.h"
#include "library.h"
#include "log_capture.h"
#include "registry_stand.h"
#include "scripted_wmi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using test::ScriptedValue;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::SizeIs;

const std::wstring FirmwareClass = L"VeskZrnWmi_WMNB";
const std::wstring FirmwareQuery = L"Select * from VeskZrnWmi_WMNB";
const std::wstring UserQuery = L"select * from win32_ComputerSystem";
const std::wstring InstancePath = L"\\\\.\\ROOT\\WMI:VeskZrnWmi_WMNB.InstanceName=\"X\"";

class FirmwareFeaturesTest : public ::testing::Test {
protected:
    FirmwareFeaturesTest()
        : m_patch(m_library.Module()),
          m_logs(m_patch),
          m_directory(fs::temp_directory_path() / L"vesk-settings") {
        fs::remove_all(m_directory);
        fs::create_directories(m_directory);
        test::WmiScript& script = m_wmi.Script();
        script.rows[FirmwareQuery] = {{{L"__PATH", ScriptedValue::Text(InstancePath)}}};
        script.methods[FirmwareClass] = {{L"DSTS", {L"Device_ID"}},
                                         {L"DEVS", {L"Device_ID", L"Control_status"}}};
        script.execute = [this](const test::ScriptedCall& call, test::ScriptedRow& out) {
            m_methods.push_back(
                call.method + L' ' + call.in.at(L"Device_ID").Described() +
                (call.method == L"DEVS" ? L' ' + call.in.at(L"Control_status").Described() : L""));
            EXPECT_EQ(call.path, InstancePath);
            out[call.method == L"DSTS" ? L"device_status" : L"result"] =
                ScriptedValue::Number(VT_I4, call.method == L"DSTS" ? m_status : m_result);
            return S_OK;
        };
        SetUser(L"KELVANE\\mira");
    }

    ~FirmwareFeaturesTest() override {
        EXPECT_EQ(m_wmi.Script().alive, 0);
        fs::remove_all(m_directory);
    }

    void SetUser(const std::wstring& name) {
        m_wmi.Script().rows[UserQuery] = {{{L"UserName", ScriptedValue::Text(name)}}};
    }

    std::int32_t SetPath(const std::wstring& path) {
        return VESK_CALL(m_library, WMISetAppPath)(path.c_str(), 1);
    }

    std::int32_t SetHealth(std::int32_t value) { return VESK_CALL(m_library, WMISetBatteryHealth)(value, 1); }

    std::int32_t GetHealth() { return VESK_CALL(m_library, WMIGetBatteryHealth)(1); }

    [[nodiscard]] fs::path HealthFile() const { return m_directory / L"BatteryHealthSetting.txt"; }

    static std::string TextOf(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    static void Put(const fs::path& path, const std::string& text) {
        std::ofstream(path, std::ios::binary) << text;
    }

    std::vector<std::wstring> FileNames() {
        std::vector<std::wstring> names;
        for (const auto& entry : fs::directory_iterator(m_directory)) {
            names.push_back(entry.path().filename().wstring());
        }
        return names;
    }

    test::RegistryStand m_registry;
    test::Library m_library;
    test::ImportPatch m_patch;
    test::LogCapture m_logs;
    test::ScriptedWmi m_wmi;
    fs::path m_directory;
    long long m_status = 65536;
    long long m_result = 1;
    std::vector<std::wstring> m_methods;
};

TEST_F(FirmwareFeaturesTest, AMethodCallWalksItsStepsAndGivesEverythingBackInOrder) {
    EXPECT_EQ(VESK_CALL(m_library, WMISetQuietFan)(2, 1), 1);
    std::vector<std::wstring> calls = m_wmi.Script().calls;
    const auto end = std::ranges::find(calls, L"Release IWbemServices");
    ASSERT_NE(end, calls.end());
    calls.erase(end + 1, calls.end());
    std::vector<std::wstring> releases;
    std::vector<std::wstring> puts;
    for (const std::wstring& call : calls) {
        if (call.starts_with(L"Release")) {
            releases.push_back(call);
        } else if (call.starts_with(L"Put")) {
            puts.push_back(call);
        }
    }
    EXPECT_THAT(calls, Contains(L"ConnectServer ROOT\\WMI"));
    EXPECT_THAT(calls, Contains(L"SetBlanket 10 0 3 3 0"));
    EXPECT_THAT(calls, Contains(L"ExecQuery WQL 48 " + FirmwareQuery));
    ASSERT_THAT(puts, SizeIs(2));
    EXPECT_THAT(puts[0], ::testing::HasSubstr(L"Control_status"));
    EXPECT_THAT(puts[1], ::testing::HasSubstr(L"Device_ID"));
    EXPECT_THAT(releases, ElementsAre(L"Release IWbemClassObject", L"Release IWbemClassObject",
                                      L"Release IWbemClassObject", L"Release IWbemClassObject",
                                      L"Release IWbemClassObject", L"Release IEnumWbemClassObject",
                                      L"Release IWbemLocator", L"Release IWbemServices"));
    EXPECT_THAT(m_methods, ElementsAre(L"DEVS 1114137 1"));
}

TEST_F(FirmwareFeaturesTest, SetsRemembersAndReadsBack) {
    EXPECT_EQ(SetPath(m_directory.wstring()), 1);
    EXPECT_EQ(m_registry.Get(L"KELVANE\\mira"), test::TextValue(m_directory.wstring()));
    EXPECT_EQ(GetHealth(), 100);
    EXPECT_EQ(SetHealth(80), 1);
    EXPECT_THAT(m_methods, ElementsAre(L"DSTS 1179735", L"DEVS 1179735 80"));
    EXPECT_EQ(TextOf(HealthFile()), "80\r\n") << "a text file of this platform";
    EXPECT_EQ(GetHealth(), 80);
    EXPECT_EQ(SetHealth(-2147483647 - 1), 1);
    EXPECT_EQ(GetHealth(), -2147483647 - 1);
    EXPECT_EQ(SetHealth(5), 1);
    EXPECT_EQ(TextOf(HealthFile()), "5\r\n");
    EXPECT_EQ(VESK_CALL(m_library, WMISetQuietFan)(3, 1), 1);
    EXPECT_EQ(TextOf(m_directory / L"QuietFanSetting.txt"), "3\r\n");
    EXPECT_EQ(VESK_CALL(m_library, WMIGetQuietFan)(1), 3);
    EXPECT_EQ(VESK_CALL(m_library, WMISetQuietFan)(4, 1), 1);
    EXPECT_EQ(VESK_CALL(m_library, WMIGetQuietFan)(1), 0);
    m_result = 2;
    EXPECT_EQ(SetHealth(90), 0);
    EXPECT_EQ(GetHealth(), 5);
    EXPECT_THAT(FileNames(), SizeIs(2));
}

TEST_F(FirmwareFeaturesTest, SharesTheFileAsFarAsOthersDo) {
    SetPath(m_directory.wstring());
    Put(HealthFile(), "1234567890\r\n");
    const auto held = [this](DWORD shareMode) {
        return ::CreateFileW(HealthFile().c_str(), GENERIC_READ, shareMode, nullptr, OPEN_EXISTING, 0,
                             nullptr);
    };
    HANDLE file = held(FILE_SHARE_READ | FILE_SHARE_WRITE);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_EQ(SetHealth(80), 1);
    EXPECT_EQ(GetHealth(), 80);
    ::CloseHandle(file);
    EXPECT_EQ(TextOf(HealthFile()), "80\r\n");
    EXPECT_THAT(FileNames(), SizeIs(1));

    file = held(FILE_SHARE_READ);
    EXPECT_EQ(SetHealth(70), 1) << "the firmware took it, and nobody may write the file";
    ::CloseHandle(file);
    EXPECT_EQ(TextOf(HealthFile()), "80\r\n");
    EXPECT_THAT(FileNames(), SizeIs(1));

    Put(m_directory / L"BatteryHealthSetting.txt.new", "1");
    EXPECT_EQ(SetHealth(60), 1);
    EXPECT_EQ(TextOf(HealthFile()), "60\r\n");
    EXPECT_THAT(FileNames(), SizeIs(1)) << "what a crash left over is used up";
}

BOOL WINAPI DiskIsFull(HANDLE, const void*, DWORD, DWORD* written, OVERLAPPED*) {
    *written = 0;
    ::SetLastError(ERROR_DISK_FULL);
    return FALSE;
}

TEST_F(FirmwareFeaturesTest, AFullDiskLeavesTheNumberThatStood) {
    SetPath(m_directory.wstring());
    SetHealth(80);
    m_patch.Replace("WriteFile", &DiskIsFull);
    EXPECT_EQ(SetHealth(70), 1);
    EXPECT_EQ(TextOf(HealthFile()), "80\r\n");
    EXPECT_THAT(FileNames(), SizeIs(1));
}

} // namespace
