#include "exports/description.h"

#include <algorithm>

namespace exports {

const Export* FindExport(std::string_view name) {
    const auto all = AllExports();
    const auto found = std::ranges::find(all, name, &Export::name);
    return found != all.end() ? &*found : nullptr;
}

} // namespace exports
