#include "machine_fixture.h"

#include "vesk_sondrel.h"

#include <cmath>

namespace {

using test::DriverRequest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CpuTest : public test::MachineTest {
protected:
    void StartSamples(const std::string& first, const std::string& second) {
        StartMachine(R"({"system_power": {"samples": [)" + first + ", " + second + "]}}");
    }

    const DriverRequest VendorRequest{0x80102068, "000000000000000000000000000000000000000015"};
};

TEST_F(CpuTest, UsageIsTheBusyShareOfOneSecond) {
    for (const double load : {0.0, 0.25, 0.5, 1.0}) {
        StartMachine(R"({"system_power": {"processors": 12, "kernel_share": 0.4, "load": )" +
                     std::to_string(load) + "}}");
        EXPECT_NEAR(CPU_ReadCPUUsage(), load, 1e-6);
        EXPECT_THAT(CallsOf("Sleep"), ElementsAre("Sleep 1000 ms"));
    }
    // Kernel time includes idle time.
    StartSamples(R"({"idle": 100, "kernel": 150, "user": 50})",
                 R"({"idle": 400, "kernel": 650, "user": 150})");
    EXPECT_EQ(CPU_ReadCPUUsage(), 0.5);
    // 32-bit floating point, widened: not what 64 bits would give.
    StartSamples(R"({})", R"({"idle": 1, "kernel": 3})");
    EXPECT_EQ(CPU_ReadCPUUsage(), static_cast<double>(1.0F - 1.0F / 3.0F));
}

TEST_F(CpuTest, CountersThatStandStillOrRunBackwardsGiveAFiniteNumber) {
    StartSamples(R"({"idle": 7, "kernel": 9, "user": 5})", R"({"idle": 7, "kernel": 9, "user": 5})");
    EXPECT_EQ(CPU_ReadCPUUsage(), 1.0);
    StartSamples(R"({"idle": 7, "kernel": 9, "user": 5})", R"({"idle": 9, "kernel": 8, "user": 6})");
    EXPECT_EQ(CPU_ReadCPUUsage(), 1.0); // the sum stands still
    StartSamples(R"({"idle": 400, "kernel": 650, "user": 150})",
                 R"({"idle": 100, "kernel": 150, "user": 50})");
    EXPECT_EQ(CPU_ReadCPUUsage(), 0.5);
    StartSamples(R"({"idle": 400, "kernel": 100, "user": 0})", R"({"idle": 390, "kernel": 110, "user": 10})");
    EXPECT_EQ(CPU_ReadCPUUsage(), 1.5);
    StartSamples(R"({"idle": 0})",
                 R"({"idle": "0xFFFFFFFFFFFFFFFF", "kernel": "0x8000000000000000", "user": 1})");
    EXPECT_TRUE(std::isfinite(CPU_ReadCPUUsage()));
}

TEST_F(CpuTest, ASampleThatFailsGivesZero) {
    StartMachine(R"({"system_power": {"load": 0.5}})");
    TheMachine().gate.Restart({.nth = 1});
    EXPECT_EQ(CPU_ReadCPUUsage(), 0.0);
    EXPECT_THAT(CallsOf("Sleep"), IsEmpty());
    TheMachine().gate.Restart({.nth = 3});
    EXPECT_EQ(CPU_ReadCPUUsage(), 0.0);
}

TEST_F(CpuTest, CpuIdGoesThroughTheDriver) {
    StartMachine(
        R"({"processor": {"cpuid": [{"leaf": "0x80000008", "eax": 1, "ebx": 2, "ecx": 3, "edx": 4}]}})");
    std::uint32_t eax = 9, ebx = 9, ecx = 9, edx = 9;
    CPU_ReadCpuId(0x80000008, &eax, &ebx, &ecx, &edx);
    EXPECT_THAT((std::vector{eax, ebx, ecx, edx}), ElementsAre(9u, 9u, 9u, 9u));
    EXPECT_THAT(Calls(), IsEmpty());
    InitializeSondrel();
    CPU_ReadCpuId(0x80000008, &eax, &ebx, &ecx, &edx);
    EXPECT_THAT((std::vector{eax, ebx, ecx, edx}), ElementsAre(1u, 2u, 3u, 4u));
    EXPECT_THAT(DriverRequests(),
                ElementsAre(DriverRequest{0x80102068, "080000800000000000000000000000000000000015"}));
    CPU_ReadCpuId(0, &eax, &ebx, &ecx, &edx);
    EXPECT_THAT((std::vector{ebx, edx, ecx}), ElementsAre(0x756E6547u, 0x49656E69u, 0x6C65746Eu));
    TheMachine().gate.Restart({.nth = 1});
    CPU_ReadCpuId(0, &eax, &ebx, &ecx, &edx);
    EXPECT_THAT((std::vector{eax, ebx, ecx, edx}), ElementsAre(0u, 0u, 0u, 0u));
    ShutdownSondrel();
}

TEST_F(CpuTest, PowerValuesNeedASessionAndAGenuineProcessor) {
    const auto powers = [] {
        return std::vector{Thermal_Read_CpuPackagePower(), Thermal_Read_CpuDptf_PowerLimit1(),
                           Thermal_Read_CpuDptf_PowerLimit2()};
    };
    EXPECT_THAT(powers(), ElementsAre(0u, 0u, 0u));
    EXPECT_THAT(Calls(), IsEmpty());
    // One word of the vendor's text wrong at a time.
    for (const char* vendor : {"AuthenticAMD", "Xenuineintel", "GenuXneIntel", "GenuineIntex"}) {
        StartMachine(std::string(R"({"processor": {"vendor": ")") + vendor + R"("}})");
        InitializeSondrel();
        EXPECT_THAT(powers(), ElementsAre(0u, 0u, 0u)) << vendor;
        EXPECT_THAT(DriverRequests(), ElementsAre(VendorRequest, VendorRequest, VendorRequest));
        ShutdownSondrel();
    }
}

TEST_F(CpuTest, PowerValuesAreTheDriversOwn) {
    InitializeSondrel();
    EC_ReadEcFwRev();
    ForgetCalls();
    EXPECT_EQ(Thermal_Read_CpuPackagePower(), 17u);
    EXPECT_EQ(Thermal_Read_CpuDptf_PowerLimit1(), 28u);
    EXPECT_EQ(Thermal_Read_CpuDptf_PowerLimit2(), 64u);
    EXPECT_THAT(DriverRequests(),
                ElementsAre(VendorRequest, DriverRequest{0x8010207C, ""}, VendorRequest,
                            DriverRequest{0x80102074, "4c4b00000000000000000000"}, VendorRequest,
                            DriverRequest{0x80102078, "4c4b00000000000000000000"}));
    ShutdownSondrel();
    // An EC without an identity changes nothing but the code.
    StartMachine(R"({"ec": {"faults": [{"command": "0xBB", "status": 5}]}})");
    InitializeSondrel();
    EXPECT_EQ(Thermal_Read_CpuDptf_PowerLimit2(), 64u);
    EXPECT_EQ(DriverRequests().back().in, "ffffff7f0000000000000000");
    ShutdownSondrel();
}

TEST_F(CpuTest, APowerRequestThatFailsGivesZero) {
    InitializeSondrel();
    EC_ReadEcFwRev();
    for (const auto read :
         {Thermal_Read_CpuPackagePower, Thermal_Read_CpuDptf_PowerLimit1, Thermal_Read_CpuDptf_PowerLimit2}) {
        for (std::uint64_t call = 1; call < 10; ++call) {
            TheMachine().gate.Restart({.nth = call, .kind = machine::Failure::Refused});
            const std::uint32_t power = read();
            const bool requestFailed =
                TheMachine().gate.Injected() == 1 && (call == 1 || call == TheMachine().gate.CallCount());
            if (requestFailed) {
                EXPECT_EQ(power, 0u) << call;
            }
        }
    }
    TheMachine().gate.Restart();
    ShutdownSondrel();
}

TEST_F(CpuTest, PowerSourceIsThePlatformsByte) {
    struct Case {
        const char* source;
        std::uint32_t mode;
    };

    for (const Case& each : {Case{"battery", 0}, Case{"ac", 1}, Case{"unknown", 255}}) {
        StartMachine(std::string(R"({"system_power": {"running_on": ")") + each.source + R"("}})");
        EXPECT_EQ(Power_Read_ACDCMode(), each.mode);
    }
    StartMachine();
    TheMachine().gate.Restart({.nth = 1});
    EXPECT_EQ(Power_Read_ACDCMode(), 255u);
}

} // namespace
