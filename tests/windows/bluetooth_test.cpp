// Bluetooth through the real DLL: against Wine's own library, which has none, and against routines of the test.
#include "import_patch.h"
#include "library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <bluetoothapis.h>

#include <string>
#include <vector>

namespace {

using ::testing::ElementsAre;

constexpr int Failed = 0x7FFFFFFF;

/// What the replaced routines answer, and what was asked of them.
struct Stack {
    std::vector<std::vector<ULONG>> radios; // the classes of each one's devices
    std::string failing;                    // the routine that ends with error 31
    std::size_t radio = 0;
    std::size_t device = 0;
    std::vector<std::string> calls;
    int open = 0; // searches and radios
};

Stack Bluetooth;

bool Fails(const char* routine) {
    Bluetooth.calls.emplace_back(routine);
    ::SetLastError(Bluetooth.failing == routine ? ERROR_GEN_FAILURE : ERROR_NO_MORE_ITEMS);
    return Bluetooth.failing == routine;
}

/// The next radio, as a handle that CloseHandle takes.
BOOL GiveRadio(HANDLE* radio) {
    if (Bluetooth.radio == Bluetooth.radios.size()) {
        return FALSE;
    }
    *radio = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    ++Bluetooth.radio;
    ::SetLastError(ERROR_NO_MORE_ITEMS);
    return TRUE;
}

BOOL GiveDevice(BLUETOOTH_DEVICE_INFO* info) {
    EXPECT_EQ(info->dwSize, 560u);
    const auto& devices = Bluetooth.radios[Bluetooth.radio - 1];
    if (Bluetooth.device == devices.size()) {
        return FALSE;
    }
    info->ulClassofDevice = devices[Bluetooth.device++];
    return TRUE;
}

HBLUETOOTH_RADIO_FIND WINAPI FindFirstRadio(BLUETOOTH_FIND_RADIO_PARAMS* parameters, HANDLE* radio) {
    EXPECT_EQ(parameters->dwSize, 4u);
    Bluetooth.radio = 0;
    if (Fails("first radio") || !GiveRadio(radio)) {
        return nullptr;
    }
    ++Bluetooth.open;
    return reinterpret_cast<HBLUETOOTH_RADIO_FIND>(0x88);
}

BOOL WINAPI FindNextRadio(HBLUETOOTH_RADIO_FIND, HANDLE* radio) {
    return !Fails("next radio") && GiveRadio(radio);
}

BOOL WINAPI RadioClose(HBLUETOOTH_RADIO_FIND search) {
    Bluetooth.calls.emplace_back("close radios");
    EXPECT_EQ(search, reinterpret_cast<HBLUETOOTH_RADIO_FIND>(0x88));
    --Bluetooth.open;
    return TRUE;
}

DWORD WINAPI GetRadioInfo(HANDLE, BLUETOOTH_RADIO_INFO* info) {
    EXPECT_EQ(info->dwSize, 520u);
    return Fails("radio info") ? ERROR_GEN_FAILURE : ERROR_SUCCESS;
}

HBLUETOOTH_DEVICE_FIND WINAPI FindFirstDevice(BLUETOOTH_DEVICE_SEARCH_PARAMS* parameters,
                                              BLUETOOTH_DEVICE_INFO* info) {
    EXPECT_EQ(parameters->dwSize, 40u);
    EXPECT_TRUE(parameters->fReturnConnected == TRUE && parameters->fReturnAuthenticated == FALSE &&
                parameters->fReturnRemembered == FALSE && parameters->fReturnUnknown == FALSE &&
                parameters->fIssueInquiry == FALSE && parameters->cTimeoutMultiplier == 0);
    EXPECT_NE(parameters->hRadio, nullptr);
    Bluetooth.device = 0;
    if (Fails("first device") || !GiveDevice(info)) {
        return nullptr;
    }
    ++Bluetooth.open;
    return reinterpret_cast<HBLUETOOTH_DEVICE_FIND>(0x99);
}

BOOL WINAPI FindNextDevice(HBLUETOOTH_DEVICE_FIND, BLUETOOTH_DEVICE_INFO* info) {
    return !Fails("next device") && GiveDevice(info);
}

BOOL WINAPI DeviceClose(HBLUETOOTH_DEVICE_FIND) {
    Bluetooth.calls.emplace_back("close devices");
    --Bluetooth.open;
    return TRUE;
}

DWORD OpenHandles() {
    DWORD count = 0;
    ::GetProcessHandleCount(::GetCurrentProcess(), &count);
    return count;
}

class BluetoothTest : public ::testing::Test {
protected:
    BluetoothTest() { Bluetooth = {}; }

