#include "machine_fixture.h"

#include "frame/session.h"

namespace {

using namespace testing;

using SessionTest = test::MachineTest;

TEST_F(SessionTest, CountsReferencesAndClosesWithTheLast) {
    for (int round = 0; round < 2; ++round) {
        ForgetCalls();
        EXPECT_EQ(InitializeSondrel(), 1);
        EXPECT_EQ(InitializeSondrel(), 1);
        EXPECT_THAT(
            CallsOf(Operation::CreateFileW),
            ElementsAre(StartsWith(R"(CreateFileW path="\\.\VESKHWIO" access=0xc0000000 share=0x0 )")));
        ShutdownSondrel();
        EXPECT_THAT(CallsOf(Operation::CloseHandle), IsEmpty());
        EXPECT_EQ(System_Read_TabletMode(), 1u);
        ShutdownSondrel();
        EXPECT_EQ(sondrel::SessionOpen, 0);
        ShutdownSondrel();
        EXPECT_THAT(CallsOf(Operation::CloseHandle), SizeIs(1));
        EXPECT_EQ(sondrel::SessionRefCount, 0u);
    }
}

TEST_F(SessionTest, SharesTheDeviceWhereItCannotHaveItAloneOrStaysClosed) {
    StartMachine(R"({"driver": {"held_by_other": "shared"}})");
    EXPECT_EQ(InitializeSondrel(), 1);
    EXPECT_THAT(CallsOf(Operation::CreateFileW),
                ElementsAre(AllOf(HasSubstr("share=0x0 "), EndsWith(" -> invalid error=32")),
                            AllOf(HasSubstr("share=0x3 "), EndsWith(" -> file#1"))));
    EXPECT_EQ(System_Read_TabletMode(), 1u);
    StartMachine(R"({"driver": {"held_by_other": "alone"}})");
    EXPECT_EQ(InitializeSondrel(), 0);
    EXPECT_THAT(CallsOf(Operation::CreateFileW), SizeIs(2));
    EXPECT_EQ(sondrel::SessionOpen, 0);
    EXPECT_EQ(System_Read_TabletMode(), 0x7FFFFFFFu);
    StartMachine();
    EXPECT_EQ(InitializeSondrel(), 1) << "it is tried again";
}

TEST_F(SessionTest, TheVersionsAreAskedForUnlessASessionHasLeftItsHandle) {
    EXPECT_EQ(GetDriverVersion(), 0u);
    EXPECT_EQ(GetRefCount(), 0u);
    EXPECT_EQ(GetIoDllVersion(), 65537u);
    EXPECT_THAT(CallsOf(Operation::DeviceIoControl),
                ElementsAre(StartsWith("DeviceIoControl device=invalid code=0x80102040 "),
                            StartsWith("DeviceIoControl device=invalid code=0x80102044 ")));
    InitializeSondrel();
    ForgetCalls();
    EXPECT_EQ(GetDriverVersion(), 0x00010203u);
    EXPECT_EQ(GetRefCount(), 1u);
    EXPECT_THAT(DriverRequests(), ElementsAre("0x80102040", "0x80102044"));
    // A driver that writes a part of the word, and none of it.
    std::uint32_t version = 0;
    RunFailing(Operation::DeviceIoControl, 1, Failure::ShortAnswer, [&] { version = GetDriverVersion(); });
    EXPECT_EQ(version, 0x0203u);
    RunFailing(Operation::DeviceIoControl, 1, Failure::Refused, [&] { version = GetDriverVersion(); });
    EXPECT_EQ(version, 0u);
    ShutdownSondrel();
    ForgetCalls();
    EXPECT_EQ(GetDriverVersion(), 0u);
    EXPECT_EQ(GetRefCount(), 0u);
    EXPECT_THAT(Calls(), IsEmpty()) << "the handle's value may be another object's by now";
}

} // namespace
