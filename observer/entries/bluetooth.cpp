#include "platform/bluetooth.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

BluetoothRadioFind BluetoothFindFirstRadio(Handle& radio) {
    return ObserveOpening<Operation::BluetoothFindFirstRadio>(
        OpensResult{HandleKind::RadioSearch, {}}, back_end::BluetoothFindFirstRadio,
        Opens("radio", radio, HandleKind::BluetoothRadio));
}

bool BluetoothFindNextRadio(BluetoothRadioFind search, Handle& radio) {
    return Observe<Operation::BluetoothFindNextRadio>(back_end::BluetoothFindNextRadio, In("search", search),
                                                      Opens("radio", radio, HandleKind::BluetoothRadio));
}

void BluetoothFindRadioClose(BluetoothRadioFind search) {
    Observe<Operation::BluetoothFindRadioClose>(back_end::BluetoothFindRadioClose, Closes("search", search));
}

SystemError BluetoothGetRadioInfo(Handle radio) {
    return Observe<Operation::BluetoothGetRadioInfo>(back_end::BluetoothGetRadioInfo, In("radio", radio));
}

BluetoothDeviceFind BluetoothFindFirstDevice(const BluetoothDeviceSearch& parameters,
                                             BluetoothDevice& device) {
    return ObserveOpening<Operation::BluetoothFindFirstDevice>(
        OpensResult{HandleKind::DeviceSearch, {}}, back_end::BluetoothFindFirstDevice,
        In("parameters", parameters), Out("class", device));
}

bool BluetoothFindNextDevice(BluetoothDeviceFind search, BluetoothDevice& device) {
    return Observe<Operation::BluetoothFindNextDevice>(back_end::BluetoothFindNextDevice,
                                                       In("search", search), Out("class", device));
}

void BluetoothFindDeviceClose(BluetoothDeviceFind search) {
    Observe<Operation::BluetoothFindDeviceClose>(back_end::BluetoothFindDeviceClose,
                                                 Closes("search", search));
}

} // namespace platform
