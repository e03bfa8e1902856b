// Every EC reading on every map: the value, the sequence of commands, and what ends it. The register tables are not
// repeated here: the simulated EC has its own, and only the right registers give the right values.
#include "machine_fixture.h"
#include "unicode/utf.h"

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

const std::string Failed = "2147483647";
const std::string AllFailed = "2147483647;2147483647;2147483647;2147483647~";

struct Reading {
    Ask ask;
    std::string value;           // empty for the fans, which depend on the family
    std::string failed = Failed; // after any failed command; in a list, if all of them fail
};

const Ask Cells = Written(Battery_Read_CellVoltage);
const Ask Fans = Written(Thermal_Read_Fan);
const Ask Date = Written(Battery_Read_ManufactureDate);
const Ask Vrm = Number(Thermal_Read_GpuVrm_Temperature);

std::vector<Reading> Readings() {
    return {
        {Number(Thermal_Read_Cpu_Temperature), "53"},
        {Number(Thermal_Read_BoardTS0L_Temperature), "39"},
        {Number(Thermal_Read_BoardTS0R_Temperature), "42"},
        {Number(Thermal_Read_GpuTS1L_Temperature), "60"},
        {Number(Thermal_Read_GpuTS1R_Temperature), "62"},
        {Number(Battery_Get_LidStatus), "3"},
        {Number(Battery_Read_ChargingVoltage), "13060"},
        {Number(Battery_Read_Current), "-1260", "-1"},
        {Number(Battery_Read_PackageVoltage), "11630"},
        {Number(Battery_Read_Temperature), "3028"},
        {Number(Thermal_Read_BatteryConnector_Temperature), "55"},
        {Number(Thermal_Read_ACFET_Temperature), "64"},
        {Number(Thermal_Read_ChargerChoke_Temperature), "69"},
        {Vrm, "78"},
        {Number(Thermal_Read_UpCpu_Temperature), "50"},
        {Number(Thermal_Read_GpuVram_Temperature), "72"},
        {Written(Battery_Read_ManufactureName), "VESKCELL01~", "0x7FFFFFFF~"},
        {Date, "2023-06-14~", "1980-01-01~"},
        {Cells, "3862;3873;3884;3895~", AllFailed},
        {Fans, "", AllFailed},
    };
}

struct Family {
    const char* revision;
    int chipId;
    std::string fans;              // empty for a family without a map
    std::string identityQuestions; // of one dispatched reading

    [[nodiscard]] bool HasMap() const { return !fans.empty(); }
};

const Family Families[] = {
    {"AB", 0, "2913;3071;0;0~", "EcFwRev EcChipId "},
    {"AR", 0, "2913;3071;0;0~", "EcFwRev EcChipId "},
    {"CF", 0, "2912;3071;2455;1999~", "EcFwRev "},
    {"GL", 0, "2912;3071;2455;1999~", "EcFwRev "},
    {"PC", 0, "2912;3071;2455;1999~", "EcFwRev "},
    {"WL", 0, "2912;3071;2455;1999~", "EcFwRev "},
    {"KL", 0, "2913;3071;2455;0~", "EcFwRev EcChipId "},
    {"KL", 1, "2913;3071;0;0~", "EcFwRev EcChipId EcChipId "},
    {"AB", 1, "", "EcFwRev EcChipId "},
    {"AR", 2, "", "EcFwRev EcChipId "},
    {"KL", 2, "", "EcFwRev EcChipId EcChipId "},
    {"LK", 0, "", "EcFwRev "},
};

constexpr const char* QuickFans =
    R"("lid": 3, "fans": [{"rpm": 2912}, {"rpm": 3071}, {"rpm": 2455}, {"rpm": 1999}])";

