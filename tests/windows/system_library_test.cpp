// Libraries that are looked up at run time: where they are loaded from, and which are given back.
#include "import_patch.h"
#include "library.h"

#include "platform/bluetooth.h"
#include "platform/wlan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <wlanapi.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace {

using ::testing::ElementsAre;

std::vector<std::wstring> Loads;

HMODULE WINAPI Load(const wchar_t* path) {
    Loads.emplace_back(path);
    return ::GetModuleHandleW(nullptr); // it has no routines but those that are replaced
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

// What lies beside the program or on its path could be anybody's.
TEST(SystemLibraryTest, ComesFromTheSystemDirectoryOnly) {
    const test::Library library;
    test::ImportPatch patch(library.Module());
    patch.Replace("LoadLibraryW", &Load);
    patch.Replace("FreeLibrary", &Free);
    patch.ReplaceRoutine("WldpQueryWindowsLockdownMode", &LockedDown);
    std::array<wchar_t, MAX_PATH> directory{};
    ::GetSystemDirectoryW(directory.data(), MAX_PATH);
    const auto there = [&](const wchar_t* name) {
        return std::wstring(directory.data()).append(name);
    };
    EXPECT_EQ(VESK_CALL(library, System_Check_S_Mode)(), 1);
    // The second one for the trace provider, with the first debug line.
    EXPECT_THAT(Loads, ElementsAre(there(L"\\wldp.dll"), there(L"\\advapi32.dll"), L"free"));
    Loads.clear();
    EXPECT_EQ(VESK_CALL(library, RF_WiFiIsConnected)(), 0x7FFFFFFF);
    EXPECT_THAT(Loads, ElementsAre(there(L"\\wlanapi.dll")));
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

HMODULE WINAPI LoadAny(const wchar_t*) {
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
TEST(SystemLibraryTest, RoutinesThatReleaseAreFoundWithoutAllocating) {
    test::ImportPatch patch(::GetModuleHandleW(nullptr));
    patch.Replace("LoadLibraryW", &LoadAny);
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
