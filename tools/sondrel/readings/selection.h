// Which exports a command line chooses.
#pragma once

#include "exports/library.h"
#include "readings/host.h"

#include <span>
#include <string>
#include <vector>

namespace tool {

/// Every word is a name, a pattern with * and ?, or a group ("battery_ec"; "battery" is all groups that begin so). In
/// the order of the words, each reading once. Throws Error for a word that chooses nothing, and for a name that is not
/// exported or whose export would change something. Patterns and groups choose readings that the library exports.
std::vector<const Export*> ChosenReadings(std::span<const std::string> words, const Library& library);

} // namespace tool
