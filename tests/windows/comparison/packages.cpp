#include "platform/packages.h"

#include "shims.h"

#include "machine/machine.h"
#include "platform/device_nodes.h"

namespace comparison {
namespace {

static_assert(sizeof(UINT32) == sizeof(std::uint32_t));

LONG WINAPI PackagesByFamily(PCWSTR family, UINT32* count, PWSTR* fullNames, UINT32* length, PWSTR buffer) {
    return static_cast<LONG>(platform::GetPackagesByPackageFamily(
        Plain(family), *count, const_cast<const char16_t**>(reinterpret_cast<char16_t**>(fullNames)), *length,
        Plain(buffer)));
}

LONG WINAPI PathByFullName(PCWSTR fullName, UINT32* length, PWSTR path) {
    return static_cast<LONG>(platform::GetPackagePathByFullName(Plain(fullName), *length, Plain(path)));
}

HRESULT WINAPI LoadIndirectString(PCWSTR source, PWSTR out, UINT size, void**) {
    return platform::SHLoadIndirectString(Plain(source), Plain(out), size);
}

DWORD WINAPI IdListSize(PULONG length, PCWSTR, ULONG flags) {
    std::uint32_t found = 0;
    const DWORD status = platform::CM_Get_Device_ID_List_SizeW(found, flags);
    *length = found;
    return status;
}

DWORD WINAPI IdList(PCWSTR, PWSTR list, ULONG length, ULONG flags) {
    return platform::CM_Get_Device_ID_ListW(Plain(list), length, flags);
}

DWORD WINAPI Locate(PDWORD node, PWSTR id, ULONG flags) {
    platform::DeviceNode found{};
    const DWORD status = platform::CM_Locate_DevNodeW(found, Plain(id), flags);
    *node = static_cast<DWORD>(found);
    return status;
}

DWORD WINAPI Property(DWORD node, ULONG property, PULONG type, PVOID value, PULONG size, ULONG) {
    std::uint32_t capacity = *size;
    const DWORD status = platform::CM_Get_DevNode_Registry_PropertyW(
        platform::DeviceNode{node}, property, static_cast<std::byte*>(value), capacity);
    *size = capacity;
    if (type != nullptr) {
        *type = REG_SZ;
    }
    return status;
}

} // namespace

void PutUpPackages(test::ImportPatch& patch) {
    const bool supported = machine::Current()->profile.packages.supported;
    patch.ReplaceRoutine("GetPackagesByPackageFamily", supported ? &PackagesByFamily : nullptr);
    patch.ReplaceRoutine("GetPackagePathByFullName", supported ? &PathByFullName : nullptr);
    patch.Replace("SHLoadIndirectString", &LoadIndirectString);
    patch.ReplaceRoutine("CM_Get_Device_ID_List_SizeW", &IdListSize);
    patch.ReplaceRoutine("CM_Get_Device_ID_ListW", &IdList);
    patch.ReplaceRoutine("CM_Locate_DevNodeW", &Locate);
    patch.ReplaceRoutine("CM_Get_DevNode_Registry_PropertyW", &Property);
}

} // namespace comparison
