// Libraries that are looked up at run time: where they are loaded from, and which are released.
#include "import_patch.h"
#include "library.h"

#include "platform/bluetooth.h"
#include "platform/device_nodes.h"
#include "platform/network_adapters.h"
#include "platform/system_information.h"
#include "platform/wlan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <wlanapi.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

std::vector<std::wstring> Loads;
DWORD RestrictedError = ERROR_SUCCESS; // of a load with the restricted search
DWORD PlainError = ERROR_SUCCESS;

/// The test program is used as every library: it has no routines but those that are replaced.
HMODULE Loaded(DWORD error) {
    ::SetLastError(error);
    return error == ERROR_SUCCESS ? ::GetModuleHandleW(nullptr) : nullptr;
}

HMODULE WINAPI LoadRestricted(const wchar_t* path, HANDLE file, DWORD flags) {
    EXPECT_EQ(file, nullptr);
    EXPECT_EQ(flags, DWORD{LOAD_LIBRARY_SEARCH_SYSTEM32});
    Loads.emplace_back(path);
    return Loaded(RestrictedError);
}

HMODULE WINAPI LoadPlain(const wchar_t* path) {
    Loads.push_back(std::wstring(L"plain ") + path);
    return Loaded(PlainError);
}

BOOL WINAPI Free(HMODULE module) {
    EXPECT_EQ(module, ::GetModuleHandleW(nullptr));
    Loads.emplace_back(L"free");
    return TRUE;
}

HRESULT WINAPI LockedDown(DWORD* mode) {
    *mode = 2;
    return S_OK;
}

std::wstring InSystemDirectory(const wchar_t* name) {
    std::array<wchar_t, MAX_PATH> directory{};
    ::GetSystemDirectoryW(directory.data(), MAX_PATH);
    return std::wstring(directory.data()) + L'\\' + name;
}

class SystemLibraryTest : public ::testing::Test {
protected:
    SystemLibraryTest() {
        Loads.clear();
        RestrictedError = ERROR_SUCCESS;
        PlainError = ERROR_SUCCESS;
        m_patch.Replace("LoadLibraryExW", &LoadRestricted);
        m_patch.Replace("LoadLibraryW", &LoadPlain);
    }

    test::ImportPatch m_patch{::GetModuleHandleW(nullptr)};
};

// Files in the program's directory or on the path can come from any user.
TEST(SystemLibrariesOfTheDll, ComeFromTheSystemDirectoryOnly) {
    const test::Library library;
    test::ImportPatch patch(library.Module());
    Loads.clear();
    RestrictedError = ERROR_SUCCESS;
    patch.Replace("LoadLibraryExW", &LoadRestricted);
    patch.Replace("LoadLibraryW", &LoadPlain);
    patch.Replace("FreeLibrary", &Free);
    patch.ReplaceRoutine("WldpQueryWindowsLockdownMode", &LockedDown);
    EXPECT_EQ(VESK_CALL(library, System_Check_S_Mode)(), 1);
    // The second one for the trace provider, with the first debug line.
    EXPECT_THAT(Loads,
                ElementsAre(InSystemDirectory(L"wldp.dll"), InSystemDirectory(L"advapi32.dll"), L"free"));
    Loads.clear();
    EXPECT_EQ(VESK_CALL(library, RF_WiFiIsConnected)(), 0x7FFFFFFF);
    EXPECT_THAT(Loads, ElementsAre(InSystemDirectory(L"wlanapi.dll")));
}

TEST_F(SystemLibraryTest, OnlyASystemWithoutTheRestrictedSearchIsAskedWithoutIt) {
    const std::wstring path = InSystemDirectory(L"some.dll");
    RestrictedError = ERROR_INVALID_PARAMETER;
    EXPECT_NE(platform::LoadLibraryW(u"some.dll"), platform::Module::None);
    EXPECT_THAT(Loads, ElementsAre(path, L"plain " + path));
    PlainError = ERROR_BAD_EXE_FORMAT;
    EXPECT_EQ(platform::LoadLibraryW(u"some.dll"), platform::Module::None);
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_BAD_EXE_FORMAT});
    Loads.clear();
    RestrictedError = ERROR_ACCESS_DENIED;
    EXPECT_EQ(platform::LoadLibraryW(u"some.dll"), platform::Module::None);
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_THAT(Loads, ElementsAre(path));
}

TEST_F(SystemLibraryTest, RoutinesThatTheSystemDoesNotHaveAnswerAsDocumented) {
    std::uint32_t size = 640;
    std::vector<platform::NetworkAdapter> adapters;
    EXPECT_EQ(platform::GetAdaptersInfo(size, adapters), 127u);
    std::uint32_t length = 5;
    EXPECT_NE(platform::CM_Get_Device_ID_List_SizeW(length, platform::FilterPresent), 0u);
    EXPECT_EQ(length, 0u);
    char16_t list[2]{};
    EXPECT_NE(platform::CM_Get_Device_ID_ListW(list, 2, platform::FilterPresent), 0u);
    platform::DeviceNode node{};
    EXPECT_NE(platform::CM_Locate_DevNodeW(node, u"id", platform::LocatePhantom), 0u);
    std::array<std::byte, 8> value{};
    std::uint32_t valueSize = 8;
    EXPECT_NE(platform::CM_Get_DevNode_Registry_PropertyW(node, platform::DeviceDescription, value.data(),
                                                          valueSize),
              0u);
    EXPECT_EQ(valueSize, 0u);
}

