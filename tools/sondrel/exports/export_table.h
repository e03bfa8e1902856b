// Every export of the library: how it is called and how its answers are read.
//
// A row of the table is all that the tool knows of an export. A new export is a new row.
#pragma once

#include "exports/shapes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace tool {

/// The families, in the order of the header.
enum class Family : std::uint8_t {
    Session,
    Identity,
    Battery,
    Thermal,
    Processor,
    EventLog,
    Variables,
    Features,
    Disks,
    Inventory,
    Adapters,
    WiFi,
    Bluetooth,
    System,
    Applications,
    Versions,
    Usage,
    Count
};

std::string_view TitleOf(Family family);

/// What an answer is worth.
enum class Status : std::uint8_t {
    Ok,
    Partly,      // some places of a list failed
    Failed,      // the reading was tried and failed
    Absent,      // this machine has no such thing
    NotRead,     // nothing has set the value yet
    Untouched,   // the buffer came back as it was given
    Faulty,      // the library wrote outside its buffer or without a terminator
    NotExported, // the library does not have the name
    NotRun       // a report does not call it
};

std::string_view TextOf(Status status);

/// What one value stands for. "*" is every value that has no row of its own before it.
struct Meaning {
    std::string_view value;
    Status status = Status::Ok;
    std::string_view text;
};

enum class Display : std::uint8_t {
    Plain,
    Hexadecimal, // a version word
    Letters,     // the characters that a number is packed of
    Fraction,    // of one whole
    List,        // values joined by ";"
    Document     // JSON
};

enum class InReport : std::uint8_t {
    Called,
    Session, // the tool's own opening of the session answers
    Left     // it changes the machine or the session
};

struct Traits {
    std::string_view unit;
    /// Narrow text: the buffer's size in bytes. Raw bytes: how many.
    std::size_t size = 0;
    bool session = false;
    Display display = Display::Plain;
    InReport report = InReport::Called;
    /// The argument with which a report calls it.
    std::string_view sample;
    /// It is another one at the next reading as a rule: a temperature, a counter, the time.
    bool moves = false;
};

struct Export {
    std::string_view name;
    Family family;
    const Shape* shape;
    std::span<const Meaning> meanings;
    std::string_view description;
    Traits traits;
};

inline constexpr std::size_t ExportCount = 114;

/// In the order of the header.
std::span<const Export> AllExports();

/// Null for a name that is none of the library's.
const Export* FindExport(std::string_view name);

} // namespace tool
