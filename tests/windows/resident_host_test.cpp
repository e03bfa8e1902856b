// What a host sees that stays when the DLL goes: callbacks after FreeLibrary.
#include "import_patch.h"
#include "library.h"

#include <gtest/gtest.h>

#include <evntprov.h>

#include <string>

namespace {

/// A session of ETW: its functions are plain ones, so that it cannot be a member.
struct TraceSession {
    PENABLECALLBACK callback = nullptr;
    void* context = nullptr;
    int registrations = 0;
    int events = 0;
};

TraceSession Session;
int PinAttempts = 0;

ULONG WINAPI Register(const GUID*, PENABLECALLBACK callback, void* context, REGHANDLE* registration) {
    Session.callback = callback;
    Session.context = context;
    ++Session.registrations;
    *registration = 1;
    return ERROR_SUCCESS;
}

ULONG WINAPI WriteTransfer(REGHANDLE, const EVENT_DESCRIPTOR*, const GUID*, const GUID*, ULONG,
                           EVENT_DATA_DESCRIPTOR*) {
    ++Session.events;
    return ERROR_SUCCESS;
}

BOOL WINAPI RefuseToPin(DWORD, const wchar_t*, HMODULE* module) {
    ++PinAttempts;
    *module = nullptr;
    ::SetLastError(ERROR_SUCCESS); // a failure all the same
    return FALSE;
}

/// Copies of the DLL, since one that has pinned itself is never loaded afresh.
class ResidentHostTest : public ::testing::Test {
protected:
    ResidentHostTest() {
        Session = {};
        PinAttempts = 0;
    }

    static std::wstring Copy(const wchar_t* folder) {
        const std::wstring directory = test::ProgramDirectory() + folder;
        ::CreateDirectoryW(directory.c_str(), nullptr);
        const std::wstring copy = directory + L"\\VeskSondrel64.dll";
        EXPECT_TRUE(
            ::CopyFileW((test::ProgramDirectory() + L"VeskSondrel64.dll").c_str(), copy.c_str(), FALSE));
        return copy;
    }
};

TEST_F(ResidentHostTest, ATraceSessionMayStartAfterFreeLibrary) {
    const std::wstring path = Copy(L"resident_host");
    {
        const test::Library library(path, test::Library::Pinning());
        test::ImportPatch patch(library.Module());
        patch.Replace("EventRegister", &Register);
        VESK_CALL(library, System_Check_S_Mode)();
        ASSERT_EQ(Session.registrations, 1);
    }
    constexpr UCHAR Verbose = 5;
    Session.callback(nullptr, EVENT_CONTROL_CODE_ENABLE_PROVIDER, Verbose, 0, 0, nullptr, Session.context);
    // Loaded again it is the same module, which still writes.
    const test::Library library(path, test::Library::Pinning());
    test::ImportPatch patch(library.Module());
    patch.Replace("EventWriteTransfer", &WriteTransfer);
    VESK_CALL(library, System_Check_S_Mode)();
    EXPECT_GT(Session.events, 0);
}

TEST_F(ResidentHostTest, WithoutAPinTheProviderIsNotRegistered) {
    const test::Library library(Copy(L"unpinned_host"), test::Library::Pinning());
    test::ImportPatch patch(library.Module());
    patch.Replace("EventRegister", &Register);
    patch.Replace("EventWriteTransfer", &WriteTransfer);
    patch.Replace("GetModuleHandleExW", &RefuseToPin);
    const auto answer = VESK_CALL(library, System_Check_S_Mode)();
    EXPECT_EQ(VESK_CALL(library, System_Check_S_Mode)(), answer);
    EXPECT_EQ(PinAttempts, 1);
    EXPECT_EQ(Session.registrations, 0);
    EXPECT_EQ(Session.events, 0);
}

} // namespace
