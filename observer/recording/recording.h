// A recording in memory. docs/recording.md describes the file.
#pragma once

#include "observer/operations.h"
#include "observer/value.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace observer {

/// Of the file's form: a reader of another one would misunderstand it.
inline constexpr std::int64_t RecordingVersion = 1;

/// In bytes. A larger file is not read.
inline constexpr std::size_t LargestRecording = 256 << 20;

/// Where a machine is named: another name is a simulated machine's.
inline bool IsRecordingName(std::string_view name) {
    return name.ends_with(".rec") || name.ends_with(".rec.gz");
}

/// The names of a line's first field say what the line is.
namespace line_kind {
inline constexpr std::string_view Header = "vesk_recording";
inline constexpr std::string_view Export = "export";
inline constexpr std::string_view Return = "return";
inline constexpr std::string_view Call = "call";
inline constexpr std::string_view End = "end";
} // namespace line_kind

/// One boundary call of a recording.
struct RecordedCall {
    Operation operation{};
    std::size_t line = 0; // where it begins, from 1
    Structure inputs;
    bool ended = false;
    bool incomplete = false;  // there was no memory to note all of it
    bool outOfMemory = false; // the back end raised it
    Structure outputs;
    Value result;
    std::optional<std::uint32_t> lastError;
};

/// One export call of a recording, with its boundary calls in their order. Those that only report what the library does
/// are left out.
struct RecordedExport {
    std::string name;
    std::size_t part = 0; // from 1
    std::size_t line = 0;
    Structure arguments;
    std::vector<RecordedCall> calls;
    std::size_t returnLine = 0; // 0: it never returned
    Value result;
    Structure buffers;
};

/// Names the line.
class RecordingError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Each process that was recorded is one part, which begins with a header. Movable only: its names of fields are parts of
/// its text.
class Recording {
public:
    /// Of one part, from 1, or of all of them: 0. A last line without an end is left out. Throws RecordingError.
    explicit Recording(std::string text, std::size_t onlyPart = 0);
    Recording(Recording&&) = delete;

    [[nodiscard]] const std::vector<RecordedExport>& Exports() const { return m_exports; }

    /// Of the first part that was read.
    [[nodiscard]] const Structure& Header() const { return m_headers[m_firstPart - 1]; }

    /// Of each part, counted from 1, whether it was read or not.
    [[nodiscard]] const Structure& Header(std::size_t part) const { return m_headers[part - 1]; }

    /// How many parts there are in the file.
    [[nodiscard]] std::size_t Parts() const { return m_headers.size(); }

    /// The number of the line that has no end; 0 where the file is complete.
    [[nodiscard]] std::size_t CutLine() const { return m_cutLine; }

private:
    void Read(std::size_t onlyPart);

    const std::string m_text;
    std::vector<Structure> m_headers;
    std::size_t m_firstPart = 1;
    std::vector<RecordedExport> m_exports;
    std::size_t m_cutLine = 0;
};

/// The export call by which a replay finds it: its name and its arguments.
std::string KeyOf(std::string_view exportName, const Structure& arguments);

} // namespace observer
