#include "observer/values.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace observer {
namespace {

template <class... Values>
Value Fields(Call& call, std::pair<std::string_view, const Values&>... fields) {
    return {Structure{Field{fields.first, ValueOf(call, fields.second)}...}};
}

/// A member of a structure, under its name.
template <class T>
std::pair<std::string_view, const T&> At(std::string_view name, const T& value) {
    return {name, value};
}

Value Hexadecimal(std::uint32_t number) {
    return {Number{number, true}};
}

constexpr std::uintptr_t Invalid = ~std::uintptr_t{0};

std::string_view Predefined(HandleKind kind, std::uintptr_t handle) {
    if (handle == 0) {
        return "null";
    }
    if (handle == Invalid) {
        return "invalid";
    }
    if (kind != HandleKind::RegistryKey) {
        return {};
    }
    return platform::Key{handle} == platform::Key::LocalMachine  ? "HKLM"
           : platform::Key{handle} == platform::Key::CurrentUser ? "HKCU"
                                                                 : "";
}

} // namespace

HandleKind KindOf(const platform::Guid& interfaceId) {
    return interfaceId == platform::IidWbemLocator        ? HandleKind::WbemLocator
           : interfaceId == platform::IidDeviceEnumerator ? HandleKind::DeviceEnumerator
           : interfaceId == platform::IidEndpointVolume   ? HandleKind::EndpointVolume
           : interfaceId == platform::IidXmlDomDocument   ? HandleKind::XmlDocument
                                                          : HandleKind::Object;
}

Value HandleValue(Call& call, HandleKind kind, std::uintptr_t handle) {
    if (const std::string_view name = Predefined(kind, handle); !name.empty()) {
        return {HandleName{.kind = kind, .predefined = name, .platforms = handle}};
    }
    return {call.NameOf(kind, handle)};
}

Value ValueOf(Call&, const char16_t* text) {
    return text == nullptr ? Value{} : Value{std::u16string(text)};
}

Value ValueOf(Call&, std::string_view text) {
    return {std::u16string(text.begin(), text.end())};
}

Value ValueOf(Call&, std::span<const std::byte> bytes) {
    return {Bytes(bytes.begin(), bytes.end())};
}

Value ValueOf(Call& call, const platform::DeviceInterfaceData& data) {
    return Fields(call, At("class", data.interfaceClass), At("flags", data.flags));
}

Value ValueOf(Call& call, const platform::BluetoothDeviceSearch& parameters) {
    return Fields(call, At("radio", parameters.radio), At("authenticated", parameters.returnAuthenticated),
                  At("remembered", parameters.returnRemembered), At("unknown", parameters.returnUnknown),
                  At("connected", parameters.returnConnected), At("inquiry", parameters.issueInquiry),
                  At("timeout", parameters.timeoutMultiplier));
}

Value ValueOf(Call&, const platform::BluetoothDevice& device) {
    return Hexadecimal(device.classOfDevice);
}

Value ValueOf(Call& call, const platform::NetworkAdapter& adapter) {
    return Fields(call, At("index", adapter.index), At("type", adapter.type));
}

Value ValueOf(Call& call, const platform::Luid& luid) {
    return Fields(call, At("low", luid.lowPart), At("high", luid.highPart));
}

Value ValueOf(Call& call, const platform::OsVersion& version) {
    return Fields(call, At("size", version.infoSize), At("major", version.major), At("minor", version.minor),
                  At("build", version.build));
}

Value ValueOf(Call& call, const platform::CalendarTime& time) {
    return Fields(call, At("year", time.year), At("month", time.month), At("day", time.day),
                  At("hour", time.hour), At("minute", time.minute), At("second", time.second));
}

Value ValueOf(Call& call, const platform::SystemTimes& times) {
    return Fields(call, At("idle", times.idle), At("kernel", times.kernel), At("user", times.user));
}

Value ValueOf(Call& call, const platform::SystemPowerStatus& status) {
    return Fields(call, At("line", status.acLineStatus), At("flag", status.batteryFlag),
                  At("percent", status.batteryLifePercent), At("time", status.batteryLifeTime),
                  At("full_time", status.batteryFullLifeTime));
}

Value ValueOf(Call& call, const platform::ProcessTimes& times) {
    return Fields(call, At("creation", times.creation), At("exit", times.exit), At("kernel", times.kernel),
                  At("user", times.user));
}

