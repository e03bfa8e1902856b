// What the environment of a host asks for: VESK_RECORD and VESK_MACHINE.
#pragma once

#include "observer/recording/replay.h"

#include <cstddef>
#include <memory>
#include <string>

namespace observer {

/// Records from now on, into a new file in which "%p" is the process's number. False with the reason. A process records
/// into one file.
bool StartRecording(const std::string& path, std::string& problem);

/// Answers from a recording from now on, of one part or of all: 0. Throws RecordingError with the file's name.
void StartReplay(const std::string& path, std::size_t onlyPart, Replay::Report report);

/// Does once what the environment asks for. A recording that cannot be read refuses everything: an answer of the real
/// machine would be taken for one of the recorded machine.
void StartAsTheEnvironmentAsks() noexcept;

} // namespace observer
