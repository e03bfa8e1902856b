#include "machine_fixture.h"

#include "firmware/disk_temperature.h"
#include "usage/decimal_number.h"
#include "usage/open_window_record.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

namespace {

using namespace testing;
using nlohmann::json;

/// What a string export reads on the default machine: the profile has the values in the places that Windows has them, and
/// only the right namespace, class, property and condition give them.
struct StringExport {
    std::string name;
    void (*read)(VeskChar16*, std::uint8_t);
    const char* value;
};

#define NAMED(name) #name, name

const StringExport Strings[] = {
    {NAMED(WMIGet90Number), "90VK14KL-M00210"},
    {NAMED(WMIGetBiosManufacture), "Vesk Computing"},
    {NAMED(WMIGetBiosReleaseDate), "20240312"},
    {NAMED(WMIGetBiosVersion), "VK14KL.308"},
    {NAMED(WMIGetBoardUUID), "6F1C2B60-3D41-11EF-9A2C-02AB5C14D7E1"},
    {NAMED(WMIGetCPUInfo), "Corveth K7-1360 @ 2.20GHz"},
    {NAMED(WMIGetComputerFamilyName), "Kelvane"},
    {NAMED(WMIGetGPUInfo), "Corveth Integrated Graphics"},
    {NAMED(WMIGetHDDCaption), "NORRIK N740 1TB"},
    {NAMED(WMIGetHDDInfo), "NORRIK N740 1TB;1024209543168;4;OSTLUND Stick 32GB;30765219840;0"},
    {NAMED(WMIGetHDDModel), ""},
    {NAMED(WMIGetHDDSize), "1024203640320"},
    {NAMED(WMIGetLCDModel), "Lumiq 14A;Holvik 27Q"},
    {NAMED(WMIGetMacAddress), "02:AB:5C:14:D7:E1;02:AB:5C:14:D7:E2"},
    {NAMED(WMIGetMemManufacture), "Tarn Memory;Tarn Memory"},
    {NAMED(WMIGetMemModel), "TM5-4800S-8G;TM5-4800S-8G"},
    {NAMED(WMIGetMemSize), "8589934592;8589934592"},
    {NAMED(WMIGetModelName), "VK14-KL"},
    {NAMED(WMIGetOSCountryCode), "49"},
    {NAMED(WMIGetProductName), "Kelvane 14 KL"},
    {NAMED(WMIGetSN), "VSK4K0C7Q213"},
    {NAMED(WMIGetSSDModel), "NORRIK N740 1TB"},
    {NAMED(WMIGetSystemChassisTypes), "Notebook"},
};

class WmiExportsTest : public test::MachineTest {
protected:
    /// The default machine with these rows, or this one row, as all that a class has.
    void StartWith(const std::string& nameSpace, const std::string& className, const json& rows) {
        const json list = rows.is_array() ? rows : json::array({rows});
        StartMachine(json{{"wmi", {{nameSpace, {{className, list}}}}}}.dump());
    }
};

TEST_F(WmiExportsTest, EachStringIsReadFromItsPlaceInWmi) {
    for (const auto& [name, read, value] : Strings) {
        StartMachine();
        EXPECT_EQ(Text(read), value) << name;
        const bool upperCase = name == "WMIGetBiosVersion" || name == "WMIGetSN";
        const test::Lines lines = DebugLines();
        EXPECT_EQ(lines.front(), name + " Start");
        EXPECT_EQ(lines.back(), name + (upperCase ? " END" : " End"));
        EXPECT_THAT(CallsOf(Operation::ExecQuery),
                    ElementsAre(AllOf(HasSubstr("language=\"WQL\""), HasSubstr("flags=48 -> 0"))));
        EXPECT_THAT(EventLines(), IsEmpty());
    }
}

TEST_F(WmiExportsTest, ANumberIsQueriedAfterBothDebugLines) {
    const auto linesOf = [&](std::int32_t (*read)(std::uint8_t), std::int32_t expected) {
        Journal();
        EXPECT_EQ(read(1), expected);
        test::Lines journal = Journal();
        journal.resize(3);
        return journal;
    };
    EXPECT_THAT(linesOf(WMIGetCPUUsg, 14), ElementsAre("debug WMIGetCPUUsg Start", "debug WMIGetCPUUsg End",
                                                       "CoInitializeEx kind=0 -> 0"));
    EXPECT_EQ(linesOf(WMIGetExternMonitorNum, 1)[1], "debug WMIGetExternMonitorNum End");
    EXPECT_EQ(linesOf(WMIGetMonitorBrightness, 70)[0], "debug WMIGetMonitorBrightness Start");
    EXPECT_EQ(wmiadd(0), 1u);
    EXPECT_EQ(wmiadd(0xFFFFFFFF), 0u);
    StartMachine(R"({"wmi": null})");
    EXPECT_EQ(WMIGetExternMonitorNum(1), -1);
    EXPECT_EQ(Text(AppList_HardwareConfig), R"({"brightness":"","volume":"34"})");
}

TEST_F(WmiExportsTest, ChassisWordsFollowTheFirstNumberOfTheLastRow) {
    const auto word = [&](const json& rows) {
        StartWith("ROOT\\CIMV2", "Win32_SystemEnclosure", rows);
        return Text(WMIGetSystemChassisTypes);
    };
    const std::pair<int, const char*> words[] = {{0, "unknown"},     {3, "Desktop"},   {10, "Notebook"},
                                                 {13, "All in One"}, {29, "unknown"},  {30, "Notebook"},
                                                 {31, "Notebook"},   {32, "Notebook"}, {33, "unknown"}};
    for (const auto& [number, text] : words) {
        EXPECT_EQ(word({{{"ChassisTypes", {number, 3}}}}), text) << number;
    }
    EXPECT_EQ(word({{{"ChassisTypes", {3}}}, {{"ChassisTypes", {13}}}}), "All in One");
    EXPECT_EQ(word({{{"ChassisTypes", nullptr}}}), "unknown");
}

TEST_F(WmiExportsTest, AShortReleaseDateStaysAsItIs) {
    StartWith("ROOT\\CIMV2", "Win32_BIOS", {{{"ReleaseDate", "2021"}}});
    EXPECT_EQ(Text(WMIGetBiosReleaseDate), "2021");
}

TEST_F(WmiExportsTest, TheSystemsLineKeepsThePlaceOfWhatIsMissing) {
    const auto line = [&](const json& row, const json& system) {
        StartMachine(
            json{{"wmi", {{"ROOT\\CIMV2", {{"Win32_OperatingSystem", {row}}}}}}, {"system", system}}.dump());
        return Text(WMIGetOSInfo);
    };
    const json both = {{"Caption", "Windows 10 Pro"}, {"OSArchitecture", "64-bit"}};
    EXPECT_EQ(line(both, {{"version", {{"build", 19041}}}}), "Windows 10 Pro 64-bit 10.0.19041");
    EXPECT_EQ(line(both, {{"has_version", false}}), "Windows 10 Pro 64-bit 0.0.0");
    EXPECT_EQ(line(both, {{"version", {{"build", 4294967295}}}}), "Windows 10 Pro 64-bit 10.0.-1");
    EXPECT_EQ(line({{"Caption", nullptr}, {"OSArchitecture", "64-bit"}}, json::object()),
              " 64-bit 10.0.22631");
    EXPECT_EQ(line({{"Caption", "Windows"}, {"OSArchitecture", ""}}, json::object()), "Windows  10.0.22631");
    EXPECT_EQ(line({{"Caption", ""}}, json::object()), "");
    EXPECT_THAT(CallsOf(Operation::RtlGetVersion), SizeIs(1)) << "looked up all the same";
}

class DiskTemperatureTest : public WmiExportsTest {
protected:
    std::string Temperatures(const json& rows) {
        StartWith("ROOT\\WMI", "MSStorageDriver_FailurePredictData", rows);
        return Text(WMIGetHDDTemp);
    }

