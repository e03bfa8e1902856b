// Recordings as machines.
#pragma once

#include "exports/library.h"
#include "recordings/recording_file.h"
#include "vesk_sondrel_observer.h"

#include <string>

namespace tool {

/// "WMIGetSN: line 12: ..."
std::string TextOf(const VeskObserver_Difference& difference);

/// The library answers from the recording from now on. Throws Error for one that cannot be read, and for a library that is
/// not observed.
void StartReplay(const Library& library, const std::string& file, std::size_t part,
                 VeskObserver_DifferenceSink sink, void* context);

/// Throws Error.
void RequireObserved(const Library& library);

} // namespace tool
