// Batteries, temperatures, fans and the processor as the DLL reads them from its devices.
#include "battery_stand.h"
#include "host_test.h"
#include "import_patch.h"

#include <array>

namespace {

using test::DwordValue;
using test::EcRule;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using Commands = std::vector<std::string>;

constexpr std::uint32_t Failed = 0x7FFFFFFF;

std::vector<DWORD> Sleeps;

void WINAPI NoteSleep(DWORD milliseconds) {
    Sleeps.push_back(milliseconds);
}

/// A read of the EC and the byte that it gives.
struct Register {
    const char* read;
    std::uint8_t byte;
};

/// A machine family: its identity, its registers, and what the readings make of them. The byte of each register
/// is one of its own, so that no command can stand for another.
struct Family {
    std::uint32_t code;
    std::uint32_t chipId;
    std::vector<Register> registers;
    const char* busSelect; // the write that names the battery's register
    std::array<const char*, 2> busResult;
    std::array<std::uint32_t, 11> temperatures;
    std::array<std::uint32_t, 4> words; // charging voltage, package voltage, temperature, cycle count
    const char* fans;
    std::vector<DWORD> fanSleeps;
    std::vector<DWORD> cellSleeps;
};

// 11 temperatures in the order of the exports; the six of the sensor block are counts except in the second map.
const Family Families[] = {
    {0x4142,
     0,
     {{"80 03 a0", 41},   {"80 05 12", 42},   {"80 05 11", 43},   {"80 03 a5", 44},   {"80 03 a4", 45},
      {"87 00 11", 3},    {"80 03 c2", 0x01}, {"80 03 c3", 0x31}, {"80 03 bc", 0x18}, {"80 03 bd", 0xFC},
      {"80 03 b2", 0x02}, {"80 03 b3", 0x2E}, {"80 03 be", 0x03}, {"80 03 bf", 0x0B}, {"ac 00", 0x83},
      {"ac 19", 0x80},    {"ac 1a", 0x80},    {"ac 1b", 0x80},    {"ac 29", 0x80},    {"ac 2a", 0x80},
      {"ac 2b", 0x80},    {"ac 1c", 250},     {"ac 1d", 60},      {"ac 1e", 32},      {"ac 2c", 0},
      {"ac 2d", 60},      {"ac 2e", 1},       {"a0 02", 0xC0},    {"a0 03", 0xE8},    {"a0 04", 0x03}},
     "ab 09",
     {"aa 40", "aa 41"},
     {41, 42, 43, 44, 45, 54, 100, 109, 110, 79, 99},
     {0x3101, 0x2E02, 0x0B03, 123},
     "2156;2156;0;0", // 1000 ticks
     {10, 10},
     {}},
    {0x474C,
     1,
     {{"cc 00 00", 51},   {"cc 00 01", 52},   {"cc 00 02", 53},   {"cc 00 03", 54},   {"cc 00 04", 55},
      {"e0 01", 3},       {"c4 3e", 0x04},    {"c4 3f", 0x32},    {"c4 38", 0x18},    {"c4 39", 0xFC},
      {"c4 36", 0x05},    {"c4 37", 0x2F},    {"c4 34", 0x06},    {"c4 35", 0x0C},    {"c4 2e", 0x07},
      {"c4 2f", 0x01},    {"ce 00", 0x80},    {"ce 01", 0x03},    {"ce 28", 0x80},    {"ce 29", 0x80},
      {"ce 2a", 0x80},    {"ce 2b", 0x80},    {"ce 2c", 0x80},    {"ce 2d", 0x80},    {"ce 10", 61},
      {"ce 11", 62},      {"ce 12", 63},      {"ce 13", 64},      {"ce 14", 65},      {"ce 15", 66},
      {"cc 00 35", 0x10}, {"cc 00 36", 0x0A}, {"cc 00 3c", 0x20}, {"cc 00 3d", 0x0B}, {"cc 01 35", 0x30},
      {"cc 01 36", 0x0C}, {"cc 01 3c", 0x40}, {"cc 01 3d", 0x0D}, {"c4 48", 0x16},    {"c4 49", 0x0F},
      {"c4 4a", 0x21},    {"c4 4b", 0x0F},    {"c4 4c", 0x2C},    {"c4 4d", 0x0F},    {"c4 4e", 0x37},
      {"c4 4f", 0x0F}},
     "9b 1b",
     {"9a 1c", "9a 1d"},
     {51, 52, 53, 54, 55, 61, 62, 63, 64, 65, 66},
     {0x3204, 0x2F05, 0x0C06, 0x0107},
     "2576;2848;3120;3392",
     {},
     {}},
    {0x4B4C,
     0,
     {{"80 03 a0", 71}, {"80 05 12", 72}, {"80 05 11", 73}, {"80 03 a5", 74}, {"80 03 a4", 75},
      {"87 00 11", 3},  {"a4 12", 0x08},  {"a4 13", 0x33},  {"a4 0c", 0x18},  {"a4 0d", 0xFC},
      {"a4 02", 0x09},  {"a4 03", 0x30},  {"a4 0e", 0x0A},  {"a4 0f", 0x0D},  {"ac 00", 0x83},
      {"ac 19", 0x80},  {"ac 1a", 0x80},  {"ac 1b", 0x80},  {"ac 29", 0x80},  {"ac 2a", 0x80},
      {"ac 2b", 0x80},  {"ac 1c", 251},   {"ac 1d", 33},    {"ac 1e", 27},    {"ac 2c", 26},
      {"ac 2d", 255},   {"ac 2e", 0},     {"a0 02", 0xC8},  {"a0 03", 0x01},  {"a0 04", 0x00}},
     "ab 09",
     {"aa 40", "aa 41"},
     {71, 72, 73, 74, 75, 53, 108, 109, 110, 35, 100},
     {0x3308, 0x3009, 0x0D0A, 123},
     "2156250;2156250;2156250;0",
     {10, 10, 10},
     {}},
    {0x4B4C,
     1,
     {{"80 f7 a0", 81},   {"80 f9 12", 82},   {"80 f9 11", 83},   {"80 f7 a5", 84},   {"80 f7 a4", 85},
      {"87 00 b4", 3},    {"80 f7 c2", 0x0B}, {"80 f7 c3", 0x34}, {"80 f7 bc", 0x18}, {"80 f7 bd", 0xFC},
      {"80 f7 b2", 0x0C}, {"80 f7 b3", 0x31}, {"80 f7 be", 0x0D}, {"80 f7 bf", 0x0E}, {"ac 00", 0x83},
      {"ac 19", 0x80},    {"ac 1a", 0x80},    {"ac 1b", 0x80},    {"ac 29", 0x80},    {"ac 2a", 0x80},
      {"ac 2b", 0x80},    {"ac 1c", 255},     {"ac 1d", 60},      {"ac 1e", 246},     {"ac 2c", 32},
      {"ac 2d", 254},     {"ac 2e", 60},      {"a0 02", 0xC0},    {"a0 03", 0xFF},    {"a0 04", 0xFF},
      {"80 ed e3", 0xFE}},
     "9b 1b",
     {"9a 1c", "9a 1d"},
     {81, 82, 83, 84, 85, 53, 100, 55, 109, 35, 79},
     {0x340B, 0x310C, 0x0E0D, 123},
     "32;32;0;0",
     {10, 10},
     {10, 10, 10, 10}},
};

class EcTelemetryTest : public test::HostTest {
protected:
    void SetUp() override { VESK_CALL(m_library, InitializeSondrel)(); }