    static json Row(const json& name, const json& block) {
        return {{"InstanceName", name}, {"VendorSpecific", block}};
    }

    /// A row whose block has attributes of id and first raw byte after the first two bytes.
    static json Disk(const json& name, const std::vector<std::pair<int, int>>& attributes) {
        std::string bytes = "0000";
        for (const auto& [id, raw] : attributes) {
            char attribute[32];
            std::snprintf(attribute, sizeof attribute, "%02x00000000%02x000000000000", id, raw);
            bytes += attribute;
        }
        return Row(name, {{"bytes", bytes}});
    }
};

TEST_F(DiskTemperatureTest, EveryTemperatureAttributeAddsItsFirstRawByte) {
    EXPECT_EQ(Temperatures({Disk("A", {{1, 9}, {194, 38}}), Disk("B", {{194, 41}, {5, 2}, {194, 0}})}),
              "38;41;0");
    EXPECT_EQ(Temperatures(json::array()), "38;41;0") << "what was read stays";
    EXPECT_EQ(Temperatures({Disk("C", {{194, 255}})}), "255;41;0");
    EXPECT_EQ(Temperatures({Disk("D", {31, std::pair(194, 7)})}).size(), 30u * 2 + 4) << "thirty, and B's";
    Temperatures({Row("E", {{"bytes", "ffff c2 2233 44 55 010203040506 ff"}})});
    const sondrel::SmartAttribute& attribute = sondrel::SmartDiskTable[0].attributes[0];
    EXPECT_THAT(std::tie(attribute.id, attribute.flags, attribute.current, attribute.worst),
                FieldsAre(0xC2, 0x3322, 0x44, 0x55));
    EXPECT_THAT(attribute.raw, ElementsAre(1, 2, 3, 4, 5, 6));
    // The bytes go by their index, whatever the first one is.
    const auto bounded = [](int lowerBound, const char* bytes) {
        return Row("F", {{"bytes", bytes}, {"lower_bound", lowerBound}});
    };
    EXPECT_EQ(Temperatures({bounded(2, "c2 2233 44 55 0c")}), "12;41;0");
    EXPECT_EQ(Temperatures({bounded(1, "0000 c2 2233 44 55 0e")}), "41;0") << "one place too far";
    EXPECT_EQ(Temperatures({bounded(2147483647, "c2")}), "41;0");
}

TEST_F(DiskTemperatureTest, TenRecordsAreStoredAndUselessRowsSkipped) {
    json rows = {Disk(nullptr, {{194, 91}}), Row("no block", nullptr), Row("numbers", {194, 194, 194}),
                 Row("a text", "c2")};
    for (int disk = 1; disk <= 12; ++disk) {
        rows.push_back(Disk("disk", {{194, disk}}));
    }
    EXPECT_EQ(Temperatures(rows), "1;2;3;4;5;6;7;8;9;10");
    rows.insert(rows.begin(), Disk("", {{194, 90}}));
    EXPECT_EQ(Temperatures(rows), "1;2;3;4;5;6;7;8;9") << "a name without a character takes a record";
    for (const auto& [name, stored] : {std::pair(std::string(150, 'n'), std::u16string(100, u'n')),
                                       std::pair(std::string("short"), std::u16string(u"short"))}) {
        Temperatures({Disk(name, {{194, 1}})});
        EXPECT_EQ(sondrel::SmartDiskTable[0].InstanceName.data(), stored);
    }
}

class ProcessUsageTest : public WmiExportsTest {
protected:
    void SetProcesses(const json& rows) {
        StartWith("ROOT\\CIMV2", "Win32_PerfFormattedData_PerfProc_Process", rows);
    }

