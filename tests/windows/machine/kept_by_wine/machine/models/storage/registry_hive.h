// In place of the machine's registry, which is Wine's own here.
#pragma once

#include "machine/models/storage/store.h"
#include "machine/profile/profile.h"

namespace machine {

class RegistryHive {
public:
    RegistryHive(const Store&, const RegistryProfile&) {}
};

struct OpenKey {};

} // namespace machine
