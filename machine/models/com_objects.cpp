#include "machine/models/com_objects.h"

#include "platform/audio.h"
#include "platform/wmi.h"
#include "platform/xml_document.h"

#include <algorithm>

namespace machine {
namespace {

template <class Object>
platform::Unknown Create(HandleTable& handles) {
    return handles.Open<platform::Unknown>(Object{});
}

constexpr ComClass Classes[] = {
    {platform::ClsidWbemLocator, platform::IidWbemLocator, Create<WbemLocatorObject>},
    {platform::ClsidDeviceEnumerator, platform::IidDeviceEnumerator, Create<DeviceEnumeratorObject>},
    {platform::ClsidDomDocument60, platform::IidXmlDomDocument, Create<XmlDocumentObject>},
};

} // namespace

ThreadApartment& CurrentApartment() {
    thread_local ThreadApartment Apartment;
    return Apartment;
}

const ComClass* FindComClass(const platform::Guid& classId) {
    const auto* const found = std::ranges::find(Classes, classId, &ComClass::classId);
    return found == std::end(Classes) ? nullptr : found;
}

} // namespace machine
