#include "platform/device_nodes.h"

#include "platform/back_end.h"
#include "platform/windows/support/native.h"
#include "platform/windows/support/system_library.h"

#include <cfgmgr32.h>

namespace VESK_BACK_END {
namespace {

/// Looked up, since what the DLL imports could also be found in the host's directory.
template <class Routine>
Routine ConfigRoutine(const char* name) {
    return SystemRoutine<Routine>(L"cfgmgr32.dll", name);
}

} // namespace

ConfigReturn CM_Get_Device_ID_List_SizeW(std::uint32_t& length, std::uint32_t flags) {
    const auto getSize =
        ConfigRoutine<decltype(&::CM_Get_Device_ID_List_SizeW)>("CM_Get_Device_ID_List_SizeW");
    if (getSize == nullptr) {
        length = 0;
        return config_return::Failure;
    }
    ULONG found = length;
    const CONFIGRET status = getSize(&found, nullptr, flags);
    length = found;
    return status;
}

ConfigReturn CM_Get_Device_ID_ListW(char16_t* list, std::uint32_t length, std::uint32_t flags) {
    const auto getList = ConfigRoutine<decltype(&::CM_Get_Device_ID_ListW)>("CM_Get_Device_ID_ListW");
    if (getList == nullptr) {
        return config_return::Failure;
    }
    return getList(nullptr, Wide(list), length, flags);
}

ConfigReturn CM_Locate_DevNodeW(DeviceNode& node, const char16_t* deviceId, std::uint32_t flags) {
    const auto locate = ConfigRoutine<decltype(&::CM_Locate_DevNodeW)>("CM_Locate_DevNodeW");
    if (locate == nullptr) {
        return config_return::Failure;
    }
    DEVINST found = 0;
    const CONFIGRET status = locate(&found, const_cast<wchar_t*>(Wide(deviceId)), flags);
    node = DeviceNode{found};
    return status;
}

ConfigReturn CM_Get_DevNode_Registry_PropertyW(DeviceNode node, std::uint32_t property, std::byte* value,
                                               std::uint32_t& size) {
    const auto getProperty =
        ConfigRoutine<decltype(&::CM_Get_DevNode_Registry_PropertyW)>("CM_Get_DevNode_Registry_PropertyW");
    if (getProperty == nullptr) {
        size = 0;
        return config_return::Failure;
    }
    ULONG foundSize = size;
    const CONFIGRET status = getProperty(static_cast<DEVINST>(node), property, nullptr, value, &foundSize, 0);
    size = foundSize;
    return status;
}

} // namespace VESK_BACK_END
