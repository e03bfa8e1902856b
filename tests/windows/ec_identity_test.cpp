// The EC identity and its cache in the registry.
#include "child_process.h"
#include "host_test.h"
#include "import_patch.h"

namespace {

using test::DwordValue;
using test::EcRule;
using test::TextValue;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::uint32_t Failed = 0x7FFFFFFF;

class EcIdentityCacheTest : public test::HostTest {
protected:
    void SetUp() override { VESK_CALL(m_library, InitializeSondrel)(); }

    void TearDown() override { VESK_CALL(m_library, ShutdownSondrel)(); }

    void AnswerIdentity() {
        Answer(EcRule("bb 03", 'K'));
        Answer(EcRule("bb 04", 'L'));
        Answer(EcRule("bb 10", 0));
        Answer(EcRule("bb 12", 0xFE));
        Answer(EcRule("bb 13", 'C'));
        Answer(EcRule("bb 14", '0'));
        Answer(EcRule("bb 15", '1'));
    }

    std::uint32_t Revision() { return VESK_CALL(m_library, EC_ReadEcFwRev)(); }

    std::uint32_t ChipId() { return VESK_CALL(m_library, EC_ReadEcChipId)(); }

    std::uint32_t ChipName() { return VESK_CALL(m_library, EC_ReadEcChipName)(); }
};

TEST_F(EcIdentityCacheTest, IsReadFromTheEcOnceAndThenFromTheRegistry) {
    AnswerIdentity();
    EXPECT_EQ(Revision(), 0x4B4Cu);
    EXPECT_EQ(ChipId(), 0u);
    EXPECT_EQ(ChipName(), 0xFE433031u);
    EXPECT_THAT(EcCommands(), ElementsAre("bb 03", "bb 04", "bb 10", "bb 12", "bb 13", "bb 14", "bb 15"));
    EXPECT_EQ(m_registry.Get(L"EcFwRev"), DwordValue(0x4B4C));
    EXPECT_EQ(m_registry.Get(L"EcChipId"), DwordValue(0));
    EXPECT_EQ(m_registry.Get(L"EcChipName"), DwordValue(0xFE433031));
    m_stand.ForgetLog();
    EXPECT_EQ(Revision(), 0x4B4Cu);
    EXPECT_EQ(ChipId(), 0u);
    EXPECT_EQ(ChipName(), 0x7FFFFFFFu); // as a signed decimal number reads it
    EXPECT_THAT(EcCommands(), IsEmpty());
}

TEST_F(EcIdentityCacheTest, OutlivesTheProcessAndNeedsNoSession) {
    AnswerIdentity();
    EXPECT_EQ(test::CallInNewProcess("EC_ReadEcFwRev"), Failed); // no session there
    EXPECT_FALSE(m_registry.KeyExists());
    EXPECT_EQ(Revision(), 0x4B4Cu);
    EXPECT_EQ(test::CallInNewProcess("EC_ReadEcFwRev"), 0x4B4Cu);
    EXPECT_EQ(test::CallInNewProcess("EC_ReadEcChipId"), Failed);
    m_registry.DeleteKey();
    EXPECT_EQ(test::CallInNewProcess("EC_ReadEcFwRev"), Failed);
    EXPECT_EQ(Revision(), 0x4B4Cu);
    EXPECT_THAT(EcCommands(), ElementsAre("bb 03", "bb 04", "bb 03", "bb 04"));
}

TEST_F(EcIdentityCacheTest, TheRegistryWinsOverTheEc) {
    AnswerIdentity();
    m_registry.Set(L"EcFwRev", DwordValue(0x4142));
    m_registry.Set(L"EcChipId", DwordValue(0xFFFFFFFF));
    EXPECT_EQ(Revision(), 0x4142u);
    EXPECT_EQ(ChipId(), 0x7FFFFFFFu);
    m_registry.Set(L"EcFwRev", DwordValue(0x4152)); // a value edited in the registry acts at the next call
    EXPECT_EQ(Revision(), 0x4152u);
    EXPECT_THAT(EcCommands(), IsEmpty());
}

TEST_F(EcIdentityCacheTest, AValueOfAnotherKindCountsAsMissingAndIsReplaced) {
    AnswerIdentity();
    const test::RegistryValue misfits[] = {TextValue(L"19276"),
                                           TextValue(L"19276", REG_EXPAND_SZ),
                                           {REG_QWORD, test::Words({0x4142, 0})},
                                           {REG_BINARY, test::Words({0x4142})},
                                           {REG_DWORD, test::Words({0x4142, 0})}}; // longer than a number
    for (const auto& misfit : misfits) {
        m_registry.Set(L"EcFwRev", misfit);
        EXPECT_EQ(Revision(), 0x4B4Cu) << "type " << misfit.type;
        EXPECT_EQ(m_registry.Get(L"EcFwRev"), DwordValue(0x4B4C));
    }
    EXPECT_EQ(EcCommands().size(), 2 * std::size(misfits));
}

LSTATUS WINAPI RefuseToSet(HKEY, const wchar_t*, DWORD, DWORD, const BYTE*, DWORD) {
    return ERROR_ACCESS_DENIED;
}

TEST_F(EcIdentityCacheTest, ARegistryThatRefusesOnlyMeansReadingAgain) {
    AnswerIdentity();
    test::ImportPatch patch(m_library.Module());
    patch.Replace("RegSetValueExW", &RefuseToSet);
    EXPECT_EQ(Revision(), 0x4B4Cu);
    EXPECT_EQ(Revision(), 0x4B4Cu);
    EXPECT_THAT(EcCommands(), ElementsAre("bb 03", "bb 04", "bb 03", "bb 04"));
    EXPECT_EQ(m_registry.Get(L"EcFwRev"), std::nullopt);
}

} // namespace
