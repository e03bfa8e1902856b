// The variables of the environment that an observed library reads. The usual library reads none.
#pragma once

namespace observer::variable {

/// The prefix of every name.
inline constexpr const char* Prefix = "VESK_";

/// The file to be written.
inline constexpr const char* Record = "VESK_RECORD";
/// The recording to answer from, instead of the operating system; natively also a simulated machine.
inline constexpr const char* Machine = "VESK_MACHINE";
/// Natively: the file of the simulated machine's registry, files and firmware variables.
inline constexpr const char* Store = "VESK_STORE";

inline constexpr const char* All[] = {Record, Machine, Store};

} // namespace observer::variable
