// In place of the machine's registry, which is Wine's own here.
#pragma once

#include "platform/simulated/profile.h"
#include "platform/simulated/store.h"

namespace machine {

class RegistryHive {
public:
    RegistryHive(const Store&, const RegistryProfile&) {}
};

struct OpenKey {};

} // namespace machine
