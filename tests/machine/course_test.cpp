// What moves on a machine whose profile has a course.
#include "machine/models/clock.h"
#include "machine/models/machine_course.h"
#include "machine/profile/profile.h"
#include "machine_fixture.h"

namespace {

class MachineCourseTest : public test::MachineTest {
protected:
    static void Pass(double seconds) {
        TheMachine()->clock.Advance(std::chrono::microseconds(static_cast<std::int64_t>(seconds * 1e6)));
    }

    static std::uint32_t FirstFan() { return static_cast<std::uint32_t>(std::stoul(Text(Thermal_Read_Fan))); }
};

TEST_F(MachineCourseTest, LoadHeatsAndAFanAnswers) {
    // Idle for 20 seconds, then busy. The processor is at 53 degrees at rest.
    for (const auto& [revision, chipId] : {std::pair("GL", 0), std::pair("KL", 0), std::pair("KL", 1)}) {
        SCOPED_TRACE(revision);
        StartFamily(revision, chipId, R"("fans": [{"rpm": 0}]}, "course": {
            "load": [{"to": 0, "seconds": 0.01}, {"to": 0, "seconds": 20}, {"to": 1, "seconds": 0.01},
                     {"to": 1, "seconds": 1000}],
            "warming": {"cpu": {"degrees": 40, "seconds": 5}, "upper_cpu": {"degrees": 30, "seconds": 5}},
            "fans": [{"follows": "cpu", "seconds": 1,
                      "curve": [{"degrees": 90, "rpm": 4000}, {"degrees": 60, "rpm": 1000}]}])");
        Pass(19);
        EXPECT_EQ(Thermal_Read_Cpu_Temperature(), 53u);
        EXPECT_NEAR(FirstFan(), 1000, 2);
        Pass(1 + 5); // one time constant into the load: 63 % of the way
        EXPECT_NEAR(Thermal_Read_Cpu_Temperature(), 53 + 40 * 0.632, 1);
        EXPECT_NEAR(Thermal_Read_UpCpu_Temperature(), 50 + 30 * 0.632, 1);
        const std::uint32_t rising = FirstFan();
        EXPECT_GT(rising, 1500u);
        Pass(60);
        EXPECT_EQ(Thermal_Read_Cpu_Temperature(), 93u);
        EXPECT_NEAR(FirstFan(), 4000, 5);
        // What nothing warms stays as it is.
        EXPECT_EQ(Thermal_Read_BoardTS0L_Temperature(), 39u);
    }
}

TEST_F(MachineCourseTest, ReadingsDependOnTheTimeAlone) {
    const auto reading = [] {
        return std::tuple(Thermal_Read_Cpu_Temperature(), FirstFan(), Battery_Read_Capacity(),
                          Battery_Read_Current(), Text(Battery_Read_CellVoltage),
                          Thermal_Read_CpuPackagePower(), Power_Read_ACDCMode());
    };
    StartBuiltIn("living");
    InitializeSondrel();
    for (int second = 0; second < 50; ++second) {
        Pass(1);
        Thermal_Read_Cpu_Temperature();
    }
    const auto often = reading();
    StartBuiltIn("living");
    InitializeSondrel();
    Pass(50);
    EXPECT_EQ(reading(), often);
    EXPECT_GT(std::get<0>(often), 60u);
}

TEST_F(MachineCourseTest, TheBatteryIsDrainedByTheLoadAndCharged) {
    // 36 W for 1000 s are 10 Wh of the 43.05; then a charger of 72 W.
    StartFamily("GL", 0, R"("lid": 1}, "course": {"load": [{"to": 1}],
        "battery": {"idle_watts": 0, "busy_watts": 36, "charger_watts": 72},
        "running_on": [{"on": "battery", "seconds": 1000}, {"on": "ac", "seconds": 80000}])");
    EXPECT_EQ(Power_Read_ACDCMode(), 0u);
    Pass(1000);
    EXPECT_NEAR(Battery_Read_Capacity(), 43050 - 10000, 2);
    EXPECT_EQ(Power_Read_ACDCMode(), 1u);
    const std::uint32_t volts = Battery_Read_PackageVoltage();
    EXPECT_NEAR(Battery_Read_Current(), -36000.0 / (volts / 1000.0), 30);
    Pass(1000);
    EXPECT_NEAR(Battery_Read_Capacity(), 43050, 2);
    EXPECT_GT(Battery_Read_Current(), 2000);
    EXPECT_GT(Battery_Read_PackageVoltage(), volts);
    Pass(20000);
    EXPECT_EQ(Battery_Read_Capacity(), 51300u);
    EXPECT_EQ(Battery_Read_Current(), 0);
}

} // namespace