/// Makes one command fail, at its n-th use or always, with more members of the fault.
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

    /// The identity values that were read from the registry, in order.
    [[nodiscard]] std::string IdentityQuestions() const {
        std::string names;
        for (const CallRecord& call : RecordsOf(Operation::RegQueryValueExW)) {
            if (call.Output("data") == nullptr) { // the size alone
                names += unicode::Utf8FromWide(std::get<std::u16string>(call.Input("name")->held)) + ' ';
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

TEST_F(EcMapsTest, ReadsEverySignalOfEachFamily) {
    for (const Family& family : Families) {
        for (const Reading& reading : Readings()) {
            SCOPED_TRACE(Where(family, reading.value));
            StartFamily(family.revision, family.chipId, QuickFans);
            const std::string answer = reading.ask();
            if (family.HasMap()) {
                EXPECT_EQ(answer, reading.value.empty() ? family.fans : reading.value);
            } else {
                EXPECT_EQ(SentTraffic(), "");
            }
        }
    }
}

TEST_F(EcMapsTest, ReadsTheCycleCountFromTheEcOnOneMapAndElseFromTheBatteryDevice) {
    for (const Family& family : Families) {
        SCOPED_TRACE(Where(family, ""));
        const bool fromEc = family.identityQuestions == "EcFwRev " && family.HasMap();
        StartFamily(family.revision, family.chipId, QuickFans);
        const std::uint32_t fromDevice = std::string_view(family.revision) == "LK" ? 0 : 212;
        EXPECT_EQ(Battery_Read_CycleCount(), fromEc ? 138 : fromDevice);
        EXPECT_EQ(SentTraffic(), fromEc ? "c4 2e, c4 2f" : "");
    }
}

TEST_F(EcMapsTest, StopsAtTheFirstCommandThatFails) {
    for (const Family& family : Families) {
        for (const Reading& reading : Readings()) {
            if (!family.HasMap() || reading.failed == AllFailed) {
                continue;
            }
            StartFamily(family.revision, family.chipId, QuickFans);
            reading.ask();
            std::istringstream traffic(SentTraffic());
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
            EXPECT_FALSE(uses.empty());
        }
    }
}

TEST_F(EcMapsTest, ReadsTheIdentityForEachReadingAndEachPlaceOfAList) {
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
    // A number that the registry does not store is read from the EC.
    StartMachine(R"({"ec": {"chip_id": 1}, "registry": {"read_only": ["HKLM\\SOFTWARE"]}})");
    InitializeSondrel();
    EXPECT_EQ(Thermal_Read_Cpu_Temperature(), 53u);
    EXPECT_EQ(SentTraffic(), "bb 03, bb 04, bb 10, bb 10, 80 f7a0");
}

TEST_F(EcMapsTest, WithoutAnIdentityThereIsNoMapAndWithoutASessionEveryReadingFails) {
    Lines noMap(16, "0"); // the numbers, then the strings
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
    EXPECT_EQ(Fans(), "2147483647;2147483647;2147483647;0~") << "the fourth fan is not read";
}

TEST_F(EcMapsTest, SequencesDependOnTheAnswersOfTheEc) {
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
        {"a list continues after a failed cell", "AB", 0, Fault("AB", 9), Cells, "3862;2147483647;3884;3895~",
         BusAB("3f") + ", w ab 0501, w ab 0609, w ab 0816, w ab 093e, " + BusAB("3d") + ", " + BusAB("3c")},
        {"a list continues after a failed fan", "GL", 0, FanFault("CC", 3), Fans,
         "2912;2147483647;2455;1999~", "cc 0035, cc 0036, cc 003c, cc 0135, cc 0136, cc 013c, cc 013d"},
        {"chip 0 of the banked family has its date on one bus", "WL", 0, "", Date, "2023-06-14~",
         BusAB("1b")},
        {"chip 1 on the other", "WL", 1, "", Date, "2023-06-14~", Bus9B("1b")},
        {"and any other chip has none", "WL", 2, "", Date, "1980-01-01~", ""},
        {"a tachometer is polled until it is ready", "KL", 1,
         R"("fans": [{"rpm": 2912, "ready_after": 3}, {"rpm": 3071, "ready_after": 19}])", Fans,
         "2913;3071;0;0~", Fan("20", 4) + ", " + Fan("10", 20)},
        {"but at most twenty times, and then its count is read", "KL", 0,
         R"("fans": [{"rpm": 2912, "never_ready": true}])", Fans, "2913;0;0;0~",
         Fan("20", 20) + ", " + Fan("10") + ", " + Fan("04")},
        {"the pause after the start comes also when the start fails", "AR", 0, FanFault("A1", 1), Fans,
         "2147483647;3071;0;0~", FanStart("20") + ", " + Fan("10")},
        {"only the status of the last poll counts", "AR", 0, FanFault("A0", 1), Fans, "2913;3071;0;0~",
         Fan("20", 2) + ", " + Fan("10")},
        {"a poll that fails with the ready bit set is the last", "AR", 0,
         FanFault("A0", 1, R"(, "byte": 128)"), Fans, "2147483647;3071;0;0~",
         FanStart("20") + ", a0 02, " + Fan("10")},
        {"a count without its low byte", "AR", 0, FanFault("A0", 2), Fans, "2147483647;3071;0;0~",
         FanStart("20") + ", a0 02, a0 03, " + Fan("10")},
        {"a count without its high byte", "AR", 0, FanFault("A0", 3), Fans, "2147483647;3071;0;0~",
         Fan("20") + ", " + Fan("10")},
        {"polls that all fail", "AR", 0, FanFault("A0"), Fans, "2147483647;2147483647;0;0~",
         FanStart("20") + ", " + Times(20, "a0 02") + ", " + FanStart("10") + ", " + Times(20, "a0 02")},
        {"a busy bus is polled", "KL", 1, R"("battery": {"bus_busy_polls": 3})", Date, "2023-06-14~",
         busy + Times(3, "80 ede3, sleep 1") + ", 80 ede3, 9a 1c, 9a 1d"},
        {"at most twenty times, and then the word is read", "PC", 1,
         R"("battery": {"bus_busy_for_ever": true})", Date, "1980-01-01~",
         busy + Times(20, "80 ede3, sleep 1") + ", 9a 1c, 9a 1d"},
        {"a poll that fails while the bus is busy does not end the sequence", "KL", 1,
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
            EXPECT_EQ(SentTraffic(), traffic) << "the value of a sensor that is not ready is not read";
        }
    }
}

TEST_F(EcMapsTest, ASensorIsNotReadyThroughItsOwnChannelOrDeviceOnly) {
    struct Channel {
        const char* name;
        int device;
        Ask ask;
    };
    const Channel channels[] = {{"battery_connector", 1, Number(Thermal_Read_BatteryConnector_Temperature)},
                                {"ac_fet", 1, Number(Thermal_Read_ACFET_Temperature)},
                                {"charger_choke", 1, Number(Thermal_Read_ChargerChoke_Temperature)},
                                {"gpu_vrm", 2, Vrm},
                                {"upper_cpu", 2, Number(Thermal_Read_UpCpu_Temperature)},
                                {"gpu_vram", 2, Number(Thermal_Read_GpuVram_Temperature)}};
    for (const char* revision : {"AB", "GL"}) {
        for (const Channel& faulty : channels) {
            StartFamily(revision, 0,
                        std::string(R"("sensors": {")") + faulty.name + R"(": {"valid": false}})");
            for (const Channel& channel : channels) {
                EXPECT_EQ(channel.ask() == "0", &channel == &faulty)
                    << revision << faulty.name << channel.name;
            }
        }
        for (const int absent : {1, 2}) {
            StartFamily(revision, 0,
                        R"("sensors": {"device_)" + std::to_string(absent) + R"(_present": false})");
            for (const Channel& channel : channels) {
                EXPECT_EQ(channel.ask() == "0", channel.device == absent)
                    << revision << absent << channel.name;
            }
        }
    }
}

} // namespace
