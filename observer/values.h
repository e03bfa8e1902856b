// What crosses the boundary, as values of a record. A type without an overload here cannot be observed.
#pragma once

#include "observer/call.h"
#include "observer/value.h"
#include "platform/audio.h"
#include "platform/bluetooth.h"
#include "platform/com.h"
#include "platform/desktop.h"
#include "platform/device_interfaces.h"
#include "platform/device_io.h"
#include "platform/device_nodes.h"
#include "platform/event_log.h"
#include "platform/files.h"
#include "platform/firmware_variables.h"
#include "platform/network_adapters.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/system_information.h"
#include "platform/system_power.h"
#include "platform/tracing.h"
#include "platform/wlan.h"
#include "platform/wmi.h"
#include "platform/xml_document.h"

#include <array>
#include <concepts>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

namespace observer {

// The kind of each type of handle.
constexpr HandleKind KindOf(platform::Handle) {
    return HandleKind::File;
} // or what the ledger knows better

constexpr HandleKind KindOf(platform::Key) {
    return HandleKind::RegistryKey;
}

constexpr HandleKind KindOf(platform::DeviceInfoSet) {
    return HandleKind::DeviceInfoSet;
}

constexpr HandleKind KindOf(platform::WlanClient) {
    return HandleKind::WlanClient;
}

constexpr HandleKind KindOf(platform::BluetoothRadioFind) {
    return HandleKind::RadioSearch;
}

constexpr HandleKind KindOf(platform::BluetoothDeviceFind) {
    return HandleKind::DeviceSearch;
}

constexpr HandleKind KindOf(platform::Module) {
    return HandleKind::Library;
}

constexpr HandleKind KindOf(platform::EventSource) {
    return HandleKind::EventSource;
}

constexpr HandleKind KindOf(platform::Unknown) {
    return HandleKind::Object;
}

constexpr HandleKind KindOf(platform::WbemLocator) {
    return HandleKind::WbemLocator;
}

constexpr HandleKind KindOf(platform::WbemServices) {
    return HandleKind::WbemServices;
}

constexpr HandleKind KindOf(platform::WbemEnumerator) {
    return HandleKind::WbemEnumerator;
}

constexpr HandleKind KindOf(platform::WbemObject) {
    return HandleKind::WbemObject;
}

constexpr HandleKind KindOf(platform::DeviceEnumerator) {
    return HandleKind::DeviceEnumerator;
}

constexpr HandleKind KindOf(platform::AudioDevice) {
    return HandleKind::AudioDevice;
}

constexpr HandleKind KindOf(platform::EndpointVolume) {
    return HandleKind::EndpointVolume;
}

constexpr HandleKind KindOf(platform::XmlDocument) {
    return HandleKind::XmlDocument;
}

constexpr HandleKind KindOf(platform::Window) {
    return HandleKind::Window;
}

constexpr HandleKind KindOf(platform::DeviceNode) {
    return HandleKind::DeviceNode;
}

template <class T>
concept IsHandle = std::is_enum_v<T> && requires(T handle) {
    KindOf(handle);
};

/// The kind of COM object that an interface identifier means.
HandleKind KindOf(const platform::Guid& interfaceId);

Value HandleValue(Call& call, HandleKind kind, std::uintptr_t handle);

template <IsHandle T>
Value ValueOf(Call& call, T handle) {
    return HandleValue(call, KindOf(handle), static_cast<std::uintptr_t>(handle));
}

inline Value ValueOf(Call&, bool flag) {
    return {flag};
}

template <std::integral T>
Value ValueOf(Call&, T number) {
    return {Number{static_cast<std::int64_t>(number)}};
}

inline Value ValueOf(Call&, float number) {
    return {number};
}

inline Value ValueOf(Call&, const platform::Guid& guid) {
    return {guid};
}

inline Value ValueOf(Call&, std::u16string_view text) {
    return {std::u16string(text)};
}

inline Value ValueOf(Call&, const std::u16string& text) {
    return {text};
}

Value ValueOf(Call& call, const char16_t* text); // null is nothing
Value ValueOf(Call& call, std::string_view text);
Value ValueOf(Call& call, std::span<const std::byte> bytes);
Value ValueOf(Call& call, const platform::DeviceInterfaceData& data);
Value ValueOf(Call& call, const platform::BluetoothDeviceSearch& parameters);
Value ValueOf(Call& call, const platform::BluetoothDevice& device);
Value ValueOf(Call& call, const platform::NetworkAdapter& adapter);
Value ValueOf(Call& call, const platform::Luid& luid);
Value ValueOf(Call& call, const platform::OsVersion& version);
Value ValueOf(Call& call, const platform::CalendarTime& time);
Value ValueOf(Call& call, const platform::SystemTimes& times);
Value ValueOf(Call& call, const platform::SystemPowerStatus& status);
Value ValueOf(Call& call, const platform::ProcessTimes& times);
Value ValueOf(Call& call, const platform::ProcessMemoryCounters& counters);
Value ValueOf(Call& call, const platform::TitleBarInfo& info);
Value ValueOf(Call& call, const platform::EventDescriptor& descriptor);
Value ValueOf(Call& call, const std::array<platform::EventData, 3>& data);
Value ValueOf(Call& call, const std::array<const char16_t*, 2>& strings);
Value ValueOf(Call& call, const platform::FileAttributeTag& info);
Value ValueOf(Call& call, const platform::ProxyBlanket& blanket);
Value ValueOf(Call& call, const platform::WmiBytes& value);
Value ValueOf(Call& call, const platform::WmiValue& value);
Value ValueOf(Call& call, const platform::VariantWord& word);
Value ValueOf(Call& call, const platform::WlanSsid& ssid);
Value ValueOf(Call& call, const platform::MacAddress& address);
Value ValueOf(Call& call, const platform::WlanInterface& interface);
Value ValueOf(Call& call, const platform::WlanConnection& connection);
Value ValueOf(Call& call, const platform::WlanBssEntry& entry);

template <class T>
Value ValueOf(Call& call, const std::optional<T>& value) {
    return value ? ValueOf(call, *value) : Value{};
}

template <class T>
Value ValueOf(Call& call, const std::vector<T>& values) {
    List list;
    list.reserve(values.size());
    for (const T& value : values) {
        list.push_back(ValueOf(call, value));
    }
    return {std::move(list)};
}

} // namespace observer
