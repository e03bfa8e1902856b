// The command sequence of every reading on every map, written down here a second time by hand.
#include "machine_fixture.h"

#include "machine/text/wide_text.h"

#include <array>
#include <map>
#include <sstream>

namespace {

using namespace testing;
using test::Ask;
using test::Lines;
using test::Number;
using test::Written;

std::string Times(std::size_t times, const std::string& part) {
    std::string all = part;
    while (--times != 0) {
        all += ", " + part;
    }
    return all;
}

/// The same command for ten registers, one after the other.
std::string TenOf(const std::string& command, int first) {
    std::ostringstream run;
    for (int place = 0; place < 10; ++place) {
        run << (place == 0 ? "" : ", ") << command << std::hex << first + place;
    }
    return run.str();
}

std::string BusAB(const std::string& reg) {
    return "w ab 0501, w ab 0609, w ab 0816, w ab 09" + reg + ", w ab 0410, aa 40, aa 41";
}

std::string Start9B(const std::string& reg) {
    return "w 9b 1809, w 9b 1a16, w 9b 1b" + reg + ", w 9c, sleep 10, ";
}

std::string Bus9B(const std::string& reg) {
    return Start9B(reg) + "80 ede3, 9a 1c, 9a 1d";
}

std::string FanStart(const std::string& fan) {
    return "w a1 02" + fan + fan + ", sleep 10";
}

std::string Fan(const std::string& fan, std::size_t questions = 1) {
    return FanStart(fan) + ", " + Times(questions, "a0 02") + ", a0 03, a0 04";
}

/// Traffic on maps A to D.
using Traffic = std::array<std::string, 4>;

Traffic On(const char* a, const char* b, const char* c, const char* d) {
    return {a, b, c, d};
}

Traffic Sensor(const std::string& valid, const std::string& value, const std::string& bankedValid,
               const std::string& bankedValue) {
    const std::string hub = "ac 00, ac " + valid + ", ac " + value;
    return {hub, "ce 00, ce 01, ce " + bankedValid + ", ce " + bankedValue, hub, hub};
}

const std::string Failed = "2147483647";
const std::string AllFailed = "2147483647;2147483647;2147483647;2147483647~";

struct Reading {
    Ask ask;
    std::string value; // what the machine has there; empty: it goes by the family
    Traffic traffic;
    std::string failed = Failed; // behind any failed command, or any number of them in a list
};

const Ask Cells = Written(Battery_Read_CellVoltage);
const Ask Fans = Written(Thermal_Read_Fan);
const Ask Date = Written(Battery_Read_ManufactureDate);
const Ask Vrm = Number(Thermal_Read_GpuVrm_Temperature);

std::vector<Reading> Readings() {
    const Traffic name{TenOf("80 06", 0x33), TenOf("c4 ", 0x10), TenOf("a4 ", 0x20), TenOf("80 fa", 0x33)};
    const Traffic date{BusAB("1b"), BusAB("1b"), BusAB("1b"), Bus9B("1b")};
    const std::string cellsAB = BusAB("3f") + ", " + BusAB("3e") + ", " + BusAB("3d") + ", " + BusAB("3c");
    const std::string cells9B = Bus9B("3f") + ", " + Bus9B("3e") + ", " + Bus9B("3d") + ", " + Bus9B("3c");
    const Traffic cells{cellsAB, "c4 48, c4 49, c4 4a, c4 4b, c4 4c, c4 4d, c4 4e, c4 4f", cellsAB, cells9B};
    const std::string two = Fan("20") + ", " + Fan("10");
    const Traffic fans{two, "cc 0035, cc 0036, cc 003c, cc 003d, cc 0135, cc 0136, cc 013c, cc 013d",
                       two + ", " + Fan("04"), two};
    return {
        {Number(Thermal_Read_Cpu_Temperature), "53", On("80 03a0", "cc 0000", "80 03a0", "80 f7a0")},
        {Number(Thermal_Read_BoardTS0L_Temperature), "39", On("80 0512", "cc 0001", "80 0512", "80 f912")},
        {Number(Thermal_Read_BoardTS0R_Temperature), "42", On("80 0511", "cc 0002", "80 0511", "80 f911")},
        {Number(Thermal_Read_GpuTS1L_Temperature), "60", On("80 03a5", "cc 0003", "80 03a5", "80 f7a5")},
        {Number(Thermal_Read_GpuTS1R_Temperature), "62", On("80 03a4", "cc 0004", "80 03a4", "80 f7a4")},
        {Number(Battery_Get_LidStatus), "3", On("87 0011", "e0 01", "87 0011", "87 00b4")},
        {Number(Battery_Read_ChargingVoltage), "13060",
         On("80 03c2, 80 03c3", "c4 3e, c4 3f", "a4 12, a4 13", "80 f7c2, 80 f7c3")},
        {Number(Battery_Read_Current), "-1260",
         On("80 03bc, 80 03bd", "c4 38, c4 39", "a4 0c, a4 0d", "80 f7bc, 80 f7bd"), "-1"},
        {Number(Battery_Read_PackageVoltage), "11630",
         On("80 03b2, 80 03b3", "c4 36, c4 37", "a4 02, a4 03", "80 f7b2, 80 f7b3")},
        {Number(Battery_Read_Temperature), "3028",
         On("80 03be, 80 03bf", "c4 34, c4 35", "a4 0e, a4 0f", "80 f7be, 80 f7bf")},
        {Number(Battery_Read_CycleCount), "138", On("", "c4 2e, c4 2f", "", "")}, // else of the device
        {Number(Thermal_Read_BatteryConnector_Temperature), "55", Sensor("19", "1c", "28", "10")},
        {Number(Thermal_Read_ACFET_Temperature), "64", Sensor("1a", "1d", "29", "11")},
        {Number(Thermal_Read_ChargerChoke_Temperature), "69", Sensor("1b", "1e", "2a", "12")},
        {Vrm, "78", Sensor("29", "2c", "2b", "13")},
        {Number(Thermal_Read_UpCpu_Temperature), "50", Sensor("2a", "2d", "2c", "14")},
        {Number(Thermal_Read_GpuVram_Temperature), "72", Sensor("2b", "2e", "2d", "15")},
        {Written(Battery_Read_ManufactureName), "VESKCELL01~", name, "0x7FFFFFFF~"},
        {Date, "2023-06-14~", date, "1980-01-01~"},
        {Cells, "3862;3873;3884;3895~", cells, AllFailed},
        {Fans, "", fans, AllFailed},
    };
}

struct Family {
    const char* revision;
    int chipId;
    std::size_t map; // 0 to 3 for A to D, 4 for none
    std::string fans;
    std::string identityQuestions; // of one dispatched reading
};

constexpr std::size_t NoMap = 4;

const Family Families[] = {
    {"AB", 0, 0, "2913;3071;0;0~", "EcFwRev EcChipId "},
    {"AR", 0, 0, "2913;3071;0;0~", "EcFwRev EcChipId "},
    {"CF", 0, 1, "2912;3071;2455;1999~", "EcFwRev "},
    {"GL", 0, 1, "2912;3071;2455;1999~", "EcFwRev "},
    {"PC", 0, 1, "2912;3071;2455;1999~", "EcFwRev "},
    {"WL", 0, 1, "2912;3071;2455;1999~", "EcFwRev "},
    {"KL", 0, 2, "2913;3071;2455;0~", "EcFwRev EcChipId "},
    {"KL", 1, 3, "2913;3071;0;0~", "EcFwRev EcChipId EcChipId "},
    {"AB", 1, NoMap, "", "EcFwRev EcChipId "},
    {"AR", 2, NoMap, "", "EcFwRev EcChipId "},
    {"KL", 2, NoMap, "", "EcFwRev EcChipId EcChipId "},
    {"LK", 0, NoMap, "", "EcFwRev "},
};

constexpr const char* QuickFans =
    R"("lid": 3, "fans": [{"rpm": 2912}, {"rpm": 3071}, {"rpm": 2455}, {"rpm": 1999}])";

/// Refuses one command, at its n-th use or always, with what else belongs to the fault.
std::string Fault(const std::string& command, int use = 0, const std::string& rest = "") {
    return R"("faults": [{"command": "0x)" + command + R"(", "status": 9)" +
           (use == 0 ? "" : R"(, "use": )" + std::to_string(use)) + rest + "}]";
}

std::string FanFault(const std::string& command, int use = 0, const std::string& rest = "") {
    return QuickFans + (", " + Fault(command, use, rest));
}

class EcMapsTest : public test::MachineTest {
protected:
    static std::string Where(const Family& family, const std::string& traffic) {
        return std::string(family.revision) + " " + std::to_string(family.chipId) + ": " + traffic;
    }

