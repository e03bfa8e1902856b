// The JSON document that a profile is written in, and the file or built-in machine that it comes from.
#pragma once

#include "machine/profile/profile_reader.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace machine {

/// Whether objects and lists lie within each other deeper than in any profile or document of the library. Functions
/// that call themselves for each level are safe from a document that does not.
bool NestsTooDeep(std::string_view text);

/// The document in `text`, or nothing when it is none. The reason, and every name that an object has twice, is added
/// to `issues`.
std::optional<nlohmann::json> ReadDocument(std::string_view text, ProfileIssues& issues);

/// The text of a profile: a regular file of at most `LargestProfile` bytes. Throws std::runtime_error with the
/// reason.
std::string ReadProfileFile(const std::string& utf8Path);

inline constexpr std::size_t LargestProfile = std::size_t{8} << 20;

} // namespace machine
