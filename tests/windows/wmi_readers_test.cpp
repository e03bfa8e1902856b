// The WMI road of the real DLL, against a service that a test dictates.
#include "import_patch.h"
#include "library.h"
#include "log_capture.h"
#include "scripted_wmi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace {

using test::ScriptedRow;
using test::ScriptedValue;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

constexpr auto AccessDenied = static_cast<HRESULT>(0x80041003);

const wchar_t* const BiosQuery = L"select * from Win32_Bios";
const wchar_t* const DisksQuery = L"select * from MSFT_PhysicalDisk";
const wchar_t* const BrightnessQuery = L"select * from WmiMonitorBrightness";
const wchar_t* const ChassisQuery = L"select * from Win32_SystemEnclosure";
const wchar_t* const SmartQuery = L"Select * from MSStorageDriver_FailurePredictData";

class WmiReadersTest : public ::testing::Test {
protected:
    WmiReadersTest() : m_patch(m_library.Module()), m_logs(m_patch) {}

    ~WmiReadersTest() override { EXPECT_EQ(m_wmi.Script().alive, 0); }

    using TextExport = void(VeskChar16*, std::uint8_t);

    std::wstring Text(const char* name, std::uint8_t initCom = 1) {
        std::vector<wchar_t> out(65536, L'?');
        m_library.Export<TextExport>(name)(out.data(), initCom);
        return out.data();
    }

    std::int32_t Number(const char* name, std::uint8_t initCom = 1) {
        return m_library.Export<std::int32_t(std::uint8_t)>(name)(initCom);
    }

    void SetRows(const wchar_t* query, std::vector<ScriptedRow> rows) {
        m_wmi.Script().rows[query] = std::move(rows);
    }

    test::Library m_library;
    test::ImportPatch m_patch;
    test::LogCapture m_logs;
    test::ScriptedWmi m_wmi;
};

TEST_F(WmiReadersTest, TheStepsCarryTheirArgumentsAndEndInTheOrderOfRelease) {
    SetRows(BiosQuery, {{{L"Name", ScriptedValue::Text(L"VK14KL.308")}}});
    EXPECT_EQ(Text("WMIGetBiosVersion"), L"VK14KL.308");
    EXPECT_THAT(m_wmi.Script().calls,
                ElementsAre(L"CreateInstance", L"ConnectServer ROOT\\CIMV2", L"SetBlanket 10 0 3 3 0",
                            L"ExecQuery WQL 48 select * from Win32_Bios", L"Next -1 1", L"Get Name",
                            L"Release IWbemClassObject", L"Next -1 1", L"Release IWbemServices",
                            L"Release IWbemLocator", L"Release IEnumWbemClassObject"));
    EXPECT_THAT(m_logs.Take(), ElementsAre(L"debug WMIGetBiosVersion Start",
                                           L"debug [ReadWMIPropStr] Step7 Do CoUninitialize()",
                                           L"debug WMIGetBiosVersion END"));
}

} // namespace
