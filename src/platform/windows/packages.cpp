#include "platform/packages.h"

#include "platform/back_end.h"
#include "platform/windows/support/native.h"
#include "platform/windows/support/system_library.h"

#include <shlwapi.h>

namespace VESK_BACK_END {
namespace {

using PackagesByFamily = LONG(WINAPI*)(PCWSTR, UINT32*, PCWSTR*, UINT32*, WCHAR*);
using PackagePath = LONG(WINAPI*)(PCWSTR, UINT32*, PWSTR);

} // namespace

SystemError GetPackagesByPackageFamily(const char16_t* familyName, std::uint32_t& count,
                                       const char16_t** fullNames, std::uint32_t& bufferLength,
                                       char16_t* buffer) {
    const auto lookUp = SystemRoutine<PackagesByFamily>(L"kernel32.dll", "GetPackagesByPackageFamily");
    if (lookUp == nullptr) {
        count = 0;
        bufferLength = 0;
        return error::ProcedureNotFound;
    }
    return static_cast<SystemError>(
        lookUp(Wide(familyName), &count, reinterpret_cast<PCWSTR*>(fullNames), &bufferLength, Wide(buffer)));
}

SystemError GetPackagePathByFullName(const char16_t* fullName, std::uint32_t& pathLength, char16_t* path) {
    const auto lookUp = SystemRoutine<PackagePath>(L"kernel32.dll", "GetPackagePathByFullName");
    if (lookUp == nullptr) {
        pathLength = 0;
        return error::ProcedureNotFound;
    }
    return static_cast<SystemError>(lookUp(Wide(fullName), &pathLength, Wide(path)));
}

HResult SHLoadIndirectString(const char16_t* source, char16_t* out, std::uint32_t outSize) {
    return ::SHLoadIndirectString(Wide(source), Wide(out), outSize, nullptr);
}

} // namespace VESK_BACK_END