    void TearDown() override { VESK_CALL(m_library, ShutdownSondrel)(); }

    void Identify(std::uint32_t code, std::uint32_t chipId) {
        m_registry.Set(L"EcFwRev", DwordValue(code));
        m_registry.Set(L"EcChipId", DwordValue(chipId));
    }

    void Become(const Family& family) {
        m_stand.ForgetRules();
        Identify(family.code, family.chipId);
        for (const Register& each : family.registers) {
            Answer(EcRule(each.read, each.byte));
        }
        AnswerBus(family, "1b", 1, {0x5C, 0x4B});
        AnswerBus(family, "3f", 2, {0x16, 0x0F});
        AnswerBus(family, "3e", 3, {0x21, 0x0F});
        AnswerBus(family, "3d", 4, {0x2C, 0x0F});
        AnswerBus(family, "3c", 5, {0x37, 0x0F});
    }

    /// The result registers give the word of the battery register that was named last.
    void AnswerBus(const Family& family, const std::string& batteryRegister, std::uint32_t state,
                   const std::array<std::uint8_t, 2>& word) {
        test::Rule select = EcRule(std::string(family.busSelect) + ' ' + batteryRegister, 0);
        select.thenState = state;
        Answer(select);
        for (std::size_t half = 0; half < word.size(); ++half) {
            test::Rule result = EcRule(family.busResult[half], word[half]);
            result.whenState = state;
            Answer(result);
        }
    }

