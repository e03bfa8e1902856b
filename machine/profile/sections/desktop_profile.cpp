#include "machine/profile/sections/desktop_profile.h"

#include "machine/profile/profile_reader.h"

namespace machine {

void ReadProcess(ProfileReader& reader, ProcessProfile& process) {
    reader.Number("id", process.id, {1, 0xFFFFFFFF}, Presence::Required);
    reader.String("path", process.path);
    reader.Real("cpu_percent", process.cpuPercent, 0, 100);
    reader.Number("working_set", process.workingSet);
    reader.Flag("tells_memory", process.tellsMemory);
    reader.Choice("access", {"everything", "queries", "nothing"}, process.access);
}

void ReadWindow(ProfileReader& reader, WindowProfile& window) {
    reader.String("name", window.name, Presence::Required);
    reader.Number("process", window.process);
    reader.String("class", window.className);
    reader.String("title", window.title);
    reader.Flag("enabled", window.enabled);
    reader.Flag("visible", window.visible);
    reader.Flag("minimised", window.minimised);
    reader.Number("extended_style", window.extendedStyle);
    reader.Number("title_bar_state", window.titleBarState);
    reader.String("owner", window.owner);
    reader.String("last_active_popup", window.lastActivePopup);
    reader.Objects("children", window.children, ReadWindow);
}

} // namespace machine
