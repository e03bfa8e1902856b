#include "driver_stand.h"
#include "import_patch.h"
#include "library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using test::DriverRequest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const DriverRequest OpenedAlone{test::Opening, "00000000"};
const DriverRequest Closed{test::Closing, ""};

class SessionTest : public ::testing::Test {
protected:
    test::DriverStand m_stand;
    test::Library m_library;
};

TEST_F(SessionTest, CountsReferencesAndClosesWithTheLast) {
    m_stand.AddDevice(test::device::IoDriver);
    m_stand.Answer(test::device::IoDriver, {.code = 0x80102040, .output = test::Words({0x00010203})});
    EXPECT_EQ(VESK_CALL(m_library, InitializeSondrel)(), 1);
    EXPECT_EQ(VESK_CALL(m_library, InitializeSondrel)(), 1);
    VESK_CALL(m_library, ShutdownSondrel)();
    EXPECT_THAT(m_stand.Log(test::device::IoDriver), ElementsAre(OpenedAlone));
    EXPECT_EQ(VESK_CALL(m_library, GetDriverVersion)(), 0x00010203u);
    VESK_CALL(m_library, ShutdownSondrel)();
    VESK_CALL(m_library, ShutdownSondrel)();
    EXPECT_THAT(m_stand.Log(test::device::IoDriver),
                ElementsAre(OpenedAlone, DriverRequest{0x80102040, "", 4}, Closed));
}

struct Opening {
    DWORD access;
    DWORD shareMode;
    friend bool operator==(const Opening&, const Opening&) = default;
};

std::vector<Opening> Openings;

HANDLE WINAPI RefuseTheFirstOpening(const wchar_t* path, DWORD access, DWORD shareMode,
                                    SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD flags,
                                    HANDLE templateFile) {
    Openings.push_back({access, shareMode});
    if (Openings.size() == 1) {
        ::SetLastError(ERROR_SHARING_VIOLATION);
        return INVALID_HANDLE_VALUE;
    }
    return ::CreateFileW(path, access, shareMode, security, disposition, flags, templateFile);
}

TEST_F(SessionTest, SharesTheDeviceWhereItCannotHaveItAlone) {
    Openings.clear();
    test::ImportPatch patch(m_library.Module());
    patch.Replace("CreateFileW", &RefuseTheFirstOpening);
    m_stand.AddDevice(test::device::IoDriver);
    EXPECT_EQ(VESK_CALL(m_library, InitializeSondrel)(), 1);
    EXPECT_THAT(Openings, ElementsAre(Opening{0xC0000000, 0}, Opening{0xC0000000, 3}));
    EXPECT_THAT(m_stand.Log(test::device::IoDriver), ElementsAre(DriverRequest{test::Opening, "03000000"}));
    VESK_CALL(m_library, ShutdownSondrel)();
}

TEST_F(SessionTest, StaysClosedWithoutTheDeviceAndTriesAgainLater) {
    EXPECT_EQ(VESK_CALL(m_library, InitializeSondrel)(), 0);
    EXPECT_EQ(VESK_CALL(m_library, System_Read_TabletMode)(), 0x7FFFFFFFu);
    m_stand.AddDevice(test::device::IoDriver);
    EXPECT_THAT(m_stand.Log(test::device::IoDriver), IsEmpty());
    EXPECT_EQ(VESK_CALL(m_library, InitializeSondrel)(), 1);
    VESK_CALL(m_library, ShutdownSondrel)();
}

} // namespace
