// The packages of a family.
#pragma once

#include "platform/packages.h"

#include <cstdint>
#include <optional>
#include <string>

namespace sondrel {

/// What one call of GetPackagesByPackageFamily returned.
struct FamilyPackages {
    platform::SystemError status;
    std::uint32_t count;                 // packages
    std::uint32_t length;                // of all names, in characters with their terminators
    std::optional<std::u16string> first; // full name, in the platform's order
};

/// Calls it with buffers for `count` names of `length` characters together; none where both are 0, which only
/// asks for the sizes.
FamilyPackages QueryFamily(const char16_t* family, std::uint32_t count, std::uint32_t length);

} // namespace sondrel
