// What passes the boundary, as data: plain values that can be printed, compared and written to a file.
#pragma once

#include "platform/types.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace observer {

/// What a handle means. The kind decides in which table of the operating system its number counts.
enum class HandleKind : std::uint8_t {
    File,
    Token,
    Process,
    BluetoothRadio,
    RegistryKey,
    DeviceInfoSet,
    WlanClient,
    RadioSearch,
    DeviceSearch,
    Library,
    EventSource,
    Apartment,
    // COM objects: Release closes any of them
    Object,
    WbemLocator,
    WbemServices,
    WbemEnumerator,
    WbemObject,
    DeviceEnumerator,
    AudioDevice,
    EndpointVolume,
    XmlDocument,
    // not opened and not closed
    Window,
    DeviceNode,
    TraceProvider,
};

struct HandleKindRow {
    std::string_view name;
    /// Handles are distinguished by their number within one space.
    enum class Space : std::uint8_t {
        Handles,
        Keys,
        DeviceInfoSets,
        WlanClients,
        RadioSearches,
        DeviceSearches,
        Libraries,
        EventSources,
        Apartments,
        Objects,
        Windows,
        DeviceNodes,
        TraceProviders,
    } space;
};

const HandleKindRow& RowOf(HandleKind kind);

/// Whether handles of this kind are neither opened nor closed.
constexpr bool IsOnlyMet(HandleKind kind) {
    return kind >= HandleKind::Window;
}

/// Handles of what only reports what the library does. They are not numbered: whether anything is traced or logged
/// must not change the names of everything else.
constexpr bool IsReporting(HandleKind kind) {
    return kind == HandleKind::TraceProvider || kind == HandleKind::EventSource;
}

/// A handle as a transcript shows it: numbered within the export call that opened it, or by what it was opened on
/// where it is older than the export call that uses it. Its number in the operating system is never part of it.
struct HandleName {
    HandleKind kind = HandleKind::File;
    std::uint32_t number = 0;     // from 1; 0: opened by an earlier export call, or unknown
    std::u16string openedOn;      // where `number` is 0
    std::string_view predefined;  // "null", "invalid", "HKLM", "HKCU"; empty otherwise
    std::uintptr_t platforms = 0; // the operating system's number; not printed, not compared

    friend bool operator==(const HandleName& left, const HandleName& right) {
        return left.kind == right.kind && left.number == right.number && left.openedOn == right.openedOn &&
               left.predefined == right.predefined;
    }
};

/// A whole number. Flags, masks and codes are printed in hexadecimal.
struct Number {
    std::int64_t value = 0;
    bool hexadecimal = false;

    friend bool operator==(const Number& left, const Number& right) { return left.value == right.value; }
};

using Bytes = std::vector<std::byte>;

struct Field;
struct Value;
using List = std::vector<Value>;
using Structure = std::vector<Field>;

struct Value {
    std::variant<std::monostate, bool, Number, float, double, std::u16string, Bytes, platform::Guid,
                 HandleName, List, Structure>
        held;

    friend bool operator==(const Value&, const Value&);
};

struct Field {
    std::string_view name; // a literal, or part of a recording
    Value value;

    friend bool operator==(const Field&, const Field&) = default;
};

inline bool operator==(const Value& left, const Value& right) {
    return left.held == right.held;
}

/// The field of this name; null where there is none.
const Value* Find(const Structure& fields, std::string_view name);

} // namespace observer