    /// Which identity values have been asked of the registry, in order.
    [[nodiscard]] std::string IdentityQuestions() const {
        std::string names;
        for (const CallRecord& call : RecordsOf(Operation::RegQueryValueExW)) {
            if (call.Output("data") == nullptr) { // the size alone
                names += machine::Utf8FromWide(std::get<std::u16string>(call.Input("name")->held)) + ' ';
            }
        }
        return names;
    }

    static Lines Answers() {
        Lines answers;
        for (const Reading& reading : Readings()) {
            answers.push_back(reading.ask());
        }
        return answers;
    }
};

TEST_F(EcMapsTest, SendsTheCommandsOfEachReadingOnEachMap) {
    for (const Family& family : Families) {
        for (const Reading& reading : Readings()) {
            const std::string traffic = family.map == NoMap ? "" : reading.traffic[family.map];
            SCOPED_TRACE(Where(family, traffic));
            StartFamily(family.revision, family.chipId, QuickFans);
            const std::string answer = reading.ask();
            EXPECT_EQ(SentTraffic(), traffic);
            if (!traffic.empty()) {
                EXPECT_EQ(answer, reading.value.empty() ? family.fans : reading.value);
            }
        }
    }
}

TEST_F(EcMapsTest, StopsAtTheFirstCommandThatFails) {
    for (const Family& family : Families) {
        for (const Reading& reading : Readings()) {
            const bool stops = family.map != NoMap && reading.failed != AllFailed;
            std::istringstream traffic(stops ? reading.traffic[family.map] : "");
            std::map<std::string, int> uses;
            std::string sent;
            for (std::string line; std::getline(traffic >> std::ws, line, ',');) {
                sent += (sent.empty() ? "" : ", ") + line;
                if (line.starts_with("sleep")) {
                    continue;
                }
                SCOPED_TRACE(Where(family, sent));
                const std::string command = line.substr(line.starts_with("w ") ? 2 : 0, 2);
                StartFamily(family.revision, family.chipId, Fault(command, ++uses[command]));
                EXPECT_EQ(reading.ask(), reading.failed);
                EXPECT_EQ(SentTraffic(), sent);
            }
        }
    }
}

TEST_F(EcMapsTest, AsksForTheIdentityAfreshOnEachReadingAndEachPlaceOfAList) {
    for (const Family& family : Families) {
        SCOPED_TRACE(Where(family, ""));
        const std::string& once = family.identityQuestions;
        for (const auto& [ask, questions] :
             {std::pair(Vrm, once), std::pair(Cells, once + once + once + once),
              std::pair(Fans, once + once + once + once),
              std::pair(Number(Battery_Read_CycleCount), std::string("EcFwRev "))}) {
            StartFamily(family.revision, family.chipId, QuickFans);
            ask();
            EXPECT_EQ(IdentityQuestions(), questions);
        }
    }
    // What the registry does not keep is asked of the EC.
    StartMachine(R"({"ec": {"chip_id": 1}, "registry": {"read_only": ["HKLM\\SOFTWARE"]}})");
    InitializeSondrel();
    EXPECT_EQ(Thermal_Read_Cpu_Temperature(), 53u);
    EXPECT_EQ(SentTraffic(), "bb 03, bb 04, bb 10, bb 10, 80 f7a0");
}

TEST_F(EcMapsTest, WithoutAnIdentityThereIsNoMapAndWithoutASessionEveryReadingFails) {
    Lines noMap(17, "0"); // the numbers, then the texts
    noMap.insert(noMap.end(), {"0x7FFFFFFF~", "1980-01-01~", "0;0;0;0~", "0;0;0;0~"});
    EXPECT_EQ(Thermal_Read_Cpu_Temperature(), 0u); // neither of the two
    EXPECT_EQ(SentTraffic(), "");
    StartMachine(R"({"ec": {"faults": [{"command": "0xBB", "status": 5}]}})");
    InitializeSondrel();
    EXPECT_EQ(Answers(), noMap);
    EXPECT_THAT(SentTraffic(), MatchesRegex("bb 03(, bb 03)*"));
    StartFamily("LK", 0);
    EXPECT_EQ(Answers(), noMap);
    StartFamily("GL", 0);
    CloseSession();
    Lines failed;
    for (const Reading& reading : Readings()) {
        failed.push_back(reading.failed);
    }
    EXPECT_EQ(Answers(), failed);
    EXPECT_EQ(SentTraffic(), "");
    StartFamily("KL", 0);
    CloseSession();
    EXPECT_EQ(Fans(), "2147483647;2147483647;2147483647;0~") << "the fourth fan is not asked for";
}

TEST_F(EcMapsTest, SequencesGoByWhatTheEcAnswers) {
    struct Case {
        const char* why;
        const char* revision;
        int chipId;
        std::string ec;
        Ask ask;
        std::string answer;
        std::string traffic;
    };

    const std::string busy = Start9B("1b");
    const Case cases[] = {
        {"a list goes on behind a cell that failed", "AB", 0, Fault("AB", 9), Cells,
         "3862;2147483647;3884;3895~",
         BusAB("3f") + ", w ab 0501, w ab 0609, w ab 0816, w ab 093e, " + BusAB("3d") + ", " + BusAB("3c")},
        {"a list goes on behind a fan that failed", "GL", 0, FanFault("CC", 3), Fans,
         "2912;2147483647;2455;1999~", "cc 0035, cc 0036, cc 003c, cc 0135, cc 0136, cc 013c, cc 013d"},
        {"chip 0 of the banked family has its date on one bus", "WL", 0, "", Date, "2023-06-14~",
         BusAB("1b")},
        {"chip 1 on the other", "WL", 1, "", Date, "2023-06-14~", Bus9B("1b")},
        {"and any other chip has none", "WL", 2, "", Date, "1980-01-01~", ""},
        {"a tachometer is asked until it is ready", "KL", 1,
         R"("fans": [{"rpm": 2912, "ready_after": 3}, {"rpm": 3071, "ready_after": 19}])", Fans,
         "2913;3071;0;0~", Fan("20", 4) + ", " + Fan("10", 20)},
        {"but twenty times at most, and its count read all the same", "KL", 0,
         R"("fans": [{"rpm": 2912, "never_ready": true}])", Fans, "2913;0;0;0~",
         Fan("20", 20) + ", " + Fan("10") + ", " + Fan("04")},
        {"the start is waited for even when it fails", "AR", 0, FanFault("A1", 1), Fans,
         "2147483647;3071;0;0~", FanStart("20") + ", " + Fan("10")},
        {"only the last question's status counts", "AR", 0, FanFault("A0", 1), Fans, "2913;3071;0;0~",
         Fan("20", 2) + ", " + Fan("10")},
        {"a question that fails with the ready bit in its answer is the last", "AR", 0,
         FanFault("A0", 1, R"(, "byte": 128)"), Fans, "2147483647;3071;0;0~",
         FanStart("20") + ", a0 02, " + Fan("10")},
        {"a count without its low byte", "AR", 0, FanFault("A0", 2), Fans, "2147483647;3071;0;0~",
         FanStart("20") + ", a0 02, a0 03, " + Fan("10")},
        {"a count without its high byte", "AR", 0, FanFault("A0", 3), Fans, "2147483647;3071;0;0~",
         Fan("20") + ", " + Fan("10")},
        {"questions that all fail", "AR", 0, FanFault("A0"), Fans, "2147483647;2147483647;0;0~",
         FanStart("20") + ", " + Times(20, "a0 02") + ", " + FanStart("10") + ", " + Times(20, "a0 02")},
        {"a busy bus is waited for", "KL", 1, R"("battery": {"bus_busy_polls": 3})", Date, "2023-06-14~",
         busy + Times(3, "80 ede3, sleep 1") + ", 80 ede3, 9a 1c, 9a 1d"},
        {"twenty times at most, and read all the same", "PC", 1, R"("battery": {"bus_busy_for_ever": true})",
         Date, "1980-01-01~", busy + Times(20, "80 ede3, sleep 1") + ", 9a 1c, 9a 1d"},
        {"a question that fails while the bus is busy is no reason to stop", "KL", 1,
         Fault("80", 1, R"(, "byte": 1)"), Date, "2023-06-14~",
         busy + "80 ede3, sleep 1, 80 ede3, 9a 1c, 9a 1d"},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.why);
        StartFamily(each.revision, each.chipId, each.ec);
        EXPECT_EQ(each.ask(), each.answer);
        EXPECT_EQ(SentTraffic(), each.traffic);
    }
    for (const std::string state :
         {R"({"ready": false})", R"({"device_2_present": false})", R"({"gpu_vrm": {"valid": false}})"}) {
        for (const auto& [revision, traffic] :
             {std::pair("AB", "ac 00, ac 29"), std::pair("GL", "ce 00, ce 01, ce 2b")}) {
            SCOPED_TRACE(revision + state);
            StartFamily(revision, 0, R"("sensors": )" + state);
            EXPECT_EQ(Vrm(), "0");
            EXPECT_EQ(SentTraffic(), traffic) << "a sensor that is not ready is not asked for its value";
        }
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
