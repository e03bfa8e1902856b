// Recordings that begin or answer because a host asks for it, itself or by the variables of its environment.
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

/// The same from now on; what the library asks for beyond the recording is printed to standard error after `name`.
void StartPrintingReplay(const std::string& path, const char* name);

/// The host has chosen its machine: the environment does not choose one any more.
void MachineIsChosen() noexcept;

/// Does once what the environment asks for. A machine that cannot be started refuses everything: an answer of another
/// machine would be taken for an answer of it.
void StartAsTheEnvironmentAsks() noexcept;

} // namespace observer