    static json Process(const std::string& name, int id, const json& cpu, const json& mem) {
        return {{"Name", name}, {"IDProcess", id}, {"PercentProcessorTime", cpu}, {"WorkingSet", mem}};
    }

    static std::string Record(const std::string& name, const std::string& cpu, const std::string& mem) {
        return R"({"process_name":")" + name + R"(","cpu_usage":")" + cpu + R"(","mem_usage":")" + mem +
               "\"}";
    }
};

TEST_F(ProcessUsageTest, TheListEndsBeforeWhatWeighsNothingAndAtItsLimit) {
    SetProcesses({Process("b", 2, "37", "1023"), Process("_Total", 0, "800", "99999999"),
                  Process("a", 1, "100", "1048576"), Process("z", 3, "0", "2048")});
    EXPECT_EQ(Text(AppList_CpuUsage),
              '[' + Record("a", "10.0", "1024") + ',' + Record("b", "3.7", "0") + ']');
    EXPECT_EQ(Text(AppList_MemUsage),
              '[' + Record("a", "10.0", "1024") + ',' + Record("z", "0.0", "2") + ']');
    json many = json::array();
    for (int id = 1; id <= 40; ++id) {
        many.push_back(Process("p" + std::to_string(id), id, std::to_string(id), std::to_string(id * 1024)));
    }
    SetProcesses(many);
    for (const auto& [list, last, count] : {std::tuple(&AppList_CpuUsage, Record("p36", "3.6", "36"), 5),
                                            std::tuple(&AppList_MemUsage, Record("p31", "3.1", "31"), 10)}) {
        EXPECT_THAT(Text(list), AllOf(StartsWith('[' + Record("p40", "4.0", "40")), EndsWith(last + ']')));
        EXPECT_EQ(std::ranges::count(Text(list), '{'), count);
    }
    SetProcesses({Process("idle", 5, "0", "-4096")});
    EXPECT_EQ(Text(AppList_CpuUsage), "[]");
    EXPECT_EQ(Text(AppList_MemUsage), "[]");
}

