// What the temperature, fan and battery exports make of the EC's bytes.
#include "machine_fixture.h"

#include "machine/profile/profile.h"
#include "telemetry/thermistor_curves.h"

namespace {

using namespace testing;
using test::Ask;
using test::Number;
using test::Written;

class TelemetryTest : public test::MachineTest {};

TEST_F(TelemetryTest, MakesOfTheEcsBytesWhatTheyMean) {
    struct Case {
        const char* revision;
        int chipId;
        std::string ec;
        Ask ask;
        std::string answer;
    };

    const Ask cpu = Number(Thermal_Read_Cpu_Temperature), current = Number(Battery_Read_Current),
              fans = Written(Thermal_Read_Fan), cells = Written(Battery_Read_CellVoltage),
              name = Written(Battery_Read_ManufactureName), date = Written(Battery_Read_ManufactureDate),
              acFet = Number(Thermal_Read_ACFET_Temperature), upCpu = Number(Thermal_Read_UpCpu_Temperature),
              vrm = Number(Thermal_Read_GpuVrm_Temperature), vram = Number(Thermal_Read_GpuVram_Temperature);
    const auto battery = [](const std::string& entry) {
        return R"("battery": {")" + entry + "}";
    };
    const auto fan = [](const std::string& rpm) {
        return R"("fans": [{"rpm": )" + rpm + "}]";
    };
    const auto sensor = [](const std::string& which, const std::string& degrees) {
        return R"("sensors": {")" + which + R"(": {"degrees": )" + degrees + "}}";
    };
    const std::string allFailed = "2147483647;2147483647;2147483647;2147483647~";
    const Case cases[] = {
        {"AB", 0, R"("temperatures": {"cpu": 255})", cpu, "255"},
        {"GL", 0, battery(R"(current": -1.0)"), current, "-1000"},
        {"GL", 0, battery(R"(current": 0.0)"), current, "0"},
        {"GL", 0, battery(R"(current": -0.001)"), current, "-1"},
        {"GL", 0, battery(R"(current": 32.767)"), current, "32767"},
        {"GL", 0, battery(R"(current": -32.768)"), current, "-32768"},
        // The longest texts, where every place failed, and the shortest, which write no more than they need.
        {"CF", 0, R"("faults": [{"command": "0xCC", "status": 1}])", fans, allFailed},
        {"CF", 0, R"("faults": [{"command": "0xC4", "status": 1}])", cells, allFailed},
        {"CF", 0, R"("faults": [{"command": "0xC4", "status": 1}])", name, "0x7FFFFFFF~"},
        {"LK", 0, "", fans, "0;0;0;0~"},
        // A name is ten bytes as they come, unless the first is zero.
        {"KL", 0, battery(R"(manufacturer": "TENLETTERS")"), name, "TENLETTERS~"},
        {"KL", 0, battery(R"(manufacturer": "OHM")"), name, "OHM~~~~~~~~"},
        {"KL", 0, battery(R"(manufacturer": "AB\u0000DEFGHIJ")"), name, "AB~DEFGHIJ~"},
        {"KL", 0, battery(R"(manufacturer": "\u0000BCDEFGHIJ")"), name, "0x7FFFFFFF~"},
        {"KL", 0, battery(R"(manufacturer": "")"), name, "0x7FFFFFFF~"},
        // A date is written whatever its fields; only a word of zero is none.
        {"KL", 0, battery(R"(manufacture_date": "2017-10-28")"), date, "2017-10-28~"},
        {"KL", 1, battery(R"(manufacture_date": "1980-00-00")"), date, "1980-01-01~"},
        {"KL", 0, battery(R"(manufacture_date": "1980-00-01")"), date, "1980-00-01~"},
        {"KL", 1, battery(R"(manufacture_date": "1980-15-31")"), date, "1980-15-31~"},
        {"KL", 0, battery(R"(manufacture_date": "2107-15-31")"), date, "2107-15-31~"},
        {"KL", 1, battery(R"(manufacture_date": "2000-00-00")"), date, "2000-00-00~"},
        // A stopped fan counts 0, the fastest 1, and the slowest cannot be distinguished from slower ones.
        {"AB", 0, fan("0"), fans, "0;0;0;0~"},
        {"AB", 0, fan("2156250"), fans, "2156250;0;0;0~"},
        {"AB", 0, fan("1078125"), fans, "1078125;0;0;0~"},
        {"AB", 0, fan("1"), fans, "32;0;0;0~"},
        {"CF", 0, R"("fans": [{"rpm": 65535}, {"rpm": 255}, {"rpm": 256}])", fans, "65535;255;256;0~"},
        // A thermistor stays at the ends of its curve, a sensor that reports degrees does not.
        {"AR", 0, sensor("ac_fet", "20"), acFet, "53"}, // 51 and 52 have the same count
        {"AR", 0, sensor("gpu_vrm", "200"), vrm, "110"},
        {"AR", 0, sensor("upper_cpu", "20"), upCpu, "35"},
        {"AR", 0, sensor("gpu_vram", "200"), vram, "100"},
        {"WL", 0, sensor("ac_fet", "20"), acFet, "20"},
        {"WL", 0, sensor("gpu_vram", "200"), vram, "200"},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.revision + (' ' + each.ec));
        StartFamily(each.revision, each.chipId, each.ec);
        EXPECT_EQ(each.ask(), each.answer);
    }
}

TEST_F(TelemetryTest, WithoutABufferNothingIsAsked) {
    for (const auto read : {Thermal_Read_Fan, Battery_Read_CellVoltage, Battery_Read_ManufactureDate,
                            Battery_Read_ManufactureName}) {
        read(nullptr);
    }
    EXPECT_THAT(Calls(), IsEmpty());
}

/// How many counts mean each degree, from the hottest down.
struct CountsOfDegrees {
    sondrel::ThermistorCurve curve;
    std::uint32_t hottest;
    std::uint32_t countsOfHottest;
    std::string_view countsOfTheOthers; // a digit for each
};

constexpr CountsOfDegrees Curves[] = {
    {sondrel::ThermistorCurve1, 110, 27, "633333343334434344434444444544454454454545445454544544445"},
    {sondrel::ThermistorCurve2, 100, 1, "32233233333333334343434444444444454544554545554554555455545454542"}};

TEST(ThermistorCurveTest, KnowsEveryCount) {
    for (const CountsOfDegrees& each : Curves) {
        std::uint32_t degrees = each.hottest;
        std::uint32_t left = each.countsOfHottest;
        for (std::uint32_t count = 0; count < 256; ++count, --left) {
            if (left == 0) {
                left = static_cast<std::uint32_t>(each.countsOfTheOthers[each.hottest - degrees] - '0');
                --degrees;
            }
            EXPECT_EQ(DegreesOf(each.curve, count), degrees) << count;
        }
        EXPECT_EQ(left, 0u);
    }
    EXPECT_EQ(DegreesOf(sondrel::ThermistorCurve1, 256), 51u);
    EXPECT_EQ(DegreesOf(sondrel::ThermistorCurve2, 0xFFFFFFFE), 35u);
}

} // namespace
