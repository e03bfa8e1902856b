#include "apps/package_family.h"

#include <vector>

namespace sondrel {

FamilyPackages QueryFamily(const char16_t* family, std::uint32_t count, std::uint32_t length) {
    std::vector<const char16_t*> names(count, nullptr);
    std::u16string characters(length, u'\0');
    FamilyPackages found{.status = 0, .count = count, .length = length, .first = std::nullopt};
    found.status =
        platform::GetPackagesByPackageFamily(family, found.count, count != 0 ? names.data() : nullptr,
                                             found.length, length != 0 ? characters.data() : nullptr);
    if (!names.empty() && names.front() != nullptr) {
        found.first = names.front();
    }
    return found;
}

} // namespace sondrel
