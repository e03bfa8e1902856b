// COM of the simulated machine: apartments, the classes that can be created, and the objects that these create. Objects
// are open handles; those of WMI are in wmi_repository.h.
#pragma once

#include "machine/models/handle_table.h"
#include "platform/com.h"

#include <cstdint>
#include <optional>
#include <string>

namespace machine {

/// The calling thread's apartment: of one kind, entered as often as it is left.
struct ThreadApartment {
    std::uint32_t kind = 0;
    unsigned entered = 0;
};

ThreadApartment& CurrentApartment();

// What these report is the profile's.
struct WbemLocatorObject {};
struct DeviceEnumeratorObject {};
struct AudioDeviceObject {};
struct EndpointVolumeObject {};

struct XmlDocumentObject {
    bool async = true;
    std::optional<std::u16string> xml; // of the document that is loaded
};

/// A class that CoCreateInstance can create, with its one interface.
struct ComClass {
    platform::Guid classId;
    platform::Guid interfaceId;
    platform::Unknown (*create)(HandleTable& handles);
};

/// Null for a class that is not registered.
const ComClass* FindComClass(const platform::Guid& classId);

} // namespace machine
