#include "host_test.h"
#include "import_patch.h"

namespace {

using test::DriverRequest;
using test::device::IoDriver;
using test::driver_request::RefCount;
using test::driver_request::Version;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const DriverRequest OpenedAlone{test::Opening, "00000000"};
const DriverRequest OpenedShared{test::Opening, "03000000"};
const DriverRequest Closed{test::Closing, ""};

class SessionTest : public test::HostTest {
protected:
    int Initialize() { return VESK_CALL(m_library, InitializeSondrel)(); }

    void Shutdown() { VESK_CALL(m_library, ShutdownSondrel)(); }

    std::uint32_t DriverVersion() { return VESK_CALL(m_library, GetDriverVersion)(); }

    std::uint32_t DriverRefCount() { return VESK_CALL(m_library, GetRefCount)(); }
};

TEST_F(SessionTest, CountsReferencesAndClosesWithTheLast) {
    Answer({.code = Version, .output = test::Words({0x00010203})});
    EXPECT_EQ(Initialize(), 1);
    EXPECT_EQ(Initialize(), 1);
    Shutdown();
    EXPECT_THAT(m_stand.Log(IoDriver), ElementsAre(OpenedAlone));
    EXPECT_EQ(DriverVersion(), 0x00010203u);
    Shutdown();
    Shutdown();
    EXPECT_THAT(m_stand.Log(IoDriver), ElementsAre(OpenedAlone, DriverRequest{Version, "", 4}, Closed));
    m_stand.ForgetLog();
    EXPECT_EQ(Initialize(), 1);
    Shutdown();
    EXPECT_THAT(m_stand.Log(IoDriver), ElementsAre(OpenedAlone, Closed));
}

// Wine grants every opening of a device, so that what another holder does to the library is done on its way out.
struct Opening {
    std::wstring path;
    DWORD access, shareMode, disposition, flags;

    friend bool operator==(const Opening&, const Opening&) = default;
};

std::vector<Opening> Openings;
std::size_t RefusedOpenings;

HANDLE WINAPI OpenUnlessRefused(const wchar_t* path, DWORD access, DWORD shareMode,
                                SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD flags,
                                HANDLE templateFile) {
    Openings.push_back({path, access, shareMode, disposition, flags});
    if (Openings.size() <= RefusedOpenings) {
        ::SetLastError(ERROR_SHARING_VIOLATION);
        return INVALID_HANDLE_VALUE;
    }
    return ::CreateFileW(path, access, shareMode, security, disposition, flags, templateFile);
}

class RefusedSessionTest : public SessionTest {
protected:
    RefusedSessionTest() : m_patch(m_library.Module()) {
        Openings.clear();
        m_patch.Replace("CreateFileW", &OpenUnlessRefused);
    }

    test::ImportPatch m_patch;
};

TEST_F(RefusedSessionTest, SharesTheDeviceWhereItCannotHaveItAlone) {
    RefusedOpenings = 1;
    Answer({.code = RefCount, .output = test::Words({2})});
    EXPECT_EQ(Initialize(), 1);
    EXPECT_THAT(Openings, ElementsAre(Opening{L"\\\\.\\VESKHWIO", 0xC0000000, 0, 3, 0x80},
                                      Opening{L"\\\\.\\VESKHWIO", 0xC0000000, 3, 3, 0x80}));
    EXPECT_EQ(DriverRefCount(), 2u);
    Shutdown();
    EXPECT_THAT(m_stand.Log(IoDriver), ElementsAre(OpenedShared, DriverRequest{RefCount, "", 4}, Closed));
}

TEST_F(RefusedSessionTest, StaysClosedWhenBothOpeningsFailAndTriesAgainLater) {
    RefusedOpenings = 2;
    EXPECT_EQ(Initialize(), 0);
    EXPECT_EQ(Openings.size(), 2u);
    Shutdown();
    EXPECT_EQ(VESK_CALL(m_library, System_Read_TabletMode)(), 0x7FFFFFFFu);
    EXPECT_THAT(m_stand.Log(IoDriver), IsEmpty());
    EXPECT_EQ(Initialize(), 1);
    Shutdown();
    EXPECT_THAT(m_stand.Log(IoDriver), ElementsAre(OpenedAlone, Closed));
}

TEST_F(SessionTest, WaitsForADeviceThatIsNotThereYet) {
    m_stand.RemoveDevice(IoDriver);
    EXPECT_EQ(Initialize(), 0);
    m_stand.AddDevice(IoDriver);
    EXPECT_EQ(Initialize(), 1);
    // A device that goes away under an open session fails its requests and can still be closed.
    m_stand.RemoveDevice(IoDriver);
    EXPECT_EQ(DriverVersion(), 0u);
    Shutdown();
    EXPECT_EQ(Initialize(), 0);
}

TEST_F(SessionTest, AnswersVersionsOnlyWhileOpen) {
    Answer({.code = Version, .output = test::Words({0x00010203})});
    Answer({.code = RefCount, .output = test::Words({0xFFFFFFFF})});
    EXPECT_EQ(DriverVersion(), 0u);
    EXPECT_EQ(DriverRefCount(), 0u);
    EXPECT_EQ(VESK_CALL(m_library, GetIoDllVersion)(), 65537u);
    Initialize();
    EXPECT_EQ(DriverVersion(), 0x00010203u);
    EXPECT_EQ(DriverRefCount(), 0xFFFFFFFFu);
    Shutdown();
    m_stand.ForgetLog();
    EXPECT_EQ(DriverVersion(), 0u);
    EXPECT_EQ(DriverRefCount(), 0u);
    EXPECT_EQ(VESK_CALL(m_library, GetIoDllVersion)(), 65537u);
    EXPECT_THAT(m_stand.Log(IoDriver), IsEmpty());
}

TEST_F(SessionTest, LeavesAHandleAloneThatIsNotItsOwnAnyMore) {
    Answer({.code = Version, .output = test::Words({0x00010203})});
    Initialize();
    Shutdown();
    // Windows gives a number that became free to the next that opens something: this device, of all things.
    const HANDLE reused = ::CreateFileW(L"\\\\.\\VESKHWIO", GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    m_stand.ForgetLog();
    EXPECT_EQ(DriverVersion(), 0u);
    Shutdown();
    EXPECT_THAT(m_stand.Log(IoDriver), IsEmpty());
    ::CloseHandle(reused);
}

TEST_F(SessionTest, AVersionQueryThatTheDriverDoesNotAnswerGivesZero) {
    Initialize();
    EXPECT_EQ(DriverVersion(), 0u); // no rule: the driver does not know the request
    Answer({.code = Version, .output = test::Words({1}), .status = test::nt_status::AccessDenied});
    EXPECT_EQ(DriverVersion(), 0u);
    Answer({.code = Version}); // done, and nothing written
    EXPECT_EQ(DriverVersion(), 0u);
    Answer({.code = Version, .output = test::FromHex("3412")}); // the high half is not written
    EXPECT_EQ(DriverVersion(), 0x1234u);
    Answer({.code = Version, .output = test::Words({1, 2})}); // more than there is room for
    EXPECT_EQ(DriverVersion(), 0u);
    Shutdown();
}

} // namespace
