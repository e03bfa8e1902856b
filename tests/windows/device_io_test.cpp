// A session as Win32 sees it: what the driver's device is opened with, asked and closed.
#include "import_patch.h"
#include "library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <sstream>
#include <string>
#include <vector>

namespace {

using ::testing::ElementsAre;

const HANDLE TheDevice = reinterpret_cast<HANDLE>(std::uintptr_t{0x5150});

/// What the DLL asked for, in order: the replaced functions are plain ones.
std::vector<std::wstring> Calls;
std::size_t RefusedOpenings = 0;

std::wstring Hex(const std::vector<DWORD>& numbers) {
    std::wostringstream text;
    for (const DWORD number : numbers) {
        text << L' ' << std::hex << number;
    }
    return text.str();
}

HANDLE WINAPI Open(const wchar_t* path, DWORD access, DWORD shareMode, SECURITY_ATTRIBUTES* security,
                   DWORD disposition, DWORD flags, HANDLE likeness) {
    EXPECT_TRUE(security == nullptr && likeness == nullptr);
    Calls.push_back(path + Hex({access, shareMode, disposition, flags}));
    if (Calls.size() <= RefusedOpenings) {
        ::SetLastError(ERROR_SHARING_VIOLATION);
        return INVALID_HANDLE_VALUE;
    }
    return TheDevice;
}

BOOL WINAPI Control(HANDLE device, DWORD code, void* in, DWORD inSize, void* out, DWORD capacity,
                    DWORD* returned, OVERLAPPED* overlapped) {
    EXPECT_TRUE(overlapped == nullptr && returned != nullptr);
    const auto* const sent = static_cast<const BYTE*>(in);
    Calls.push_back(L"control" + Hex({code, capacity}) + L" <" + Hex({sent, sent + inSize}));
    if (device == INVALID_HANDLE_VALUE) {
        ::SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    EXPECT_EQ(device, TheDevice);
    std::memset(out, 0x11, capacity);
    std::memset(static_cast<BYTE*>(out) + capacity / 2, 0, capacity - capacity / 2);
    *returned = capacity;
    return TRUE;
}

BOOL WINAPI Close(HANDLE device) {
    EXPECT_EQ(device, TheDevice);
    Calls.emplace_back(L"close");
    return TRUE;
}

TEST(DeviceIoTest, ASessionSharesTheDeviceThatItCannotHaveAlone) {
    const test::Library library;
    test::ImportPatch patch(library.Module());
    patch.Replace("CreateFileW", &Open);
    patch.Replace("DeviceIoControl", &Control);
    patch.Replace("CloseHandle", &Close);
    RefusedOpenings = 2;
    EXPECT_EQ(VESK_CALL(library, InitializeSondrel)(), 0);
    EXPECT_EQ(VESK_CALL(library, GetDriverVersion)(), 0u);
    EXPECT_THAT(Calls, ElementsAre(L"\\\\.\\VESKHWIO c0000000 0 3 80", L"\\\\.\\VESKHWIO c0000000 3 3 80",
                                   L"control 80102040 4 <"));
    Calls.clear();
    RefusedOpenings = 1;
    EXPECT_EQ(VESK_CALL(library, InitializeSondrel)(), 1);
    Calls.clear();
    EXPECT_EQ(VESK_CALL(library, GetDriverVersion)(), 0x1111u);
    EXPECT_EQ(VESK_CALL(library, System_Read_TabletMode)(), 0u);
    VESK_CALL(library, ShutdownSondrel)();
    EXPECT_THAT(Calls, ElementsAre(L"control 80102040 4 <",
                                   L"control 80102070 10 < 8e 2 33 0 0 0 0 0 0 0 1 0 0 0 0 0", L"close"));
    EXPECT_EQ(VESK_CALL(library, GetDriverVersion)(), 0u);
    EXPECT_EQ(Calls.back(), L"close") << "the handle's value may be another object's by now";
}

} // namespace
