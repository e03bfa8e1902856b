// EC commands as they cross into the driver.
#include "host_test.h"

namespace {

using test::DriverRequest;
using test::EcRule;
using test::device::IoDriver;
using test::driver_request::EcCommand;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EcWireTest : public test::HostTest {
protected:
    std::uint32_t TabletMode() { return VESK_CALL(m_library, System_Read_TabletMode)(); }

    void SetUp() override { VESK_CALL(m_library, InitializeSondrel)(); }

    void TearDown() override { VESK_CALL(m_library, ShutdownSondrel)(); }
};

TEST_F(EcWireTest, ACommandIsSixteenBytesBothWays) {
    Answer(EcRule("8e 33 00", 0xFE));
    EXPECT_EQ(TabletMode(), 0xFEu);
    EXPECT_THAT(m_stand.Requests(IoDriver),
                ElementsAre(DriverRequest{EcCommand, "8e023300000000000000010000000000", 16}));
}

TEST_F(EcWireTest, AnyStatusOfTheDriverFailsTheReading) {
    for (const std::uint32_t status : {1u, 2u, 0x80000000u, 0xFFFFFFFFu}) {
        Answer(EcRule("8e 33 00", 0x01, status));
        EXPECT_EQ(TabletMode(), 0x7FFFFFFFu) << status;
    }
    Answer(EcRule("8e 33 00", 0x01));
    EXPECT_EQ(TabletMode(), 1u);
}

TEST_F(EcWireTest, ARefusedRequestReadsAsTheBufferThatWasSent) {
    EXPECT_EQ(TabletMode(), 0u); // no rule
    test::Rule refusal = EcRule("8e 33 00", 0x55, 7);
    refusal.status = test::nt_status::Unsuccessful;
    Answer(refusal);
    EXPECT_EQ(TabletMode(), 0u);
    EXPECT_THAT(EcCommands(), ElementsAre("8e 3300", "8e 3300"));
}

TEST_F(EcWireTest, AShortAnswerLeavesTheRestAsItWasSent) {
    test::Rule answer = EcRule("8e 33 00", 0x55, 7);
    answer.output.resize(12); // up to the result: the status stays 0
    Answer(answer);
    EXPECT_EQ(TabletMode(), 0x55u);
    answer.output.resize(11);
    Answer(answer);
    EXPECT_EQ(TabletMode(), 0u);
    answer.output.clear();
    Answer(answer);
    EXPECT_EQ(TabletMode(), 0u);
}

TEST_F(EcWireTest, NothingIsSentWithoutASession) {
    VESK_CALL(m_library, ShutdownSondrel)();
    EXPECT_EQ(TabletMode(), 0x7FFFFFFFu);
    EXPECT_THAT(m_stand.Requests(IoDriver), IsEmpty());
}

} // namespace
