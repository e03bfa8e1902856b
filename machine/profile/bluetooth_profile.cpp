#include "machine/profile/bluetooth_profile.h"

#include "machine/profile/profile_reader.h"

namespace machine {
namespace {

BluetoothPeer ReadPeer(ProfileReader& reader) {
    BluetoothPeer peer;
    peer.name = reader.Text("name", "");
    peer.classOfDevice = static_cast<std::uint32_t>(reader.Number("class", 0, 0xFFFFFF));
    peer.connected = reader.Flag("connected", true);
    reader.Finish();
    return peer;
}

} // namespace

BluetoothProfile ReadBluetooth(ProfileReader reader) {
    BluetoothProfile bluetooth;
    bluetooth.supported = reader.Flag("supported", true);
    for (auto& each : reader.Objects("radios")) {
        BluetoothRadio radio;
        radio.name = each.Text("name", "");
        for (auto& device : each.Objects("devices")) {
            radio.devices.push_back(ReadPeer(device));
        }
        each.Finish();
        bluetooth.radios.push_back(std::move(radio));
    }
    reader.Finish();
    return bluetooth;
}

} // namespace machine