Value ValueOf(Call& call, const platform::ProcessMemoryCounters& counters) {
    return Fields(
        call, At("size", counters.size), At("page_faults", counters.pageFaultCount),
        At("peak_working_set", counters.peakWorkingSetSize), At("working_set", counters.workingSetSize),
        At("peak_paged", counters.quotaPeakPagedPoolUsage), At("paged", counters.quotaPagedPoolUsage),
        At("peak_nonpaged", counters.quotaPeakNonPagedPoolUsage),
        At("nonpaged", counters.quotaNonPagedPoolUsage), At("pagefile", counters.pagefileUsage),
        At("peak_pagefile", counters.peakPagefileUsage));
}

Value ValueOf(Call& call, const platform::TitleBarInfo& info) {
    List states;
    for (const std::uint32_t state : info.states) {
        states.push_back(Hexadecimal(state));
    }
    List place;
    for (const std::int32_t side : info.rectangle) {
        place.push_back(ValueOf(call, side));
    }
    return {Structure{
        {"size", ValueOf(call, info.size)}, {"place", {std::move(place)}}, {"states", {std::move(states)}}}};
}

Value ValueOf(Call& call, const platform::EventDescriptor& descriptor) {
    return Fields(call, At("id", descriptor.id), At("version", descriptor.version),
                  At("channel", descriptor.channel), At("level", descriptor.level),
                  At("opcode", descriptor.opcode), At("task", descriptor.task),
                  At("keyword", descriptor.keyword));
}

/// The line that the event carries: its other data describe it and never change.
Value ValueOf(Call&, const std::array<platform::EventData, 3>& data) {
    const auto plain = std::ranges::find(data, platform::EventDataPlain, &platform::EventData::type);
    if (plain == data.end()) {
        return {};
    }
    std::u16string text(plain->bytes.size() / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), plain->bytes.data(), text.size() * sizeof(char16_t));
    while (!text.empty() && text.back() == u'\0') {
        text.pop_back();
    }
    return {std::move(text)};
}

Value ValueOf(Call& call, const std::array<const char16_t*, 2>& strings) {
    return {List{ValueOf(call, strings[0]), ValueOf(call, strings[1])}};
}

Value ValueOf(Call& call, const platform::FileAttributeTag& info) {
    return Fields(call, At("attributes", info.attributes), At("tag", info.reparseTag));
}

Value ValueOf(Call& call, const platform::ProxyBlanket& blanket) {
    return Fields(call, At("authentication", blanket.authenticationService),
                  At("authorization", blanket.authorizationService), At("level", blanket.authenticationLevel),
                  At("impersonation", blanket.impersonationLevel), At("capabilities", blanket.capabilities));
}

Value ValueOf(Call& call, const platform::WmiBytes& value) {
    if (value.lowerBound == 0) {
        return {value.bytes};
    }
    return Fields(call, At("lower_bound", value.lowerBound),
                  At("bytes", std::span<const std::byte>(value.bytes)));
}

Value ValueOf(Call& call, const platform::VariantWord& word) {
    return ValueOf(call, word.bits);
}

Value ValueOf(Call& call, const platform::WmiValue& value) {
    return std::visit(
        [&call](const auto& held) -> Value {
            using Held = std::remove_cvref_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) {
                return {};
            } else {
                return ValueOf(call, held);
            }
        },
        value);
}

Value ValueOf(Call& call, const platform::WlanSsid& ssid) {
    const std::size_t length = std::min<std::size_t>(ssid.length, ssid.bytes.size());
    return ValueOf(call, std::as_bytes(std::span(ssid.bytes).first(length)));
}

Value ValueOf(Call& call, const platform::MacAddress& address) {
    return ValueOf(call, std::as_bytes(std::span(address)));
}

Value ValueOf(Call& call, const platform::WlanInterface& interface) {
    return Fields(call, At("guid", interface.guid), At("description", interface.description),
                  At("state", interface.state));
}

Value ValueOf(Call& call, const platform::WlanConnection& connection) {
    return Fields(call, At("ssid", connection.ssid), At("bssid", connection.bssid),
                  At("phy", connection.phyType));
}

Value ValueOf(Call& call, const platform::WlanBssEntry& entry) {
    return Fields(call, At("ssid", entry.ssid), At("bssid", entry.bssid), At("rssi", entry.rssi),
                  At("elements", std::span<const std::byte>(entry.informationElements)));
}

} // namespace observer
