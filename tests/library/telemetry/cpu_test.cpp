#include "machine_fixture.h"

#include <cmath>
#include <limits>

namespace {

using namespace testing;

const std::string Vendor = "0x80102068 000000000000000000000000000000000000000015";

class CpuTest : public test::MachineTest {
protected:
    void StartSamples(const std::string& first, const std::string& second) {
        StartMachine(R"({"system_power": {"samples": [{)" + first + "}, {" + second + "}]}}");
    }

    static std::vector<std::uint32_t> CpuId(std::uint32_t leaf) {
        std::vector<std::uint32_t> registers(4, 9);
        CPU_ReadCpuId(leaf, &registers[0], &registers[1], &registers[2], &registers[3]);
        return registers;
    }

    static std::vector<std::uint32_t> Powers() {
        return {Thermal_Read_CpuPackagePower(), Thermal_Read_CpuDptf_PowerLimit1(),
                Thermal_Read_CpuDptf_PowerLimit2()};
    }
};

TEST_F(CpuTest, UsageIsTheBusyShareOfOneSecond) {
    StartMachine(R"({"system_power": {"processors": 12, "kernel_share": 0.4, "load": 0.25}})");
    EXPECT_NEAR(CPU_ReadCPUUsage(), 0.25, 1e-6);
    EXPECT_THAT(CallsOf(Operation::Sleep), ElementsAre("Sleep milliseconds=1000"));

    struct Case {
        const char* first;
        const char* second;
        double usage;
    };

    const Case cases[] = {
        // Kernel time includes idle time.
        {R"("idle": 100, "kernel": 150, "user": 50)", R"("idle": 400, "kernel": 650, "user": 150)", 0.5},
        // 32-bit floating point, widened: not what 64 bits would give.
        {"", R"("idle": 1, "kernel": 3)", static_cast<double>(1.0F - 1.0F / 3.0F)},
        // Counters that do not change, alone or in sum, and that run backwards.
        {R"("idle": 7, "kernel": 9, "user": 5)", R"("idle": 7, "kernel": 9, "user": 5)", 1.0},
        {R"("idle": 7, "kernel": 9, "user": 5)", R"("idle": 9, "kernel": 8, "user": 6)", 1.0},
        {R"("idle": 400, "kernel": 650, "user": 150)", R"("idle": 100, "kernel": 150, "user": 50)", 0.5},
        {R"("idle": 400, "kernel": 100, "user": 0)", R"("idle": 390, "kernel": 110, "user": 10)", 1.5},
    };
    for (const Case& each : cases) {
        StartSamples(each.first, each.second);
        EXPECT_EQ(CPU_ReadCPUUsage(), each.usage) << each.first << " to " << each.second;
    }
    StartSamples(R"("idle": 0)",
                 R"("idle": "0xFFFFFFFFFFFFFFFF", "kernel": "0x8000000000000000", "user": 1)");
    EXPECT_TRUE(std::isfinite(CPU_ReadCPUUsage()));
    FailCalls({.nth = 1});
    ForgetCalls();
    EXPECT_EQ(CPU_ReadCPUUsage(), 0.0);
    EXPECT_THAT(CallsOf(Operation::Sleep), IsEmpty());
}

TEST_F(CpuTest, CpuIdGoesThroughTheDriver) {
    StartMachine(
        R"({"processor": {"cpuid": [{"leaf": "0x80000008", "eax": 1, "ebx": 2, "ecx": 3, "edx": 4}]}})");
    EXPECT_THAT(CpuId(0x80000008), ElementsAre(9, 9, 9, 9)) << "no session: as they were";
    EXPECT_THAT(Calls(), IsEmpty());
    InitializeSondrel();
    EXPECT_THAT(CpuId(0x80000008), ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(DriverRequests(), ElementsAre("0x80102068 080000800000000000000000000000000000000015"));
    EXPECT_THAT(CpuId(0), ElementsAre(_, 0x756E6547, 0x6C65746E, 0x49656E69));
}

TEST_F(CpuTest, PowerValuesNeedASessionAndAGenuineProcessor) {
    EXPECT_THAT(Powers(), ElementsAre(0, 0, 0));
    EXPECT_THAT(Calls(), IsEmpty());
    // One word of the vendor's text wrong at a time.
    for (const char* vendor : {"AuthenticAMD", "Xenuineintel", "GenuXneIntel", "GenuineIntex"}) {
        StartMachine(std::string(R"({"processor": {"vendor": ")") + vendor + R"("}})");
        InitializeSondrel();
        EXPECT_THAT(Powers(), ElementsAre(0, 0, 0)) << vendor;
        EXPECT_THAT(DriverRequests(), ElementsAre(Vendor, Vendor, Vendor));
    }
    StartFamily("KL", 0);
    EXPECT_THAT(Powers(), ElementsAre(17, 28, 64)) << "the driver's own";
    EXPECT_THAT(DriverRequests(),
                ElementsAre(Vendor, "0x8010207c", Vendor, "0x80102074 4c4b00000000000000000000", Vendor,
                            "0x80102078 4c4b00000000000000000000"));
    // An EC without an identity changes nothing but the code.
    StartMachine(R"({"ec": {"faults": [{"command": "0xBB", "status": 5}]}})");
    InitializeSondrel();
    EXPECT_EQ(Thermal_Read_CpuDptf_PowerLimit2(), 64u);
    EXPECT_EQ(DriverRequests().back(), "0x80102078 ffffff7f0000000000000000");
}

TEST_F(CpuTest, PowerSourceIsThePlatformsByte) {
    for (const auto& [source, mode] :
         {std::pair("battery", 0u), std::pair("ac", 1u), std::pair("unknown", 255u)}) {
        StartMachine(std::string(R"({"system_power": {"running_on": ")") + source + R"("}})");
        EXPECT_EQ(Power_Read_ACDCMode(), mode);
    }
}

} // namespace
