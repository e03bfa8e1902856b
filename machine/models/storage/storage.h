// What a machine stores on disk: in one SQLite file, and a directory next to it.
#pragma once

#include "machine/models/storage/firmware_variable_store.h"

#include <memory>
#include <string>

namespace machine {

class FileSystem;
class RegistryHive;
class Store;
struct Profile;

/// A host that has a registry and drives leaves all but the variables out, and the services for them too.
struct Storage {
    std::shared_ptr<FirmwareVariableStore> firmwareVariables;
    std::shared_ptr<Store> store;
    std::shared_ptr<RegistryHive> registry;
    std::shared_ptr<FileSystem> files;
};

/// Creates the machine's first state if there is none. ":memory:" persists nothing. Throws StoreError.
Storage OpenStorage(const Profile& profile, const std::string& storePath);

} // namespace machine
