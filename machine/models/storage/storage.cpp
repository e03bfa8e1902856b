#include "machine/models/storage/storage.h"

#include "machine/models/storage/file_system.h"
#include "machine/models/storage/firmware_store.h"
#include "machine/models/storage/registry_hive.h"
#include "machine/models/storage/store.h"
#include "machine/profile/profile.h"

namespace machine {

Storage OpenStorage(const Profile& profile, const std::string& storePath) {
    Storage storage;
    storage.store = std::make_shared<Store>(storePath);
    const Store& store = *storage.store;
    try {
        store.BelongTo(profile.name);
    } catch (const StoreError& problem) {
        throw StoreError(storePath + ": " + problem.what(), problem.IsDamage());
    }
    storage.registry = std::make_shared<RegistryHive>(store, profile.registry);
    storage.firmwareVariables = std::make_shared<FirmwareStore>(store, profile.firmwareVariables);
    storage.files = std::make_shared<FileSystem>(storePath, store, profile.files);
    storage.store->CommitFirstState();
    return storage;
}

} // namespace machine
