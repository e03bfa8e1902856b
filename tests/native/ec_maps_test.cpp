// The command sequence of every reading on every map, written down here a second time by hand.
#include "ec_traffic.h"

#include <functional>
#include <initializer_list>

namespace {

using test::Traffic;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

constexpr std::uint32_t NoReading = 0x7FFFFFFF;

Traffic Join(std::initializer_list<Traffic> parts) {
    Traffic all;
    for (const Traffic& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

Traffic BusAB(const std::string& batteryRegister) {
    return {"w ab 0501", "w ab 0609", "w ab 0816", "w ab 09" + batteryRegister,
            "w ab 0410", "aa 40",     "aa 41"};
}

Traffic Bus9B(const std::string& batteryRegister) {
    return {"w 9b 1809", "w 9b 1a16", "w 9b 1b" + batteryRegister, "w 9c", "sleep 10", "80 ede3",
            "9a 1c",     "9a 1d"};
}

Traffic Tachometer(const std::string& selector) {
    return {"w a1 02" + selector + selector, "sleep 10", "a0 02", "a0 03", "a0 04"};
}

/// One reading: how it is asked, what it gives when its last command fails, and its traffic on maps A to D.
struct Reading {
    const char* name;
    std::function<std::string()> read;
    const char* failed;
    std::array<Traffic, 4> traffic;
};

template <class Result>
std::function<std::string()> Number(Result (*read)()) {
    return [read] {
        return std::to_string(read());
    };
}

std::function<std::string()> Text(void (*read)(char*)) {
    return [read] {
        std::array<char, 64> text{};
        read(text.data());
        return std::string(text.data());
    };
}

const char* const FailedNumber = "2147483647";

std::vector<Reading> Readings() {
    return {
        {"CPU",
         Number(Thermal_Read_Cpu_Temperature),
         FailedNumber,
         {{{"80 03a0"}, {"cc 0000"}, {"80 03a0"}, {"80 f7a0"}}}},
        {"board TS0L",
         Number(Thermal_Read_BoardTS0L_Temperature),
         FailedNumber,
         {{{"80 0512"}, {"cc 0001"}, {"80 0512"}, {"80 f912"}}}},
        {"board TS0R",
         Number(Thermal_Read_BoardTS0R_Temperature),
         FailedNumber,
         {{{"80 0511"}, {"cc 0002"}, {"80 0511"}, {"80 f911"}}}},
        {"GPU TS1L",
         Number(Thermal_Read_GpuTS1L_Temperature),
         FailedNumber,
         {{{"80 03a5"}, {"cc 0003"}, {"80 03a5"}, {"80 f7a5"}}}},
        {"GPU TS1R",
         Number(Thermal_Read_GpuTS1R_Temperature),
         FailedNumber,
         {{{"80 03a4"}, {"cc 0004"}, {"80 03a4"}, {"80 f7a4"}}}},
        {"lid",
         Number(Battery_Get_LidStatus),
         FailedNumber,
         {{{"87 0011"}, {"e0 01"}, {"87 0011"}, {"87 00b4"}}}},
        {"charging voltage",
         Number(Battery_Read_ChargingVoltage),
         FailedNumber,
         {{{"80 03c2", "80 03c3"}, {"c4 3e", "c4 3f"}, {"a4 12", "a4 13"}, {"80 f7c2", "80 f7c3"}}}},
        {"current",
         Number(Battery_Read_Current),
         "-1",
         {{{"80 03bc", "80 03bd"}, {"c4 38", "c4 39"}, {"a4 0c", "a4 0d"}, {"80 f7bc", "80 f7bd"}}}},
        {"package voltage",
         Number(Battery_Read_PackageVoltage),
         FailedNumber,
         {{{"80 03b2", "80 03b3"}, {"c4 36", "c4 37"}, {"a4 02", "a4 03"}, {"80 f7b2", "80 f7b3"}}}},
        {"battery temperature",
         Number(Battery_Read_Temperature),
         FailedNumber,
         {{{"80 03be", "80 03bf"}, {"c4 34", "c4 35"}, {"a4 0e", "a4 0f"}, {"80 f7be", "80 f7bf"}}}},
        {"cycle count", Number(Battery_Read_CycleCount), FailedNumber, {{{}, {"c4 2e", "c4 2f"}, {}, {}}}},
        {"maker's name",
         Text(Battery_Read_ManufactureName),
         "0x7FFFFFFF",
         {{{"80 0633", "80 0634", "80 0635", "80 0636", "80 0637", "80 0638", "80 0639", "80 063a", "80 063b",
            "80 063c"},
           {"c4 10", "c4 11", "c4 12", "c4 13", "c4 14", "c4 15", "c4 16", "c4 17", "c4 18", "c4 19"},
           {"a4 20", "a4 21", "a4 22", "a4 23", "a4 24", "a4 25", "a4 26", "a4 27", "a4 28", "a4 29"},
           {"80 fa33", "80 fa34", "80 fa35", "80 fa36", "80 fa37", "80 fa38", "80 fa39", "80 fa3a", "80 fa3b",
            "80 fa3c"}}}},
        {"battery connector",
         Number(Thermal_Read_BatteryConnector_Temperature),
         FailedNumber,
         {{{"ac 00", "ac 19", "ac 1c"},
           {"ce 00", "ce 01", "ce 28", "ce 10"},
           {"ac 00", "ac 19", "ac 1c"},
           {"ac 00", "ac 19", "ac 1c"}}}},
        {"AC FET",
         Number(Thermal_Read_ACFET_Temperature),
         FailedNumber,
         {{{"ac 00", "ac 1a", "ac 1d"},
           {"ce 00", "ce 01", "ce 29", "ce 11"},
           {"ac 00", "ac 1a", "ac 1d"},
           {"ac 00", "ac 1a", "ac 1d"}}}},
        {"charger choke",
         Number(Thermal_Read_ChargerChoke_Temperature),
         FailedNumber,
         {{{"ac 00", "ac 1b", "ac 1e"},
           {"ce 00", "ce 01", "ce 2a", "ce 12"},
           {"ac 00", "ac 1b", "ac 1e"},
           {"ac 00", "ac 1b", "ac 1e"}}}},
        {"GPU VRM",
         Number(Thermal_Read_GpuVrm_Temperature),
         FailedNumber,
         {{{"ac 00", "ac 29", "ac 2c"},
           {"ce 00", "ce 01", "ce 2b", "ce 13"},
           {"ac 00", "ac 29", "ac 2c"},
           {"ac 00", "ac 29", "ac 2c"}}}},
        {"upper CPU",
         Number(Thermal_Read_UpCpu_Temperature),
         FailedNumber,
         {{{"ac 00", "ac 2a", "ac 2d"},
           {"ce 00", "ce 01", "ce 2c", "ce 14"},
           {"ac 00", "ac 2a", "ac 2d"},
           {"ac 00", "ac 2a", "ac 2d"}}}},
        {"GPU VRAM",
         Number(Thermal_Read_GpuVram_Temperature),
         FailedNumber,
         {{{"ac 00", "ac 2b", "ac 2e"},
           {"ce 00", "ce 01", "ce 2d", "ce 15"},
           {"ac 00", "ac 2b", "ac 2e"},
           {"ac 00", "ac 2b", "ac 2e"}}}},
        {"date",
         Text(Battery_Read_ManufactureDate),
         "1980-01-01",
         {{BusAB("1b"), BusAB("1b"), BusAB("1b"), Bus9B("1b")}}},
    };
}

/// The two lists fail place by place.
std::vector<Reading> Lists() {
    const Traffic cellsAB = Join({BusAB("3f"), BusAB("3e"), BusAB("3d"), BusAB("3c")});
    return {
        {"cells",
         Text(Battery_Read_CellVoltage),
         nullptr,
         {{cellsAB,
           {"c4 48", "c4 49", "c4 4a", "c4 4b", "c4 4c", "c4 4d", "c4 4e", "c4 4f"},
           cellsAB,
           Join({Bus9B("3f"), Bus9B("3e"), Bus9B("3d"), Bus9B("3c")})}}},
        {"fans",
         Text(Thermal_Read_Fan),
         nullptr,
         {{Join({Tachometer("20"), Tachometer("10")}),
           {"cc 0035", "cc 0036", "cc 003c", "cc 003d", "cc 0135", "cc 0136", "cc 013c", "cc 013d"},
           Join({Tachometer("20"), Tachometer("10"), Tachometer("04")}),
           Join({Tachometer("20"), Tachometer("10")})}}},
    };
}

struct Family {
    const char* revision;
    int chipId;
    std::size_t map;           // 0 to 3 for A to D, 4 for none
    Traffic identityQuestions; // of one dispatched reading
};

const Family Families[] = {
    {"AB", 0, 0, {"EcFwRev", "EcChipId"}},
    {"AR", 0, 0, {"EcFwRev", "EcChipId"}},
    {"CF", 0, 1, {"EcFwRev"}},
    {"GL", 0, 1, {"EcFwRev"}},
    {"PC", 0, 1, {"EcFwRev"}},
    {"WL", 0, 1, {"EcFwRev"}},
    {"KL", 0, 2, {"EcFwRev", "EcChipId"}},
    {"KL", 1, 3, {"EcFwRev", "EcChipId", "EcChipId"}},
    {"AB", 1, 4, {"EcFwRev", "EcChipId"}},
    {"AR", 2, 4, {"EcFwRev", "EcChipId"}},
    {"KL", 2, 4, {"EcFwRev", "EcChipId", "EcChipId"}},
    {"LK", 0, 4, {"EcFwRev"}},
};

constexpr std::size_t NoMap = 4;
constexpr const char* QuickFans = R"("fans": [{"rpm": 2912}, {"rpm": 3071}, {"rpm": 2455}, {"rpm": 1999}])";

class EcMapsTest : public test::EcTest {
protected:
    static std::string Where(const Family& family, const Reading& reading) {
        return std::string(family.revision) + " " + std::to_string(family.chipId) + " " + reading.name;
    }

    /// Fails the command at `place` of a reading's traffic, and says how often it stands before that.
    static std::string FaultAt(const Traffic& traffic, std::size_t place) {
        const auto commandOf = [](const std::string& line) {
            return line.starts_with("w ") ? line.substr(2, 2) : line.substr(0, 2);
        };
        int use = 0;
        for (std::size_t at = 0; at <= place; ++at) {
            use += commandOf(traffic[at]) == commandOf(traffic[place]) ? 1 : 0;
        }
        return R"("faults": [{"command": "0x)" + commandOf(traffic[place]) + R"(", "use": )" +
               std::to_string(use) + R"(, "status": 9}])";
    }
};

TEST_F(EcMapsTest, SendsTheCommandsOfEachReadingOnEachMap) {
    std::vector<Reading> all = Readings();
    const std::vector<Reading> lists = Lists();
    all.insert(all.end(), lists.begin(), lists.end());
    for (const Family& family : Families) {
        for (const Reading& reading : all) {
            SCOPED_TRACE(Where(family, reading));
            StartFamily(family.revision, family.chipId, QuickFans);
            const std::string answer = reading.read();
            EXPECT_THAT(SentTraffic(),
                        ElementsAreArray(family.map == NoMap ? Traffic{} : reading.traffic[family.map]));
            if (family.map != NoMap && !reading.traffic[family.map].empty()) {
                EXPECT_THAT(answer, ::testing::Not(::testing::HasSubstr(FailedNumber)));
            }
        }
    }
}

TEST_F(EcMapsTest, StopsAtTheFirstCommandThatFails) {
    for (const Family& family : Families) {
        for (const Reading& reading : Readings()) {
            const Traffic traffic = family.map == NoMap ? Traffic{} : reading.traffic[family.map];
            for (std::size_t place = 0; place < traffic.size(); ++place) {
                if (traffic[place].starts_with("sleep")) {
                    continue;
                }
                SCOPED_TRACE(Where(family, reading) + " at " + traffic[place]);
                StartFamily(family.revision, family.chipId, FaultAt(traffic, place));
                EXPECT_EQ(reading.read(), reading.failed);
                EXPECT_THAT(SentTraffic(), ElementsAreArray(traffic.begin(),
                                                            traffic.begin() + static_cast<long>(place) + 1));
            }
        }
    }
}

TEST_F(EcMapsTest, AListGoesOnBehindAPlaceThatFailed) {
    StartFamily("AB", 0, R"("faults": [{"command": "0xAB", "use": 9, "status": 9}])");
    EXPECT_EQ(Text(Battery_Read_CellVoltage)(), "3862;2147483647;3884;3895");
    EXPECT_THAT(
        SentTraffic(),
        ElementsAreArray(Join(
            {BusAB("3f"), {"w ab 0501", "w ab 0609", "w ab 0816", "w ab 093e"}, BusAB("3d"), BusAB("3c")})));
    StartFamily("GL", 0,
                std::string(QuickFans) + R"(, "faults": [{"command": "0xCC", "use": 3, "status": 9}])");
    EXPECT_EQ(Text(Thermal_Read_Fan)(), "2912;2147483647;2455;1999");
    EXPECT_THAT(SentTraffic(),
                ElementsAre("cc 0035", "cc 0036", "cc 003c", "cc 0135", "cc 0136", "cc 013c", "cc 013d"));
}

TEST_F(EcMapsTest, AsksForTheIdentityAfreshOnEachReadingAndEachPlaceOfAList) {
    for (const Family& family : Families) {
        SCOPED_TRACE(std::string(family.revision) + " " + std::to_string(family.chipId));
        StartFamily(family.revision, family.chipId, QuickFans);
        Thermal_Read_UpCpu_Temperature();
        EXPECT_THAT(IdentityQuestions(), ElementsAreArray(family.identityQuestions));
        const Traffic& once = family.identityQuestions;
        for (const auto list : {Battery_Read_CellVoltage, Thermal_Read_Fan}) {
            ForgetCalls();
            Text(list)();
            EXPECT_THAT(IdentityQuestions(), ElementsAreArray(Join({once, once, once, once})));
        }
        ForgetCalls();
        Battery_Read_CycleCount();
        EXPECT_THAT(IdentityQuestions(), ElementsAre("EcFwRev"));
    }
}

TEST_F(EcMapsTest, AsksTheEcForWhatTheRegistryDoesNotKeep) {
    StartMachine(R"({"ec": {"chip_id": 1}, "registry": {"read_only": ["HKLM\\SOFTWARE"]}})");
    InitializeSondrel();
    EXPECT_EQ(Thermal_Read_Cpu_Temperature(), 53u);
    EXPECT_THAT(SentTraffic(), ElementsAre("bb 03", "bb 04", "bb 10", "bb 10", "80 f7a0"));
}

TEST_F(EcMapsTest, AnEcThatCannotBeIdentifiedHasNoMap) {
    StartMachine();
    EXPECT_EQ(Thermal_Read_Cpu_Temperature(), 0u); // no session
    EXPECT_THAT(SentTraffic(), IsEmpty());
    StartMachine(R"({"ec": {"faults": [{"command": "0xBB", "status": 5}]}})");
    InitializeSondrel();
    EXPECT_EQ(Thermal_Read_Cpu_Temperature(), 0u);
    EXPECT_EQ(Battery_Read_Current(), 0);
    EXPECT_EQ(Text(Thermal_Read_Fan)(), "0;0;0;0");
    EXPECT_EQ(Text(Battery_Read_CellVoltage)(), "0;0;0;0");
    EXPECT_EQ(Text(Battery_Read_ManufactureDate)(), "1980-01-01");
    EXPECT_EQ(Text(Battery_Read_ManufactureName)(), "0x7FFFFFFF");
    EXPECT_EQ(Battery_Read_CycleCount(), 0u);
    EXPECT_THAT(EcCommands(), ::testing::Each("bb 03"));
}

TEST_F(EcMapsTest, AKeptIdentityWithoutASessionMakesReadingsFail) {
    StartFamily("KL", 0);
    ShutdownSondrel();
    EXPECT_EQ(Thermal_Read_Cpu_Temperature(), NoReading);
    EXPECT_EQ(Thermal_Read_ACFET_Temperature(), NoReading);
    EXPECT_EQ(Battery_Read_Current(), -1);
    EXPECT_EQ(Text(Battery_Read_CellVoltage)(), "2147483647;2147483647;2147483647;2147483647");
    EXPECT_EQ(Text(Thermal_Read_Fan)(), "2147483647;2147483647;2147483647;0");
    EXPECT_EQ(Text(Battery_Read_ManufactureDate)(), "1980-01-01");
    EXPECT_EQ(Text(Battery_Read_ManufactureName)(), "0x7FFFFFFF");
    EXPECT_THAT(EcCommands(), IsEmpty());
}

TEST_F(EcMapsTest, TheDateOfTheBankedFamilyGoesByChipId) {
    StartFamily("WL", 0);
    EXPECT_EQ(Text(Battery_Read_ManufactureDate)(), "2023-06-14");
    EXPECT_THAT(SentTraffic(), ElementsAreArray(BusAB("1b")));
    EXPECT_THAT(IdentityQuestions(), ElementsAre("EcFwRev", "EcChipId"));
    StartFamily("WL", 1);
    EXPECT_EQ(Text(Battery_Read_ManufactureDate)(), "2023-06-14");
    EXPECT_THAT(SentTraffic(), ElementsAreArray(Bus9B("1b")));
    EXPECT_THAT(IdentityQuestions(), ElementsAre("EcFwRev", "EcChipId"));
    StartFamily("WL", 2);
    EXPECT_EQ(Text(Battery_Read_ManufactureDate)(), "1980-01-01");
    EXPECT_THAT(SentTraffic(), IsEmpty());
}

Traffic Repeated(std::size_t times, const Traffic& part) {
    Traffic all;
    for (std::size_t time = 0; time < times; ++time) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

TEST_F(EcMapsTest, WaitsForTheTachometerTwentyTimesAtMost) {
    StartFamily("KL", 1, R"("fans": [{"rpm": 2912, "ready_after": 3}, {"rpm": 3071, "ready_after": 19}])");
    EXPECT_EQ(Text(Thermal_Read_Fan)(), "2913;3071;0;0");
    EXPECT_THAT(SentTraffic(), ElementsAreArray(Join({{"w a1 022020", "sleep 10"},
                                                      Repeated(4, {"a0 02"}),
                                                      {"a0 03", "a0 04", "w a1 021010", "sleep 10"},
                                                      Repeated(20, {"a0 02"}),
                                                      {"a0 03", "a0 04"}})));
    StartFamily("KL", 0, R"("fans": [{"rpm": 2912, "never_ready": true}])");
    EXPECT_EQ(Text(Thermal_Read_Fan)(), "2913;0;0;0"); // the count is read all the same
    EXPECT_THAT(SentTraffic(), ElementsAreArray(Join({{"w a1 022020", "sleep 10"},
                                                      Repeated(20, {"a0 02"}),
                                                      {"a0 03", "a0 04"},
                                                      Tachometer("10"),
                                                      Tachometer("04")})));
}

TEST_F(EcMapsTest, ATachometerThatFailsEndsItsFanOnly) {
    const Traffic rest = Tachometer("10");
    // The start is waited for even when it fails.
    StartFamily("AR", 0,
                std::string(QuickFans) + R"(, "faults": [{"command": "0xA1", "use": 1, "status": 9}])");
    EXPECT_EQ(Text(Thermal_Read_Fan)(), "2147483647;3071;0;0");
    EXPECT_THAT(SentTraffic(), ElementsAreArray(Join({{"w a1 022020", "sleep 10"}, rest})));
    // Only the last question's status counts.
    StartFamily("AR", 0,
                std::string(QuickFans) + R"(, "faults": [{"command": "0xA0", "use": 1, "status": 9}])");
    EXPECT_EQ(Text(Thermal_Read_Fan)(), "2913;3071;0;0");
    EXPECT_THAT(SentTraffic(), ElementsAreArray(Join(
                                   {{"w a1 022020", "sleep 10", "a0 02", "a0 02", "a0 03", "a0 04"}, rest})));
    // A question that fails with the ready bit in its answer is the last one.
    StartFamily("AR", 0,
                std::string(QuickFans) +
                    R"(, "faults": [{"command": "0xA0", "use": 1, "status": 9, "byte": 128}])");
    EXPECT_EQ(Text(Thermal_Read_Fan)(), "2147483647;3071;0;0");
    EXPECT_THAT(SentTraffic(), ElementsAreArray(Join({{"w a1 022020", "sleep 10", "a0 02"}, rest})));
    for (const char* use : {"2", "3"}) {
        StartFamily("AR", 0,
                    std::string(QuickFans) + R"(, "faults": [{"command": "0xA0", "status": 9, "use": )" +
                        use + "}]");
        EXPECT_EQ(Text(Thermal_Read_Fan)(), "2147483647;3071;0;0");
    }
    StartFamily("AR", 0, R"("faults": [{"command": "0xA0", "status": 9}])");
    EXPECT_EQ(Text(Thermal_Read_Fan)(), "2147483647;2147483647;0;0");
    EXPECT_THAT(SentTraffic(), ElementsAreArray(Join({{"w a1 022020", "sleep 10"},
                                                      Repeated(20, {"a0 02"}),
                                                      {"w a1 021010", "sleep 10"},
                                                      Repeated(20, {"a0 02"})})));
}

TEST_F(EcMapsTest, WaitsForTheBatteryBusTwentyTimesAtMost) {
    const Traffic start{"w 9b 1809", "w 9b 1a16", "w 9b 1b1b", "w 9c", "sleep 10"};
    StartFamily("KL", 1, R"("battery": {"bus_busy_polls": 3})");
    EXPECT_EQ(Text(Battery_Read_ManufactureDate)(), "2023-06-14");
    EXPECT_THAT(
        SentTraffic(),
        ElementsAreArray(Join({start, Repeated(3, {"80 ede3", "sleep 1"}), {"80 ede3", "9a 1c", "9a 1d"}})));
    StartFamily("PC", 1, R"("battery": {"bus_busy_for_ever": true})");
    EXPECT_EQ(Text(Battery_Read_ManufactureDate)(), "1980-01-01");
    EXPECT_THAT(SentTraffic(),
                ElementsAreArray(Join({start, Repeated(20, {"80 ede3", "sleep 1"}), {"9a 1c", "9a 1d"}})));
    // A question that fails while the bus is busy is no reason to stop asking.
    StartFamily("KL", 1, R"("faults": [{"command": "0x80", "use": 1, "status": 9, "byte": 1}])");
    EXPECT_EQ(Text(Battery_Read_ManufactureDate)(), "2023-06-14");
    EXPECT_THAT(SentTraffic(),
                ElementsAreArray(Join({start, {"80 ede3", "sleep 1", "80 ede3", "9a 1c", "9a 1d"}})));
}

TEST_F(EcMapsTest, ASensorThatIsNotReadyIsNotAskedForItsValue) {
    struct Case {
        const char* revision;
        const char* sensors;
        Traffic traffic;
    };

    const Traffic hub{"ac 00", "ac 29"};
    const Traffic banked{"ce 00", "ce 01", "ce 2b"};
    const Case cases[] = {
        {"AB", R"({"ready": false})", hub},
        {"AB", R"({"device_2_present": false})", hub},
        {"AB", R"({"gpu_vrm": {"valid": false}})", hub},
        {"GL", R"({"ready": false})", banked},
        {"GL", R"({"device_2_present": false})", banked},
        {"GL", R"({"gpu_vrm": {"valid": false}})", banked},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(std::string(each.revision) + each.sensors);
        StartFamily(each.revision, 0, std::string(R"("sensors": )") + each.sensors);
        EXPECT_EQ(Thermal_Read_GpuVrm_Temperature(), 0u);
        EXPECT_THAT(SentTraffic(), ElementsAreArray(each.traffic));
    }
    // What is wrong with one device or channel does not touch the others.
    for (const char* revision : {"AB", "GL"}) {
        StartFamily(revision, 0, R"("sensors": {"device_2_present": false, "ac_fet": {"valid": false}})");
        EXPECT_EQ(Thermal_Read_BatteryConnector_Temperature(), 55u);
        StartFamily(revision, 0, R"("sensors": {"device_1_present": false, "gpu_vrm": {"valid": false}})");
        EXPECT_EQ(Thermal_Read_UpCpu_Temperature(), 50u);
    }
}

} // namespace
