// What a host sees of a DLL that comes and goes: callbacks after FreeLibrary, its own exceptions, its memory.
#include "import_patch.h"
#include "library.h"
#include "thread.h"

#include <gtest/gtest.h>

#include <evntprov.h>

#include <cstddef>
#include <string>
#include <vector>

namespace {

/// A session of ETW: its functions are plain ones, so that it cannot be a member.
struct HeldSession {
    PENABLECALLBACK callback = nullptr;
    void* context = nullptr;
    int registrations = 0;
    int events = 0;
};

HeldSession Held;
int PinAttempts = 0;

ULONG WINAPI KeepCallback(const GUID*, PENABLECALLBACK callback, void* context, REGHANDLE* registration) {
    Held.callback = callback;
    Held.context = context;
    ++Held.registrations;
    *registration = 1;
    return ERROR_SUCCESS;
}

ULONG WINAPI CountEvent(REGHANDLE, const EVENT_DESCRIPTOR*, const GUID*, const GUID*, ULONG,
                        EVENT_DATA_DESCRIPTOR*) {
    ++Held.events;
    return ERROR_SUCCESS;
}

BOOL WINAPI RefuseToPin(DWORD, const wchar_t*, HMODULE* module) {
    ++PinAttempts;
    *module = nullptr;
    ::SetLastError(ERROR_SUCCESS); // a failure all the same
    return FALSE;
}

/// Copies of the DLL, since one that has pinned itself is never loaded again.
class ResidentHostTest : public ::testing::Test {
protected:
    ResidentHostTest() {
        Held = {};
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
        patch.Replace("EventRegister", &KeepCallback);
        VESK_CALL(library, System_Check_S_Mode)();
        ASSERT_EQ(Held.registrations, 1);
    }
    constexpr ULONG EnableProvider = 1; // EVENT_CONTROL_CODE_ENABLE_PROVIDER
    constexpr UCHAR Verbose = 5;
    Held.callback(nullptr, EnableProvider, Verbose, 0, 0, nullptr, Held.context);
    // Loaded again it is the same module, which still writes.
    const test::Library library(path, test::Library::Pinning());
    test::ImportPatch patch(library.Module());
    patch.Replace("EventWriteTransfer", &CountEvent);
    VESK_CALL(library, System_Check_S_Mode)();
    EXPECT_GT(Held.events, 0);
}

TEST_F(ResidentHostTest, WithoutAPinTheProviderIsNotRegistered) {
    const test::Library library(Copy(L"unpinned_host"), test::Library::Pinning());
    test::ImportPatch patch(library.Module());
    patch.Replace("EventRegister", &KeepCallback);
    patch.Replace("EventWriteTransfer", &CountEvent);
    patch.Replace("GetModuleHandleExW", &RefuseToPin);
    const auto answer = VESK_CALL(library, System_Check_S_Mode)();
    EXPECT_EQ(VESK_CALL(library, System_Check_S_Mode)(), answer);
    EXPECT_EQ(PinAttempts, 1);
    EXPECT_EQ(Held.registrations, 0);
    EXPECT_EQ(Held.events, 0);
}

/// Exceptions of the host that nothing handled.
std::vector<DWORD> Unhandled;

LONG WINAPI NoteUnhandled(EXCEPTION_POINTERS* exception) {
    Unhandled.push_back(exception->ExceptionRecord->ExceptionCode);
    return EXCEPTION_CONTINUE_EXECUTION;
}

TEST_F(ResidentHostTest, TheHostsExceptionsAreItsOwn) {
    constexpr DWORD NamesAThread = 0x406D1388;
    const test::Library library;
    Unhandled.clear();
    const auto before = ::SetUnhandledExceptionFilter(&NoteUnhandled);
    test::Thread([] {
        const ULONG_PTR arguments[] = {0x1000, reinterpret_cast<ULONG_PTR>("name"),
                                       static_cast<ULONG_PTR>(-1), 0};
        ::RaiseException(NamesAThread, 0, 4, arguments);
    });
    ::SetUnhandledExceptionFilter(before);
    EXPECT_EQ(Unhandled, std::vector<DWORD>{NamesAThread});
}

struct HeapContent {
    std::size_t blocks = 0;
    std::size_t bytes = 0;
};

/// What is allocated in all heaps of the process.
HeapContent Allocated() {
    HANDLE heaps[64];
    const DWORD count = ::GetProcessHeaps(64, heaps);
    HeapContent content;
    for (DWORD index = 0; index < count; ++index) {
        PROCESS_HEAP_ENTRY entry{};
        while (::HeapWalk(heaps[index], &entry) != FALSE) {
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) {
                ++content.blocks;
                content.bytes += entry.cbData;
            }
        }
    }
    return content;
}

TEST_F(ResidentHostTest, LoadingAndUnloadingLeavesNothingAllocated) {
    constexpr int Loads = 5'000;
    const std::wstring path = test::ProgramDirectory() + L"VeskSondrel64.dll";
    const auto loadAndUnload = [&](int times) {
        for (int time = 0; time < times; ++time) {
            const HMODULE module = ::LoadLibraryW(path.c_str());
            ASSERT_NE(module, nullptr) << "load " << time;
            ASSERT_TRUE(::FreeLibrary(module));
        }
    };
    loadAndUnload(Loads); // the loader's own tables grow to their size, for a DLL without content too
    DWORD handlesBefore = 0;
    DWORD handlesAfter = 0;
    ASSERT_TRUE(::GetProcessHandleCount(::GetCurrentProcess(), &handlesBefore));
    const HeapContent before = Allocated();
    loadAndUnload(Loads);
    const HeapContent after = Allocated();
    ASSERT_TRUE(::GetProcessHandleCount(::GetCurrentProcess(), &handlesAfter));
    ASSERT_GT(before.blocks, 0u);
    // Far less than one byte or block a load.
    EXPECT_LT(after.bytes, before.bytes + Loads / 10) << before.bytes << " bytes before";
    EXPECT_LT(after.blocks, before.blocks + Loads / 100) << before.blocks << " blocks before";
    EXPECT_LT(handlesAfter, handlesBefore + Loads / 100);
}

} // namespace
