// What crosses the boundary, as values of a record, and back. A type without an overload here cannot be observed, or not
// replayed.
#pragma once

#include "observer/call.h"
#include "observer/members.h"
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

#include <algorithm>
#include <array>
#include <concepts>
#include <limits>
#include <optional>
#include <ranges>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>
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
Value ValueOf(Call& call, const std::vector<std::byte>& bytes);
Value ValueOf(Call& call, const platform::BluetoothDevice& device);
Value ValueOf(Call& call, const std::array<platform::EventData, 3>& data);
Value ValueOf(Call& call, const std::array<const char16_t*, 2>& strings);
Value ValueOf(Call& call, const platform::WmiBytes& value);
Value ValueOf(Call& call, const platform::WmiValue& value);
Value ValueOf(Call& call, const platform::VariantWord& word);
Value ValueOf(Call& call, const platform::WlanSsid& ssid);
Value ValueOf(Call& call, const platform::MacAddress& address);

template <class T>
Value ValueOf(Call& call, const std::optional<T>& value) {
    return value ? ValueOf(call, *value) : Value{};
}

template <IsStructure T>
Value ValueOf(Call& call, const T& structure) {
    return std::apply(
        [&](const auto&... members) {
            return Value{Structure{Field{members.name, ValueOf(call, structure.*members.at)}...}};
        },
        Members<T>);
}

template <std::ranges::range Range>
requires(!std::is_convertible_v<Range, std::u16string_view> &&
         !std::is_convertible_v<Range, std::span<const std::byte>>) Value
    ValueOf(Call& call, const Range& values) {
    List list;
    list.reserve(values.size());
    for (const auto& value : values) {
        list.push_back(ValueOf(call, value));
    }
    return {std::move(list)};
}

// The other way, for a replay. False where the value is none of that type; what has been written then means nothing.
bool Assign(Call& call, const Value& value, bool& flag);
bool Assign(Call& call, const Value& value, float& number);
bool Assign(Call& call, const Value& value, platform::Guid& guid);
bool Assign(Call& call, const Value& value, std::u16string& text);
bool Assign(Call& call, const Value& value, std::vector<std::byte>& bytes);
bool Assign(Call& call, const Value& value, platform::BluetoothDevice& device);
bool Assign(Call& call, const Value& value, platform::WmiBytes& bytes);
bool Assign(Call& call, const Value& value, platform::WmiValue& wmi);
bool Assign(Call& call, const Value& value, platform::VariantWord& word);
bool Assign(Call& call, const Value& value, platform::WlanSsid& ssid);
bool Assign(Call& call, const Value& value, platform::MacAddress& address);
/// Of the two that exist.
bool Assign(Call& call, const Value& value, std::string_view& lineEnd);

/// A status is recorded with or without its sign.
template <std::integral T>
bool Assign(Call&, const Value& value, T& number) {
    const auto* const held = std::get_if<Number>(&value.held);
    if (held == nullptr) {
        return false;
    }
    if constexpr (std::is_same_v<T, std::int32_t>) {
        number = static_cast<T>(held->value);
        return held->value >= std::numeric_limits<T>::min() &&
               held->value <= std::numeric_limits<std::uint32_t>::max();
    }
    number = static_cast<T>(held->value);
    return sizeof(T) == sizeof held->value || std::in_range<T>(held->value);
}

template <IsHandle T>
bool Assign(Call& call, const Value& value, T& handle) {
    const auto* const name = std::get_if<HandleName>(&value.held);
    if (name != nullptr) {
        handle = static_cast<T>(call.ReplayedHandle(*name));
    }
    return name != nullptr;
}

template <class T>
bool Assign(Call& call, const Value& value, std::optional<T>& optional) {
    if (std::holds_alternative<std::monostate>(value.held)) {
        optional.reset();
        return true;
    }
    return Assign(call, value, optional.emplace());
}

template <IsStructure T>
bool Assign(Call& call, const Value& value, T& structure) {
    const auto* const fields = std::get_if<Structure>(&value.held);
    const auto assign = [&](const auto& member) {
        const Value* const field = Find(*fields, member.name);
        return field != nullptr && Assign(call, *field, structure.*member.at);
    };
    return fields != nullptr &&
           std::apply([&](const auto&... members) { return (assign(members) && ...); }, Members<T>);
}

template <class T, std::size_t Size>
bool Assign(Call& call, const Value& value, std::array<T, Size>& array) {
    const auto* const list = std::get_if<List>(&value.held);
    return list != nullptr && list->size() == Size &&
           std::ranges::equal(*list, array,
                              [&](const Value& item, T& element) { return Assign(call, item, element); });
}

template <class T>
bool Assign(Call& call, const Value& value, std::vector<T>& vector) {
    const auto* const list = std::get_if<List>(&value.held);
    if (list == nullptr) {
        return false;
    }
    vector.clear();
    return std::ranges::all_of(*list,
                               [&](const Value& item) { return Assign(call, item, vector.emplace_back()); });
}

} // namespace observer
