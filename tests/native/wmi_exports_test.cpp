#include "wmi_fixture.h"

#include "firmware/disk_temperature.h"
#include "platform/simulated/wide_text.h"
#include "usage/decimal_number.h"

#include <cmath>
#include <cstdio>

namespace {

using machine::Failure;
using machine::Operation;
using nlohmann::json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using TextExport = void (*)(VeskChar16*, std::uint8_t);

struct TextRow {
    const char* name;
    TextExport read;
    const char* closing;
    const char* nameSpace;
    const char* query;
    const char16_t* value; // on the default machine
};

#define NAMED(name) #name, name

const char* const Cimv2 = "ROOT\\CIMV2";
const char* const Wmi = "ROOT\\WMI";
const char* const Storage = "root\\Microsoft\\Windows\\Storage";

const TextRow TextRows[] = {
    {NAMED(WMIGet90Number), "End", Cimv2, "select * from win32_ComputerSystem", u"90VK14KL-M00210"},
    {NAMED(WMIGetBiosManufacture), "End", Cimv2, "select * from Win32_Baseboard", u"Vesk Computing"},
    {NAMED(WMIGetBiosReleaseDate), "End", Cimv2, "select * from Win32_Bios", u"20240312"},
    {NAMED(WMIGetBiosVersion), "END", Cimv2, "select * from Win32_Bios", u"VK14KL.308"},
    {NAMED(WMIGetBoardUUID), "End", Cimv2, "select * from Win32_ComputerSystemProduct",
     u"6F1C2B60-3D41-11EF-9A2C-02AB5C14D7E1"},
    {NAMED(WMIGetCPUInfo), "End", Cimv2, "select * from Win32_Processor", u"Corveth K7-1360 @ 2.20GHz"},
    {NAMED(WMIGetComputerFamilyName), "End", Cimv2, "select * from win32_ComputerSystem", u"Kelvane"},
    {NAMED(WMIGetGPUInfo), "End", Cimv2, "select * from win32_VideoController",
     u"Corveth Integrated Graphics"},
    {NAMED(WMIGetHDDCaption), "End", Cimv2,
     "select * from Win32_DiskDrive where MediaType='Fixed hard disk media'", u"NORRIK N740 1TB"},
    {NAMED(WMIGetHDDInfo), "End", Storage, "select * from MSFT_PhysicalDisk",
     u"NORRIK N740 1TB;1024209543168;4;OSTLUND Stick 32GB;30765219840;0"},
    {NAMED(WMIGetHDDModel), "End", Storage, "select * from MSFT_PhysicalDisk where mediatype=3", u""},
    {NAMED(WMIGetHDDSize), "End", Cimv2,
     "select * from Win32_DiskDrive where MediaType='Fixed hard disk media'", u"1024203640320"},
    {NAMED(WMIGetLCDModel), "End", Wmi, "SELECT * FROM WMIMonitorID", u"Lumiq 14A;Holvik 27Q"},
    {NAMED(WMIGetMacAddress), "End", Cimv2, "select * from win32_NetworkAdapter where physicalAdapter='true'",
     u"02:AB:5C:14:D7:E1;02:AB:5C:14:D7:E2"},
    {NAMED(WMIGetMemManufacture), "End", Cimv2, "select * from Win32_PhysicalMemory",
     u"Tarn Memory;Tarn Memory"},
    {NAMED(WMIGetMemModel), "End", Cimv2, "select * from Win32_PhysicalMemory", u"TM5-4800S-8G;TM5-4800S-8G"},
    {NAMED(WMIGetMemSize), "End", Cimv2, "select * from Win32_PhysicalMemory", u"8589934592;8589934592"},
    {NAMED(WMIGetModelName), "End", Cimv2, "select * from Win32_Baseboard", u"VK14-KL"},
    {NAMED(WMIGetOSCountryCode), "End", Cimv2, "select * from Win32_OperatingSystem", u"49"},
    {NAMED(WMIGetProductName), "End", Cimv2, "select * from win32_ComputerSystem", u"Kelvane 14 KL"},
    {NAMED(WMIGetSN), "END", Cimv2, "select * from Win32_Bios", u"VSK4K0C7Q213"},
    {NAMED(WMIGetSSDModel), "End", Storage, "select * from MSFT_PhysicalDisk where mediatype=4",
     u"NORRIK N740 1TB"},
    {NAMED(WMIGetSystemChassisTypes), "End", Cimv2, "select * from Win32_SystemEnclosure", u"Notebook"},
};

class WmiExportsTest : public test::WmiTest {
protected:
    WmiExportsTest() { sondrel::SmartDiskTable = {}; }
};

TEST_F(WmiExportsTest, EachTextComesFromItsNamespaceAndQuery) {
    for (const TextRow& row : TextRows) {
        SCOPED_TRACE(row.name);
        StartMachine();
        DebugLines();
        EXPECT_EQ(Text(row.read), row.value);
        EXPECT_THAT(CallsOf("ConnectServer"),
                    ElementsAre(std::string("ConnectServer ") + row.nameSpace + " = 0"));
        EXPECT_THAT(CallsOf("ExecQuery"),
                    ElementsAre(std::string("ExecQuery WQL flags 48 ") + row.query + " = 0"));
        const std::vector<std::string> lines = DebugLines();
        EXPECT_EQ(lines.front(), row.name + std::string(" Start"));
        EXPECT_EQ(lines.back(), row.name + std::string(" ") + row.closing);
        EXPECT_THAT(EventLines(), IsEmpty());
    }
}

TEST_F(WmiExportsTest, ANumberIsAskedForBehindBothDebugLines) {
    const auto linesOf = [&](std::int32_t (*read)(std::uint8_t), std::int32_t expected) {
        Journal();
        EXPECT_EQ(read(1), expected);
        std::vector<std::string> journal = Journal();
        journal.resize(3);
        return journal;
    };
    EXPECT_THAT(linesOf(WMIGetCPUUsg, 14), ElementsAre("debug WMIGetCPUUsg Start", "debug WMIGetCPUUsg End",
                                                       "CoInitializeEx multithreaded = 0"));
    EXPECT_THAT(linesOf(WMIGetExternMonitorNum, 1)[1], "debug WMIGetExternMonitorNum End");
    EXPECT_THAT(linesOf(WMIGetMonitorBrightness, 70)[0], "debug WMIGetMonitorBrightness Start");
    EXPECT_EQ(wmiadd(0), 1u);
    EXPECT_EQ(wmiadd(0xFFFFFFFF), 0u);
}

TEST_F(WmiExportsTest, WithoutTheServiceEveryTextIsEmptyAndEveryNumberMinusOne) {
    StartAndListen({{"wmi", nullptr}});
    for (const TextRow& row : TextRows) {
        const bool chassis = row.read == WMIGetSystemChassisTypes;
        EXPECT_EQ(Text(row.read), chassis ? u"unknown" : u"") << row.name;
    }
    EXPECT_EQ(WMIGetCPUUsg(1), -1);
    EXPECT_EQ(WMIGetExternMonitorNum(1), -1);
    EXPECT_EQ(WMIGetMonitorBrightness(1), -1);
    EXPECT_EQ(Text(WMIGetOSInfo), u"");
    EXPECT_EQ(Text(WMIGetHDDTemp), u"");
    EXPECT_EQ(Text(AppList_CpuUsage), u"");
    EXPECT_EQ(Text(AppList_MemUsage), u"");
    EXPECT_EQ(Text(AppList_HardwareConfig), u"{\"brightness\":\"\",\"volume\":\"34\"}");
}

TEST_F(WmiExportsTest, ChassisWordsFollowTheFirstNumberOfTheLastRow) {
    const auto word = [&](const json& rows) {
        StartWith("ROOT\\CIMV2", "Win32_SystemEnclosure", rows);
        return Text(WMIGetSystemChassisTypes);
    };
    const std::pair<int, const char16_t*> words[] = {
        {3, u"Desktop"},   {10, u"Notebook"}, {13, u"All in One"}, {30, u"Notebook"}, {31, u"Notebook"},
        {32, u"Notebook"}, {29, u"unknown"},  {33, u"unknown"},    {0, u"unknown"}};
    for (const auto& [number, text] : words) {
        EXPECT_EQ(word({{{"ChassisTypes", {number, 3}}}}), text) << number;
    }
    EXPECT_EQ(word({{{"ChassisTypes", {3}}}, {{"ChassisTypes", {13}}}}), u"All in One");
    EXPECT_EQ(word({{{"ChassisTypes", nullptr}}}), u"unknown");
}

TEST_F(WmiExportsTest, AReleaseDateIsCutOrStaysShort) {
    StartWith("ROOT\\CIMV2", "Win32_BIOS", {{{"ReleaseDate", "20211231000000.000000+000"}}});
    EXPECT_EQ(Text(WMIGetBiosReleaseDate), u"20211231");
    StartWith("ROOT\\CIMV2", "Win32_BIOS", {{{"ReleaseDate", "2021"}}});
    EXPECT_EQ(Text(WMIGetBiosReleaseDate), u"2021");
}

TEST_F(WmiExportsTest, TheSystemsLineKeepsThePlaceOfWhatIsMissing) {
    const auto line = [&](const json& row, const json& system) {
        StartAndListen({{"wmi", {{"ROOT\\CIMV2", {{"Win32_OperatingSystem", {row}}}}}}, {"system", system}});
        return Text(WMIGetOSInfo);
    };
    const json both = {{"Caption", "Windows 10 Pro"}, {"OSArchitecture", "64-bit"}};
    EXPECT_EQ(line(both, {{"version", {{"build", 19041}}}}), u"Windows 10 Pro 64-bit 10.0.19041");
    EXPECT_EQ(line(both, {{"has_version", false}}), u"Windows 10 Pro 64-bit 0.0.0");
    EXPECT_EQ(line(both, {{"version", {{"build", 4294967295}}}}), u"Windows 10 Pro 64-bit 10.0.-1");
    EXPECT_EQ(line({{"Caption", nullptr}, {"OSArchitecture", "64-bit"}}, json::object()),
              u" 64-bit 10.0.22631");
    EXPECT_EQ(line({{"Caption", "Windows"}, {"OSArchitecture", ""}}, json::object()), u"Windows  10.0.22631");
    EXPECT_EQ(line({{"Caption", ""}}, json::object()), u"");
}

/// A SMART block: attributes of id and first raw byte behind the two bytes in front, cut to a length.
json SmartBlock(std::size_t length, const std::vector<std::pair<int, int>>& attributes) {
    std::vector<std::uint8_t> bytes(std::max<std::size_t>(length, 362));
    for (std::size_t entry = 0; entry < attributes.size(); ++entry) {
        bytes[2 + 12 * entry] = static_cast<std::uint8_t>(attributes[entry].first);
        bytes[2 + 12 * entry + 5] = static_cast<std::uint8_t>(attributes[entry].second);
    }
    std::string text;
    for (std::size_t place = 0; place < length; ++place) {
        char pair[3];
        std::snprintf(pair, sizeof pair, "%02x", bytes[place]);
        text += pair;
    }
    return {{"bytes", text}, {"lower_bound", 1}};
}

class DiskTemperatureTest : public WmiExportsTest {
protected:
    std::u16string Temperatures(const json& rows) {
        StartWith("ROOT\\WMI", "MSStorageDriver_FailurePredictData", rows);
        return Text(WMIGetHDDTemp);
    }

