// What a machine stores, put into Wine's own registry and onto its own drives.
#pragma once

#include "saved_registry_key.h"

#include "machine/profile/profile.h"

#include <filesystem>
#include <list>
#include <string>
#include <vector>

namespace comparison {

/// The machine's keys, values, directories and files, in place of what was there; all is as it was when
/// destroyed. Throws std::runtime_error for what Wine cannot store.
class WineState {
public:
    explicit WineState(const machine::Profile& profile);
    ~WineState();
    WineState(const WineState&) = delete;
    WineState& operator=(const WineState&) = delete;

    /// Undoes what the library has stored since: below its registry key, and in the profile's directories.
    void Undo(const machine::Profile& profile);

private:
    void AddKey(const std::u16string& path);
    void AddDirectory(const std::filesystem::path& path);
    void AddFile(const std::filesystem::path& path, const std::string& text);

    std::list<test::SavedRegistryKey> m_keys;
    std::vector<std::wstring> m_replacedKeys; // keys with the hive's short name in front
    std::vector<std::filesystem::path> m_made;
};

} // namespace comparison
