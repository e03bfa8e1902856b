#include "firmware/app_path.h"

#include "frame/diagnostics.h"
#include "frame/host_buffer.h"
#include "frame/memory_guard.h"
#include "frame/registry_store.h"
#include "frame/text.h"
#include "platform/files.h"
#include "vesk_sondrel.h"
#include "wmi/wmi_readers.h"

namespace sondrel {
namespace {

/// The user as WMI reports it. Without one the name is empty and selects the unnamed value of the key.
std::u16string UserName(std::uint8_t initCom) {
    return ReadWMIPropStr(u"ROOT\\CIMV2", u"select * from win32_ComputerSystem", u"UserName", initCom);
}

bool StoreAppPath(const VeskChar16* path, std::uint8_t initCom) {
    const std::u16string user = UserName(initCom);
    const std::u16string text = TextFromHost(path);
    const bool written = WriteRegString(platform::Key::LocalMachine, ProductKey, user, text);
    TraceLine([&] {
        return "[WMISetAppPath] WriteRegString " + WideToUtf8Bounded(text) + " to " +
               WideToUtf8Bounded(user) + (written ? " Success" : " Fail");
    });
    return written;
}

} // namespace

std::u16string WMIGetAppPath(std::uint8_t initCom) {
    std::u16string path = ReadRegString(platform::Key::LocalMachine, ProductKey, UserName(initCom));
    if (!IsRegistrySentinel(path)) {
        TraceLine([&] { return "[WMIGetAppPath] App path is " + WideToUtf8Bounded(path); });
    }
    return path;
}

bool DirectoryExists(const std::u16string& path) {
    const std::uint32_t attributes = platform::GetFileAttributesW(path.c_str());
    TraceLine([=] { return "[DirectoryExists] attribs = " + std::to_string(attributes); });
    return attributes != platform::file_attribute::Invalid &&
           (attributes & platform::file_attribute::Directory) != 0;
}

bool WMICheckAppExist(std::uint8_t initCom) {
    const bool exists = DirectoryExists(WMIGetAppPath(initCom));
    TraceLine(exists ? "[WMICheckAppExist] App exist!" : "[WMICheckAppExist] App not exist!");
    return exists;
}

} // namespace sondrel

using namespace sondrel;

int32_t WMISetAppPath(const VeskChar16* path, uint8_t initCom) {
    return OnOutOfMemory(false, [=] { return StoreAppPath(path, initCom); }) ? 1 : 0;
}
