#include "machine_fixture.h"

#include "platform/simulated/battery_device.h"
#include "telemetry/battery_device.h"
#include "vesk_sondrel.h"

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;
using ::testing::StartsWith;

class BatteryDeviceTest : public test::MachineTest {
protected:
    void StartBattery(const std::string& battery) { StartMachine(R"({"batteries": [)" + battery + "]}"); }
};

TEST_F(BatteryDeviceTest, AsksTheFirstBatteryStepByStep) {
    StartBattery(R"({"tag": 3, "designed_capacity": 57000, "full_charged_capacity": 51300, "cycle_count": 212,
                     "capacity": 43050, "voltage": 11700}, {"designed_capacity": 1})");
    EXPECT_EQ(Battery_Read_Capacity(), 43050u);
    EXPECT_THAT(
        Calls(),
        ElementsAre(
            "SetupDiGetClassDevsW flags 18 = 4096", "SetupDiEnumDeviceInterfaces index 0 = 1",
            "SetupDiGetDeviceInterfaceDetailW room 0 = 0",
            StartsWith("SetupDiGetDeviceInterfaceDetailW room 120"),
            "CreateFileW \\\\?\\acpi#pnp0c0a#0#{72631e54-78a4-11d0-bcf7-00aa00b7b32a} access 0xc0000000 "
            "share 0x3 = 4100",
            "DeviceIoControl 0x294040 in 00000000 out 03000000 = 1",
            StartsWith("DeviceIoControl 0x294044 in 030000000000000000000000 out "),
            StartsWith("DeviceIoControl 0x29404c in 0300000000000000000000000000000000000000 out "),
            "CloseHandle", "SetupDiDestroyDeviceInfoList"));
    EXPECT_EQ(Battery_Read_DesignedCapacity(), 57000u);
    EXPECT_EQ(Battery_Read_FullChargedCapcity(), 51300u);
    EXPECT_EQ(Battery_Read_DesignVoltage(), 11700u);
    EXPECT_EQ(Battery_Read_ASOC(), 51300.0F / 57000.0F);
    EXPECT_EQ(Battery_Read_CapacityPercentage(), 80u);
}

TEST_F(BatteryDeviceTest, WhatTheDeviceDoesNotGiveIsZero) {
    // No system battery: no status is asked for.
    StartBattery(R"({"system_battery": false, "designed_capacity": 10, "full_charged_capacity": 9,
                     "cycle_count": 2, "capacity": 8, "voltage": 7})");
    EXPECT_EQ(Battery_Read_FullChargedCapcity(), 9u);
    EXPECT_THAT(CallsOf("DeviceIoControl"), SizeIs(2));
    EXPECT_EQ(Battery_Read_Capacity(), 0u);
    EXPECT_EQ(Battery_Read_DesignVoltage(), 0u);
    EXPECT_EQ(Battery_Read_CapacityPercentage(), 0u);
    // No capacities.
    StartBattery(R"({"capacity": 8, "voltage": 7})");
    EXPECT_EQ(Battery_Read_ASOC(), 0.0F);
    EXPECT_EQ(Battery_Read_CapacityPercentage(), 0u);
    EXPECT_EQ(Battery_Read_DesignVoltage(), 7u);
    // An empty bay, and no bay at all.
    StartBattery(R"({"tag": 0, "designed_capacity": 10})");
    EXPECT_EQ(Battery_Read_DesignedCapacity(), 0u);
    StartBattery("");
    EXPECT_EQ(Battery_Read_DesignedCapacity(), 0u);
    EXPECT_EQ(Battery_Read_ASOC(), 0.0F);
    EXPECT_THAT(CallsOf("SetupDiGetDeviceInterfaceDetailW"), ::testing::IsEmpty());
    // A tag of zero is no tag.
    StartMachine();
    TheMachine().gate.Restart({.nth = 6, .kind = machine::Failure::Nothing});
    EXPECT_EQ(Battery_Read_DesignedCapacity(), 0u);
    EXPECT_THAT(CallsOf("DeviceIoControl"), SizeIs(1));
}

