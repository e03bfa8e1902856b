#include "machine_fixture.h"

#include "ec/ec_command.h"
#include "vesk_sondrel.h"

#include <array>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EcCommandTest : public test::MachineTest {
protected:
    struct Outcome {
        std::uint32_t status;
        std::uint32_t result;
        friend bool operator==(const Outcome&, const Outcome&) = default;
    };

    template <std::size_t Count>
    static Outcome Send(std::uint8_t command, const std::array<std::uint8_t, Count>& data,
                        std::uint8_t readFlag = 1) {
        std::uint32_t status = 0xDEAD;
        const std::uint32_t result = sondrel::RwEcCmd(Count, command, data.data(), readFlag, &status);
        return {status, result};
    }
};

TEST_F(EcCommandTest, SendsSixteenBytesAndLogsTheCommand) {
    InitializeSondrel();
    EXPECT_EQ(Send<1>(0xBB, {0x10}), (Outcome{0, 0}));
    EXPECT_EQ(Send<1>(0xBB, {0x03}), (Outcome{0, 'K'}));
    EXPECT_THAT(DriverRequests(),
                ElementsAre(test::DriverRequest{0x80102070, "bb011000000000000000010000000000"},
                            test::DriverRequest{0x80102070, "bb010300000000000000010000000000"}));
    EXPECT_THAT(DebugLines(), ElementsAre("[RwEcCmd] cmd: 0xbb DataList: 0x10 ReadData",
                                          "[RwEcCmd] cmd: 0xbb DataList: 0x3 ReadData"));
    ShutdownSondrel();
}

TEST_F(EcCommandTest, CommandsWithoutDataOrAnswerGoOutAsTheyAre) {
    InitializeSondrel();
    std::uint32_t status = 0;
    sondrel::RwEcCmd(0, 0x9C, nullptr, 0, &status);
    Send<8>(0xAB, {1, 2, 3, 4, 5, 6, 7, 0xFF}, 0);
    EXPECT_THAT(EcCommands(), ElementsAre("w 9c", "w ab 01020304050607ff"));
    EXPECT_THAT(DebugLines(), ElementsAre("[RwEcCmd] cmd: 0x9c DataList:",
                                          "[RwEcCmd] cmd: 0xab DataList: 0x1 0x2 0x3 0x4 0x5 0x6 0x7 0xff"));
    ShutdownSondrel();
}

TEST_F(EcCommandTest, LogsButDoesNotSendWhatCannotBeSent) {
    constexpr std::array<std::uint8_t, 9> Nine{1, 2, 3, 4, 5, 6, 7, 8, 9};
    EXPECT_EQ(Send<1>(0xBB, {0x10}), (Outcome{1, 0}));
    EXPECT_EQ(Send(0xAB, Nine), (Outcome{1, 0})); // the session is tested first
    InitializeSondrel();
    EXPECT_EQ(Send(0xAB, Nine), (Outcome{2, 0x37}));
    EXPECT_THAT(DriverRequests(), IsEmpty());
    constexpr const char* NineLine =
        "[RwEcCmd] cmd: 0xab DataList: 0x1 0x2 0x3 0x4 0x5 0x6 0x7 0x8 0x9 ReadData";
    EXPECT_THAT(DebugLines(), ElementsAre("[RwEcCmd] cmd: 0xbb DataList: 0x10 ReadData", NineLine, NineLine));
    ShutdownSondrel();
}

TEST_F(EcCommandTest, PassesTheDriversStatusOnAndTakesARefusedRequestForZero) {
    StartMachine(R"({"ec": {"faults": [{"command": "0xBB", "use": 2, "status": "0x80000007"}]}})");
    InitializeSondrel();
    EXPECT_EQ(Send<1>(0xBB, {0x03}), (Outcome{0, 'K'}));
    EXPECT_EQ(Send<1>(0xBB, {0x03}), (Outcome{0x80000007, 0}));
    TheMachine().gate.Restart({.nth = 2}); // the first call writes the debug line
    EXPECT_EQ(Send<1>(0xBB, {0x03}), (Outcome{0, 0}));
    EXPECT_EQ(TheMachine().gate.Injected(), 1u);
    ShutdownSondrel();
}

TEST_F(EcCommandTest, TabletModeIsOneCommandOnEveryMachine) {
    EXPECT_EQ(System_Read_TabletMode(), 0x7FFFFFFFu);
    StartMachine(R"({"ec": {"revision": "ZZ", "tablet_mode": 255}})");
    InitializeSondrel();
    EXPECT_EQ(System_Read_TabletMode(), 255u);
    EXPECT_THAT(EcCommands(), ElementsAre("8e 3300"));
    ShutdownSondrel();
}

} // namespace