    std::vector<std::uint32_t> Temperatures() {
        return {VESK_CALL(m_library, Thermal_Read_Cpu_Temperature)(),
                VESK_CALL(m_library, Thermal_Read_BoardTS0L_Temperature)(),
                VESK_CALL(m_library, Thermal_Read_BoardTS0R_Temperature)(),
                VESK_CALL(m_library, Thermal_Read_GpuTS1L_Temperature)(),
                VESK_CALL(m_library, Thermal_Read_GpuTS1R_Temperature)(),
                VESK_CALL(m_library, Thermal_Read_BatteryConnector_Temperature)(),
                VESK_CALL(m_library, Thermal_Read_ACFET_Temperature)(),
                VESK_CALL(m_library, Thermal_Read_ChargerChoke_Temperature)(),
                VESK_CALL(m_library, Thermal_Read_GpuVrm_Temperature)(),
                VESK_CALL(m_library, Thermal_Read_UpCpu_Temperature)(),
                VESK_CALL(m_library, Thermal_Read_GpuVram_Temperature)()};
    }

    std::vector<std::uint32_t> Words() {
        return {VESK_CALL(m_library, Battery_Read_ChargingVoltage)(),
                VESK_CALL(m_library, Battery_Read_PackageVoltage)(),
                VESK_CALL(m_library, Battery_Read_Temperature)(),
                VESK_CALL(m_library, Battery_Read_CycleCount)()};
    }

    /// A text export's bytes up to the last that it wrote.
    static std::string Written(void (*read)(char*)) {
        constexpr char Guard = '\xA5';
        std::array<char, 96> buffer{};
        buffer.fill(Guard);
        read(buffer.data());
        std::string bytes(buffer.begin(), buffer.end());
        return bytes.substr(0, bytes.find_last_not_of(Guard) + 1);
    }

