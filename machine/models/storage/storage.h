// What a machine stores on disk.
#pragma once

#include "machine/models/storage/firmware_variable_store.h"

#include <memory>

namespace machine {

class FileSystem;
class RegistryHive;
class Store;

/// A host that has a registry and drives leaves all but the variables out, and the services for them too.
struct Storage {
    std::shared_ptr<FirmwareVariableStore> firmwareVariables;
    std::shared_ptr<Store> store;
    std::shared_ptr<RegistryHive> registry;
    std::shared_ptr<FileSystem> files;
};

} // namespace machine
