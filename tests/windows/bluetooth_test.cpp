// What the Bluetooth API is given.
#include "import_patch.h"

#include "platform/bluetooth.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <bluetoothapis.h>

#include <cstring>
#include <utility>

namespace {

using platform::BluetoothDeviceSearch;

BLUETOOTH_DEVICE_SEARCH_PARAMS Asked;

HBLUETOOTH_DEVICE_FIND WINAPI FindNone(const BLUETOOTH_DEVICE_SEARCH_PARAMS* parameters,
                                       BLUETOOTH_DEVICE_INFO* info) {
    Asked = *parameters;
    EXPECT_EQ(info->dwSize, sizeof *info);
    ::SetLastError(ERROR_NO_MORE_ITEMS);
    return nullptr;
}

/// An inquiry takes seconds and disturbs the radio: it is issued only if it is asked for.
TEST(BluetoothTest, ASearchIsAskedForWithItsFlagsAndNoOther) {
    const std::pair<bool BluetoothDeviceSearch::*, WINBOOL BLUETOOTH_DEVICE_SEARCH_PARAMS::*> flags[] = {
        {&BluetoothDeviceSearch::returnAuthenticated, &BLUETOOTH_DEVICE_SEARCH_PARAMS::fReturnAuthenticated},
        {&BluetoothDeviceSearch::returnRemembered, &BLUETOOTH_DEVICE_SEARCH_PARAMS::fReturnRemembered},
        {&BluetoothDeviceSearch::returnUnknown, &BLUETOOTH_DEVICE_SEARCH_PARAMS::fReturnUnknown},
        {&BluetoothDeviceSearch::returnConnected, &BLUETOOTH_DEVICE_SEARCH_PARAMS::fReturnConnected},
        {&BluetoothDeviceSearch::issueInquiry, &BLUETOOTH_DEVICE_SEARCH_PARAMS::fIssueInquiry}};
    test::ImportPatch patch(::GetModuleHandleW(nullptr));
    patch.PretendLibrary(L"bthprops.cpl");
    patch.ReplaceRoutine("BluetoothFindFirstDevice", &FindNone);
    for (const auto& [flag, native] : flags) {
        BluetoothDeviceSearch search{};
        search.*flag = true;
        search.timeoutMultiplier = 3;
        search.radio = platform::Handle{0x1234};
        BLUETOOTH_DEVICE_SEARCH_PARAMS expected{};
        expected.dwSize = 40;
        expected.*native = TRUE;
        expected.cTimeoutMultiplier = 3;
        expected.hRadio = reinterpret_cast<HANDLE>(std::uintptr_t{0x1234});
        Asked = {};
        platform::BluetoothDevice device;
        EXPECT_EQ(platform::BluetoothFindFirstDevice(search, device), platform::BluetoothDeviceFind::None);
        EXPECT_EQ(std::memcmp(&Asked, &expected, sizeof expected), 0);
        EXPECT_EQ(platform::GetLastError(), platform::error::NoMoreItems);
    }
}

} // namespace
