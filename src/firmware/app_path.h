// Where the settings files of the firmware's features live: one directory per user, registered by the host.
#pragma once

#include <cstdint>
#include <string>

namespace sondrel {

/// The path registered for the present user, or the registry sentinel.
std::u16string WMIGetAppPath(std::uint8_t initCom);

/// Whether the registered path names a directory.
bool WMICheckAppExist(std::uint8_t initCom);

bool DirectoryExists(const std::u16string& path);

} // namespace sondrel
