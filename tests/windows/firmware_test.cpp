// The firmware's event store, P-sensor and variables through the real DLL.
#include "driver_stand.h"
#include "import_patch.h"
#include "library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <string>
#include <vector>

namespace {

using test::DriverRequest;
using test::FromHex;
using test::device::Acpi;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

constexpr std::uint32_t CallMethod = 0x22240C;
const std::string Control = "444556530800000059000600";
const DriverRequest Opened{test::Opening, "03000000"};
const DriverRequest Closed{test::Closing, ""};

class EepromTest : public ::testing::Test {
protected:
    void Answer(const std::string& request, const test::Bytes& reply, std::uint32_t uses = 0,
                std::uint32_t status = test::nt_status::Success) {
        m_stand.Answer(Acpi, {.code = CallMethod,
                              .prefix = FromHex(request),
                              .output = reply,
                              .status = status,
                              .uses = uses});
    }

    std::wstring Document() {
        std::vector<wchar_t> out(100'000, L'#');
        VESK_CALL(m_library, GetEEPROM_Data)(out.data());
        return out.data();
    }

    std::wstring Sensor() {
        std::array<wchar_t, 26> out{};
        VESK_CALL(m_library, GetSENSOR_WMI_Data)(out.data());
        return out.data();
    }

    test::DriverStand m_stand;
    test::Library m_library;
};

TEST_F(EepromTest, ReadsTheStoreRequestByRequest) {
    m_stand.AddDevice(Acpi);
    Answer(Control + "e0000000", test::Words({0x12}));
    Answer(Control + "e3ff0000", test::Words({2}));
    Answer(Control + "e3000000", test::Words({5}));
    Answer(Control + "e3010000", test::Words({0xABC}));
    Answer(Control + "e5000000", FromHex("ffff"));
    Answer(Control + "e5000000", FromHex("5aa5 00000000 01 20 00 59"), 1);
    Answer(Control + "e5000000", FromHex("5aa5 00000000 01 10 00 7f"), 1);
    EXPECT_EQ(Document(),
              LR"({"version":"0x12","register_count":"0x02","register":["0x05","0xabc"],"event":[)"
              LR"("0x5a 0xa5 0x00 0x00 0x00 0x00 0x01 0x10 0x00 0x7f",)"
              LR"("0x5a 0xa5 0x00 0x00 0x00 0x00 0x01 0x20 0x00 0x3b"]})");
    std::vector<DriverRequest> expected;
    for (const char* what :
         {"e0000000", "e3ff0000", "e3000000", "e3010000", "e5000000", "e5000000", "e5000000"}) {
        expected.insert(expected.end(), {Opened, {CallMethod, Control + what, 1024}, Closed});
    }
    EXPECT_THAT(m_stand.Log(Acpi), ElementsAreArray(expected));
}

TEST_F(EepromTest, KeepsToWhatTheDeviceReports) {
    m_stand.AddDevice(Acpi);
    Answer(Control + "e0000000", FromHex("123456"));    // three bytes are no number
    Answer(Control + "e3ff0000", test::Bytes(1024, 0)); // the most there can be
    Answer(Control + "e5000000", {}, 1);                // nothing
    EXPECT_EQ(Document(), LR"({"version":"0x00","register_count":"0x00","register":[""],"event":[]})");
    // A record cut after its header, whose length claims more than there is: the rest reads as 0xff.
    Answer(Control + "e5000000", FromHex("0000"));
    Answer(Control + "e5000000", FromHex("5aa5 00000000 ff 10 00"), 1);
    std::wstring record = L"0x5a 0xa5 0x00 0x00 0x00 0x00 0xff 0x10 0x00";
    for (int byte = 9; byte < 256; ++byte) {
        record += L" 0xff";
    }
    EXPECT_EQ(Document(), LR"({"version":"0x00","register_count":"0x00","register":[""],"event":[")" +
                              record + LR"("]})");
}

TEST_F(EepromTest, AnEndlessLogEndsByTheLimit) {
    m_stand.AddDevice(Acpi);
    test::Bytes record(256, 0);
    record[0] = 0x5A;
    record[1] = 0xA5;
    record[6] = 0xFF;
    Answer(Control + "e5000000", record);
    const std::wstring document = Document();
    EXPECT_EQ(std::ranges::count(document, L'"'), 14 + 2 * 24);
    EXPECT_EQ(m_stand.Requests(Acpi).size(), 2u + 25);
}

TEST_F(EepromTest, AnswersWithoutTheDeviceOrWithOneThatRefuses) {
    const wchar_t* const nothing = LR"({"version":"","register_count":"","register":[""],"event":[]})";
    EXPECT_EQ(Document(), nothing);
    EXPECT_EQ(Sensor(), LR"({"p_sensor":""})");
    m_stand.AddDevice(Acpi);
    EXPECT_EQ(Document(), nothing);
    EXPECT_EQ(Sensor(), LR"({"p_sensor":""})");
    EXPECT_EQ(m_stand.Requests(Acpi).size(), 4u);
    EXPECT_EQ(std::ranges::count(m_stand.Log(Acpi), Closed), 4);
}

TEST_F(EepromTest, ReadsThePSensor) {
    m_stand.AddDevice(Acpi);
    Answer("44535453 04000000 68000600", test::Words({0x10001}));
    EXPECT_EQ(Sensor(), LR"({"p_sensor":"0x10001"})");
    EXPECT_THAT(m_stand.Log(Acpi),
                ElementsAre(Opened, DriverRequest{CallMethod, "445354530400000068000600", 1024}, Closed));
}

// Wine has no firmware variables, so that the two calls are replaced; the privilege is asked for in earnest.
struct FakeFirmware {
    std::wstring read; // name, guid and room of the last read
    std::vector<std::uint8_t> variable;
    std::wstring written;
    DWORD readError = 0;
    DWORD writeError = 0;
};

