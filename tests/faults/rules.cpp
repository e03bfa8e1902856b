#include "rules.h"

#include "base/text.h"
#include "exports/judge.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <vector>

namespace sweep {
namespace {

using observer::Failure;
using observer::Operation;
using tool::Export;
using tool::Family;

/// How far an answer may lie between the good one and a failure value.
enum class Form : std::uint8_t {
    Whole,    // not at all
    EcNumber, // bytes that the driver refused are 0; a word of the battery bus may be another one's
    EcList,   // the same in each place
    Letters,  // a text cut short
    Places,   // values between ";": each the good one, empty, or from the machine
    Words,    // the same between blanks
    Radios,   // the state of an earlier radio, where the search for the next one failed
    Document, // JSON of the same shape: fewer records, texts empty or from the machine
};

/// At most eight; the rest is nothing.
using NameList = std::array<std::optional<std::string_view>, 8>;

/// What the tool's table of meanings does not say.
struct Rule {
    std::string_view name;
    Form form = Form::Whole;
    NameList failures{};
    /// The good answer may come although one of these failed; "*" stands for all.
    NameList without{};
    /// It may not come when one of these failed, although it may for most exports.
    NameList needs{};
    std::size_t room = 4096;
};

/// Failures that say nothing of the answer: the sinks of the diagnostics, and what only they ask for.
constexpr Operation Sinks[] = {Operation::EventRegister,      Operation::EventSetInformation,
                               Operation::EventWriteTransfer, Operation::RegisterEventSourceW,
                               Operation::ReportEventW,       Operation::StringFromGUID2};

/// Calls that many readings can do without: the last of a list, one with a way around it, one whose answer
/// nobody looks at, one that reads as 0 where 0 is the value.
constexpr Operation Dispensable[] = {Operation::Next,
                                     Operation::RegEnumKeyExW,
                                     Operation::RegOpenKeyExW,
                                     Operation::RegQueryValueExW,
                                     Operation::RegCreateKeyExW,
                                     Operation::RegSetValueExW,
                                     Operation::DeviceIoControl,
                                     Operation::BluetoothFindNextRadio,
                                     Operation::BluetoothFindNextDevice,
                                     Operation::WlanQueryInterface,
                                     Operation::WlanGetNetworkBssList};

constexpr NameList Everything{"*"};
constexpr std::size_t Unbounded = 65536;

constexpr Rule Rules[] = {
    {.name = "InitializeSondrel", .without = {"CreateFileW"}},
    {.name = "GetDriverVersion", .form = Form::EcNumber},
    {.name = "GetRefCount", .form = Form::EcNumber},
    {.name = "Battery_Read_CapacityPercentage", .failures = {"0"}},
    {.name = "Battery_Read_CycleCount",
     .form = Form::EcNumber,
     .without = {"SetupDiGetClassDevsW", "CreateFileW"}},
    {.name = "Battery_Read_CellVoltage", .form = Form::EcList},
    {.name = "Battery_Read_ManufactureDate", .form = Form::EcList},
    {.name = "Battery_Read_ManufactureName", .form = Form::Letters},
    {.name = "Thermal_Read_Fan", .form = Form::EcList},
    {.name = "CPU_ReadCPUUsage", .failures = {"0"}},
    {.name = "CPU_ReadCpuId", .form = Form::Words, .failures = {"0 0 0 0 "}, .needs = {"DeviceIoControl"}},
    {.name = "GetEEPROM_Data", .form = Form::Document, .without = {"CreateFileW"}, .room = Unbounded},
    {.name = "GetSENSOR_WMI_Data", .form = Form::Document, .needs = {"DeviceIoControl"}, .room = 26},
    {.name = "GPNV_Get_ActivatedTime", .failures = {"(buffer untouched)"}},
    {.name = "GPNV_Get_RandomUUID", .without = {"GetFirmwareEnvironmentVariableW"}},
    {.name = "GPNV_Set_ActivatedTime", .without = Everything, .needs = {"SetFirmwareEnvironmentVariableW"}},
    {.name = "GPNV_Set_ManufacturedTime",
     .without = Everything,
     .needs = {"SetFirmwareEnvironmentVariableW"}},
    {.name = "GPNV_Set_RandomUUID", .without = Everything, .needs = {"SetFirmwareEnvironmentVariableW"}},
    {.name = "WMICheckBatteryHealthSupport", .failures = {"0"}, .needs = {"Next"}},
    {.name = "WMICheckQuietFanSupport", .failures = {"-1"}, .needs = {"Next"}},
    {.name = "WMIGetBatteryHealth", .failures = {"100"}, .without = Everything, .needs = {"CreateFileW"}},
    {.name = "WMIGetQuietFan", .failures = {"0"}, .without = Everything, .needs = {"CreateFileW"}},
    {.name = "WMISetBatteryHealth",
     .without = Everything,
     .needs = {"GetMethod", "SpawnInstance", "ExecMethod"}},
    {.name = "WMISetQuietFan", .without = Everything, .needs = {"GetMethod", "SpawnInstance", "ExecMethod"}},
    {.name = "WMISetAppPath", .without = Everything, .needs = {"RegSetValueExW"}},
    {.name = "WMIGetHDDTemp", .form = Form::Places, .room = 1200},
    {.name = "WMIGetExternMonitorNum", .failures = {"0"}},
    {.name = "WMIGetOSInfo", .form = Form::Words},
    {.name = "WMIGetSystemChassisTypes"},
    {.name = "WMIGetWiFiBytesPersec", .form = Form::Places, .without = {"Get"}, .room = 64},
    {.name = "RF_WiFiCardName", .room = 257},
    {.name = "RF_BTIsUsed", .form = Form::Radios},
    {.name = "System_Check_S_Mode", .without = Everything},
    {.name = "System_GetCountryCode_ISO2", .room = 11},
    {.name = "System_Read_LocalTime", .failures = {""}},
    {.name = "GetApplist_x64", .form = Form::Document, .room = Unbounded},
    {.name = "GetApplist_x86", .form = Form::Document, .room = Unbounded},
    {.name = "GetApplist_UWP",
     .form = Form::Document,
     .without = {"GetPackagesByPackageFamily", "SHLoadIndirectString", "GetPackagePathByFullName",
                 "put_async", "put_validateOnParse", "put_resolveExternals", "put_preserveWhiteSpace"},
     .room = Unbounded},
    {.name = "App_Get_UWPApp", .form = Form::Places, .needs = {"RegOpenKeyExW", "RegEnumKeyExW"}},
    {.name = "App_Get_Win32App", .form = Form::Places},
    {.name = "App_Get_Win32WOW6432App", .form = Form::Places, .needs = {"RegEnumKeyExW"}},
    {.name = "GetInfVersion",
     .without = {"CM_Locate_DevNodeW", "CM_Get_DevNode_Registry_PropertyW"},
     .needs = {"RegOpenKeyExW", "RegQueryValueExW"},
     .room = 512},
    {.name = "GetUWPVersion", .room = 128},
    {.name = "AppList_OpenWindows", .form = Form::Document, .without = Everything, .needs = {"EnumWindows"}},
    {.name = "AppList_CpuUsage", .form = Form::Document, .without = {"Get"}},
    {.name = "AppList_MemUsage", .form = Form::Document, .without = {"Get"}},
    {.name = "AppList_HardwareConfig", .form = Form::Document, .without = {"GetMute"}, .room = 65},
    {.name = "System_Read_TabletMode", .form = Form::EcNumber, .needs = {"DeviceIoControl"}},
};

const Rule& RuleOf(const Export& row) {
    static constexpr Rule Plain{};
    static constexpr Rule EcReading{.name = "", .form = Form::EcNumber};
    static constexpr Rule WmiList{.name = "", .form = Form::Places};
    static constexpr Rule PowerValue{.name = "", .form = Form::EcNumber, .failures = {"0"}};
    const auto* const own = std::ranges::find(Rules, row.name, &Rule::name);
    if (own != std::end(Rules)) {
        return *own;
    }
    if (row.shape == &tool::shape::WideTextCom) {
        return WmiList;
    }
    const bool ec = row.traits.session && row.meanings.data() != nullptr;
    return !ec ? Plain : row.family == Family::Processor ? PowerValue : EcReading;
}

template <class List, class Item>
bool Has(const List& list, const Item& item) {
    return std::ranges::find(list, item) != std::end(list);
}

bool Names(const NameList& list, std::string_view operation) {
    return Has(list, operation) || Has(list, std::string_view("*"));
}

/// What an answer has to be, by what failed.
enum class Wanted : std::uint8_t { Good, NotGood, Either };

Wanted WantedAfter(const Rule& rule, const Fault& fault) {
    if (fault.heap) {
        return Wanted::Either;
    }
    if (Has(Sinks, fault.operation)) {
        return fault.andLater ? Wanted::Either : Wanted::Good; // what comes later is no sink
    }
    if (fault.lacking) {
        return Wanted::Either;
    }
    const std::string_view name = observer::RowOf(fault.operation).name;
    if (Has(rule.needs, name)) {
        return Wanted::NotGood;
    }
    return Names(rule.without, name) || Has(Dispensable, fault.operation) ? Wanted::Either : Wanted::NotGood;
}

std::optional<std::int64_t> NumberIn(std::string_view text) {
    std::int64_t number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    return problem == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

/// Each byte as it was or 0.
bool BytesLost(std::int64_t number, std::int64_t good) {
    const auto bits = static_cast<std::uint64_t>(number);
    for (unsigned shift = 0; shift < 64; shift += 8) {
        const std::uint64_t mask = std::uint64_t{0xFF} << shift;
        if ((bits & mask) != 0 && (bits & mask) != (static_cast<std::uint64_t>(good) & mask)) {
            return false;
        }
    }
    return true;
}

/// A failure that the EC's status tells gives the failure value or, while the EC is being identified, 0; one
/// that nobody tells loses bytes, or leads the commands that follow astray.
bool IsEcNumber(const Fault& fault, std::string_view text, std::string_view goodText, bool strays) {
    const auto number = NumberIn(text);
    const auto good = NumberIn(goodText);
    if (!number || !good) {
        return false;
    }
    if (*number == *good || *number == 0 || *number == 0x7FFFFFFF || *number == -1) {
        return true;
    }
    constexpr std::int64_t CurveEnds[] = {100, 110}; // of a thermistor whose count reads as 0
    return fault.kind != Failure::Status && (strays || BytesLost(*number, *good) || Has(CurveEnds, *number));
}

bool ArePlaces(std::string_view answer, std::string_view good, char separator, const auto& fits) {
    const std::vector<std::string_view> places = tool::Split(answer, separator);
    const std::vector<std::string_view> goodPlaces = tool::Split(good, separator);
    return std::ranges::all_of(places, [&](std::string_view place) { return fits(place, goodPlaces); });
}

bool IsEcList(const Fault& fault, std::string_view answer, std::string_view good) {
    const char separator = good.find(';') != std::string_view::npos ? ';' : '-';
    const auto places = tool::Split(answer, separator);
    const auto goodPlaces = tool::Split(good, separator);
    if (places.size() != goodPlaces.size()) {
        return false;
    }
    for (std::size_t place = 0; place < places.size(); ++place) {
        if (!IsEcNumber(fault, places[place], goodPlaces[place], true)) {
            return false;
        }
    }
    return true;
}

/// A text that nobody made up: it is empty, a plain number, or stands in the machine's profile.
bool IsFromMachine(std::string_view text, std::string_view profile) {
    constexpr std::string_view NumberCharacters = "0123456789abcdefx .-";
    return text.find_first_not_of(NumberCharacters) == std::string_view::npos ||
           profile.find(text) != std::string_view::npos;
}

void CollectTexts(const nlohmann::json& document, std::vector<std::string>& texts) {
    if (document.is_string()) {
        texts.push_back(document.get<std::string>());
    } else if (document.is_structured()) {
        for (const auto& item : document) {
            CollectTexts(item, texts);
        }
    }
}

/// Whether each record has the keys that some record of the good document has.
bool HasShapeOf(const nlohmann::json& answer, const nlohmann::json& good) {
    if (answer.is_array() && good.is_array()) {
        return std::ranges::all_of(answer, [&](const auto& item) {
            return good.empty() ||
                   std::ranges::any_of(good, [&](const auto& other) { return HasShapeOf(item, other); });
        });
    }
    if (answer.is_object() && good.is_object()) {
        return answer.size() == good.size() && std::ranges::all_of(answer.items(), [&](const auto& item) {
                   return good.contains(item.key()) && HasShapeOf(item.value(), good[item.key()]);
               });
    }
    return answer.type() == good.type();
}

bool IsDocument(std::string_view answer, std::string_view good, std::string_view profile) {
    const auto document = nlohmann::json::parse(answer, nullptr, false);
    const auto goodDocument = nlohmann::json::parse(good, nullptr, false);
    if (document.is_discarded() || !HasShapeOf(document, goodDocument)) {
        return false;
    }
    std::vector<std::string> texts;
    std::vector<std::string> goodTexts;
    CollectTexts(document, texts);
    CollectTexts(goodDocument, goodTexts);
    return std::ranges::all_of(
        texts, [&](const std::string& text) { return Has(goodTexts, text) || IsFromMachine(text, profile); });
}

/// A search for radios that fails on its way is taken for one that has ended.
bool EndsRadioSearch(const Fault& fault) {
    return fault.operation == Operation::BluetoothFindNextRadio ||
           (fault.andLater && Has(Sinks, fault.operation));
}

bool Fits(const Rule& rule, const Fault& fault, const std::string& answer, const std::string& good,
          std::string_view profile) {
    const auto known = [&](std::string_view place, const std::vector<std::string_view>& goodPlaces) {
        return Has(goodPlaces, place) || IsFromMachine(place, profile);
    };
    switch (rule.form) {
    case Form::Whole:
        return false;
    case Form::EcNumber:
        return IsEcNumber(fault, answer, good, false);
    case Form::EcList:
        return IsEcList(fault, answer, good);
    case Form::Letters:
        return fault.kind != Failure::Status && good.starts_with(answer);
    case Form::Places:
        return ArePlaces(answer, good, ';', known);
    case Form::Words:
        return ArePlaces(answer, good, ' ', known);
    case Form::Radios:
        return EndsRadioSearch(fault) && (answer == "0" || answer == "1");
    case Form::Document:
        return IsDocument(answer, good, profile);
    }
    return false;
}

bool IsFailureValue(const Export& row, const Rule& rule, const std::string& answer) {
    if (Has(rule.failures, answer) ||
        (row.shape == &tool::shape::ReadBytes && answer.starts_with(tool::BufferUntouched))) {
        return true;
    }
    const tool::Meaning* const meaning = tool::MeaningOf(row, answer);
    return meaning != nullptr && meaning->status != tool::Status::Ok;
}

} // namespace

std::size_t RoomOf(const Export& row) {
    return RuleOf(row).room;
}

std::string Objection(const Export& row, const Fault& fault, const std::string& answer,
                      const std::string& good, std::string_view profile) {
    const Rule& rule = RuleOf(row);
    const Wanted wanted = WantedAfter(rule, fault);
    if (answer == good) {
        // A reading that fails anyway has nothing left to lose, and a refused byte is 0.
        const bool told = wanted != Wanted::NotGood || IsFailureValue(row, rule, good) ||
                          (rule.form == Form::EcNumber && good == "0");
        return told ? "" : "the failure was swallowed";
    }
    if (wanted == Wanted::Good) {
        return "a failed sink changed the answer";
    }
    return IsFailureValue(row, rule, answer) || Fits(rule, fault, answer, good, profile)
               ? ""
               : "no answer for this failure";
}

bool MayStay(const Export& row, const Fault& fault, const std::string& answer, const std::string& good) {
    if (fault.heap) {
        return false;
    }
    if (row.family == Family::WiFi || row.family == Family::Bluetooth || row.family == Family::Adapters) {
        const auto is = [&row](const std::string& text, tool::Status status) {
            const tool::Meaning* const meaning = tool::MeaningOf(row, text);
            return meaning != nullptr && meaning->status == status;
        };
        return answer == "0;0" || (row.family == Family::Bluetooth && EndsRadioSearch(fault)) ||
               is(answer, tool::Status::NotRead) ||
               (is(answer, tool::Status::Failed) && is(good, tool::Status::NotRead));
    }
    return row.traits.session && fault.operation == Operation::DeviceIoControl &&
           fault.kind != Failure::Status;
}

} // namespace sweep