TEST_F(BatteryDeviceTest, EachStepsFailureKeepsWhatIsKnownAndReleasesTheRest) {
    // Per failing call: designed capacity and voltage that remain, and the releases in their order.
    struct Step {
        std::uint64_t call;
        std::uint32_t designed;
        std::uint32_t voltage;
        std::vector<std::string> releases;
    };

    const std::string file = "CloseHandle";
    const std::string set = "SetupDiDestroyDeviceInfoList";
    const Step steps[] = {{1, 0, 0, {}},          {2, 0, 0, {set}},          {3, 0, 0, {set}},
                          {4, 0, 0, {set}},       {5, 0, 0, {set}},          {6, 0, 0, {file, set}},
                          {7, 0, 0, {file, set}}, {8, 57000, 0, {file, set}}};
    for (const Step& step : steps) {
        SCOPED_TRACE(step.call);
        ForgetCalls();
        TheMachine().gate.Restart({.nth = step.call});
        const sondrel::BatteryRecord battery = sondrel::ReadBatteryDevice();
        EXPECT_EQ(TheMachine().gate.Injected(), 1u);
        EXPECT_EQ(battery.designedCapacity, step.designed);
        EXPECT_EQ(battery.voltage, step.voltage);
        std::vector<std::string> releases = CallsOf(file);
        const auto sets = CallsOf(set);
        releases.insert(releases.end(), sets.begin(), sets.end());
        EXPECT_EQ(releases, step.releases);
        EXPECT_THAT(TheMachine().gate.OpenThings(), ::testing::IsEmpty());
    }
}

TEST_F(BatteryDeviceTest, CyclesComeFromTheDeviceOrTheEcByCodeAlone) {
    for (const char* code : {"AB", "AR", "KL"}) {
        for (const char* chipId : {"0", "1", "2"}) {
            StartMachine(std::string(R"({"ec": {"revision": ")") + code + R"(", "chip_id": )" + chipId +
                         "}}");
            InitializeSondrel();
            EXPECT_EQ(Battery_Read_CycleCount(), 212u);
            EXPECT_THAT(EcCommands(), ElementsAre("bb 03", "bb 04"));
            ShutdownSondrel();
        }
    }
    for (const char* code : {"CF", "GL", "PC", "WL"}) {
        StartMachine(std::string(R"({"ec": {"revision": ")") + code + R"("}})");
        InitializeSondrel();
        EXPECT_EQ(Battery_Read_CycleCount(), 138u);
        EXPECT_THAT(CallsOf("SetupDiGetClassDevsW"), SizeIs(0));
        ShutdownSondrel();
        EXPECT_EQ(Battery_Read_CycleCount(), 0x7FFFFFFFu);
    }
    StartMachine(R"({"ec": {"revision": "ZX"}})");
    InitializeSondrel();
    EXPECT_EQ(Battery_Read_CycleCount(), 0u);
    EXPECT_THAT(CallsOf("SetupDiGetClassDevsW"), SizeIs(0));
    ShutdownSondrel();
}

TEST(RoundedPercentageTest, RoundsToTensAndIsSafeForEveryPair) {
    using sondrel::RoundedPercentage;

    struct Case {
        std::uint32_t capacity;
        std::uint32_t full;
        std::uint32_t percent;
    };

    const Case cases[] = {{4150, 5000, 80},
                          {4250, 5000, 90},
                          {84, 100, 80},
                          {85, 100, 90},
                          {94, 100, 90},
                          {99, 100, 100},
                          {100, 100, 100},
                          {4, 100, 0},
                          {5, 100, 10},
                          {0, 5000, 0},
                          {5200, 5000, 100},
                          {5300, 5000, 110},
                          {1, 0, 0},
                          {0, 0, 0},
                          {0xFFFFFFFF, 0, 0},
                          {0xFFFFFFFF, 0xFFFFFFFF, 100},
                          {1, 0xFFFFFFFF, 0},
                          {42949668, 1, 4294966780}, // the floats lie 256 apart here
                          {42949673, 1, 4294967290}, // 2^32 in 32-bit floating point
                          {0x80000000, 1, 4294967290},
                          {0xFFFFFFFF, 1, 4294967290}};
    for (const Case& each : cases) {
        EXPECT_EQ(RoundedPercentage(each.capacity, each.full), each.percent)
            << each.capacity << " of " << each.full;
    }
    // Over a spread of pairs: a multiple of ten, and near the true quotient.
    std::uint32_t seed = 1;
    for (int round = 0; round < 200000; ++round) {
        seed = seed * 1664525 + 1013904223;
        const std::uint32_t capacity = seed >> (seed % 29);
        seed = seed * 1664525 + 1013904223;
        const std::uint32_t full = seed >> (seed % 29);
        const std::uint32_t percent = RoundedPercentage(capacity, full);
        ASSERT_EQ(percent % 10, 0u);
        if (full != 0 && capacity <= full) {
            ASSERT_NEAR(percent, 100.0 * capacity / full, 6.0) << capacity << " of " << full;
        }
    }
}

} // namespace
