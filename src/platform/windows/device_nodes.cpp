#include "platform/device_nodes.h"

#include "platform/back_end.h"
#include "platform/windows/support/native.h"

#include <cfgmgr32.h>

namespace VESK_BACK_END {

ConfigReturn CM_Get_Device_ID_List_SizeW(std::uint32_t& length, std::uint32_t flags) {
    ULONG found = length;
    const CONFIGRET status = ::CM_Get_Device_ID_List_SizeW(&found, nullptr, flags);
    length = found;
    return status;
}

ConfigReturn CM_Get_Device_ID_ListW(char16_t* list, std::uint32_t length, std::uint32_t flags) {
    return ::CM_Get_Device_ID_ListW(nullptr, Wide(list), length, flags);
}

ConfigReturn CM_Locate_DevNodeW(DeviceNode& node, const char16_t* deviceId, std::uint32_t flags) {
    DEVINST found = 0;
    const CONFIGRET status = ::CM_Locate_DevNodeW(&found, const_cast<wchar_t*>(Wide(deviceId)), flags);
    node = DeviceNode{found};
    return status;
}

ConfigReturn CM_Get_DevNode_Registry_PropertyW(DeviceNode node, std::uint32_t property, std::byte* value,
                                               std::uint32_t& size) {
    ULONG foundSize = size;
    const CONFIGRET status = ::CM_Get_DevNode_Registry_PropertyW(static_cast<DEVINST>(node), property,
                                                                 nullptr, value, &foundSize, 0);
    size = foundSize;
    return status;
}

} // namespace VESK_BACK_END
