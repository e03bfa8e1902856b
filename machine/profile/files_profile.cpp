#include "machine/profile/files_profile.h"

#include "machine/profile/profile_reader.h"
#include "machine/text/wide_text.h"

namespace machine {
namespace {

std::u16string DrivePath(ProfileReader& reader, std::string_view name, const std::string& path) {
    if (path.size() < 3 || path.compare(1, 2, ":\\") != 0) {
        reader.Fail(name, "a path that begins with a drive, as in \"C:\\...\"");
    }
    return WideFromUtf8(path);
}

} // namespace

FilesProfile ReadFiles(ProfileReader reader) {
    FilesProfile profile;
    for (const std::string& path : reader.Texts("directories")) {
        profile.directories.push_back(DrivePath(reader, "directories", path));
    }
    for (auto& file : reader.Objects("files")) {
        profile.files.push_back({DrivePath(file, "path", file.Text("path")), file.Text("text")});
        file.Finish();
    }
    for (const std::string& path : reader.Texts("held_open")) {
        profile.heldOpen.push_back(DrivePath(reader, "held_open", path));
    }
    reader.Finish();
    return profile;
}

} // namespace machine
