#include "platform/device_nodes.h"

#include "machine/machine.h"
#include "machine/profile/profile.h"
#include "machine/text/wide_text.h"
#include "observer/gate.h"
#include "platform/back_end.h"

#include <algorithm>
#include <cstring>

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;

namespace {

std::u16string IdList(std::uint32_t flags) {
    std::u16string list;
    for (const machine::DeviceNodeProfile& device : Current().profile.deviceNodes) {
        if (device.present || (flags & FilterPresent) == 0) {
            list += device.id;
            list += u'\0';
        }
    }
    list += u'\0';
    return list;
}

/// A device's number is its place in the profile, from 1. Whoever walks the list looks its devices up in their order,
/// so the search begins behind the device that was found last.
DeviceNode NodeOf(std::u16string_view deviceId, std::uint32_t flags) {
    static std::size_t Behind = 0;
    const std::u16string folded = machine::Folded(deviceId);
    const auto& devices = Current().profile.deviceNodes;
    for (std::size_t step = 0; step < devices.size(); ++step) {
        const std::size_t place = (Behind + step) % devices.size();
        const machine::DeviceNodeProfile& device = devices[place];
        if ((device.present || (flags & LocatePhantom) != 0) && machine::Folded(device.id) == folded) {
            Behind = place + 1;
            return DeviceNode{static_cast<std::uint32_t>(place + 1)};
        }
    }
    return DeviceNode::None;
}

const std::optional<std::u16string>* PropertyOf(DeviceNode node, std::uint32_t property) {
    const auto& devices = Current().profile.deviceNodes;
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
    Call call(Operation::CM_Get_Device_ID_List_SizeW);
    if (call.Refused()) {
        return call.Answered(call.RefusalCode());
    }
    length = call.Emptied() ? 0 : static_cast<std::uint32_t>(IdList(flags).size());
    return call.Answered(config_return::Success);
}

ConfigReturn CM_Get_Device_ID_ListW(char16_t* list, std::uint32_t length, std::uint32_t flags) {
    Call call(Operation::CM_Get_Device_ID_ListW);
    if (call.Refused()) {
        return call.Answered(call.RefusalCode());
    }
    const std::u16string ids = IdList(flags);
    if (ids.size() > length) {
        return call.Answered(config_return::BufferSmall);
    }
    std::ranges::copy(ids, list);
    return call.Answered(config_return::Success);
}

ConfigReturn CM_Locate_DevNodeW(DeviceNode& node, const char16_t* deviceId, std::uint32_t flags) {
    Call call(Operation::CM_Locate_DevNodeW);
    call.Note([&] { return machine::Utf8FromWide(deviceId); });
    if (call.Refused()) {
        return call.Answered(call.RefusalCode());
    }
    node = NodeOf(deviceId, flags);
    return call.Answered(node == DeviceNode::None ? config_return::NoSuchNode : config_return::Success);
}

ConfigReturn CM_Get_DevNode_Registry_PropertyW(DeviceNode node, std::uint32_t property, std::byte* value,
                                               std::uint32_t& size) {
    Call call(Operation::CM_Get_DevNode_Registry_PropertyW);
    call.Note([&] { return std::to_string(property); });
    if (call.Refused()) {
        return call.Answered(call.RefusalCode());
    }
    const auto* text = PropertyOf(node, property);
    if (text == nullptr || !*text) {
        return call.Answered(text == nullptr ? config_return::Failure : config_return::NoSuchValue);
    }
    const std::uint32_t room = size;
    size = static_cast<std::uint32_t>(((*text)->size() + 1) * sizeof(char16_t));
    if (room < size) {
        return call.Answered(config_return::BufferSmall);
    }
    std::memcpy(value, (*text)->c_str(), size);
    return call.Answered(config_return::Success);
}

} // namespace VESK_BACK_END
