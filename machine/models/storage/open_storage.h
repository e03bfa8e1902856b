// A machine's storage in one SQLite file, and a directory beside it.
#pragma once

#include "machine/models/storage/storage.h"
#include "machine/profile/profile.h"

#include <string>

namespace machine {

/// ":memory:" keeps nothing. Throws StoreError.
Storage OpenStorage(const Profile& profile, const std::string& storePath);

} // namespace machine
