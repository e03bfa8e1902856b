#include "platform/device_nodes.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

ConfigReturn CM_Get_Device_ID_List_SizeW(std::uint32_t& length, std::uint32_t flags) {
    return Observe<Operation::CM_Get_Device_ID_List_SizeW>(back_end::CM_Get_Device_ID_List_SizeW,
                                                           OutSize("length", length), Hex("flags", flags));
}

ConfigReturn CM_Get_Device_ID_ListW(char16_t* list, std::uint32_t length, std::uint32_t flags) {
    return Observe<Operation::CM_Get_Device_ID_ListW>(back_end::CM_Get_Device_ID_ListW,
                                                      OutTexts("list", list, length), In("length", length),
                                                      Hex("flags", flags));
}

ConfigReturn CM_Locate_DevNodeW(DeviceNode& node, const char16_t* deviceId, std::uint32_t flags) {
    return Observe<Operation::CM_Locate_DevNodeW>(back_end::CM_Locate_DevNodeW, Out("node", node),
                                                  In("id", deviceId), Hex("flags", flags));
}

ConfigReturn CM_Get_DevNode_Registry_PropertyW(DeviceNode node, std::uint32_t property, std::byte* value,
                                               std::uint32_t& size) {
    return Observe<Operation::CM_Get_DevNode_Registry_PropertyW>(
        back_end::CM_Get_DevNode_Registry_PropertyW, In("node", node), In("property", property),
        OutBytesAt("value", value, size), InOut("size", size));
}

} // namespace platform
