#include "observer/values.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace observer {
namespace {

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

Value ValueOf(Call& call, const std::vector<std::byte>& bytes) {
    return ValueOf(call, std::span(bytes));
}

Value ValueOf(Call&, const platform::BluetoothDevice& device) {
    return {Number{device.classOfDevice, true}};
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

Value ValueOf(Call& call, const platform::WmiBytes& value) {
    if (value.lowerBound == 0) {
        return ValueOf(call, value.bytes);
    }
    return {
        Structure{{"lower_bound", ValueOf(call, value.lowerBound)}, {"bytes", ValueOf(call, value.bytes)}}};
}

Value ValueOf(Call& call, const platform::VariantWord& word) {
    return ValueOf(call, word.bits);
}

Value ValueOf(Call& call, const platform::WmiValue& value) {
    return std::visit(
        [&call](const auto& held) -> Value {
            if constexpr (std::is_same_v<std::remove_cvref_t<decltype(held)>, std::monostate>) {
                return {};
            } else {
                return ValueOf(call, held);
            }
        },
        value);
}

/// A length that no SSID has is noted with all bytes.
Value ValueOf(Call& call, const platform::WlanSsid& ssid) {
    const auto bytes = std::as_bytes(std::span(ssid.bytes));
    if (ssid.length <= bytes.size()) {
        return ValueOf(call, bytes.first(ssid.length));
    }
    return {Structure{{"length", ValueOf(call, ssid.length)}, {"bytes", ValueOf(call, bytes)}}};
}

Value ValueOf(Call& call, const platform::MacAddress& address) {
    return ValueOf(call, std::as_bytes(std::span(address)));
}

namespace {

template <class Held, class T>
bool AssignHeld(const Value& value, T& result) {
    const auto* const held = std::get_if<Held>(&value.held);
    if (held != nullptr) {
        result = *held;
    }
    return held != nullptr;
}

/// As many bytes as are there; the rest is zero.
template <class Array>
bool AssignBytes(const Value& value, Array& array) {
    const auto* const bytes = std::get_if<Bytes>(&value.held);
    if (bytes == nullptr || bytes->size() > array.size()) {
        return false;
    }
    array = {};
    std::memcpy(array.data(), bytes->data(), bytes->size());
    return true;
}

} // namespace

bool Assign(Call&, const Value& value, bool& flag) {
    return AssignHeld<bool>(value, flag);
}

bool Assign(Call&, const Value& value, float& number) {
    return AssignHeld<float>(value, number);
}

bool Assign(Call&, const Value& value, platform::Guid& guid) {
    return AssignHeld<platform::Guid>(value, guid);
}

bool Assign(Call&, const Value& value, std::u16string& text) {
    return AssignHeld<std::u16string>(value, text);
}

bool Assign(Call&, const Value& value, std::vector<std::byte>& bytes) {
    return AssignHeld<Bytes>(value, bytes);
}

bool Assign(Call& call, const Value& value, platform::BluetoothDevice& device) {
    return Assign(call, value, device.classOfDevice);
}

bool Assign(Call& call, const Value& value, platform::WmiBytes& bytes) {
    const auto* const fields = std::get_if<Structure>(&value.held);
    if (fields == nullptr) {
        bytes.lowerBound = 0;
        return Assign(call, value, bytes.bytes);
    }
    const Value* const lowerBound = Find(*fields, "lower_bound");
    const Value* const content = Find(*fields, "bytes");
    return lowerBound != nullptr && content != nullptr && Assign(call, *lowerBound, bytes.lowerBound) &&
           Assign(call, *content, bytes.bytes);
}

/// An empty list has the type of one of numbers: no reader distinguishes the two.
bool Assign(Call& call, const Value& value, platform::WmiValue& wmi) {
    if (const auto* const list = std::get_if<List>(&value.held); list != nullptr) {
        const bool numbers = list->empty() || std::holds_alternative<Number>(list->front().held);
        return numbers ? Assign(call, value, wmi.emplace<std::vector<std::int32_t>>())
                       : Assign(call, value, wmi.emplace<std::vector<std::u16string>>());
    }
    if (std::holds_alternative<Number>(value.held)) {
        return Assign(call, value, wmi.emplace<std::int32_t>());
    }
    if (std::holds_alternative<std::u16string>(value.held)) {
        return Assign(call, value, wmi.emplace<std::u16string>());
    }
    if (std::holds_alternative<std::monostate>(value.held)) {
        wmi.emplace<std::monostate>();
        return true;
    }
    return Assign(call, value, wmi.emplace<platform::WmiBytes>());
}

bool Assign(Call& call, const Value& value, platform::VariantWord& word) {
    return Assign(call, value, word.bits);
}

bool Assign(Call& call, const Value& value, platform::WlanSsid& ssid) {
    if (const auto* const fields = std::get_if<Structure>(&value.held); fields != nullptr) {
        const Value* const length = Find(*fields, "length");
        const Value* const bytes = Find(*fields, "bytes");
        return length != nullptr && bytes != nullptr && Assign(call, *length, ssid.length) &&
               AssignBytes(*bytes, ssid.bytes);
    }
    const auto* const bytes = std::get_if<Bytes>(&value.held);
    ssid.length = bytes == nullptr ? 0 : static_cast<std::uint32_t>(bytes->size());
    return AssignBytes(value, ssid.bytes);
}

bool Assign(Call&, const Value& value, platform::MacAddress& address) {
    return AssignBytes(value, address) && std::get<Bytes>(value.held).size() == address.size();
}

bool Assign(Call&, const Value& value, std::string_view& lineEnd) {
    const auto* const text = std::get_if<std::u16string>(&value.held);
    lineEnd = text == nullptr ? "" : *text == u"\n" ? "\n" : *text == u"\r\n" ? "\r\n" : "";
    return !lineEnd.empty();
}

} // namespace observer
