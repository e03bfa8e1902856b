// Processes and windows of a profile.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace machine {

class ProfileReader;

/// The rights that a process grants to others.
enum class ProcessAccess : std::uint8_t { Everything, Queries, Nothing };

struct ProcessProfile {
    std::uint32_t id = 0;
    std::u16string path;   // empty: it does not report it
    double cpuPercent = 0; // of all processors
    std::uint64_t workingSet = 0;
    bool reportsMemory = true;
    ProcessAccess access = ProcessAccess::Everything;
};

struct WindowProfile {
    std::string name; // by which others of the profile refer to it
    std::uint32_t process = 0;
    std::u16string className;
    std::u16string title;
    bool enabled = true;
    bool visible = true;
    bool minimised = false;
    std::uint32_t extendedStyle = 0;
    std::uint32_t titleBarState = 0;
    std::string owner;           // empty: none
    std::string lastActivePopup; // empty: the window itself
    std::vector<WindowProfile> children;
};

void ReadProcess(ProfileReader& reader, ProcessProfile& process);
void ReadWindow(ProfileReader& reader, WindowProfile& window);

} // namespace machine
