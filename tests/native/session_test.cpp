#include "machine_fixture.h"

#include "frame/session.h"
#include "vesk_sondrel.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class SessionTest : public test::MachineTest {
protected:
    [[nodiscard]] std::vector<std::string> Opens() const { return CallsOf("CreateFileW"); }

    [[nodiscard]] std::vector<std::string> Closes() const { return CallsOf("CloseHandle"); }
};

TEST_F(SessionTest, CountsReferencesAndClosesWithTheLast) {
    EXPECT_EQ(InitializeSondrel(), 1);
    EXPECT_EQ(InitializeSondrel(), 1);
    EXPECT_THAT(Opens(), ElementsAre("CreateFileW \\\\.\\VESKHWIO access 0xc0000000 share 0x0 = 4096"));
    ShutdownSondrel();
    EXPECT_THAT(Closes(), IsEmpty());
    EXPECT_EQ(System_Read_TabletMode(), 1u);
    ShutdownSondrel();
    EXPECT_THAT(Closes(), SizeIs(1));
    EXPECT_EQ(sondrel::SessionOpen, 0);
    ShutdownSondrel();
    EXPECT_THAT(Closes(), SizeIs(1));
    EXPECT_EQ(sondrel::SessionRefCount, 0u);
}

TEST_F(SessionTest, OpensTheDeviceAnewAfterAFullClose) {
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(InitializeSondrel(), 1);
        EXPECT_EQ(System_Read_TabletMode(), 1u);
        ShutdownSondrel();
    }
    EXPECT_THAT(Opens(), SizeIs(2));
}

TEST_F(SessionTest, SharesTheDeviceWhereItCannotHaveItAlone) {
    StartMachine(R"({"driver": {"held_by_other": "shared"}})");
    EXPECT_EQ(InitializeSondrel(), 1);
    EXPECT_THAT(Opens(), ElementsAre(::testing::HasSubstr("share 0x0 = -1"),
                                     ::testing::HasSubstr("share 0x3 = 4096")));
    EXPECT_EQ(System_Read_TabletMode(), 1u);
    ShutdownSondrel();
}

TEST_F(SessionTest, StaysClosedWhenBothOpensFailAndTriesAgainLater) {
    StartMachine(R"({"driver": {"held_by_other": "alone"}})");
    EXPECT_EQ(InitializeSondrel(), 0);
    EXPECT_THAT(Opens(), SizeIs(2));
    EXPECT_EQ(sondrel::SessionOpen, 0);
    EXPECT_EQ(System_Read_TabletMode(), 0x7FFFFFFFu);
    StartMachine();
    EXPECT_EQ(InitializeSondrel(), 1);
    ShutdownSondrel();
}

TEST_F(SessionTest, AnswersVersionsThroughTheDriverOnlyWhileOpen) {
    EXPECT_EQ(GetDriverVersion(), 0u);
    EXPECT_EQ(GetRefCount(), 0u);
    EXPECT_EQ(GetIoDllVersion(), 65537u);
    EXPECT_THAT(Calls(), IsEmpty());
    InitializeSondrel();
    EXPECT_EQ(GetDriverVersion(), 0x00010203u);
    EXPECT_EQ(GetRefCount(), 1u);
    EXPECT_EQ(GetIoDllVersion(), 65537u);
    EXPECT_THAT(DriverRequests(),
                ElementsAre(test::DriverRequest{0x80102040, ""}, test::DriverRequest{0x80102044, ""}));
    ShutdownSondrel();
    ForgetCalls();
    EXPECT_EQ(GetDriverVersion(), 0u);
    EXPECT_EQ(GetRefCount(), 0u);
    EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(SessionTest, AVersionQueryThatTheDriverRefusesGivesZero) {
    InitializeSondrel();
    for (const auto failure : {machine::Failure::Refused, machine::Failure::Nothing}) {
        TheMachine().gate.Restart({.nth = 1, .andLater = true, .kind = failure});
        EXPECT_EQ(GetDriverVersion(), 0u);
        EXPECT_EQ(GetRefCount(), 0u);
        EXPECT_EQ(TheMachine().gate.Injected(), 2u);
    }
    TheMachine().gate.Restart();
    ShutdownSondrel();
}

} // namespace
