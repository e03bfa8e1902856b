#include "machine_fixture.h"

#include "vesk_sondrel.h"

#include "platform/simulated/firmware_store.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <numeric>

namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr std::u16string_view Guid = u"{91b89306-5bac-4ae0-aab3-207ec12e989b}";

struct Field {
    std::uint32_t (*get)(std::uint8_t*);
    std::uint32_t (*set)(const std::uint8_t*);
    const char16_t* variable;
    std::size_t offset;
    std::size_t size;
    bool tellsFailedRead;
};

constexpr Field Fields[] = {
    {GPNV_Get_RandomUUID, GPNV_Set_RandomUUID, u"CNFG", 0, 16, true},
    {GPNV_Get_ActivatedTime, GPNV_Set_ActivatedTime, u"CNFG", 32, 19, false},
    {GPNV_Get_ManufacturedTime, GPNV_Set_ManufacturedTime, u"MFG0", 148, 23, true},
};

class FirmwareVariablesTest : public test::MachineTest {
protected:
    static std::vector<std::byte> Variable(const char16_t* name) {
        return TheMachine().firmwareStore.Get(Guid, name).value_or(std::vector<std::byte>{});
    }

    /// A getter's bytes with what stands behind them.
    static std::vector<std::uint8_t> Read(const Field& field, std::uint32_t expected = 0) {
        std::vector<std::uint8_t> room(field.size + 4, 0xEE);
        EXPECT_EQ(field.get(room.data()), expected);
        EXPECT_THAT(std::span(room).last(4), Each(0xEE));
        room.resize(field.size);
        return room;
    }

    static std::vector<std::uint8_t> Counting(std::size_t size, std::uint8_t first) {
        std::vector<std::uint8_t> bytes(size);
        std::iota(bytes.begin(), bytes.end(), first);
        return bytes;
    }

    static constexpr const char* NoRight = "Failed RasiePrivileges()";
};

TEST_F(FirmwareVariablesTest, ASetterReplacesItsFieldAndNothingElse) {
    for (const Field& field : Fields) {
        for (const std::uint8_t first : std::array<std::uint8_t, 2>{1, 101}) {
            std::vector<std::byte> expected = Variable(field.variable);
            const auto bytes = Counting(field.size, first);
            std::ranges::copy(std::as_bytes(std::span(bytes)),
                              expected.begin() + static_cast<std::ptrdiff_t>(field.offset));
            DebugLines();
            EXPECT_EQ(field.set(bytes.data()), 0u);
            EXPECT_THAT(DebugLines(), ElementsAre("Success!! SetFirmwareEnvironmentVariable"));
            EXPECT_EQ(Variable(field.variable), expected);
            EXPECT_EQ(Read(field), bytes);
        }
    }
    const std::vector<std::uint8_t> manufactured = Read(Fields[2]);
    EXPECT_EQ(manufactured.front(), 101);
}

TEST_F(FirmwareVariablesTest, AsksForThePrivilegeAndGivesTheTokenBack) {
    Read(Fields[0]);
    const std::string guid = "{91b89306-5bac-4ae0-aab3-207ec12e989b}";
    std::vector<std::string> calls = Calls();
    ASSERT_EQ(calls.size(), 5u);
    EXPECT_EQ(calls[0], "OpenProcessToken access 40 = 1");
    EXPECT_EQ(calls[1], "LookupPrivilegeValueW SeSystemEnvironmentPrivilege = 1");
    EXPECT_EQ(calls[2], "AdjustTokenPrivileges 22 attributes 2 = 1");
    EXPECT_THAT(calls[3], StartsWith("CloseHandle"));
    EXPECT_EQ(calls[4], "GetFirmwareEnvironmentVariableW CNFG " + guid + " room 256 = 64");
    ForgetCalls();
    Fields[2].set(Counting(23, 0).data());
    EXPECT_EQ(Calls()[5], "SetFirmwareEnvironmentVariableW MFG0 " + guid + " 200 bytes = 1");
}

