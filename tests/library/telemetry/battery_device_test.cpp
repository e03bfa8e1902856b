#include "machine_fixture.h"

#include "machine/models/battery_device.h"
#include "telemetry/battery_device.h"

#include <array>
#include <sstream>

namespace {

using namespace testing;

class BatteryDeviceTest : public test::MachineTest {
protected:
    void StartBattery(const std::string& battery) { StartMachine(R"({"batteries": [)" + battery + "]}"); }

    /// Designed, full and present capacity, voltage, health and charge.
    static std::string Readings() {
        std::ostringstream text;
        text << Battery_Read_DesignedCapacity() << ' ' << Battery_Read_FullChargedCapcity() << ' '
             << Battery_Read_Capacity() << ' ' << Battery_Read_DesignVoltage() << ' ' << Battery_Read_ASOC()
             << ' ' << Battery_Read_CapacityPercentage();
        return text.str();
    }
};

TEST_F(BatteryDeviceTest, AsksTheFirstBatteryStepByStep) {
    StartBattery(R"({"tag": 3, "designed_capacity": 57000, "full_charged_capacity": 51300, "cycle_count": 212,
                     "capacity": 43050, "voltage": 11700}, {"designed_capacity": 1})");
    EXPECT_EQ(Battery_Read_Capacity(), 43050u);
    EXPECT_THAT(
        Calls(),
        ElementsAre(
            "SetupDiGetClassDevsW class={72631e54-78a4-11d0-bcf7-00aa00b7b32a} flags=0x12 -> devices#1",
            AllOf(StartsWith("SetupDiEnumDeviceInterfaces set=devices#1 "), HasSubstr(" index=0 -> true ")),
            HasSubstr(" detail=0 required=0 -> false required=120 error=122"),
            HasSubstr(" detail=120 required=120 -> true "),
            R"(CreateFileW path="\\?\acpi#pnp0c0a#0#{72631e54-78a4-11d0-bcf7-00aa00b7b32a}" access=0xc0000000 )"
            "share=0x3 disposition=3 flags=0x80 -> file#2",
            "DeviceIoControl device=file#2 code=0x294040 in=00000000 out=4 -> true out=03000000 returned=4",
            HasSubstr(" code=0x294044 in=030000000000000000000000 out=36 -> true out="),
            HasSubstr(" code=0x29404c in=0300000000000000000000000000000000000000 out=16 -> true out="),
            "CloseHandle handle=file#2", "SetupDiDestroyDeviceInfoList set=devices#1"));
    EXPECT_EQ(Readings(), "57000 51300 43050 11700 0.9 80");
}

TEST_F(BatteryDeviceTest, WhatTheDeviceDoesNotGiveIsZero) {
    const std::pair<const char*, const char*> batteries[] = {
        {R"({"system_battery": false, "designed_capacity": 10, "full_charged_capacity": 9, "capacity": 8,
             "voltage": 7})",
         "10 9 0 0 0.9 0"}, // no status is asked for
        {R"({"capacity": 8, "voltage": 7})", "0 0 8 7 0 0"},
        {R"({"tag": 0, "designed_capacity": 10})", "0 0 0 0 0 0"}, // an empty bay
        {"", "0 0 0 0 0 0"}};
    for (const auto& [battery, readings] : batteries) {
        StartBattery(battery);
        EXPECT_EQ(Readings(), readings) << battery;
        EXPECT_THAT(CallsOf(Operation::DeviceIoControl).size(), AnyOf(0u, 6u, 12u, 18u));
    }
    // Values read before a failed step stay.
    StartMachine();
    sondrel::BatteryRecord battery;
    const auto read = [&battery] {
        battery = sondrel::ReadBatteryDevice();
    };
    RunFailing(Operation::DeviceIoControl, 3, Failure::Refused, read);
    EXPECT_EQ(battery.designedCapacity, 57000u);
    EXPECT_EQ(battery.voltage, 0u);
    RunFailing(Operation::DeviceIoControl, 1, Failure::Nothing, read);
    EXPECT_EQ(battery.designedCapacity, 0u) << "a tag of zero is no tag";
    EXPECT_THAT(CallsOf(Operation::DeviceIoControl), SizeIs(1));
}

TEST_F(BatteryDeviceTest, CyclesComeFromTheDeviceOrTheEcByCodeAlone) {
    for (const char* code : {"AB", "AR", "KL", "CF", "GL", "PC", "WL", "ZX"}) {
        const std::string_view name(code);
        const bool device = name == "AB" || name == "AR" || name == "KL";
        for (const int chipId : {0, 1, 2}) {
            StartMachine(R"({"ec": {"revision": ")" + std::string(code) + R"(", "chip_id": )" +
                         std::to_string(chipId) + "}}");
            InitializeSondrel();
            EXPECT_EQ(Battery_Read_CycleCount(), device ? 212u : name == "ZX" ? 0u : 138u) << code;
            EXPECT_THAT(CallsOf(Operation::SetupDiGetClassDevsW), SizeIs(device ? 1 : 0));
            EXPECT_EQ(SentTraffic().substr(0, 14),
                      "bb 03, bb 04" + std::string(device || name == "ZX" ? "" : ", "));
        }
    }
}

TEST(RoundedPercentageTest, RoundsToTensAndIsSafeForEveryPair) {
    using sondrel::RoundedPercentage;

    // Capacity, full capacity, percent. From 42949668 on the floats lie 256 apart; the last are beyond 32 bits.
    const std::array<std::uint32_t, 3> cases[] = {{4150, 5000, 80},
                                                  {4250, 5000, 90},
                                                  {84, 100, 80},
                                                  {85, 100, 90},
                                                  {4, 100, 0},
                                                  {5, 100, 10},
                                                  {5200, 5000, 100},
                                                  {5300, 5000, 110},
                                                  {0, 0, 0},
                                                  {0xFFFFFFFF, 0, 0},
                                                  {0xFFFFFFFF, 0xFFFFFFFF, 100},
                                                  {1, 0xFFFFFFFF, 0},
                                                  {42949668, 1, 4294966780},
                                                  {42949673, 1, 4294967290},
                                                  {0xFFFFFFFF, 1, 4294967290}};
    for (const auto& [capacity, full, percent] : cases) {
        EXPECT_EQ(RoundedPercentage(capacity, full), percent) << capacity << " of " << full;
    }
}

} // namespace
