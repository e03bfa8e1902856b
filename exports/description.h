// The exports of the library as exports.json describes them; the data is generated (exports/generate.py).
#pragma once

#include "exports/generated/enums.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace exports {

/// What an answer means, as far as its value shows it.
enum class State : std::uint8_t { Ok, Failed, Absent, NotRead, NoSession, NotReady };

constexpr std::uint8_t Bit(State state) {
    return static_cast<std::uint8_t>(1u << static_cast<unsigned>(state));
}

enum class Match : std::uint8_t {
    Whole,     // the whole answer
    Element,   // an element of a list
    Untouched, // the buffer is as it was
    ErrorCode, // the result is not 0 but the system's error code
    Other      // every value without an entry before this one
};

/// An answer with a special meaning.
struct SpecialValue {
    Match match;
    /// As the tool prints it.
    std::string_view text;
    /// What to assume where nothing else is known.
    State state;
    /// All that it can mean, as bits.
    std::uint8_t states;
    std::string_view meaning;

    [[nodiscard]] constexpr bool CanMean(State other) const { return (states & Bit(other)) != 0; }

    /// It can also be the answer of a failed reading.
    [[nodiscard]] constexpr bool CanFail() const { return states != Bit(State::Ok); }
};

enum class Display : std::uint8_t {
    Plain,
    Hexadecimal, // a version word
    Letters,     // the characters that are packed into a number
    Fraction,    // of one whole
    List,        // elements separated by ";"
    Document,    // JSON
    Bytes,       // in hexadecimal
    Registers    // of the processor, in hexadecimal
};

enum class InReport : std::uint8_t {
    Called,
    Session, // the report's own opening of the session is the answer
    Skipped  // it changes the machine or the session
};

enum class BufferRule : std::uint8_t {
    None,
    Exact,   // exactly so much is read or written
    AtLeast, // the text never needs more
    Grows    // there is no limit; so much is enough for known machines
};

struct Buffer {
    /// The terminator included.
    std::size_t size = 0;
    /// "bytes" or "characters".
    std::string_view unit;
    BufferRule rule = BufferRule::None;
};

/// Of a list.
struct Element {
    /// "fan", "cell"; empty where it has no name.
    std::string_view name;
    /// How many there are; 0 where that depends on the machine.
    std::size_t count = 0;
};

/// From the export's unit to the base unit: (number * factor + offset) / divisor. The division keeps 3862 mV at
/// 3.862 V.
struct Conversion {
    double factor = 1;
    double offset = 0;
    double divisor = 1;

    [[nodiscard]] constexpr double Of(double number) const { return (number * factor + offset) / divisor; }
};

struct Export {
    std::string_view name;
    Group group;
    Signature signature;
    /// In C, without a semicolon.
    std::string_view declaration;
    std::string_view summary;
    std::string_view unit;
    /// To the base unit, whose name is empty where there is nothing to convert.
    Conversion conversion;
    std::string_view convertedUnit;
    /// What a raw number is taken for; empty for a documented unit.
    std::string_view assumedUnit;
    Display display = Display::Plain;
    /// What a user has to give, in capitals, and a value for it; empty for nothing.
    std::string_view argument;
    std::string_view sample;
    Buffer buffer;
    Element element;
    /// At least on some machines, or for the first reading.
    bool needsSession = false;
    /// The next reading usually differs: a temperature, a counter, the time.
    bool moves = false;
    InReport report = InReport::Called;
    /// The drawing of a report page that it is in, or empty. A watch without names shows these exports too.
    std::string_view chart;
    /// Identifies the machine: a label of the info metric.
    std::string_view infoLabel;
    std::span<const SpecialValue> values;
};

/// In the order of the header.
std::span<const Export> AllExports();

/// Null where the library has no such export.
const Export* FindExport(std::string_view name);

std::string_view TitleOf(Group group);
/// For users of commands: "battery_ec".
std::string_view IdOf(Group group);

/// The drawings of a report page in their order.
std::span<const std::string_view> ChartTitles();

enum class MetricType : std::uint8_t { Gauge, Counter };

/// What an export's numbers are called in Prometheus. The exports of one metric are neighbours.
struct Metric {
    /// The export's place in AllExports().
    std::size_t index;
    std::string_view name;
    std::string_view help;
    MetricType type;
    /// What distinguishes the samples of one metric.
    std::string_view label;
    /// Its value, or those of a list's elements, separated by ","; empty: the elements are counted from 0.
    std::string_view labelValues;
};

std::span<const Metric> AllMetrics();

} // namespace exports
