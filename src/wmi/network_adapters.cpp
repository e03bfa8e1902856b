// The two exports that find Wi-Fi adapters in the network classes of WMI.
#include "platform/network_adapters.h"
#include "frame/diagnostics.h"
#include "frame/host_buffer.h"
#include "frame/memory_guard.h"
#include "frame/text.h"
#include "radio/wifi_snapshot.h"
#include "vesk_sondrel.h"
#include "wmi/wmi_readers.h"

#include <optional>
#include <string>
#include <vector>

namespace sondrel {
namespace {

using Adapters = std::vector<platform::NetworkAdapter>;

constexpr std::uint32_t OneAdapter = 704; // bytes of one record

/// The system's adapters, or nothing on failure. A list that grows between the two calls is a failure.
std::optional<Adapters> ReadAdapters() {
    Adapters adapters;
    std::uint32_t size = OneAdapter;
    auto status = platform::GetAdaptersInfo(size, adapters);
    if (status == platform::error::BufferOverflow) {
        status = platform::GetAdaptersInfo(size, adapters);
    }
    if (status != platform::error::Success) {
        return std::nullopt;
    }
    return adapters;
}

/// The adapter's name in WMI, found by the interface index; empty if there is no row.
std::u16string WmiNameOf(const platform::NetworkAdapter& adapter, std::uint8_t initCom) {
    return ReadWMIPropStr(u"ROOT\\CIMV2",
                          u"select * from win32_NetworkAdapter where physicalAdapter='true'"
                          u" and InterfaceIndex = " +
                              DecimalText(adapter.index),
                          u"Name", initCom);
}

std::u16string WirelessNames(const Adapters& adapters, std::uint8_t initCom) {
    std::u16string names;
    for (const platform::NetworkAdapter& adapter : adapters) {
        if (adapter.type != platform::AdapterTypeWireless) {
            continue;
        }
        if (const std::u16string name = WmiNameOf(adapter, initCom); !name.empty()) {
            names += name + u';';
        }
    }
    return names;
}

} // namespace
} // namespace sondrel

using namespace sondrel;

void WMIGetWiFiCardName(VeskChar16* out, uint8_t initCom) {
    const auto adapters = OnOutOfMemory(std::optional<Adapters>(), ReadAdapters);
    if (adapters) {
        AnswerWith(out, [&] { return WirelessNames(*adapters, initCom); });
    }
}

void WMIGetWiFiBytesPersec(VeskChar16* out, uint8_t initCom) {
    TraceLine("WMIGetWiFiBytesPersec Start");
    AnswerWith(out, [=] {
        return ReadWMIPropStr2(u"ROOT\\CIMV2",
                               u"SELECT * FROM Win32_PerfFormattedData_Tcpip_Networkinterface",
                               std::array<std::u16string, 2>{u"BytesReceivedPersec", u"BytesSentPersec"},
                               initCom, WiFiCardName().size());
    });
    TraceLine("WMIGetWiFiBytesPersec End");
}