/// The library of Bluetooth that is missing, and the error of loading it.
std::wstring MissingLibrary;

HMODULE WINAPI LoadAllButOne(const wchar_t* path, HANDLE, DWORD) {
    Loads.emplace_back(path);
    const bool missing = Loads.back().ends_with(MissingLibrary);
    return Loaded(missing ? RestrictedError : ERROR_SUCCESS);
}

void CallAllOfBluetooth() {
    platform::Handle radio{};
    platform::BluetoothDevice device{};
    platform::BluetoothFindFirstRadio(radio);
    platform::BluetoothFindNextRadio(platform::BluetoothRadioFind{1}, radio);
    platform::BluetoothFindRadioClose(platform::BluetoothRadioFind{1});
    platform::BluetoothGetRadioInfo(radio);
    platform::BluetoothFindFirstDevice({}, device);
    platform::BluetoothFindNextDevice(platform::BluetoothDeviceFind{1}, device);
    platform::BluetoothFindDeviceClose(platform::BluetoothDeviceFind{1});
}

TEST_F(SystemLibraryTest, BluetoothIsInEitherOfTwoLibraries) {
    const std::wstring usual = InSystemDirectory(L"bthprops.cpl");
    const std::wstring other = InSystemDirectory(L"bluetoothapis.dll");
    CallAllOfBluetooth();
    EXPECT_EQ(Loads, std::vector<std::wstring>(7, usual));
    m_patch.Replace("LoadLibraryExW", &LoadAllButOne);
    MissingLibrary = L"bthprops.cpl";
    RestrictedError = ERROR_MOD_NOT_FOUND;
    Loads.clear();
    CallAllOfBluetooth();
    ASSERT_THAT(Loads, SizeIs(14));
    EXPECT_EQ(std::ranges::count(Loads, usual), 7);
    EXPECT_EQ(std::ranges::count(Loads, other), 7);
}

TEST_F(SystemLibraryTest, WithoutBluetoothTheLastErrorIsTheLoaders) {
    platform::Handle radio{};
    const std::pair<DWORD, DWORD> errors[] = {{ERROR_ACCESS_DENIED, ERROR_ACCESS_DENIED},
                                              {ERROR_NO_MORE_ITEMS, ERROR_MOD_NOT_FOUND}};
    for (const auto& [loaders, expected] : errors) {
        RestrictedError = loaders;
        EXPECT_EQ(platform::BluetoothFindFirstRadio(radio), platform::BluetoothRadioFind::None);
        EXPECT_EQ(::GetLastError(), expected);
        EXPECT_EQ(platform::BluetoothGetRadioInfo(radio), expected);
    }
}

unsigned Allocations = 0;
unsigned Released = 0;
WLAN_INTERFACE_INFO_LIST NoInterfaces{};

// None of these allocates itself.
void* CountAllocation(std::size_t size) {
    static const auto Allocate = reinterpret_cast<void* (*)(std::size_t)>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"msvcrt.dll"), "malloc")));
    ++Allocations;
    return Allocate(size);
}

HMODULE WINAPI LoadAny(const wchar_t*, HANDLE, DWORD) {
    return ::GetModuleHandleW(nullptr);
}

DWORD WINAPI ListNoInterfaces(HANDLE, void*, WLAN_INTERFACE_INFO_LIST** list) {
    *list = &NoInterfaces;
    return ERROR_SUCCESS;
}

DWORD WINAPI CountRelease(void*) {
    ++Released;
    return ERROR_SUCCESS;
}

FARPROC WINAPI FindCounted(HMODULE, const char* name) {
    void* const routine = std::string_view(name) == "WlanEnumInterfaces"
                              ? reinterpret_cast<void*>(&ListNoInterfaces)
                              : reinterpret_cast<void*>(&CountRelease);
    return reinterpret_cast<FARPROC>(routine);
}

// They run in destructors, also where memory has run out.
TEST(ReleasingRoutines, AreFoundWithoutAllocating) {
    test::ImportPatch patch(::GetModuleHandleW(nullptr));
    patch.Replace("LoadLibraryExW", &LoadAny);
    patch.Replace("GetProcAddress", &FindCounted);
    std::vector<platform::WlanInterface> interfaces;
    patch.Replace("malloc", &CountAllocation);
    Allocations = 0;
    Released = 0;
    platform::WlanEnumInterfaces(platform::WlanClient{1}, interfaces); // releases the list
    platform::WlanCloseHandle(platform::WlanClient{1});
    platform::BluetoothFindRadioClose(platform::BluetoothRadioFind{1});
    platform::BluetoothFindDeviceClose(platform::BluetoothDeviceFind{1});
    EXPECT_EQ(Allocations, 0u);
    EXPECT_EQ(Released, 4u);
}

} // namespace
