#include "machine/models/com/com_objects.h"

#include <algorithm>

namespace machine {

const ComClass* ComObjects::FindClass(const platform::Guid& classId) const {
    const auto found =
        std::ranges::find_if(m_classes, [&](const ComClass& row) { return row.classId == classId; });
    return found == m_classes.end() ? nullptr : &*found;
}

} // namespace machine
