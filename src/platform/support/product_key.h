// Names in the registry that the core writes and the observer looks at.
#pragma once

namespace platform {

/// The key under HKEY_LOCAL_MACHINE that holds the EC identity and the app paths.
inline constexpr const char16_t* ProductKey = u"SOFTWARE\\Vesk\\Vesk Kelvane\\VeskTessaly";

/// The first number of the EC identity: it is there where the identity is cached.
inline constexpr const char16_t* EcRevisionValue = u"EcFwRev";

} // namespace platform
