// The WMI road of the real DLL, against a service that a test dictates.
#include "import_patch.h"
#include "library.h"
#include "log_capture.h"
#include "scripted_wmi.h"

#include "platform/wmi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <wbemidl.h>

#include <string>
#include <thread>
#include <vector>

namespace {

using test::ScriptedRow;
using test::ScriptedValue;
using ::testing::ElementsAre;

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

TEST_F(WmiReadersTest, AThreadInTheOtherApartmentIsRefusedOrServedInItsOwn) {
    std::thread([&] {
        ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        EXPECT_EQ(Number("WMIGetExternMonitorNum", 1), -1);
        EXPECT_EQ(m_logs.Take().back(),
                  L"debug [ReadWMIEnumNum] Step1 Failed to initialize COM library. Error code = 0x80010106");
        EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_FALSE);
        ::CoUninitialize();
        {
            test::ScriptedWmi here(COINIT_APARTMENTTHREADED);
            here.Script().rows[BiosQuery] = {{{L"SerialNumber", ScriptedValue::Text(L"42")}}};
            EXPECT_EQ(Text("WMIGetSN", 0), L"42");
            EXPECT_EQ(here.Script().alive, 0);
        }
        ::CoUninitialize();
    }).join();
}

TEST_F(WmiReadersTest, NumbersOfEveryWidthGiveTheirValue) {
    const auto brightness = [&](const ScriptedValue& value) {
        SetRows(BrightnessQuery, {{{L"CurrentBrightness", value}}});
        return Number("WMIGetMonitorBrightness");
    };
    EXPECT_EQ(brightness(ScriptedValue::Number(VT_UI1, 200)), 200);
    EXPECT_EQ(brightness(ScriptedValue::Number(VT_I1, -3)), -3);
    EXPECT_EQ(brightness(ScriptedValue::Number(VT_I2, -300)), -300);
    EXPECT_EQ(brightness(ScriptedValue::Number(VT_UI2, 65535)), 65535);
    EXPECT_EQ(brightness(ScriptedValue::Number(VT_I4, 70)), 70);
    EXPECT_EQ(brightness(ScriptedValue::Number(VT_UI4, 0x80000000)), INT32_MIN);
    EXPECT_EQ(brightness(ScriptedValue::Number(VT_BOOL, VARIANT_TRUE)), -1);
    EXPECT_EQ(brightness(ScriptedValue::Number(VT_BOOL, VARIANT_FALSE)), 0);
    for (const ScriptedValue& none :
         {ScriptedValue(), ScriptedValue::Text(L"70"), ScriptedValue::Real(70), ScriptedValue::Bytes({70}),
          ScriptedValue::Number(VT_I8, 70), ScriptedValue::NullText()}) {
        EXPECT_EQ(brightness(none), -1);
    }
}

TEST_F(WmiReadersTest, ArraysAreReadFromTheirLowerBoundWhateverTheyHold) {
    const auto chassis = [&](const ScriptedValue& value) {
        SetRows(ChassisQuery, {{{L"ChassisTypes", value}}});
        return Text("WMIGetSystemChassisTypes");
    };
    EXPECT_EQ(chassis(ScriptedValue::Numbers(VT_I4, {10, 3}, 5)), L"Notebook");
    EXPECT_EQ(chassis(ScriptedValue::Numbers(VT_I2, {13}, -2)), L"All in One");
    EXPECT_EQ(chassis(ScriptedValue::Numbers(VT_UI1, {3})), L"Desktop");
    for (const ScriptedValue& none : {ScriptedValue::Numbers(VT_I4, {}), ScriptedValue::Square(),
                                      ScriptedValue::NullArray(VT_I4), ScriptedValue::Texts({L"3"}),
                                      ScriptedValue::Number(VT_I4, 3), ScriptedValue::Numbers(VT_I8, {3})}) {
        EXPECT_EQ(chassis(none), L"unknown");
    }
    SetRows(L"select * from win32_ComputerSystem",
            {{{L"OEMStringArray", ScriptedValue::Texts({L"1", L"2", L"3", L"4", L"fifth"}, 3)}}});
    EXPECT_EQ(Text("WMIGet90Number"), L"fifth");
    SetRows(L"SELECT * FROM WMIMonitorID",
            {{{L"UserFriendlyName", ScriptedValue::Numbers(VT_I4, {'H', 'o', 'l', 0, 'x'}, 1)}},
             {{L"UserFriendlyName", ScriptedValue::Numbers(VT_UI2, {0x20AC})}}});
    EXPECT_EQ(Text("WMIGetLCDModel"), L"Hol;\u20AC");
}

TEST_F(WmiReadersTest, TextsEndAtAZeroAndMissingOnesAreEmpty) {
    SetRows(BiosQuery, {{{L"SerialNumber", ScriptedValue::Text(std::wstring(L"ab\0cd", 5))}},
                        {{L"SerialNumber", ScriptedValue::NullText()}},
                        {{L"Other", ScriptedValue::Text(L"x")}},
                        {{L"SerialNumber", ScriptedValue::Number(VT_I4, 7)}},
                        {{L"SerialNumber", ScriptedValue::Number(VT_UI8, -1)}},
                        {{L"SerialNumber", ScriptedValue::Text(std::wstring(30000, L'y'))}}});
    m_wmi.Script().nextAtEnd = AccessDenied;
    EXPECT_EQ(Text("WMIGetSN"), L"ab;;;;18446744073709551615;" + std::wstring(30000, L'y'));
    SetRows(DisksQuery, {{{L"Model", ScriptedValue::Text(L"m")},
                          {L"Size", ScriptedValue::Text(L"1024209543168")},
                          {L"MediaType", ScriptedValue::Number(VT_UI2, 4)}}});
    EXPECT_EQ(Text("WMIGetHDDInfo"), L"m;1024209543168;4");
    m_wmi.Script().get[L"Size"] = E_OUTOFMEMORY;
    EXPECT_EQ(Text("WMIGetHDDInfo"), L"m;;4");
}

