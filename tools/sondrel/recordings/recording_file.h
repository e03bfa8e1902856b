// Recordings as files.
#pragma once

#include "exports/calls.h"
#include "observer/recording/recording.h"
#include "observer/recording/system.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tool {

using observer::IsRecordingName;

/// The lines of a recording that may be compressed. Throws Error with the file's name.
std::string ReadRecording(const std::string& file);

/// Throws Error with the file's name and the line.
std::unique_ptr<observer::Recording> LoadRecording(const std::string& file, std::size_t onlyPart = 0);

/// A new file that only its owner can read; an existing one is not replaced. Throws Error.
class NewRecordingFile {
public:
    explicit NewRecordingFile(std::string file);

    void Append(std::string_view text);

private:
    const std::string m_file;
    observer::system::NewFile m_opened;
};

/// The inputs of a recorded export call, as a call takes them. Nothing if its buffer was null, which no call has.
std::optional<CallInputs> InputsOf(const observer::RecordedExport& recorded);

} // namespace tool
