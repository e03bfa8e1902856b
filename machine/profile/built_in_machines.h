// The profiles of machines/, compiled in so that everything runs without a file.
#pragma once

#include <span>
#include <string_view>

namespace machine {

struct BuiltInMachine {
    std::string_view name;
    std::string_view text;
};

/// The default machine comes first.
std::span<const BuiltInMachine> BuiltInMachineTexts();

} // namespace machine
