// Another process with the library.
#pragma once

#include <cstdint>
#include <string>

namespace test {

inline constexpr const char* CallOption = "--call";

/// Calls an export that takes nothing and gives a number, in a process of its own with the DLL freshly loaded.
/// Throws std::runtime_error when the process does not start or does not end.
std::uint32_t CallInNewProcess(const std::string& name);

} // namespace test
