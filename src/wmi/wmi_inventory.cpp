// The inventory: one export per question, one row per export.
#include "frame/diagnostics.h"
#include "frame/host_buffer.h"
#include "frame/memory_guard.h"
#include "vesk_sondrel.h"
#include "wmi/wmi_readers.h"

#include <string>
#include <string_view>

namespace sondrel {
namespace {

constexpr const char16_t* Cimv2 = u"ROOT\\CIMV2";
constexpr const char16_t* Wmi = u"ROOT\\WMI";
constexpr const char16_t* Storage = u"root\\Microsoft\\Windows\\Storage";

/// Where one reading comes from. Most have one property.
struct Reading {
    const char16_t* nameSpace;
    const char16_t* query;
    const char16_t* properties[3];
};

std::u16string Text(const Reading& reading, std::uint8_t initCom) {
    return ReadWMIPropStr(reading.nameSpace, reading.query, reading.properties[0], initCom);
}

/// The day of a WMI date: "20211231000000.000000+000" gives "20211231".
std::u16string Day(const Reading& reading, std::uint8_t initCom) {
    return Text(reading, initCom).substr(0, 8);
}

/// Model, size and kind of every disk; the kind is a number.
std::u16string Disks(const Reading& reading, std::uint8_t initCom) {
    return ReadWMIPropStr2(reading.nameSpace, reading.query,
                           {reading.properties[0], reading.properties[1], reading.properties[2]}, {0, 0, 1},
                           initCom);
}

std::u16string_view Chassis(const Reading& reading, std::uint8_t initCom) {
    const std::int32_t type = OrWithoutMemory(
        -1, [&] { return ReadWMIProp(reading.nameSpace, reading.query, reading.properties[0], initCom, 1); });
    switch (type) {
    case 3:
        return u"Desktop";
    case 10:
    case 30:
    case 31:
    case 32:
        return u"Notebook";
    case 13:
        return u"All in One";
    default:
        return u"unknown";
    }
}

std::int32_t Number(const Reading& reading, std::uint8_t initCom) {
    return ReadWMIProp(reading.nameSpace, reading.query, reading.properties[0], initCom, 0);
}

std::int32_t Count(const Reading& reading, std::uint8_t initCom) {
    return ReadWMIEnumNum(reading.nameSpace, reading.query, initCom);
}

// X(export, what is made of the rows, last word of the closing debug line, namespace, query, properties...)
#define VESK_WMI_TEXTS(X)                                                                                    \
    X(WMIGet90Number, Text, "End", Cimv2, u"select * from win32_ComputerSystem", u"OEMStringArray")          \
    X(WMIGetBiosManufacture, Text, "End", Cimv2, u"select * from Win32_Baseboard", u"Manufacturer")          \
    X(WMIGetBiosReleaseDate, Day, "End", Cimv2, u"select * from Win32_Bios", u"ReleaseDate")                 \
    X(WMIGetBiosVersion, Text, "END", Cimv2, u"select * from Win32_Bios", u"Name")                           \
    X(WMIGetBoardUUID, Text, "End", Cimv2, u"select * from Win32_ComputerSystemProduct", u"UUID")            \
    X(WMIGetCPUInfo, Text, "End", Cimv2, u"select * from Win32_Processor", u"Name")                          \
    X(WMIGetComputerFamilyName, Text, "End", Cimv2, u"select * from win32_ComputerSystem", u"SystemFamily")  \
    X(WMIGetGPUInfo, Text, "End", Cimv2, u"select * from win32_VideoController", u"Caption")                 \
    X(WMIGetHDDCaption, Text, "End", Cimv2,                                                                  \
      u"select * from Win32_DiskDrive where MediaType='Fixed hard disk media'", u"Caption")                  \
    X(WMIGetHDDInfo, Disks, "End", Storage, u"select * from MSFT_PhysicalDisk", u"Model", u"Size",           \
      u"MediaType")                                                                                          \
    X(WMIGetHDDModel, Text, "End", Storage, u"select * from MSFT_PhysicalDisk where mediatype=3", u"Model")  \
    X(WMIGetHDDSize, Text, "End", Cimv2,                                                                     \
      u"select * from Win32_DiskDrive where MediaType='Fixed hard disk media'", u"Size")                     \
    X(WMIGetLCDModel, Text, "End", Wmi, u"SELECT * FROM WMIMonitorID", u"UserFriendlyName")                  \
    X(WMIGetMacAddress, Text, "End", Cimv2,                                                                  \
      u"select * from win32_NetworkAdapter where physicalAdapter='true'", u"MACAddress")                     \
    X(WMIGetMemManufacture, Text, "End", Cimv2, u"select * from Win32_PhysicalMemory", u"Manufacturer")      \
    X(WMIGetMemModel, Text, "End", Cimv2, u"select * from Win32_PhysicalMemory", u"Partnumber")              \
    X(WMIGetMemSize, Text, "End", Cimv2, u"select * from Win32_PhysicalMemory", u"Capacity")                 \
    X(WMIGetModelName, Text, "End", Cimv2, u"select * from Win32_Baseboard", u"Product")                     \
    X(WMIGetOSCountryCode, Text, "End", Cimv2, u"select * from Win32_OperatingSystem", u"CountryCode")       \
    X(WMIGetProductName, Text, "End", Cimv2, u"select * from win32_ComputerSystem", u"Model")                \
    X(WMIGetSN, Text, "END", Cimv2, u"select * from Win32_Bios", u"SerialNumber")                            \
    X(WMIGetSSDModel, Text, "End", Storage, u"select * from MSFT_PhysicalDisk where mediatype=4", u"Model")  \
    X(WMIGetSystemChassisTypes, Chassis, "End", Cimv2, u"select * from Win32_SystemEnclosure",               \
      u"ChassisTypes")

// The same without the closing word: these write both debug lines before they read.
#define VESK_WMI_NUMBERS(X)                                                                                  \
    X(WMIGetCPUUsg, Number, Cimv2, u"select * from Win32_Processor", u"LoadPercentage")                      \
    X(WMIGetExternMonitorNum, Count, Wmi,                                                                    \
      u"SELECT * FROM WmiMonitorConnectionParams  WHERE VideoOutputTechnology != 2147483648", u"")           \
    X(WMIGetMonitorBrightness, Number, Wmi, u"select * from WmiMonitorBrightness", u"CurrentBrightness")

} // namespace
} // namespace sondrel

using namespace sondrel;

#define VESK_DEFINE_TEXT(name, make, closing, nameSpace, query, ...)                                         \
    void name(VeskChar16* out, uint8_t initCom) {                                                            \
        TraceLine(#name " Start");                                                                           \
        constexpr Reading Source{nameSpace, query, {__VA_ARGS__}};                                           \
        AnswerWith(out, [=] { return make(Source, initCom); });                                              \
        TraceLine(#name " " closing);                                                                        \
    }
VESK_WMI_TEXTS(VESK_DEFINE_TEXT)

#define VESK_DEFINE_NUMBER(name, make, nameSpace, query, property)                                           \
    int32_t name(uint8_t initCom) {                                                                          \
        TraceLine(#name " Start");                                                                           \
        TraceLine(#name " End");                                                                             \
        constexpr Reading Source{nameSpace, query, {property}};                                              \
        return OrWithoutMemory(-1, [=] { return make(Source, initCom); });                                   \
    }
VESK_WMI_NUMBERS(VESK_DEFINE_NUMBER)

uint32_t wmiadd(uint32_t value) {
    return value + 1;
}