FakeFirmware Firmware;

DWORD WINAPI ReadVariable(const wchar_t* name, const wchar_t* guid, void* buffer, DWORD size) {
    Firmware.read = std::wstring(name) + L' ' + guid + L' ' + std::to_wstring(size);
    ::SetLastError(Firmware.readError);
    if (Firmware.readError != 0) {
        return 0;
    }
    std::ranges::copy(Firmware.variable, static_cast<std::uint8_t*>(buffer));
    return static_cast<DWORD>(Firmware.variable.size());
}

BOOL WINAPI WriteVariable(const wchar_t* name, const wchar_t* guid, void* value, DWORD size) {
    Firmware.written = std::wstring(name) + L' ' + guid + L' ' + std::to_wstring(size);
    ::SetLastError(Firmware.writeError);
    if (Firmware.writeError != 0) {
        return FALSE;
    }
    const auto* bytes = static_cast<const std::uint8_t*>(value);
    Firmware.variable.assign(bytes, bytes + size);
    return TRUE;
}

class FirmwareVariablesTest : public ::testing::Test {
protected:
    FirmwareVariablesTest() : m_patch(m_library.Module()) { Firmware = {}; }

    void ReplaceCalls() {
        m_patch.Replace("GetFirmwareEnvironmentVariableW", &ReadVariable);
        m_patch.Replace("SetFirmwareEnvironmentVariableW", &WriteVariable);
    }

    test::Library m_library;
    test::ImportPatch m_patch;
};

TEST_F(FirmwareVariablesTest, CarryTheirFieldsInPlace) {
    ReplaceCalls();
    Firmware.variable.resize(60);
    std::iota(Firmware.variable.begin(), Firmware.variable.end(), std::uint8_t{0});
    std::array<std::uint8_t, 20> time{};
    EXPECT_EQ(VESK_CALL(m_library, GPNV_Get_ActivatedTime)(time.data()), 0u);
    EXPECT_EQ(time.front(), 32);
    EXPECT_EQ(time[18], 50);
    EXPECT_EQ(time[19], 0);
    EXPECT_EQ(Firmware.read, L"CNFG {91b89306-5bac-4ae0-aab3-207ec12e989b} 256");
    const std::array<std::uint8_t, 16> uuid{0xFF, 1, 2};
    EXPECT_EQ(VESK_CALL(m_library, GPNV_Set_RandomUUID)(uuid.data()), 0u);
    EXPECT_EQ(Firmware.written, L"CNFG {91b89306-5bac-4ae0-aab3-207ec12e989b} 60");
    EXPECT_EQ(Firmware.variable[0], 0xFF);
    EXPECT_EQ(Firmware.variable[16], 16);

    Firmware.variable.assign(256, 0x77);
    std::array<std::uint8_t, 24> manufactured{};
    EXPECT_EQ(VESK_CALL(m_library, GPNV_Get_ManufacturedTime)(manufactured.data()), 0u);
    EXPECT_EQ(manufactured[22], 0x77);
    EXPECT_EQ(manufactured[23], 0);
    Firmware.writeError = ERROR_WRITE_PROTECT;
    EXPECT_EQ(VESK_CALL(m_library, GPNV_Set_ManufacturedTime)(manufactured.data()), 19u);
}

TEST_F(FirmwareVariablesTest, GiveTheCodeOfAFailedReadWhereTheyMay) {
    std::array<std::uint8_t, 23> bytes{};
    const auto expectFailure = [&](std::uint32_t code) {
        EXPECT_EQ(VESK_CALL(m_library, GPNV_Get_RandomUUID)(bytes.data()), code);
        EXPECT_EQ(VESK_CALL(m_library, GPNV_Get_ManufacturedTime)(bytes.data()), code);
        EXPECT_EQ(VESK_CALL(m_library, GPNV_Get_ActivatedTime)(bytes.data()), 0u);
        EXPECT_EQ(VESK_CALL(m_library, GPNV_Set_ActivatedTime)(bytes.data()), 0u);
        EXPECT_THAT(bytes, Each(0));
        EXPECT_EQ(Firmware.written, L"");
    };
    expectFailure(ERROR_INVALID_FUNCTION); // Wine's own answer
    ReplaceCalls();
    Firmware.readError = ERROR_PRIVILEGE_NOT_HELD;
    expectFailure(ERROR_PRIVILEGE_NOT_HELD);
    Firmware.readError = 0;
    Firmware.variable.assign(15, 1);
    expectFailure(ERROR_INVALID_DATA);
}

bool PrivilegeEnabled = false;

BOOL WINAPI NoteThePrivilege(HANDLE token, BOOL disableAll, TOKEN_PRIVILEGES* wanted, DWORD size,
                             TOKEN_PRIVILEGES* before, DWORD* needed) {
    LUID known{};
    ::LookupPrivilegeValueW(nullptr, L"SeSystemEnvironmentPrivilege", &known);
    PrivilegeEnabled = wanted->PrivilegeCount == 1 && wanted->Privileges[0].Luid.LowPart == known.LowPart &&
                       wanted->Privileges[0].Attributes == SE_PRIVILEGE_ENABLED && disableAll == FALSE;
    return ::AdjustTokenPrivileges(token, disableAll, wanted, size, before, needed);
}

TEST_F(FirmwareVariablesTest, AskForTheOnePrivilege) {
    PrivilegeEnabled = false;
    m_patch.Replace("AdjustTokenPrivileges", &NoteThePrivilege);
    std::array<std::uint8_t, 16> uuid{};
    VESK_CALL(m_library, GPNV_Get_RandomUUID)(uuid.data());
    EXPECT_TRUE(PrivilegeEnabled);
}

} // namespace
