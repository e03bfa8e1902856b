// The inventory: one WMI query for each export, one row for each export.
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

/// The source of one export. Most read one property.
struct Source {
    const char16_t* nameSpace;
    const char16_t* query;
    const char16_t* properties[3];
};

std::u16string Text(const Source& source, std::uint8_t initCom) {
    return ReadWMIPropStr(source.nameSpace, source.query, source.properties[0], initCom);
}

/// The day of a WMI date: "20211231" of "20211231000000.000000+000".
std::u16string Day(const Source& source, std::uint8_t initCom) {
    return Text(source, initCom).substr(0, 8);
}

/// Model, size and media type of every disk; the type is a number.
std::u16string Disks(const Source& source, std::uint8_t initCom) {
    return ReadWMIPropStr2(source.nameSpace, source.query,
                           {source.properties[0], source.properties[1], source.properties[2]}, {0, 0, 1},
                           initCom);
}

std::u16string_view Chassis(const Source& source, std::uint8_t initCom) {
    const std::int32_t type = OnOutOfMemory(
        -1, [&] { return ReadWMIProp(source.nameSpace, source.query, source.properties[0], initCom, 1); });
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

std::int32_t Number(const Source& source, std::uint8_t initCom) {
    return ReadWMIProp(source.nameSpace, source.query, source.properties[0], initCom, 0);
}

std::int32_t Count(const Source& source, std::uint8_t initCom) {
    return ReadWMIEnumNum(source.nameSpace, source.query, initCom);
}

// X(export, function, last word of the closing debug line, namespace, query, properties...)
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

// The same without the closing word: these exports write both debug lines before the query.
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
        constexpr Source Read{nameSpace, query, {__VA_ARGS__}};                                              \
        AnswerWith(out, [=] { return make(Read, initCom); });                                                \
        TraceLine(#name " " closing);                                                                        \
    }
VESK_WMI_TEXTS(VESK_DEFINE_TEXT)

#define VESK_DEFINE_NUMBER(name, make, nameSpace, query, property)                                           \
    int32_t name(uint8_t initCom) {                                                                          \
        TraceLine(#name " Start");                                                                           \
        TraceLine(#name " End");                                                                             \
        constexpr Source Read{nameSpace, query, {property}};                                                 \
        return OnOutOfMemory(-1, [=] { return make(Read, initCom); });                                       \
    }
VESK_WMI_NUMBERS(VESK_DEFINE_NUMBER)

uint32_t wmiadd(uint32_t value) {
    return value + 1;
}