    static std::string Terminated(std::string text) {
        text.push_back('\0');
        return text;
    }
};

TEST_F(EcTelemetryTest, EveryMapReadsItsOwnRegisters) {
    test::BatteryStand battery(m_stand);
    test::ImportPatch patch(m_library.Module());
    patch.Replace("Sleep", &NoteSleep);
    for (const Family& family : Families) {
        SCOPED_TRACE(family.code + family.chipId);
        Become(family);
        battery.Answer({.cycleCount = 123});
        EXPECT_THAT(Temperatures(), ElementsAreArray(family.temperatures));
        EXPECT_THAT(Words(), ElementsAreArray(family.words));
        EXPECT_EQ(VESK_CALL(m_library, Battery_Get_LidStatus)(), 3u);
        EXPECT_EQ(VESK_CALL(m_library, Battery_Read_Current)(), -1000);
        Sleeps.clear();
        EXPECT_EQ(Written(VESK_CALL(m_library, Thermal_Read_Fan)), Terminated(family.fans));
        EXPECT_EQ(Sleeps, family.fanSleeps);
        Sleeps.clear();
        EXPECT_EQ(Written(VESK_CALL(m_library, Battery_Read_CellVoltage)), Terminated("3862;3873;3884;3895"));
        EXPECT_EQ(Sleeps, family.cellSleeps);
        EXPECT_EQ(Written(VESK_CALL(m_library, Battery_Read_ManufactureDate)), Terminated("2017-10-28"));
    }
}

TEST_F(EcTelemetryTest, LongSequencesReachTheDriverInTheirOrder) {
    test::ImportPatch patch(m_library.Module());
    patch.Replace("Sleep", &NoteSleep);
    const auto read = [this](auto* reading) {
        m_stand.ForgetLog();
        Written(reading);
        return EcCommands();
    };
    Become(Families[0]);
    EXPECT_THAT(
        read(VESK_CALL(m_library, Battery_Read_ManufactureDate)),
        ElementsAre("w ab 0501", "w ab 0609", "w ab 0816", "w ab 091b", "w ab 0410", "aa 40", "aa 41"));
    EXPECT_THAT(
        read(VESK_CALL(m_library, Thermal_Read_Fan)),
        ElementsAre("w a1 022020", "a0 02", "a0 03", "a0 04", "w a1 021010", "a0 02", "a0 03", "a0 04"));
    Become(Families[3]);
    EXPECT_THAT(read(VESK_CALL(m_library, Battery_Read_ManufactureDate)),
                ElementsAre("w 9b 1809", "w 9b 1a16", "w 9b 1b1b", "w 9c", "80 ede3", "9a 1c", "9a 1d"));
    // Busy for ever: twenty questions, each with its wait, and the words all the same.
    Answer(EcRule("80 ed e3", 0x01));
    Sleeps.clear();
    Commands busy{"w 9b 1809", "w 9b 1a16", "w 9b 1b1b", "w 9c"};
    busy.insert(busy.end(), 20, "80 ede3");
    busy.insert(busy.end(), {"9a 1c", "9a 1d"});
    EXPECT_THAT(read(VESK_CALL(m_library, Battery_Read_ManufactureDate)), ElementsAreArray(busy));
    std::vector<DWORD> sleeps(21, 1);
    sleeps.front() = 10;
    EXPECT_EQ(Sleeps, sleeps);
}

TEST_F(EcTelemetryTest, NamesKeepTheirTenBytes) {
    using namespace std::string_literals;

    struct Case {
        std::uint32_t code;
        std::uint32_t chipId;
        std::string command;
        std::uint8_t first;
    };

    constexpr const char* Digits = "0123456789abcdef";
    for (const Case& each : {Case{0x4152, 0, "80 06 ", 0x33}, Case{0x5043, 0, "c4 ", 0x10},
                             Case{0x4B4C, 0, "a4 ", 0x20}, Case{0x4B4C, 1, "80 fa ", 0x33}}) {
        m_stand.ForgetRules();
        Identify(each.code, each.chipId);
        const auto place = [&](unsigned letter) {
            const unsigned number = each.first + letter;
            return each.command + Digits[number >> 4] + Digits[number & 0xF];
        };
        const std::string name = "VESK\0CELL9"s;
        for (unsigned letter = 0; letter < 10; ++letter) {
            Answer(EcRule(place(letter), static_cast<std::uint8_t>(name[letter])));
        }
        const auto read = VESK_CALL(m_library, Battery_Read_ManufactureName);
        EXPECT_EQ(Written(read), Terminated(name)) << each.command;
        Answer(EcRule(place(2), 'S', 9));
        EXPECT_EQ(Written(read), Terminated("0x7FFFFFFF"));
        Answer(EcRule(place(2), 'S'));
        Answer(EcRule(place(0), 0));
        EXPECT_EQ(Written(read), Terminated("0x7FFFFFFF"));
    }
}

TEST_F(EcTelemetryTest, NoMapSendsNothingAndAFailedCommandEndsTheReading) {
    for (const auto& [code, chipId] : {std::pair{0x4142u, 1u}, {0x4152u, 2u}, {0x4B4Cu, 2u}, {0x5A58u, 0u}}) {
        Identify(code, chipId);
        EXPECT_THAT(Temperatures(), ::testing::Each(0u));
        EXPECT_EQ(VESK_CALL(m_library, Battery_Read_Current)(), 0);
        EXPECT_EQ(Written(VESK_CALL(m_library, Thermal_Read_Fan)), Terminated("0;0;0;0"));
        EXPECT_EQ(Written(VESK_CALL(m_library, Battery_Read_CellVoltage)), Terminated("0;0;0;0"));
        EXPECT_EQ(Written(VESK_CALL(m_library, Battery_Read_ManufactureDate)), Terminated("1980-01-01"));
        EXPECT_EQ(Written(VESK_CALL(m_library, Battery_Read_ManufactureName)), Terminated("0x7FFFFFFF"));
    }
    EXPECT_THAT(EcCommands(), IsEmpty());

    Identify(0x574C, 2);
    EXPECT_EQ(Written(VESK_CALL(m_library, Battery_Read_ManufactureDate)), Terminated("1980-01-01"));
    EXPECT_THAT(EcCommands(), IsEmpty()); // a chip without a battery bus
    Answer(EcRule("c4 39", 0xFC, 1));
    Answer(EcRule("cc 00 3c", 0, 0x80000000));
    Answer(EcRule("c4 4f", 0, 7));
    EXPECT_EQ(VESK_CALL(m_library, Battery_Read_Current)(), -1);
    EXPECT_EQ(Written(VESK_CALL(m_library, Thermal_Read_Fan)), Terminated("0;2147483647;0;0"));
    EXPECT_EQ(Written(VESK_CALL(m_library, Battery_Read_CellVoltage)), Terminated("0;0;0;2147483647"));
    VESK_CALL(m_library, ShutdownSondrel)();
    EXPECT_THAT(Temperatures(), ::testing::Each(Failed));
    EXPECT_EQ(Written(VESK_CALL(m_library, Thermal_Read_Fan)),
              Terminated("2147483647;2147483647;2147483647;2147483647"));
}

HANDLE WINAPI RefuseToOpen(const wchar_t*, DWORD, DWORD, LPSECURITY_ATTRIBUTES, DWORD, DWORD, HANDLE) {
    ::SetLastError(ERROR_ACCESS_DENIED);
    return INVALID_HANDLE_VALUE;
}

class BatteryTelemetryTest : public test::HostTest {
protected:
    std::uint32_t Designed() { return VESK_CALL(m_library, Battery_Read_DesignedCapacity)(); }

