// Uninstall keys of a profile, in the field's terms; the registry gets them as its keys and values.
#pragma once

namespace machine {

class ProfileReader;
struct RegistryProfile;

/// Adds {"machine": [...], "machine_32": [...], "user": [...], "user_32": [...]} to a registry. Each application
/// has a "key" and may have a "name", a "version" and a "system_component".
void ReadApplications(ProfileReader reader, RegistryProfile& registry);

} // namespace machine