    static json Row(const std::string& name, const json& block) {
        return {{"InstanceName", name}, {"VendorSpecific", block}};
    }
};

TEST_F(DiskTemperatureTest, EveryTemperatureAttributeAddsItsFirstRawByte) {
    EXPECT_EQ(Temperatures({Row("A", SmartBlock(512, {{1, 9}, {194, 38}})),
                            Row("B", SmartBlock(512, {{194, 41}, {5, 2}, {194, 0}}))}),
              u"38;41;0");
    EXPECT_EQ(Temperatures(json::array()), u"38;41;0"); // what was read stays
    StartAndListen({{"wmi", nullptr}});
    EXPECT_EQ(Text(WMIGetHDDTemp), u"38;41;0");
    EXPECT_EQ(Temperatures({Row("C", SmartBlock(512, {{194, 255}}))}), u"255;41;0");
}

TEST_F(DiskTemperatureTest, ABlockMayHaveAnyLength) {
    const std::vector<std::pair<int, int>> last(30, {194, 7});
    const auto count = [&](std::size_t length) {
        sondrel::SmartDiskTable = {};
        const std::u16string list = Temperatures({Row("A", SmartBlock(length, last))});
        return list.empty() ? 0 : 1 + std::ranges::count(list, u';');
    };
    EXPECT_EQ(count(0), 0);
    EXPECT_EQ(count(5), 1);
    EXPECT_EQ(count(14), 1);
    EXPECT_EQ(count(361), 30);
    EXPECT_EQ(count(362), 30);
    EXPECT_EQ(count(4096), 30);
}

TEST_F(DiskTemperatureTest, AttributesAreTakenApartByTheirOffsets) {
    Temperatures({Row("A", {{"bytes", "ffff c2 2233 44 55 010203040506 ff"}})});
    const sondrel::SmartAttribute& attribute = sondrel::SmartDiskTable[0].attributes[0];
    EXPECT_EQ(attribute.id, 0xC2);
    EXPECT_EQ(attribute.flags, 0x3322);
    EXPECT_EQ(attribute.current, 0x44);
    EXPECT_EQ(attribute.worst, 0x55);
    EXPECT_THAT(attribute.raw, ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST_F(DiskTemperatureTest, TenRecordsAreKeptAndUselessRowsPassedOver) {
    json rows = json::array();
    rows.push_back(Row("", SmartBlock(362, {{194, 90}})));
    rows.push_back({{"InstanceName", nullptr}, {"VendorSpecific", SmartBlock(362, {{194, 91}})}});
    rows.push_back(Row("no block", nullptr));
    rows.push_back(Row("numbers", {194, 194, 194}));
    rows.push_back(Row("a text", "c2"));
    for (int disk = 1; disk <= 12; ++disk) {
        rows.push_back(Row("disk", SmartBlock(362, {{194, disk}})));
    }
    EXPECT_EQ(Temperatures(rows), u"1;2;3;4;5;6;7;8;9;10");
    Temperatures({Row(std::string(150, 'n'), SmartBlock(362, {{194, 1}}))});
    EXPECT_EQ(std::u16string(sondrel::SmartDiskTable[0].InstanceName.data()), std::u16string(100, u'n'));
    Temperatures({Row("short", SmartBlock(362, {{194, 1}}))});
    EXPECT_EQ(std::u16string(sondrel::SmartDiskTable[0].InstanceName.data()), u"short");
}

class ProcessUsageTest : public WmiExportsTest {
protected:
    void SetProcesses(const json& rows) {
        StartWith("ROOT\\CIMV2", "Win32_PerfFormattedData_PerfProc_Process", rows);
    }

    static json Process(const std::string& name, int id, const json& cpu, const json& mem) {
        return {{"Name", name}, {"IDProcess", id}, {"PercentProcessorTime", cpu}, {"WorkingSet", mem}};
    }

    static std::u16string Record(const std::string& name, const std::string& cpu, const std::string& mem) {
        return machine::WideFromUtf8("{\"process_name\":\"" + name + "\",\"cpu_usage\":\"" + cpu +
                                     "\",\"mem_usage\":\"" + mem + "\"}");
    }
};

TEST_F(ProcessUsageTest, TheListEndsBeforeWhatWeighsNothingAndAtItsLimit) {
    SetProcesses({Process("b", 2, "37", "1023"), Process("_Total", 0, "800", "99999999"),
                  Process("a", 1, "100", "1048576"), Process("z", 3, "0", "2048")});
    EXPECT_EQ(Text(AppList_CpuUsage),
              u'[' + Record("a", "10.0", "1024") + u',' + Record("b", "3.7", "0") + u']');
    EXPECT_EQ(Text(AppList_MemUsage),
              u'[' + Record("a", "10.0", "1024") + u',' + Record("z", "0.0", "2") + u']');
    json many = json::array();
    for (int id = 1; id <= 40; ++id) {
        many.push_back(Process("p" + std::to_string(id), id, std::to_string(id), std::to_string(id * 1024)));
    }
    SetProcesses(many);
    std::u16string expected = u"[" + Record("p40", "4.0", "40");
    for (int id = 39; id > 35; --id) {
        expected +=
            u',' + Record("p" + std::to_string(id), std::to_string(id / 10) + '.' + std::to_string(id % 10),
                          std::to_string(id));
    }
    EXPECT_EQ(Text(AppList_CpuUsage), expected + u']');
    const std::u16string mem = Text(AppList_MemUsage);
    EXPECT_TRUE(mem.ends_with(Record("p31", "3.1", "31") + u']'));
    EXPECT_EQ(std::ranges::count(mem, u'{'), 10);
    SetProcesses({Process("idle", 5, "0", "-4096")});
    EXPECT_EQ(Text(AppList_CpuUsage), u"[]");
    EXPECT_EQ(Text(AppList_MemUsage), u"[]");
}

TEST_F(ProcessUsageTest, OddNumbersSaturateOrCountAsNothing) {
    SetProcesses({Process("huge", 1, "1e39", "99999999999999999999"),
                  Process("odd", 2, " +12.5x", nullptr),
                  Process("none", 3, nullptr, "lots"),
                  {{"Name", "no id"}, {"WorkingSet", "9999999"}}});
    EXPECT_EQ(Text(AppList_CpuUsage),
              u'[' + Record("huge", "inf", "2097151") + u',' + Record("odd", "1.2", "0") + u']');
    EXPECT_EQ(Text(AppList_MemUsage), u'[' + Record("huge", "inf", "2097151") + u']');
    EXPECT_THAT(Journal(), ::testing::Contains("debug AppList_MemUsage end"));
}

TEST(WideToDouble, ReadsWhatTheDecimalPointOfTheCLocaleAllows) {
    EXPECT_EQ(sondrel::WideToDouble(u""), 0.0);
    EXPECT_EQ(sondrel::WideToDouble(u" \t-3.25e1rest"), -32.5);
    EXPECT_EQ(sondrel::WideToDouble(u"+.5"), 0.5);
    EXPECT_EQ(sondrel::WideToDouble(u"12,5"), 12.0);
    EXPECT_EQ(sondrel::WideToDouble(u"7e"), 7.0);
    for (const char16_t* none : {u"inf", u"nan", u"-", u"+-1", u"--1", u".", u"e5", u"x", u"\x0661"}) {
        EXPECT_EQ(sondrel::WideToDouble(none), 0.0) << machine::Utf8FromWide(none);
    }
    EXPECT_TRUE(std::isinf(sondrel::WideToDouble(u"1e999")));
    EXPECT_TRUE(std::isinf(sondrel::WideToDouble(u"1e99999999999999999999")));
    EXPECT_TRUE(std::isinf(sondrel::WideToDouble(std::u16string(400, u'9') + u"e-9")));
    EXPECT_EQ(sondrel::WideToDouble(u"1e-999"), 0.0);
    EXPECT_EQ(sondrel::WideToDouble(u"0." + std::u16string(400, u'0') + u"1"), 0.0);
}

} // namespace
