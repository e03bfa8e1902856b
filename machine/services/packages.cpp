#include "platform/packages.h"

#include "machine/machine.h"
#include "platform/back_end.h"
#include "platform/com.h"

#include <algorithm>

namespace VESK_BACK_END {
namespace {

using machine::PackageProfile;
using machine::PackageStore;

constexpr SystemError NotFound = 1168; // ERROR_NOT_FOUND
constexpr HResult NoSuchResource = static_cast<HResult>(0x80073B17);

/// The string of "@{full name? reference}"; null when it refers to nothing.
const std::u16string* ResourceText(const PackageStore& packages, std::u16string_view source) {
    const std::size_t middle = source.find(u"? ");
    if (!source.starts_with(u"@{") || !source.ends_with(u'}') || middle == std::u16string_view::npos) {
        return nullptr;
    }
    const PackageProfile* const package = packages.Package(std::u16string(source.substr(2, middle - 2)));
    if (package == nullptr) {
        return nullptr;
    }
    const auto found =
        package->resources.find(std::u16string(source.substr(middle + 2, source.size() - middle - 3)));
    return found == package->resources.end() ? nullptr : &found->second;
}

} // namespace

SystemError GetPackagesByPackageFamily(const char16_t* familyName, std::uint32_t& count,
                                       const char16_t** fullNames, std::uint32_t& bufferLength,
                                       char16_t* buffer) {
    const auto machine = machine::Current();
    if (!machine->profile.packages.supported) {
        count = 0;
        bufferLength = 0;
        return error::ProcedureNotFound;
    }
    const auto& family = machine->packages.Family(familyName);
    std::size_t needed = 0;
    for (const PackageProfile* package : family) {
        needed += package->fullName.size() + 1;
    }
    const bool fits = count >= family.size() && bufferLength >= needed;
    count = static_cast<std::uint32_t>(family.size());
    bufferLength = static_cast<std::uint32_t>(needed);
    if (!fits) {
        return error::InsufficientBuffer;
    }
    for (const PackageProfile* package : family) {
        *fullNames++ = buffer;
        buffer = std::ranges::copy(package->fullName, buffer).out;
        *buffer++ = u'\0';
    }
    return error::Success;
}

SystemError GetPackagePathByFullName(const char16_t* fullName, std::uint32_t& pathLength, char16_t* path) {
    const auto machine = machine::Current();
    if (!machine->profile.packages.supported) {
        pathLength = 0;
        return error::ProcedureNotFound;
    }
    const PackageProfile* const package = machine->packages.Package(fullName);
    if (package == nullptr || package->folder.empty()) {
        return NotFound;
    }
    const std::uint32_t bufferLength = pathLength;
    pathLength = static_cast<std::uint32_t>(package->folder.size() + 1);
    if (bufferLength < pathLength) {
        return error::InsufficientBuffer;
    }
    *std::ranges::copy(package->folder, path).out = u'\0';
    return error::Success;
}

HResult SHLoadIndirectString(const char16_t* source, char16_t* out, std::uint32_t outSize) {
    const auto machine = machine::Current();
    const std::u16string* const text = ResourceText(machine->packages, source);
    if (text == nullptr) {
        return NoSuchResource;
    }
    const std::size_t length = std::min<std::size_t>(text->size(), outSize - 1);
    *std::copy_n(text->data(), length, out) = u'\0';
    return hresult::Ok;
}

} // namespace VESK_BACK_END
