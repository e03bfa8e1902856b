// Files and directories of the simulated machine, as a profile describes them.
#pragma once

#include <string>
#include <vector>

namespace machine {

class ProfileReader;

struct FileProfile {
    std::u16string path;
    std::string text;
};

struct FilesProfile {
    std::vector<std::u16string> directories;
    std::vector<FileProfile> files;
    /// Files that another process has open for reading, and lets others read and write but not delete or
    /// replace.
    std::vector<std::u16string> heldOpen;
};

FilesProfile ReadFiles(ProfileReader reader);

} // namespace machine
