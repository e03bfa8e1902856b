#include "radio/bluetooth_snapshot.h"

#include "platform/bluetooth.h"
#include "vesk_sondrel.h"

#include <utility>
#include <vector>

namespace sondrel {

BluetoothRecord BluetoothSnapshot;

namespace {

platform::Lock BluetoothGuard;

/// By major device class, from 0. Class 31 has its own string; all classes above 9 but this are "Others;".
constexpr const char* ClassTexts[] = {"Others;",      "Computer;",   "Phone;",   "LAN/NetWortk Access point;",
                                      "Audio/Video;", "Peripheral;", "Imaging;", "Wearable;",
                                      "Toy;",         "Health;"};

const char* ClassText(std::uint32_t classOfDevice) {
    constexpr std::uint32_t Uncategorized = 31;
    const std::uint32_t majorClass = classOfDevice >> 8 & 31;
    if (majorClass == Uncategorized) {
        return "Uncategorized;";
    }
    return ClassTexts[majorClass < std::size(ClassTexts) ? majorClass : 0];
}

/// The handles of one read. Closed at its end in reverse order: the radios, the search for radios, the searches
/// for devices.
struct Opened {
    std::vector<platform::OwnedBluetoothDeviceFind> deviceSearches;
    platform::OwnedBluetoothRadioFind radioSearch;
    std::vector<platform::OwnedBluetoothRadio> radios;
};

/// Summary of the devices found so far.
struct Devices {
    std::int32_t count = RadioNotRead;
    std::string types = RadioNotReadText;
};

/// Whether the search that just failed reached the end of its list. Called directly after the search, because a
/// debug line may change the last error.
bool AtEndOfList() {
    return platform::GetLastError() == platform::error::NoMoreItems;
}

/// Walks the devices of one search. False if the search fails before its end.
bool CountDevices(platform::BluetoothDeviceFind search, platform::BluetoothDevice device, Devices& devices) {
    devices = {0, ""};
    do {
        ++devices.count;
        devices.types += ClassText(device.classOfDevice);
    } while (platform::BluetoothFindNextDevice(search, device));
    const bool ended = AtEndOfList();
    TraceLine("BluetoothFindNextDevice error");
    return ended;
}

bool SearchRadio(platform::Handle radio, Opened& opened, Devices& devices, BluetoothRecord& snapshot) {
    const auto status = platform::BluetoothGetRadioInfo(radio);
    TraceLine("BluetoothGetRadioInfo start");
    if (status != platform::error::Success) {
        return false;
    }
    platform::BluetoothDevice device;
    platform::OwnedBluetoothDeviceFind search(
        platform::BluetoothFindFirstDevice({.returnConnected = true, .radio = radio}, device));
    if (!search && !AtEndOfList()) {
        return false;
    }
    snapshot.isUsed = search ? 1 : 0;
    if (!search) {
        return true;
    }
    const auto handle = search.Get();
    opened.deviceSearches.push_back(std::move(search));
    return CountDevices(handle, device, devices);
}

/// False if the read failed. A machine without a radio is no failure.
bool SearchRadios(Opened& opened, Devices& devices, BluetoothRecord& snapshot) {
    auto radio = platform::Handle::Null;
    opened.radioSearch.Reset(platform::BluetoothFindFirstRadio(radio));
    const bool noRadio = !opened.radioSearch && AtEndOfList();
    TraceLine("BluetoothFindFirstRadio start");
    if (!opened.radioSearch) {
        TraceLine("BluetoothFindFirstRadio error");
        return noRadio;
    }
    do {
        platform::OwnedBluetoothRadio owned(radio); // owned before the list may grow
        opened.radios.push_back(std::move(owned));
        if (!SearchRadio(radio, opened, devices, snapshot)) {
            return false;
        }
    } while (platform::BluetoothFindNextRadio(opened.radioSearch.Get(), radio));
    return true;
}

template <class Field>
Field BluetoothField(Field BluetoothRecord::*field, const char* exportName) {
    return SnapshotAnswer(BluetoothGuard, BluetoothSnapshot, RF_ReadBT_Info, field, exportName);
}

} // namespace

void RF_ReadBT_Info(BluetoothRecord& snapshot) {
    TraceLine("RF_ReadBT_Info start");
    Opened opened;
    Devices devices;
    if (!SearchRadios(opened, devices, snapshot)) {
        snapshot = {RadioReadFailed, RadioReadFailed, RadioReadFailedText, 0};
        return;
    }
    snapshot.connectedNum = devices.count;
    snapshot.connectedType = devices.types;
    TraceLine("RF_ReadBT_Info End");
    snapshot.valid = 1;
}

} // namespace sondrel

using namespace sondrel;

int32_t RF_BTIsUsed(void) {
    return BluetoothField(&BluetoothRecord::isUsed, "RF_BTIsUsed");
}

int32_t RF_BTConnectedNum(void) {
    return BluetoothField(&BluetoothRecord::connectedNum, "RF_BTConnectedNum");
}

std::string RF_BTConnectedType() {
    return BluetoothField(&BluetoothRecord::connectedType, "RF_BTConnectedType");
}
