// A test double of the library: one export of each kind, with valid and invalid answers. It has fewer exports than
// the library on purpose.
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#define DOUBLE_API extern "C" __attribute__((visibility("default")))

namespace {

void Put(char* out, std::string_view text) {
    *std::ranges::copy(text, out).out = '\0';
}

void Put(char16_t* out, std::u16string_view text) {
    *std::ranges::copy(text, out).out = u'\0';
}

std::string Setting(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

/// Writes the event to the double's log, standard error.
std::int32_t Log(const char* event, bool expected) {
    std::fprintf(stderr, "%s\n", event);
    return expected ? 1 : 0;
}

constexpr char16_t Unpaired = 0xD83D;

/// A document of many megabytes.
std::u16string LongDocument() {
    std::u16string text = u"[{\"machine\":[";
    for (int i = 0; i < 100000; ++i) {
        text += std::u16string(i == 0 ? u"" : u",") + u"{\"name\":\"An application\",\"version\":\"1.2\"}";
    }
    return text + u"]},{\"user\":[]}]";
}

/// Never returns if a test sets DOUBLE_HANGS.
bool Hangs() {
    while (!Setting("DOUBLE_HANGS").empty()) {
        pause();
    }
    return false;
}

} // namespace

/// An export with a constant result.
#define RETURNS(type, name, value)                                                                           \
    DOUBLE_API type name() {                                                                                 \
        return value;                                                                                        \
    }

#define WRITES(name, character, text)                                                                        \
    DOUBLE_API void name(character* out) {                                                                   \
        Put(out, text);                                                                                      \
    }

#define WRITES_COM(name, text)                                                                               \
    DOUBLE_API void name(char16_t* out, [[maybe_unused]] std::uint8_t initCom) {                             \
        Put(out, text);                                                                                      \
    }

/// A setter that accepts one value.
#define SETS(name, type, expected)                                                                           \
    DOUBLE_API std::int32_t name(type value, std::uint8_t) {                                                 \
        return Log("set", value == expected);                                                                \
    }

RETURNS(std::int32_t, InitializeSondrel, Log("open", Setting("DOUBLE_REFUSES").empty()))
RETURNS(void, ShutdownSondrel, static_cast<void>(Log("close", true)))
RETURNS(std::uint32_t, EC_ReadEcChipId, 0xFFFFFFFF)
RETURNS(std::uint32_t, Thermal_Read_Cpu_Temperature, 52)
RETURNS(std::uint32_t, Thermal_Read_ACFET_Temperature, 0)
RETURNS(std::uint32_t, Thermal_Read_UpCpu_Temperature, 0x7FFFFFFF)
RETURNS(std::uint32_t, Power_Read_ACDCMode, 255)
RETURNS(std::int32_t, RF_WiFiRssi, -57)
RETURNS(std::int32_t, RF_WiFiChannel, -1000)
RETURNS(float, Battery_Read_ASOC, std::strtof(Setting("DOUBLE_RATIO").c_str(), nullptr))
RETURNS(double, CPU_ReadCPUUsage, 0.1 + 0.2)
WRITES(Battery_Read_CellVoltage, char, "4150;2147483647;0;0")
WRITES(Thermal_Read_Fan, char, "2147483647;2147483647;2147483647;2147483647")
WRITES(Battery_Read_ManufactureName, char, "A name of more than ten characters")
WRITES(RF_AP_MAC, char, "")
WRITES(GetEEPROM_Data, char16_t, u"{\"version\":\"say \"so\"\u0007\"}")
WRITES(GetSENSOR_WMI_Data, char16_t, u"{\"p_sensor\":\"0x10001\"}")
WRITES(AppList_OpenWindows, char16_t, std::u16string(u"Ä€\U0001F600") + Unpaired)
WRITES(GetApplist_x64, char16_t, LongDocument())
WRITES(GetApplist_x86, char16_t, std::u16string(1000000, u'[')) // nested too deep to be parsed
WRITES(GetInfVersion, char16_t, u"")
WRITES_COM(WMIGetSN, initCom == 1 ? u"in COM" : u"as it is")
WRITES_COM(WMIGetMemSize, u"8589934592;8589934592")
WRITES_COM(WMIGetProductName,
           u"<script>console.error('ran')</script> & \"\u4E2D\u6587\"") // must be shown as text
WRITES_COM(WMIGetComputerFamilyName, u"one\ntwo \\ \"three\"\u0007")
WRITES_COM(WMIGetModelName, Hangs() ? u"" : u"A model")
SETS(WMISetBatteryHealth, std::int32_t, -80)
SETS(WMISetQuietFan, std::uint8_t, 255)
SETS(WMISetAppPath, const char16_t*, std::u16string_view(u"C:\\Ä \U0001F600"))

DOUBLE_API void Battery_Read_ManufactureDate(char* out) {
    std::ranges::copy(std::string_view("2017-10-28x"), out);
}

DOUBLE_API void System_Read_LocalTime(char*) {}

DOUBLE_API void GetUWPVersion(char16_t*) {}

DOUBLE_API std::int32_t WMIGetQuietFan(std::uint8_t initCom) {
    return initCom;
}

DOUBLE_API std::uint32_t wmiadd(std::uint32_t value) {
    return value + 1;
}

DOUBLE_API std::uint32_t GPNV_Get_RandomUUID(std::uint8_t* out) {
    for (std::uint8_t i = 0; i < 16; ++i) {
        out[i] = static_cast<std::uint8_t>(0xF0 + i);
    }
    if (!Setting("DOUBLE_OVERRUNS").empty()) {
        out[16] = 0;
    }
    return 0;
}

DOUBLE_API std::uint32_t GPNV_Get_ManufacturedTime(std::uint8_t*) {
    return 203;
}

DOUBLE_API std::uint32_t GPNV_Get_ActivatedTime(std::uint8_t* out) {
    std::ranges::copy(std::string_view("2026-01-02 03:04:05"), out);
    return 0;
}

DOUBLE_API std::uint32_t GPNV_Set_ActivatedTime(const std::uint8_t* bytes) {
    return Log("set", std::memcmp(bytes, "2026-01-02 03:04:05", 19) == 0) == 1 ? 0 : 1314;
}

DOUBLE_API void CPU_ReadCpuId(std::uint32_t leaf, std::uint32_t* eax, std::uint32_t* ebx, std::uint32_t* ecx,
                              std::uint32_t* edx) {
    if (leaf == 0) {
        *eax = 0xD;
        *ebx = 0x756E6547;
        *ecx = 0x6C65746E;
        *edx = 0x49656E69;
    }
}

// Two exports return a string object of C++ under a plain name.
#if defined(__clang__)
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif
RETURNS(std::string, RF_PhyMode, "802.11ax, in more characters than fit into a string without heap memory")
RETURNS(std::string, RF_BTConnectedType, "Phone;\xff;")
