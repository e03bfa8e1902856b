#include "machine/models/storage/machine_path.h"

#include "machine/text/folding.h"
#include "unicode/utf.h"

#include <algorithm>

namespace machine {

bool HasDrive(std::u16string_view path) {
    return path.size() >= 2 && path[1] == u':' &&
           ((path[0] >= u'A' && path[0] <= u'Z') || (path[0] >= u'a' && path[0] <= u'z'));
}

std::vector<std::string> NamesOf(std::string_view path) {
    std::vector<std::string> names;
    while (!path.empty()) {
        const std::string_view name = path.substr(0, path.find_first_of("\\/"));
        path.remove_prefix(std::min(name.size() + 1, path.size()));
        if (!name.empty() && name != ".") {
            names.emplace_back(name);
        }
    }
    return names;
}

std::vector<std::string> NamesBelowRoot(std::u16string_view path) {
    const std::string folded = unicode::Utf8FromWide(Folded(path));
    std::vector<std::string> names{folded.substr(0, 1)};
    for (std::string& name : NamesOf(std::string_view(folded).substr(2))) {
        if (name != "..") {
            names.push_back(std::move(name));
        } else if (names.size() > 1) {
            names.pop_back();
        }
    }
    return names;
}

bool IsWithin(const std::vector<std::string>& path, const std::vector<std::string>& directory) {
    return path.size() >= directory.size() && std::equal(directory.begin(), directory.end(), path.begin()) &&
           std::find(path.begin() + static_cast<std::ptrdiff_t>(directory.size()), path.end(), "..") ==
               path.end();
}

} // namespace machine
