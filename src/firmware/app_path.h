// The directory of the settings files: one for each user, set by the host.
#pragma once

#include <cstdint>
#include <string>

namespace sondrel {

/// The path of the current user, or the registry sentinel.
std::u16string WMIGetAppPath(std::uint8_t initCom);

/// Whether that path is an existing directory.
bool WMICheckAppExist(std::uint8_t initCom);

bool DirectoryExists(const std::u16string& path);

} // namespace sondrel