    std::uint32_t Voltage() { return VESK_CALL(m_library, Battery_Read_DesignVoltage)(); }
};

TEST_F(BatteryTelemetryTest, TheDeviceIsAskedInThreeRequests) {
    test::BatteryStand battery(m_stand);
    battery.Answer({.designedCapacity = 57000,
                    .fullChargedCapacity = 51300,
                    .cycleCount = 212,
                    .capacity = 43700,
                    .voltage = 11700});
    EXPECT_EQ(Designed(), 57000u);
    EXPECT_EQ(VESK_CALL(m_library, Battery_Read_FullChargedCapcity)(), 51300u);
    EXPECT_EQ(VESK_CALL(m_library, Battery_Read_Capacity)(), 43700u);
    EXPECT_EQ(Voltage(), 11700u);
    EXPECT_EQ(VESK_CALL(m_library, Battery_Read_ASOC)(), 51300.0F / 57000.0F);
    m_stand.ForgetLog();
    EXPECT_EQ(VESK_CALL(m_library, Battery_Read_CapacityPercentage)(), 90u); // 85.2
    const auto log = m_stand.Log(test::BatteryStand::Device);
    ASSERT_EQ(log.size(), 5u);
    EXPECT_EQ(log[0], (test::DriverRequest{test::Opening, "03000000", 0, 0}));
    EXPECT_EQ(log[1], (test::DriverRequest{0x294040, "00000000", 4, 0}));
    EXPECT_EQ(log[2], (test::DriverRequest{0x294044, "070000000000000000000000", 36, 0}));
    EXPECT_EQ(log[3], (test::DriverRequest{0x29404C, "0700000000000000000000000000000000000000", 16, 0}));
    EXPECT_EQ(log[4].code, test::Closing);
}

TEST_F(BatteryTelemetryTest, WhatFailsLeavesZerosAndNothingOpen) {
    EXPECT_EQ(Designed(), 0u); // no battery at all
    EXPECT_EQ(VESK_CALL(m_library, Battery_Read_CapacityPercentage)(), 0u);
    test::BatteryStand battery(m_stand);
    const test::BatteryAnswers answers{.designedCapacity = 57000, .capacity = 43700, .voltage = 11700};
    battery.Answer(answers);
    battery.SetPresent(false);
    EXPECT_EQ(Designed(), 0u);
    battery.SetPresent(true);
    {
        test::ImportPatch patch(m_library.Module());
        patch.Replace("CreateFileW", &RefuseToOpen);
        EXPECT_EQ(Designed(), 0u);
    }
    EXPECT_EQ(Designed(), 57000u);
    const auto refuse = [this](std::uint32_t code) {
        m_stand.Answer(test::BatteryStand::Device,
                       {.code = code, .status = test::nt_status::Unsuccessful, .uses = 1});
    };
    m_stand.ForgetLog();
    refuse(test::battery_request::QueryTag);
    EXPECT_EQ(Designed(), 0u);
    refuse(test::battery_request::QueryInformation);
    EXPECT_EQ(Designed(), 0u);
    refuse(test::battery_request::QueryStatus);
    EXPECT_EQ(Voltage(), 0u);
    m_stand.Answer(test::BatteryStand::Device,
                   {.code = test::battery_request::QueryTag, .output = test::Words({0}), .uses = 1});
    EXPECT_EQ(Designed(), 0u);
    int opened = 0;
    for (const test::DriverRequest& request : m_stand.Log(test::BatteryStand::Device)) {
        opened += request.code == test::Opening ? 1 : request.code == test::Closing ? -1 : 0;
    }
    EXPECT_EQ(opened, 0);
    battery.Answer(
        {.capabilities = 0x60000000, .designedCapacity = 57000, .capacity = 43700, .voltage = 11700});
    EXPECT_EQ(Designed(), 57000u);
    EXPECT_EQ(Voltage(), 0u); // no battery of the system itself
}

class ProcessorTelemetryTest : public EcTelemetryTest {
protected:
    static constexpr std::uint32_t CpuId = 0x80102068;
    static constexpr std::uint32_t PowerLimit1 = 0x80102074;
    static constexpr std::uint32_t PowerLimit2 = 0x80102078;
    static constexpr std::uint32_t PackagePower = 0x8010207C;

