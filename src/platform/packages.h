// Packaged applications: the packages of a family, the folder of a package, the strings of its resources.
#pragma once

#include "platform/types.h"

namespace platform {

/// GetPackagesByPackageFamily. `count` and `bufferLength` (in characters) are the sizes of `fullNames` and
/// `buffer` going in, and the sizes that the family has or needs coming back. `error::InsufficientBuffer` if
/// either is too small. On a Windows without packages `error::ProcedureNotFound`, and both are 0.
SystemError GetPackagesByPackageFamily(const char16_t* familyName, std::uint32_t& count,
                                       const char16_t** fullNames, std::uint32_t& bufferLength,
                                       char16_t* buffer);

/// GetPackagePathByFullName: the folder of a package. `pathLength` is the size of `path` going in, the length
/// with the terminator coming back. On a Windows without packages `error::ProcedureNotFound`.
SystemError GetPackagePathByFullName(const char16_t* fullName, std::uint32_t& pathLength, char16_t* path);

/// SHLoadIndirectString with no reserved pointer. `outSize` in characters.
HResult SHLoadIndirectString(const char16_t* source, char16_t* out, std::uint32_t outSize);

} // namespace platform