TEST_F(ProcessUsageTest, OddNumbersSaturateOrCountAsNothing) {
    SetProcesses({Process("huge", 1, "1e39", "99999999999999999999"),
                  Process("odd", 2, " +12.5x", nullptr),
                  Process("none", 3, nullptr, "lots"),
                  {{"Name", "no id"}, {"WorkingSet", "9999999"}}});
    EXPECT_EQ(Text(AppList_CpuUsage),
              '[' + Record("huge", "inf", "2097151") + ',' + Record("odd", "1.2", "0") + ']');
    EXPECT_EQ(Text(AppList_MemUsage), '[' + Record("huge", "inf", "2097151") + ']');
    EXPECT_THAT(Journal(), Contains("debug AppList_MemUsage end"));
}

TEST(WideToDouble, ReadsWhatTheDecimalPointOfTheCLocaleAllows) {
    using sondrel::WideToDouble;
    const std::u16string many(400, u'9');
    EXPECT_EQ(WideToDouble(u" \t-3.25e1rest"), -32.5);
    EXPECT_EQ(WideToDouble(u"+.5"), 0.5);
    EXPECT_EQ(WideToDouble(u"12,5"), 12.0);
    EXPECT_EQ(WideToDouble(u"7e"), 7.0);
    for (const char16_t* none :
         {u"", u"inf", u"nan", u"-", u"+-1", u"--1", u".", u"e5", u"x", u"\x0661", u"1e-999"}) {
        EXPECT_EQ(WideToDouble(none), 0.0);
    }
    EXPECT_EQ(WideToDouble(u"0." + std::u16string(400, u'0') + u"1"), 0.0);
    for (const std::u16string& beyond : {std::u16string(u"1e999"), u"1e" + many, many + u"e-9"}) {
        EXPECT_TRUE(std::isinf(WideToDouble(beyond)));
    }
}

TEST(UsageTexts, HaveOneDigitAfterThePoint) {
    using Limits = std::numeric_limits<float>;
    EXPECT_EQ(sondrel::CpuUsageText(-1.0F), u"-1.0");
    EXPECT_EQ(sondrel::CpuUsageText(12.46F), u"12.5");
    EXPECT_EQ(sondrel::CpuUsageText(99.96F), u"100.0");
    EXPECT_EQ(sondrel::CpuUsageText(0.25F), u"0.2");
    EXPECT_EQ(sondrel::CpuUsageText(Limits::lowest()), u"-340282346638528859811704183484516925440.0");
    EXPECT_EQ(sondrel::CpuUsageText(Limits::infinity()), u"inf");
}

} // namespace
