// Libraries that are looked up at run time: where they are loaded from, and which are released.
#include "import_patch.h"
#include "library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
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

// Files in the program's directory or on the path can come from any user.
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

} // namespace
