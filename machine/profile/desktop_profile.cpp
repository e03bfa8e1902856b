#include "machine/profile/desktop_profile.h"

#include "machine/profile/profile_reader.h"
#include "machine/text/wide_text.h"

namespace machine {

std::vector<ProcessProfile> ReadProcesses(std::vector<ProfileReader> readers) {
    std::vector<ProcessProfile> processes;
    for (ProfileReader& reader : readers) {
        ProcessProfile process;
        process.id = static_cast<std::uint32_t>(reader.Number("id", 1, 0xFFFFFFFF));
        process.path = WideFromUtf8(reader.Text("path", ""));
        process.cpuPercent = reader.Real("cpu_percent", 0, 100, 0);
        process.workingSet = reader.Number<std::uint64_t>("working_set", 0);
        process.tellsMemory = reader.Flag("tells_memory", true);
        process.access =
            static_cast<ProcessAccess>(reader.Choice("access", {"everything", "queries", "nothing"}, 0));
        reader.Finish();
        processes.push_back(std::move(process));
    }
    return processes;
}

std::vector<WindowProfile> ReadWindows(std::vector<ProfileReader> readers) {
    std::vector<WindowProfile> windows;
    for (ProfileReader& reader : readers) {
        WindowProfile window;
        window.name = reader.Text("name");
        window.process = reader.Number<std::uint32_t>("process", 0);
        window.className = WideFromUtf8(reader.Text("class", ""));
        window.title = WideFromUtf8(reader.Text("title", ""));
        window.enabled = reader.Flag("enabled", true);
        window.visible = reader.Flag("visible", true);
        window.minimised = reader.Flag("minimised", false);
        window.extendedStyle = reader.Number<std::uint32_t>("extended_style", 0);
        window.titleBarState = reader.Number<std::uint32_t>("title_bar_state", 0);
        window.owner = reader.Text("owner", "");
        window.lastActivePopup = reader.Text("last_active_popup", "");
        window.children = ReadWindows(reader.Objects("children"));
        reader.Finish();
        windows.push_back(std::move(window));
    }
    return windows;
}

} // namespace machine
