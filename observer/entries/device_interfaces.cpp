#include "platform/device_interfaces.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

DeviceInfoSet SetupDiGetClassDevsW(const Guid& interfaceClass, std::uint32_t flags) {
    return ObserveOpening<Operation::SetupDiGetClassDevsW>(OpensResult{HandleKind::DeviceInfoSet, {}},
                                                           back_end::SetupDiGetClassDevsW,
                                                           In("class", interfaceClass), Hex("flags", flags));
}

bool SetupDiEnumDeviceInterfaces(DeviceInfoSet set, const Guid& interfaceClass, std::uint32_t index,
                                 DeviceInterfaceData& data) {
    return Observe<Operation::SetupDiEnumDeviceInterfaces>(back_end::SetupDiEnumDeviceInterfaces,
                                                           In("set", set), In("class", interfaceClass),
                                                           In("index", index), Out("data", data));
}

bool SetupDiGetDeviceInterfaceDetailW(DeviceInfoSet set, const DeviceInterfaceData& data,
                                      std::span<std::byte> detail, std::uint32_t& requiredSize) {
    return Observe<Operation::SetupDiGetDeviceInterfaceDetailW>(
        back_end::SetupDiGetDeviceInterfaceDetailW, In("set", set), In("data", data),
        OutBytes("detail", detail, requiredSize), InOut("required", requiredSize));
}

void SetupDiDestroyDeviceInfoList(DeviceInfoSet set) {
    Observe<Operation::SetupDiDestroyDeviceInfoList>(back_end::SetupDiDestroyDeviceInfoList,
                                                     Closes("set", set));
}

} // namespace platform
