#include "machine/profile/sections/desktop_profile.h"

#include "machine/profile/profile_reader.h"

namespace machine {

void ReadProcess(ProfileReader& reader, ProcessProfile& process) {
    reader.Number("id", process.id, {1, 0xFFFFFFFF}, Presence::Required);
    reader.Members("path", process.path, "working_set", process.workingSet, "tells_memory",
                   process.reportsMemory);
    reader.Real("cpu_percent", process.cpuPercent, 0, 100);
    reader.Choice("access", {"everything", "queries", "nothing"}, process.access);
}

void ReadWindow(ProfileReader& reader, WindowProfile& window) {
    reader.String("name", window.name, Presence::Required);
    reader.Members("process", window.process, "class", window.className, "title", window.title);
    reader.Members("enabled", window.enabled, "visible", window.visible, "minimised", window.minimised);
    reader.Members("extended_style", window.extendedStyle, "title_bar_state", window.titleBarState);
    reader.Members("owner", window.owner, "last_active_popup", window.lastActivePopup);
    reader.Objects("children", window.children, ReadWindow);
}

} // namespace machine
