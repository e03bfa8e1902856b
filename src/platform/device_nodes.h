// The configuration manager: the machine's devices and their properties.
#pragma once

#include "platform/types.h"

namespace platform {

/// A CONFIGRET code. A system without a routine below answers `config_return::Failure`, with the size 0.
using ConfigReturn = std::uint32_t;

namespace config_return {
inline constexpr ConfigReturn Success = 0;      // CR_SUCCESS
inline constexpr ConfigReturn NoSuchNode = 13;  // CR_NO_SUCH_DEVNODE
inline constexpr ConfigReturn Failure = 19;     // CR_FAILURE
inline constexpr ConfigReturn BufferSmall = 26; // CR_BUFFER_SMALL
inline constexpr ConfigReturn NoSuchValue = 37; // CR_NO_SUCH_VALUE
} // namespace config_return

enum class DeviceNode : std::uint32_t { None = 0 };

inline constexpr std::uint32_t FilterPresent = 0x100; // CM_GETIDLIST_FILTER_PRESENT
inline constexpr std::uint32_t LocatePhantom = 1;     // CM_LOCATE_DEVNODE_PHANTOM
inline constexpr std::uint32_t DeviceDescription = 1; // CM_DRP_DEVICEDESC
inline constexpr std::uint32_t DeviceDriverKey = 10;  // CM_DRP_DRIVER

/// CM_Get_Device_ID_List_SizeW with no filter string. `length` is in characters with the list's last terminator.
ConfigReturn CM_Get_Device_ID_List_SizeW(std::uint32_t& length, std::uint32_t flags);

/// CM_Get_Device_ID_ListW with no filter string: zero-terminated strings, an empty one at the end.
ConfigReturn CM_Get_Device_ID_ListW(char16_t* list, std::uint32_t length, std::uint32_t flags);

ConfigReturn CM_Locate_DevNodeW(DeviceNode& node, const char16_t* deviceId, std::uint32_t flags);

/// CM_Get_DevNode_Registry_PropertyW without the type, flags 0. `size` is in bytes: the size of the buffer
/// going in, the size of the value coming back.
ConfigReturn CM_Get_DevNode_Registry_PropertyW(DeviceNode node, std::uint32_t property, std::byte* value,
                                               std::uint32_t& size);

} // namespace platform
