#include "platform/packages.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

SystemError GetPackagesByPackageFamily(const char16_t* familyName, std::uint32_t& count,
                                       const char16_t** fullNames, std::uint32_t& bufferLength,
                                       char16_t* buffer) {
    return Observe<Operation::GetPackagesByPackageFamily>(
        back_end::GetPackagesByPackageFamily, In("family", familyName), InOut("count", count),
        OutPlaces("places", fullNames, count, buffer, bufferLength), InOut("length", bufferLength),
        OutTexts("names", buffer, bufferLength));
}

SystemError GetPackagePathByFullName(const char16_t* fullName, std::uint32_t& pathLength, char16_t* path) {
    return Observe<Operation::GetPackagePathByFullName>(back_end::GetPackagePathByFullName,
                                                        In("name", fullName), InOut("length", pathLength),
                                                        OutText("path", path, pathLength));
}

HResult SHLoadIndirectString(const char16_t* source, char16_t* out, std::uint32_t outSize) {
    return Observe<Operation::SHLoadIndirectString>(back_end::SHLoadIndirectString, In("source", source),
                                                    OutText("text", out, outSize), In("size", outSize));
}

} // namespace platform
