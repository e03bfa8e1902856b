// A library in place of the real one: one export of each kind, with answers good and bad that a test chooses.
// It has fewer names than the real one on purpose.
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#define DOUBLE_API extern "C" __attribute__((visibility("default")))

namespace {

void Put(char16_t* out, std::u16string_view text) {
    std::ranges::copy(text, out);
    out[text.size()] = 0;
}

std::string Setting(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::int32_t Told(const char* what, bool expected) {
    std::fprintf(stderr, "%s\n", what);
    return expected ? 1 : 0;
}

} // namespace

DOUBLE_API std::int32_t InitializeSondrel() {
    return Told("open", Setting("DOUBLE_REFUSES").empty());
}

DOUBLE_API void ShutdownSondrel() {
    Told("close", true);
}

DOUBLE_API std::uint32_t EC_ReadEcChipId() {
    return 0xFFFFFFFF;
}

DOUBLE_API std::uint32_t Thermal_Read_Cpu_Temperature() {
    return 52;
}

DOUBLE_API std::uint32_t Thermal_Read_ACFET_Temperature() {
    return 0;
}

DOUBLE_API std::uint32_t Thermal_Read_UpCpu_Temperature() {
    return 0x7FFFFFFF;
}

DOUBLE_API std::uint32_t Power_Read_ACDCMode() {
    return 255;
}

DOUBLE_API std::int32_t RF_WiFiRssi() {
    return -57;
}

DOUBLE_API std::int32_t RF_WiFiChannel() {
    return -1000;
}

DOUBLE_API float Battery_Read_ASOC() {
    return std::strtof(Setting("DOUBLE_RATIO").c_str(), nullptr);
}

DOUBLE_API double CPU_ReadCPUUsage() {
    return 0.1 + 0.2;
}

DOUBLE_API void Battery_Read_CellVoltage(char* out) {
    std::strcpy(out, "4150;2147483647;0;0");
}

DOUBLE_API void Thermal_Read_Fan(char* out) {
    std::strcpy(out, "2147483647;2147483647;2147483647;2147483647");
}

DOUBLE_API void Battery_Read_ManufactureName(char* out) {
    std::strcpy(out, "A name of more than ten characters");
}

DOUBLE_API void Battery_Read_ManufactureDate(char* out) {
    std::ranges::copy(std::string_view("2017-10-28x"), out);
}

DOUBLE_API void RF_AP_MAC(char* out) {
    out[0] = '\0';
}

DOUBLE_API void System_Read_LocalTime(char*) {}

DOUBLE_API void GetEEPROM_Data(char16_t* out) {
    Put(out, u"{\"version\":\"say \"so\"\u0007\"}");
}

DOUBLE_API void GetSENSOR_WMI_Data(char16_t* out) {
    Put(out, u"{\"p_sensor\":\"0x10001\"}");
}

DOUBLE_API void AppList_OpenWindows(char16_t* out) {
    constexpr char16_t Unpaired = 0xD83D;
    Put(out, std::u16string(u"Ä€\U0001F600") + Unpaired);
}

/// A document of many megabytes.
DOUBLE_API void GetApplist_x64(char16_t* out) {
    std::u16string text = u"[{\"machine\":[";
    for (int i = 0; i < 100000; ++i) {
        text += std::u16string(i == 0 ? u"" : u",") + u"{\"name\":\"An application\",\"version\":\"1.2\"}";
    }
    Put(out, text + u"]},{\"user\":[]}]");
}

/// Nested so deep that nobody should follow it.
DOUBLE_API void GetApplist_x86(char16_t* out) {
    Put(out, std::u16string(1000000, u'['));
}

DOUBLE_API void GetUWPVersion(char16_t*) {}

DOUBLE_API void GetInfVersion(char16_t* out) {
    Put(out, u"");
}

DOUBLE_API void WMIGetSN(char16_t* out, std::uint8_t initCom) {
    Put(out, initCom == 1 ? u"in COM" : u"as it is");
}

DOUBLE_API void WMIGetMemSize(char16_t* out, std::uint8_t) {
    Put(out, u"8589934592;8589934592");
}

/// Markup, to be shown as the text that it is.
DOUBLE_API void WMIGetProductName(char16_t* out, std::uint8_t) {
    Put(out, u"<script>console.error('ran')</script> & \"\u4E2D\u6587\"");
}

/// Never comes back where a test wants that.
DOUBLE_API void WMIGetModelName(char16_t* out, std::uint8_t) {
    while (!Setting("DOUBLE_HANGS").empty()) {
        pause();
    }
    Put(out, u"A model");
}

DOUBLE_API std::int32_t WMIGetQuietFan(std::uint8_t initCom) {
    return initCom;
}

DOUBLE_API std::int32_t WMISetBatteryHealth(std::int32_t value, std::uint8_t) {
    return Told("set", value == -80);
}

DOUBLE_API std::int32_t WMISetQuietFan(std::uint8_t value, std::uint8_t) {
    return Told("set", value == 255);
}

DOUBLE_API std::int32_t WMISetAppPath(const char16_t* path, std::uint8_t) {
    return Told("set", std::u16string_view(path) == u"C:\\Ä \U0001F600");
}

DOUBLE_API std::uint32_t GPNV_Get_RandomUUID(std::uint8_t* out) {
    for (std::uint8_t i = 0; i < 16; ++i) {
        out[i] = static_cast<std::uint8_t>(0xF0 + i);
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
    return Told("set", std::memcmp(bytes, "2026-01-02 03:04:05", 19) == 0) == 1 ? 0 : 1314;
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

// A string object by value needs C++ linkage of its type; the name stays plain.
#if defined(__clang__)
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif
DOUBLE_API std::string RF_PhyMode() {
    return "802.11ax, told in more characters than fit into a string without memory of its own";
}

DOUBLE_API std::string RF_BTConnectedType() {
    return "Phone;\xff;";
}

DOUBLE_API std::uint32_t wmiadd(std::uint32_t value) {
    return value + 1;
}