TEST_F(WmiReadersTest, SmartBlocksOfAnyLengthBoundAndType) {
    const auto list = [&](const ScriptedValue& block) {
        SetRows(SmartQuery, {{{L"InstanceName", ScriptedValue::Text(std::wstring(200, L'n'))},
                              {L"VendorSpecific", block}}});
        return Text("WMIGetHDDTemp");
    };
    std::vector<std::uint8_t> bytes(362);
    EXPECT_EQ(list(ScriptedValue::Bytes({})), L"");
    EXPECT_EQ(list(ScriptedValue::Numbers(VT_I4, {0, 0, 194})), L"");
    EXPECT_EQ(list(ScriptedValue::Square()), L"");
    bytes[2] = 194;
    bytes[7] = 38;
    bytes[350] = 194;
    bytes[355] = 99;
    EXPECT_EQ(list(ScriptedValue::Bytes(bytes)), L"38;99");
    bytes.resize(361);
    EXPECT_EQ(list(ScriptedValue::Bytes(bytes, 100)), L"38;99");
    bytes.resize(4096);
    EXPECT_EQ(list(ScriptedValue::Bytes(bytes, -7)), L"38;99");
    bytes.resize(5);
    EXPECT_EQ(list(ScriptedValue::Bytes(bytes)), L"0");
}

/// What the real service says, by the shortest road: one property of the first row.
std::wstring AskDirectly(const wchar_t* query, const wchar_t* property) {
    platform::OwnedLocator locator;
    platform::OwnedServices services;
    platform::OwnedEnumerator rows;
    platform::OwnedObject row;
    std::uint32_t returned = 0;
    platform::WmiValue value;
    auto* made = static_cast<IWbemLocator*>(nullptr);
    if (FAILED(::CoCreateInstance(__uuidof(WbemLocator), nullptr, CLSCTX_INPROC_SERVER,
                                  __uuidof(IWbemLocator), reinterpret_cast<void**>(&made)))) {
        return L"no locator";
    }
    locator.Reset(platform::WbemLocator{reinterpret_cast<std::uintptr_t>(made)});
    if (platform::ConnectServer(locator.Get(), u"ROOT\\CIMV2", services.Receive()) != S_OK ||
        platform::ExecQuery(services.Get(), u"WQL", reinterpret_cast<const char16_t*>(query), 0,
                            rows.Receive()) != S_OK) {
        return L"no answer";
    }
    platform::Next(rows.Get(), platform::wbem::Infinite, row.Receive(), returned);
    if (returned == 0 ||
        platform::Get(row.Get(), reinterpret_cast<const char16_t*>(property), value) != S_OK) {
        return L"no row";
    }
    const auto* text = std::get_if<std::u16string>(&value);
    return text == nullptr ? L"no text" : std::wstring(text->begin(), text->end());
}

TEST(RealWmiTest, TheInventoryIsWhatTheServiceOfThisWindowsSays) {
    const test::Library library;
    std::vector<wchar_t> out(65536);
    ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    const auto text = [&](const char* name, std::uint8_t initCom) {
        library.Export<void(VeskChar16*, std::uint8_t)>(name)(out.data(), initCom);
        const std::wstring whole = out.data();
        return whole.substr(0, whole.find(L';'));
    };

    const struct {
        const char* name;
        const wchar_t* query;
        const wchar_t* property;
    } rows[] = {{"WMIGetCPUInfo", L"select * from Win32_Processor", L"Name"},
                {"WMIGetBiosVersion", L"select * from Win32_Bios", L"Name"},
                {"WMIGetBiosManufacture", L"select * from Win32_Baseboard", L"Manufacturer"},
                {"WMIGetModelName", L"select * from Win32_Baseboard", L"Product"},
                {"WMIGetBoardUUID", L"select * from Win32_ComputerSystemProduct", L"UUID"},
                {"WMIGetProductName", L"select * from win32_ComputerSystem", L"Model"},
                {"WMIGetMemSize", L"select * from Win32_PhysicalMemory", L"Capacity"}};

    for (const auto& row : rows) {
        const std::wstring expected = AskDirectly(row.query, row.property);
        EXPECT_EQ(text(row.name, 0), expected) << row.name;
        EXPECT_EQ(text(row.name, 1), expected) << row.name;
        EXPECT_FALSE(expected.empty()) << row.name;
        EXPECT_NE(expected.substr(0, 3), L"no ") << row.name;
    }
    const std::wstring os = text("WMIGetOSInfo", 1);
    EXPECT_TRUE(os.starts_with(AskDirectly(L"select * from Win32_OperatingSystem", L"Caption") + L' '))
        << os.size();
    EXPECT_TRUE(os.ends_with(L" 10.0.18362") || os.find(L" 10.0.") != std::wstring::npos);
    ::CoUninitialize();
}

} // namespace
