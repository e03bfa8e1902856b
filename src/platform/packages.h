// Packaged applications: who belongs to a family, where a package stands, what a reference into its resources
// says.
#pragma once

#include "platform/types.h"

namespace platform {

/// GetPackagesByPackageFamily. `count` and `bufferLength` (in characters) go in as the room at `fullNames` and
/// `buffer` and come back as what the family has or needs; too little room of either kind gives
/// `error::InsufficientBuffer`. A Windows without packages gives `error::ProcedureNotFound` and both as 0.
SystemError GetPackagesByPackageFamily(const char16_t* familyName, std::uint32_t& count,
                                       const char16_t** fullNames, std::uint32_t& bufferLength,
                                       char16_t* buffer);

/// GetPackagePathByFullName: the package's folder. `pathLength` goes in as the room at `path` and comes back as
/// the length with the terminator. A Windows without packages gives `error::ProcedureNotFound`.
SystemError GetPackagePathByFullName(const char16_t* fullName, std::uint32_t& pathLength, char16_t* path);

/// SHLoadIndirectString with no reserved pointer. `outSize` in characters.
HResult SHLoadIndirectString(const char16_t* source, char16_t* out, std::uint32_t outSize);

} // namespace platform
