// A machine's storage in one SQLite file, and a directory next to it.
#pragma once

#include "machine/models/storage/storage.h"
#include "machine/profile/profile.h"

#include <string>

namespace machine {

/// Creates the machine's first state if there is none. ":memory:" persists nothing. Throws StoreError.
Storage OpenStorage(const Profile& profile, const std::string& storePath);

} // namespace machine