    ~BluetoothTest() override { EXPECT_EQ(Bluetooth.open, 0); }

    /// Puts the test's routines in the place of the Bluetooth library's.
    static void Substitute(test::ImportPatch& patch) {
        patch.ReplaceRoutine("BluetoothFindFirstRadio", &FindFirstRadio);
        patch.ReplaceRoutine("BluetoothFindNextRadio", &FindNextRadio);
        patch.ReplaceRoutine("BluetoothFindRadioClose", &RadioClose);
        patch.ReplaceRoutine("BluetoothGetRadioInfo", &GetRadioInfo);
        patch.ReplaceRoutine("BluetoothFindFirstDevice", &FindFirstDevice);
        patch.ReplaceRoutine("BluetoothFindNextDevice", &FindNextDevice);
        patch.ReplaceRoutine("BluetoothFindDeviceClose", &DeviceClose);
    }

    test::Library m_library;
    test::ImportPatch m_patch{m_library.Module()};
};

TEST_F(BluetoothTest, ReadsTheConnectedDevicesOfAllRadios) {
    Substitute(m_patch);
    Bluetooth.radios = {{0x100}, {0x240404, 0x5A020C}};
    EXPECT_EQ(VESK_CALL(m_library, RF_BTIsUsed)(), 1);
    EXPECT_EQ(VESK_CALL(m_library, RF_BTConnectedNum)(), 2);
    EXPECT_EQ(VESK_CALL(m_library, RF_BTConnectedType)(), "Audio/Video;Phone;");
    EXPECT_THAT(Bluetooth.calls,
                ElementsAre("first radio", "radio info", "first device", "next device", "next radio",
                            "radio info", "first device", "next device", "next device", "next radio",
                            "close radios", "close devices", "close devices"));
}

TEST_F(BluetoothTest, EveryRoutineThatFailsClosesWhatIsOpen) {
    Substitute(m_patch);
    Bluetooth.radios = {{0x100}, {0x200}};
    Bluetooth.failing = "first radio";
    VESK_CALL(m_library, RF_BTIsUsed)(); // loads what stays loaded
    const DWORD before = OpenHandles();
    for (const char* routine : {"first radio", "radio info", "first device", "next device"}) {
        Bluetooth.failing = routine;
        EXPECT_EQ(VESK_CALL(m_library, RF_BTIsUsed)(), Failed) << routine;
        EXPECT_EQ(VESK_CALL(m_library, RF_BTConnectedType)(), "error_string") << routine;
        EXPECT_EQ(Bluetooth.open, 0) << routine;
        EXPECT_EQ(OpenHandles(), before) << routine;
    }
    Bluetooth.failing = "next radio"; // the search simply ends
    EXPECT_EQ(VESK_CALL(m_library, RF_BTConnectedType)(), "Computer;");
}

TEST_F(BluetoothTest, WinesOwnLibraryHasNoBluetoothAndSaysSo) {
    EXPECT_EQ(VESK_CALL(m_library, RF_BTIsUsed)(), Failed);
    EXPECT_EQ(VESK_CALL(m_library, RF_BTConnectedNum)(), Failed);
    EXPECT_EQ(VESK_CALL(m_library, RF_BTConnectedType)(), "error_string");
}

TEST_F(BluetoothTest, AWindowsWithoutTheLibraryIsAFailedRead) {
    m_patch.HideLibrary(L"bthprops.cpl");
    EXPECT_EQ(VESK_CALL(m_library, RF_BTIsUsed)(), Failed);
}

} // namespace