    void AnswerVendor(std::uint32_t ebx, std::uint32_t edx, std::uint32_t ecx) {
        Answer({.code = CpuId, .prefix = test::Words({0}), .output = test::Words({0x16, ebx, ecx, edx})});
    }

    void AnswerGenuine() { AnswerVendor(0x756E6547, 0x49656E69, 0x6C65746E); }

    std::vector<std::uint32_t> Powers() {
        return {VESK_CALL(m_library, Thermal_Read_CpuPackagePower)(),
                VESK_CALL(m_library, Thermal_Read_CpuDptf_PowerLimit1)(),
                VESK_CALL(m_library, Thermal_Read_CpuDptf_PowerLimit2)()};
    }
};

TEST_F(ProcessorTelemetryTest, PowerValuesAreTheDriversOnGenuineProcessorsOnly) {
    Identify(0x4B4C, 0);
    Answer({.code = PackagePower, .output = test::Words({17, 99})});
    Answer({.code = PowerLimit1, .output = test::Words({1, 28, 2})});
    Answer({.code = PowerLimit2, .output = test::Words({1, 2, 64})});
    AnswerVendor(0x68747541, 0x69746E65, 0x444D4163);
    EXPECT_THAT(Powers(), ElementsAre(0u, 0u, 0u));
    AnswerVendor(0x756E6547, 0x49656E69, 0x6C65746F);
    EXPECT_THAT(Powers(), ElementsAre(0u, 0u, 0u));
    AnswerGenuine();
    m_stand.ForgetLog();
    EXPECT_THAT(Powers(), ElementsAre(17u, 28u, 64u));
    const test::DriverRequest vendor{CpuId, "000000000000000000000000000000000000000015", 16};
    EXPECT_THAT(m_stand.Requests(test::device::IoDriver),
                ElementsAre(vendor, test::DriverRequest{PackagePower, "", 8}, vendor,
                            test::DriverRequest{PowerLimit1, "4c4b00000000000000000000", 12}, vendor,
                            test::DriverRequest{PowerLimit2, "4c4b00000000000000000000", 12}));
}

TEST_F(ProcessorTelemetryTest, ARefusedRequestGivesZero) {
    AnswerGenuine();
    Identify(0x4B4C, 0);
    EXPECT_THAT(Powers(), ElementsAre(0u, 0u, 0u)); // no rules
    VESK_CALL(m_library, ShutdownSondrel)();
    m_stand.ForgetLog();
    EXPECT_THAT(Powers(), ElementsAre(0u, 0u, 0u));
    EXPECT_THAT(m_stand.Requests(test::device::IoDriver), IsEmpty());
}

TEST_F(ProcessorTelemetryTest, CpuIdTakesAnyLeaf) {
    Answer({.code = CpuId, .prefix = test::Words({0x80000002}), .output = test::Words({1, 2, 3, 4})});
    std::array<std::uint32_t, 4> words{9, 9, 9, 9};
    const auto read = [&](std::uint32_t leaf) {
        VESK_CALL(m_library, CPU_ReadCpuId)(leaf, &words[0], &words[1], &words[2], &words[3]);
        return words;
    };
    EXPECT_THAT(read(0x80000002), ElementsAre(1u, 2u, 3u, 4u));
    EXPECT_THAT(read(0x80000003), ElementsAre(0u, 0u, 0u, 0u));
    words.fill(9);
    VESK_CALL(m_library, ShutdownSondrel)();
    EXPECT_THAT(read(0x80000002), ElementsAre(9u, 9u, 9u, 9u));
}

int Samples = 0;
bool SampleFails = false;

FILETIME TimeOf(std::uint64_t time) {
    return {static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
}

BOOL WINAPI TellTimes(FILETIME* idle, FILETIME* kernel, FILETIME* user) {
    // Counters beyond 32 bits; half of the time between the samples is idle.
    const std::uint64_t elapsed = 0x500000000 * static_cast<std::uint64_t>(Samples++);
    *idle = TimeOf(0x7FFFFFFFF + elapsed);
    *kernel = TimeOf(0x8FFFFFFFF + elapsed + elapsed / 2);
    *user = TimeOf(0x9FFFFFFFF + elapsed / 2);
    return SampleFails ? FALSE : TRUE;
}

BYTE LineStatus = 0;
BOOL PowerKnown = TRUE;

BOOL WINAPI TellPower(SYSTEM_POWER_STATUS* status) {
    status->ACLineStatus = LineStatus;
    return PowerKnown;
}

TEST_F(ProcessorTelemetryTest, UsageAndPowerSourceComeFromWindows) {
    const double usage = VESK_CALL(m_library, CPU_ReadCPUUsage)(); // as this Windows has it
    EXPECT_GE(usage, 0.0);
    EXPECT_LE(usage, 1.0);
    test::ImportPatch patch(m_library.Module());
    patch.Replace("GetSystemTimes", &TellTimes);
    patch.Replace("GetSystemPowerStatus", &TellPower);
    patch.Replace("Sleep", &NoteSleep);
    Sleeps.clear();
    EXPECT_EQ(VESK_CALL(m_library, CPU_ReadCPUUsage)(), 0.5);
    EXPECT_EQ(Sleeps, std::vector<DWORD>{1000});
    SampleFails = true;
    EXPECT_EQ(VESK_CALL(m_library, CPU_ReadCPUUsage)(), 0.0);
    SampleFails = false;
    for (const BYTE line : {BYTE{0}, BYTE{1}, BYTE{255}}) {
        LineStatus = line;
        EXPECT_EQ(VESK_CALL(m_library, Power_Read_ACDCMode)(), line);
    }
    LineStatus = 1;
    PowerKnown = FALSE;
    EXPECT_EQ(VESK_CALL(m_library, Power_Read_ACDCMode)(), 255u);
    PowerKnown = TRUE;
}

} // namespace