TEST_F(FirmwareVariablesTest, AFailedReadShowsInTheLogAndOnlyPartlyInTheResult) {
    const auto expectFailure = [](std::uint32_t code, std::vector<std::string> before = {}) {
        const std::string line =
            "Failed, GetFirmwareEnvironmentVariable(), GetLastError return " + std::to_string(code);
        before.push_back(line);
        for (const Field& field : Fields) {
            DebugLines();
            EXPECT_THAT(Read(field, field.tellsFailedRead ? code : 0), Each(0xEE));
            EXPECT_EQ(DebugLines(), before);
            const auto variable = Variable(field.variable);
            EXPECT_EQ(field.set(Counting(field.size, 7).data()), 0u);
            EXPECT_EQ(DebugLines(), before);
            EXPECT_EQ(Variable(field.variable), variable);
        }
    };
    StartMachine(R"({"firmware_variables": {"variables": []}})");
    expectFailure(203);
    StartMachine(R"({"firmware_variables": {"privilege_held": false}})");
    expectFailure(1314, {NoRight});
    StartMachine(R"({"firmware_variables": {"variables":
        [{"name": "CNFG", "size": 257}, {"name": "MFG0", "size": 300}]}})");
    expectFailure(122);
    // Too short for the field by one byte: no field, whatever of it is there.
    for (const Field& field : Fields) {
        StartMachine(R"({"firmware_variables": {"variables": [{"name": "CNFG", "size": )" +
                     std::to_string(field.offset + field.size - 1) +
                     R"(}, {"name": "MFG0", "size": 170}]}})");
        DebugLines();
        EXPECT_THAT(Read(field, field.tellsFailedRead ? 13 : 0), Each(0xEE));
        EXPECT_EQ(field.set(Counting(field.size, 7).data()), 0u);
        EXPECT_THAT(DebugLines(), Each("Failed, GetFirmwareEnvironmentVariable(), GetLastError return 13"));
        EXPECT_THAT(Variable(field.variable), Each(std::byte{0}));
        EXPECT_THAT(CallsOf("SetFirmwareEnvironmentVariableW"), IsEmpty());
    }
}

TEST_F(FirmwareVariablesTest, ALargestAndASmallestVariableWork) {
    StartMachine(R"({"firmware_variables": {"variables":
        [{"name": "CNFG", "size": 51}, {"name": "MFG0", "size": 256}]}})");
    for (const Field& field : Fields) {
        const std::size_t size = Variable(field.variable).size();
        EXPECT_EQ(field.set(Counting(field.size, 60).data()), 0u);
        EXPECT_EQ(Read(field), Counting(field.size, 60));
        EXPECT_EQ(Variable(field.variable).size(), size);
    }
}

TEST_F(FirmwareVariablesTest, AFailedWriteGivesItsCode) {
    StartMachine(R"({"firmware_variables": {"variables":
        [{"name": "CNFG", "size": 64, "read_only": true}, {"name": "MFG0", "size": 200, "read_only": true}]}})");
    for (const Field& field : Fields) {
        DebugLines();
        EXPECT_EQ(field.set(Counting(field.size, 7).data()), 19u);
        EXPECT_THAT(DebugLines(),
                    ElementsAre("Failed!! SetFirmwareEnvironmentVariable, GetLastError return 19"));
    }
}

TEST_F(FirmwareVariablesTest, GoesOnWithoutThePrivilegeWhereverAskingFails) {
    const auto bytes = Counting(16, 7);
    TheMachine().gate.Restart({.nth = 1});
    DebugLines();
    EXPECT_EQ(GPNV_Set_RandomUUID(bytes.data()), 0u);
    EXPECT_THAT(DebugLines(),
                ElementsAre("Failed OpenProcessToken",
                            "Failed, GetFirmwareEnvironmentVariable(), GetLastError return 1314"));
    for (const std::uint64_t nth : {2, 3}) {
        TheMachine().gate.Restart({.nth = nth});
        GPNV_Set_RandomUUID(bytes.data());
        EXPECT_THAT(
            DebugLines(),
            ElementsAre(NoRight, "Failed, GetFirmwareEnvironmentVariable(), GetLastError return 1314"));
    }
    TheMachine().gate.Restart();
    EXPECT_EQ(GPNV_Set_RandomUUID(bytes.data()), 0u);
    EXPECT_EQ(Read(Fields[0]), bytes);
}

TEST_F(FirmwareVariablesTest, VariablesSurviveTheProcess) {
    const auto store = std::filesystem::temp_directory_path() / "vesk-variables-test.sqlite";
    std::filesystem::remove(store);
    const auto bytes = Counting(19, 7);
    StartMachine("{}", store.string());
    EXPECT_EQ(GPNV_Set_ActivatedTime(bytes.data()), 0u);
    StartMachine("{}", store.string());
    EXPECT_EQ(Read(Fields[1]), bytes);
    StartMachine();
    std::filesystem::remove(store);
}

} // namespace
