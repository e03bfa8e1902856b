// The firmware's variables, as a profile describes them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace machine {

class ProfileReader;

struct FirmwareVariable {
    std::u16string guid; // with braces, in lower case
    std::u16string name;
    std::vector<std::byte> data;
    bool readOnly = false;
};

struct FirmwareVariablesProfile {
    bool privilegeHeld = true; // whether the process may use firmware variables once it asks
    std::vector<FirmwareVariable> variables;
};

FirmwareVariablesProfile ReadFirmwareVariables(ProfileReader reader);

} // namespace machine
