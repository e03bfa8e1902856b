#include "platform/device_nodes.h"

#include "machine/machine.h"
#include "machine/text/folding.h"
#include "platform/back_end.h"

#include <algorithm>
#include <cstring>

namespace VESK_BACK_END {
namespace {

using machine::DeviceNodeProfile;
using machine::Machine;

std::u16string IdList(const Machine& machine, std::uint32_t flags) {
    std::u16string list;
    for (const DeviceNodeProfile& device : machine.profile.deviceNodes) {
        if (device.present || (flags & FilterPresent) == 0) {
            list += device.id;
            list += u'\0';
        }
    }
    list += u'\0';
    return list;
}

/// A device's number is its place in the profile, from 1. A caller that walks the list looks its devices up in their
/// order, so the search begins after the device that was found last.
DeviceNode NodeOf(const Machine& machine, std::u16string_view deviceId, std::uint32_t flags) {
    static std::size_t Next = 0;
    const std::u16string folded = machine::Folded(deviceId);
    const auto& devices = machine.profile.deviceNodes;
    for (std::size_t step = 0; step < devices.size(); ++step) {
        const std::size_t place = (Next + step) % devices.size();
        const DeviceNodeProfile& device = devices[place];
        if ((device.present || (flags & LocatePhantom) != 0) && machine::Folded(device.id) == folded) {
            Next = place + 1;
            return DeviceNode{static_cast<std::uint32_t>(place + 1)};
        }
    }
    return DeviceNode::None;
}

const std::optional<std::u16string>* PropertyOf(const Machine& machine, DeviceNode node,
                                                std::uint32_t property) {
    const auto& devices = machine.profile.deviceNodes;
    const auto number = static_cast<std::size_t>(node);
    if (number == 0 || number > devices.size()) {
        return nullptr;
    }
    return property == DeviceDescription ? &devices[number - 1].description
           : property == DeviceDriverKey ? &devices[number - 1].driverKey
                                         : nullptr;
}

} // namespace

ConfigReturn CM_Get_Device_ID_List_SizeW(std::uint32_t& length, std::uint32_t flags) {
    length = static_cast<std::uint32_t>(IdList(*machine::Current(), flags).size());
    return config_return::Success;
}

ConfigReturn CM_Get_Device_ID_ListW(char16_t* list, std::uint32_t length, std::uint32_t flags) {
    const std::u16string ids = IdList(*machine::Current(), flags);
    if (ids.size() > length) {
        return config_return::BufferSmall;
    }
    std::ranges::copy(ids, list);
    return config_return::Success;
}

ConfigReturn CM_Locate_DevNodeW(DeviceNode& node, const char16_t* deviceId, std::uint32_t flags) {
    node = NodeOf(*machine::Current(), deviceId, flags);
    return node == DeviceNode::None ? config_return::NoSuchNode : config_return::Success;
}

ConfigReturn CM_Get_DevNode_Registry_PropertyW(DeviceNode node, std::uint32_t property, std::byte* value,
                                               std::uint32_t& size) {
    const auto machine = machine::Current();
    const auto* const text = PropertyOf(*machine, node, property);
    if (text == nullptr || !*text) {
        return text == nullptr ? config_return::Failure : config_return::NoSuchValue;
    }
    const std::uint32_t bufferSize = size;
    size = static_cast<std::uint32_t>(((*text)->size() + 1) * sizeof(char16_t));
    if (bufferSize < size) {
        return config_return::BufferSmall;
    }
    std::memcpy(value, (*text)->c_str(), size);
    return config_return::Success;
}

} // namespace VESK_BACK_END
