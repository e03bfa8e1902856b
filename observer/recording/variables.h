// The variables of the environment that an observed library reads. The usual library reads none.
#pragma once

namespace observer::variable {

/// The prefix of every name.
inline constexpr const char* Prefix = "VESK_";

/// The file to be written.
inline constexpr const char* Record = "VESK_RECORD";
/// The recording to answer from, instead of the operating system.
inline constexpr const char* Machine = "VESK_MACHINE";

inline constexpr const char* All[] = {Record, Machine};

} // namespace observer::variable
