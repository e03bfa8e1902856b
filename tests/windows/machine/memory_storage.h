// What a simulated machine stores when it runs under Wine: its firmware variables, for as long as the process lives.
// Registry and drives are Wine's own.
#pragma once

#include "machine/models/storage/storage.h"
#include "machine/profile/profile.h"

namespace machine {

Storage MemoryStorage(const Profile& profile);

} // namespace machine
