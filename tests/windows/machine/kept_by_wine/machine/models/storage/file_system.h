// In place of the machine's drives, which are Wine's own here.
#pragma once

#include "machine/profile/files_profile.h"

#include <string>

namespace machine {

class FileSystem {
public:
    FileSystem(const std::string&, bool, const FilesProfile&) {}
};

} // namespace machine
