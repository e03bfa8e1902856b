#include "machine_fixture.h"

#include "machine/models/storage/firmware_store.h"
#include <algorithm>
#include <array>
#include <numeric>
#include <span>

namespace {

using namespace testing;
using test::Lines;

constexpr std::u16string_view Guid = u"{91b89306-5bac-4ae0-aab3-207ec12e989b}";

struct FirmwareField {
    std::uint32_t (*get)(std::uint8_t*);
    std::uint32_t (*set)(const std::uint8_t*);
    const char16_t* variable;
    std::size_t offset;
    std::size_t size;
    bool reportsFailedRead;
};

constexpr FirmwareField Fields[] = {
    {GPNV_Get_RandomUUID, GPNV_Set_RandomUUID, u"CNFG", 0, 16, true},
    {GPNV_Get_ActivatedTime, GPNV_Set_ActivatedTime, u"CNFG", 32, 19, false},
    {GPNV_Get_ManufacturedTime, GPNV_Set_ManufacturedTime, u"MFG0", 148, 23, true},
};

class FirmwareVariablesTest : public test::MachineTest {
protected:
    static std::vector<std::byte> Variable(const char16_t* name) {
        return TheMachine()->storage.firmwareVariables->Get(Guid, name).value_or(std::vector<std::byte>{});
    }

    void StartVariables(const std::string& members) {
        StartMachine(R"({"firmware_variables": {)" + members + "}}");
    }

    /// A machine with both variables, of these sizes.
    void StartSizes(std::size_t cnfg, std::size_t mfg0, const std::string& rest = "") {
        StartVariables(R"("variables": [{"name": "CNFG", "size": )" + std::to_string(cnfg) + rest +
                       R"(}, {"name": "MFG0", "size": )" + std::to_string(mfg0) + rest + "}]");
    }

    /// A getter's bytes. The bytes after them must be unchanged.
    static std::vector<std::uint8_t> Read(const FirmwareField& field, std::uint32_t expected = 0) {
        std::vector<std::uint8_t> capacity(field.size + 4, 0xEE);
        EXPECT_EQ(field.get(capacity.data()), expected);
        EXPECT_THAT(std::span(capacity).last(4), Each(0xEE));
        capacity.resize(field.size);
        return capacity;
    }

    static std::vector<std::uint8_t> Counting(std::size_t size, std::uint8_t first) {
        std::vector<std::uint8_t> bytes(size);
        std::iota(bytes.begin(), bytes.end(), first);
        return bytes;
    }

    /// A field that cannot be read is left as it is by its setter too, and both log why.
    static void ExpectNoField(const FirmwareField& field, std::uint32_t code, const Lines& lines,
                              std::uint32_t setResult = 0) {
        DebugLines();
        EXPECT_THAT(Read(field, field.reportsFailedRead ? code : 0), Each(0xEE));
        EXPECT_EQ(DebugLines(), lines);
        const auto variable = Variable(field.variable);
        EXPECT_EQ(field.set(Counting(field.size, 7).data()), setResult);
        EXPECT_EQ(DebugLines(), lines);
        EXPECT_EQ(Variable(field.variable), variable);
    }
};

TEST_F(FirmwareVariablesTest, ASetterReplacesItsFieldAndNothingElse) {
    for (const bool tight : {false, true}) {
        if (tight) {
            StartSizes(51, 256); // as short as the fields allow, and the longest that is handled
        }
        for (const FirmwareField& field : Fields) {
            std::vector<std::byte> expected = Variable(field.variable);
            const auto bytes = Counting(field.size, 101);
            std::ranges::copy(std::as_bytes(std::span(bytes)),
                              expected.begin() + static_cast<std::ptrdiff_t>(field.offset));
            DebugLines();
            EXPECT_EQ(field.set(bytes.data()), 0u);
            EXPECT_THAT(DebugLines(), ElementsAre("Success!! SetFirmwareEnvironmentVariable"));
            EXPECT_EQ(Variable(field.variable), expected);
            EXPECT_EQ(Read(field), bytes);
        }
    }
}

TEST_F(FirmwareVariablesTest, AsksForThePrivilegeAndGivesTheTokenBack) {
    Read(Fields[0]);
    const std::string guid = "{91b89306-5bac-4ae0-aab3-207ec12e989b}";
    EXPECT_THAT(
        Calls(),
        ElementsAre(
            "OpenProcessToken access=0x28 -> true token=token#1",
            R"(LookupPrivilegeValueW name="SeSystemEnvironmentPrivilege" -> true privilege={low=22 high=0})",
            "AdjustTokenPrivileges token=token#1 privilege={low=22 high=0} attributes=0x2 -> true error=0",
            "CloseHandle handle=token#1",
            StartsWith("GetFirmwareEnvironmentVariableW name=\"CNFG\" guid=\"" + guid +
                       "\" data=256 -> 64 data=")));
    ForgetCalls();
    Fields[2].set(Counting(23, 0).data());
    EXPECT_THAT(Calls()[5], AllOf(StartsWith("SetFirmwareEnvironmentVariableW name=\"MFG0\" guid=\"" + guid),
                                  EndsWith("... (200 bytes) -> true")));
    // It goes on without, wherever asking fails: for the token, for the privilege's name, for the privilege.
    for (const std::uint64_t nth : {1U, 2U, 3U}) {
        StartMachine();
        FailCalls({.nth = nth});
        GPNV_Set_RandomUUID(Counting(16, 7).data());
        EXPECT_THAT(DebugLines(),
                    ElementsAre(nth == 1 ? "Failed OpenProcessToken" : "Failed RasiePrivileges()",
                                "Failed, GetFirmwareEnvironmentVariable(), GetLastError return 1314"));
    }
}

TEST_F(FirmwareVariablesTest, AFailedReadShowsInTheLogAndOnlyPartlyInTheResult) {
    const std::string failed = "Failed, GetFirmwareEnvironmentVariable(), ";
    for (const FirmwareField& field : Fields) {
        StartVariables(R"("variables": [])");
        ExpectNoField(field, 203, {failed + "GetLastError return 203"});
        StartVariables(R"("privilege_held": false)");
        ExpectNoField(field, 1314, {"Failed RasiePrivileges()", failed + "GetLastError return 1314"});
        StartSizes(257, 300);
        ExpectNoField(field, 122, {failed + "GetLastError return 122"});
        // Too short for the field by one byte: no field, whatever of it is there.
        const std::size_t size = field.offset + field.size - 1;
        StartSizes(size, 170);
        ExpectNoField(field, 13, {failed + "the variable is too short: " + std::to_string(size) + " bytes"},
                      13);
        EXPECT_THAT(CallsOf(Operation::SetFirmwareEnvironmentVariableW), IsEmpty());
        // A read that the system fails with the same code is still one that a setter does not report.
        StartMachine();
        std::uint32_t result = 1;
        RunFailing(Operation::GetFirmwareEnvironmentVariableW, 1, Failure::Refused,
                   [&] { result = field.set(Counting(field.size, 7).data()); });
        EXPECT_EQ(result, 0u);
        StartSizes(64, 200, R"(, "read_only": true)");
        EXPECT_EQ(field.set(Counting(field.size, 7).data()), 19u);
        EXPECT_THAT(DebugLines(),
                    ElementsAre("Failed!! SetFirmwareEnvironmentVariable, GetLastError return 19"));
    }
}

} // namespace
