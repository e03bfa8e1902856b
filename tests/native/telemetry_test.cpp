// What the temperature, fan and battery exports make of the EC's bytes.
#include "ec_traffic.h"

#include "platform/simulated/profile.h"
#include "telemetry/thermistor_curves.h"

#include <set>

namespace {

using test::GuardedText;
using ::testing::IsEmpty;

constexpr std::size_t ListSize = 44;
constexpr std::size_t ShortTextSize = 11;

class TelemetryTest : public test::EcTest {
protected:
    struct Family {
        const char* revision;
        int chipId;
        const char* fans;
    };

    static constexpr Family Families[] = {{"AB", 0, "2913;3071;0;0"},       {"AR", 0, "2913;3071;0;0"},
                                          {"CF", 0, "2912;3071;2455;1999"}, {"GL", 1, "2912;3071;2455;1999"},
                                          {"PC", 0, "2912;3071;2455;1999"}, {"WL", 1, "2912;3071;2455;1999"},
                                          {"KL", 0, "2913;3071;2455;0"},    {"KL", 1, "2913;3071;0;0"}};
};

TEST_F(TelemetryTest, EveryFamilyGivesTheMachinesValues) {
    for (const Family& family : Families) {
        SCOPED_TRACE(family.revision);
        StartFamily(family.revision, family.chipId,
                    R"("lid": 3, "fans": [{"rpm": 2912}, {"rpm": 3071}, {"rpm": 2455}, {"rpm": 1999}])");
        EXPECT_EQ(Thermal_Read_Cpu_Temperature(), 53u);
        EXPECT_EQ(Thermal_Read_BoardTS0L_Temperature(), 39u);
        EXPECT_EQ(Thermal_Read_BoardTS0R_Temperature(), 42u);
        EXPECT_EQ(Thermal_Read_GpuTS1L_Temperature(), 60u);
        EXPECT_EQ(Thermal_Read_GpuTS1R_Temperature(), 62u);
        EXPECT_EQ(Thermal_Read_BatteryConnector_Temperature(), 55u);
        EXPECT_EQ(Thermal_Read_ACFET_Temperature(), 64u);
        EXPECT_EQ(Thermal_Read_ChargerChoke_Temperature(), 69u);
        EXPECT_EQ(Thermal_Read_GpuVrm_Temperature(), 78u);
        EXPECT_EQ(Thermal_Read_UpCpu_Temperature(), 50u);
        EXPECT_EQ(Thermal_Read_GpuVram_Temperature(), 72u);
        EXPECT_EQ(Battery_Get_LidStatus(), 3u);
        EXPECT_EQ(Battery_Read_ChargingVoltage(), 13060u);
        EXPECT_EQ(Battery_Read_PackageVoltage(), 11630u);
        EXPECT_EQ(Battery_Read_Temperature(), 3028u);
        EXPECT_EQ(Battery_Read_Current(), -1260);
        EXPECT_EQ(GuardedText<ListSize>(Thermal_Read_Fan).Text(), family.fans);
        EXPECT_EQ(GuardedText<ListSize>(Battery_Read_CellVoltage).Text(), "3862;3873;3884;3895");
        EXPECT_EQ(GuardedText<ShortTextSize>(Battery_Read_ManufactureDate).Text(), "2023-06-14");
        EXPECT_EQ(GuardedText<ShortTextSize>(Battery_Read_ManufactureName).Text(), "VESKCELL01");
    }
}

TEST_F(TelemetryTest, TheCurrentKeepsItsSign) {
    struct Case {
        const char* amperes;
        std::int32_t current;
    };

    for (const Case& each : {Case{"-1.0", -1000}, Case{"0.0", 0}, Case{"-0.001", -1}, Case{"32.767", 32767},
                             Case{"-32.768", -32768}}) {
        StartFamily("GL", 0, std::string(R"("battery": {"current": )") + each.amperes + "}");
        EXPECT_EQ(Battery_Read_Current(), each.current);
    }
}

TEST_F(TelemetryTest, TextsStayWithinTheirSizes) {
    // The longest list: every place failed.
    StartFamily("CF", 0, R"("faults": [{"command": "0xCC", "status": 1}, {"command": "0xC4", "status": 1}])");
    for (const auto list : {Thermal_Read_Fan, Battery_Read_CellVoltage}) {
        const GuardedText<ListSize> text(list);
        EXPECT_EQ(text.Text(), "2147483647;2147483647;2147483647;2147483647");
        EXPECT_EQ(text.Written(), ListSize);
    }
    const GuardedText<ShortTextSize> noName(Battery_Read_ManufactureName);
    EXPECT_EQ(noName.Text(), "0x7FFFFFFF");
    EXPECT_EQ(noName.Written(), ShortTextSize);
    // The shortest one writes no more than it needs.
    StartFamily("LK", 0);
    EXPECT_EQ(GuardedText<ListSize>(Thermal_Read_Fan).Written(), 8u);
    StartMachine();
    ForgetCalls();
    Thermal_Read_Fan(nullptr);
    Battery_Read_CellVoltage(nullptr);
    Battery_Read_ManufactureDate(nullptr);
    Battery_Read_ManufactureName(nullptr);
    EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(TelemetryTest, NamesAreTenBytesAsTheyCome) {
    struct Case {
        const char* name;
        std::string bytes;
    };

    using namespace std::string_literals;
    const Case cases[] = {{"TENLETTERS", "TENLETTERS\0"s},
                          {"OHM", "OHM\0\0\0\0\0\0\0\0"s},
                          {R"(AB\u0000DEFGHIJ)", "AB\0DEFGHIJ\0"s},
                          {R"(\u0000BCDEFGHIJ)", "0x7FFFFFFF\0"s},
                          {"", "0x7FFFFFFF\0"s}};
    for (const Case& each : cases) {
        StartFamily("KL", 0, std::string(R"("battery": {"manufacturer": ")") + each.name + R"("})");
        const GuardedText<ShortTextSize> text(Battery_Read_ManufactureName);
        EXPECT_EQ(text.Bytes(), each.bytes);
        EXPECT_EQ(text.Written(), ShortTextSize);
    }
}

TEST_F(TelemetryTest, DatesAreWrittenWhateverTheirFields) {
    struct Case {
        const char* date;
        const char* text;
    };

    const Case cases[] = {{"2017-10-28", "2017-10-28"}, {"1980-00-00", "1980-01-01"},
                          {"1980-00-01", "1980-00-01"}, {"1980-15-31", "1980-15-31"},
                          {"2107-15-31", "2107-15-31"}, {"2000-00-00", "2000-00-00"}};
    for (const Case& each : cases) {
        for (const int chipId : {0, 1}) {
            StartFamily("KL", chipId,
                        std::string(R"("battery": {"manufacture_date": ")") + each.date + R"("})");
            const GuardedText<ShortTextSize> text(Battery_Read_ManufactureDate);
            EXPECT_EQ(text.Text(), each.text);
            EXPECT_EQ(text.Written(), ShortTextSize);
        }
    }
}

TEST_F(TelemetryTest, FanSpeedsOverTheWholeRangeOfTheCounter) {
    struct Case {
        const char* rpm;
        const char* text;
    };

    // A standing fan counts 0, the fastest 1, and the slowest cannot be told from slower ones.
    for (const Case& each : {Case{"0", "0;0;0;0"}, Case{"2156250", "2156250;0;0;0"},
                             Case{"1078125", "1078125;0;0;0"}, Case{"1", "32;0;0;0"}}) {
        StartFamily("AB", 0, std::string(R"("fans": [{"rpm": )") + each.rpm + "}]");
        EXPECT_EQ(GuardedText<ListSize>(Thermal_Read_Fan).Text(), each.text);
    }
    StartFamily("CF", 0, R"("fans": [{"rpm": 65535}, {"rpm": 255}, {"rpm": 256}])");
    EXPECT_EQ(GuardedText<ListSize>(Thermal_Read_Fan).Text(), "65535;255;256;0");
}

TEST_F(TelemetryTest, SensorsBeyondTheirCurvesStayAtTheEnds) {
    StartFamily(
        "AR", 0,
        R"("sensors": {"ac_fet": {"degrees": 20}, "gpu_vrm": {"degrees": 200}, "upper_cpu": {"degrees": 20},
                               "gpu_vram": {"degrees": 200}})");
    EXPECT_EQ(Thermal_Read_ACFET_Temperature(), 53u); // 51 and 52 have the same count
    EXPECT_EQ(Thermal_Read_GpuVrm_Temperature(), 110u);
    EXPECT_EQ(Thermal_Read_UpCpu_Temperature(), 35u);
    EXPECT_EQ(Thermal_Read_GpuVram_Temperature(), 100u);
    StartFamily("WL", 0, R"("sensors": {"ac_fet": {"degrees": 20}, "gpu_vram": {"degrees": 200}})");
    EXPECT_EQ(Thermal_Read_ACFET_Temperature(), 20u);
    EXPECT_EQ(Thermal_Read_GpuVram_Temperature(), 200u);
}

class BuiltInMachineTest : public test::EcTest {
protected:
    static void StartBuiltIn(const std::string& name) {
        ShutdownSondrel();
        machine::Start(machine::LoadProfile(name), ":memory:");
        EXPECT_EQ(InitializeSondrel(), 1);
    }
};

TEST_F(BuiltInMachineTest, AnswersByItsProfileWhereItHasAMap) {
    const std::set<std::string> withoutMap{"ab-chip-1", "kl-chip-2", "unknown-code", "no-identity"};
    std::size_t mapped = 0;
    for (const std::string& name : machine::BuiltInMachines()) {
        SCOPED_TRACE(name);
        StartBuiltIn(name);
        const machine::Profile& profile = TheMachine().profile;
        const bool map = !withoutMap.contains(name);
        mapped += map ? 1 : 0;
        EXPECT_EQ(Thermal_Read_Cpu_Temperature(), map ? profile.ec.temperatures.cpu : 0u);
        EXPECT_EQ(Thermal_Read_GpuTS1R_Temperature(), map ? profile.ec.temperatures.gpuRight : 0u);
        EXPECT_EQ(Battery_Read_PackageVoltage(),
                  map ? static_cast<std::uint32_t>(profile.ec.battery.packageVolts * 1000 + 0.5) : 0u);
        EXPECT_EQ(GuardedText<ShortTextSize>(Battery_Read_ManufactureName).Text(),
                  map && !profile.ec.battery.manufacturer.empty() ? profile.ec.battery.manufacturer
                                                                  : "0x7FFFFFFF");
        EXPECT_EQ(Battery_Read_DesignedCapacity(),
                  profile.batteries.empty() ? 0u : profile.batteries.front().designedCapacity);
        EXPECT_EQ(Power_Read_ACDCMode(), profile.systemPower.acLine);
        EXPECT_NEAR(CPU_ReadCPUUsage(), profile.systemPower.load, 1e-6);
    }
    EXPECT_GE(mapped, 10u);
}

TEST_F(BuiltInMachineTest, TheAwkwardOnesAreAwkward) {
    StartBuiltIn("awkward-battery");
    EXPECT_EQ(GuardedText<ListSize>(Battery_Read_CellVoltage).Text(), "0;0;0;0");
    EXPECT_EQ(GuardedText<ShortTextSize>(Battery_Read_ManufactureDate).Text(), "1980-01-01");
    EXPECT_EQ(GuardedText<ListSize>(Thermal_Read_Fan).Text(), "0;32;0;0");
    EXPECT_EQ(Battery_Read_Current(), -32768);
    EXPECT_EQ(Battery_Read_ASOC(), 0.0F);
    EXPECT_EQ(Battery_Read_DesignVoltage(), 0u);
    EXPECT_EQ(Thermal_Read_CpuPackagePower(), 0u);
    StartBuiltIn("awkward-sensors");
    EXPECT_EQ(Thermal_Read_Cpu_Temperature(), 255u);
    EXPECT_EQ(Thermal_Read_BatteryConnector_Temperature(), 0u);
    EXPECT_EQ(Thermal_Read_GpuVram_Temperature(), 0u);
    EXPECT_EQ(Thermal_Read_GpuVrm_Temperature(), 110u);
    EXPECT_EQ(Thermal_Read_UpCpu_Temperature(), 35u);
    EXPECT_EQ(GuardedText<ListSize>(Thermal_Read_Fan).Text(), "0;2800;32;0");
    EXPECT_EQ(GuardedText<ShortTextSize>(Battery_Read_ManufactureDate).Text(), "2026-15-00");
    EXPECT_EQ(Battery_Read_CapacityPercentage(), 0u);
}

/// The degrees of every count, from 0 on.
// clang-format off
constexpr std::uint32_t Degrees1[256] = {
    110, 110, 110, 110, 110, 110, 110, 110, 110, 110, 110, 110, 110, 110, 110, 110, 110, 110, 110, 110, 110, 110,
    110, 110, 110, 110, 110, 109, 109, 109, 109, 109, 109, 108, 108, 108, 107, 107, 107, 106, 106, 106, 105, 105,
    105, 104, 104, 104, 103, 103, 103, 102, 102, 102, 102, 101, 101, 101, 100, 100, 100, 99, 99, 99, 98, 98,
    98, 98, 97, 97, 97, 97, 96, 96, 96, 95, 95, 95, 95, 94, 94, 94, 93, 93, 93, 93, 92, 92,
    92, 92, 91, 91, 91, 91, 90, 90, 90, 89, 89, 89, 89, 88, 88, 88, 88, 87, 87, 87, 87, 86,
    86, 86, 86, 85, 85, 85, 85, 84, 84, 84, 84, 83, 83, 83, 83, 82, 82, 82, 82, 82, 81, 81,
    81, 81, 80, 80, 80, 80, 79, 79, 79, 79, 78, 78, 78, 78, 78, 77, 77, 77, 77, 76, 76, 76,
    76, 75, 75, 75, 75, 75, 74, 74, 74, 74, 73, 73, 73, 73, 72, 72, 72, 72, 72, 71, 71, 71,
    71, 70, 70, 70, 70, 70, 69, 69, 69, 69, 68, 68, 68, 68, 68, 67, 67, 67, 67, 66, 66, 66,
    66, 65, 65, 65, 65, 65, 64, 64, 64, 64, 63, 63, 63, 63, 63, 62, 62, 62, 62, 61, 61, 61,
    61, 61, 60, 60, 60, 60, 59, 59, 59, 59, 58, 58, 58, 58, 58, 57, 57, 57, 57, 56, 56, 56,
    56, 55, 55, 55, 55, 54, 54, 54, 54, 53, 53, 53, 53, 53,
};
constexpr std::uint32_t Degrees2[256] = {
    100, 99, 99, 99, 98, 98, 97, 97, 96, 96, 96, 95, 95, 95, 94, 94, 93, 93, 93, 92, 92, 92,
    91, 91, 91, 90, 90, 90, 89, 89, 89, 88, 88, 88, 87, 87, 87, 86, 86, 86, 85, 85, 85, 84,
    84, 84, 83, 83, 83, 83, 82, 82, 82, 81, 81, 81, 81, 80, 80, 80, 79, 79, 79, 79, 78, 78,
    78, 77, 77, 77, 77, 76, 76, 76, 76, 75, 75, 75, 75, 74, 74, 74, 74, 73, 73, 73, 73, 72,
    72, 72, 72, 71, 71, 71, 71, 70, 70, 70, 70, 69, 69, 69, 69, 68, 68, 68, 68, 67, 67, 67,
    67, 66, 66, 66, 66, 66, 65, 65, 65, 65, 64, 64, 64, 64, 64, 63, 63, 63, 63, 62, 62, 62,
    62, 61, 61, 61, 61, 61, 60, 60, 60, 60, 60, 59, 59, 59, 59, 58, 58, 58, 58, 58, 57, 57,
    57, 57, 56, 56, 56, 56, 56, 55, 55, 55, 55, 55, 54, 54, 54, 54, 54, 53, 53, 53, 53, 52,
    52, 52, 52, 52, 51, 51, 51, 51, 51, 50, 50, 50, 50, 49, 49, 49, 49, 49, 48, 48, 48, 48,
    48, 47, 47, 47, 47, 47, 46, 46, 46, 46, 45, 45, 45, 45, 45, 44, 44, 44, 44, 44, 43, 43,
    43, 43, 43, 42, 42, 42, 42, 41, 41, 41, 41, 41, 40, 40, 40, 40, 39, 39, 39, 39, 39, 38,
    38, 38, 38, 37, 37, 37, 37, 37, 36, 36, 36, 36, 35, 35,
};

// clang-format on

TEST(ThermistorCurveTest, KnowsEveryCount) {
    using namespace sondrel;
    for (std::uint32_t count = 0; count < 256; ++count) {
        EXPECT_EQ(DegreesOf(ThermistorCurve1, count), Degrees1[count]) << count;
        EXPECT_EQ(DegreesOf(ThermistorCurve2, count), Degrees2[count]) << count;
    }
    EXPECT_EQ(DegreesOf(ThermistorCurve1, 256), 51u);
    EXPECT_EQ(DegreesOf(ThermistorCurve2, 0xFFFFFFFE), 35u);
}

} // namespace
