#include "com_unused_methods.h"
#include "shims.h"

#include "machine/machine.h"
#include "machine/models/com_objects.h"

#include <bit>

namespace comparison {
namespace {

/// WMI and sound are the machine's, in apartments of either kind. Everything else is made by COM, and so is what is
/// asked for in a way that the machine does not know.
HRESULT WINAPI CreateObject(REFCLSID classId, LPUNKNOWN outer, DWORD context, REFIID id, LPVOID* object) {
    const auto machine = machine::Current();
    const machine::ComClass* const row = machine::FindComClass(std::bit_cast<platform::Guid>(classId));
    APTTYPE apartment{};
    APTTYPEQUALIFIER qualifier{};
    const bool known = row != nullptr && row->interfaceId == std::bit_cast<platform::Guid>(id) &&
                       outer == nullptr && (context & CLSCTX_INPROC_SERVER) != 0 &&
                       SUCCEEDED(::CoGetApartmentType(&apartment, &qualifier));
    if (known && id == __uuidof(IWbemLocator)) {
        *object = NewWmiLocator(row->create(machine->handles));
        return S_OK;
    }
    if (known && id == __uuidof(IMMDeviceEnumerator)) {
        *object = NewSoundEnumerator(row->create(machine->handles));
        return S_OK;
    }
    return ::CoCreateInstance(classId, outer, context, id, object);
}

} // namespace

void PutUpCom(test::ImportPatch& patch) {
    patch.Replace("CoCreateInstance", &CreateObject);
}

void PutUpAll(test::ImportPatch& patch) {
    PutUpRadios(patch);
    PutUpDesktop(patch);
    PutUpPackages(patch);
    PutUpFirmware(patch);
    PutUpSystem(patch);
    PutUpCom(patch);
}

} // namespace comparison
