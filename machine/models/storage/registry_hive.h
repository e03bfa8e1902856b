// The registry of the simulated machine, in its store.
#pragma once

#include "machine/models/storage/store.h"
#include "machine/profile/profile.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace machine {

/// Keys are known by number; the two hives always exist. Names of keys and values compare without
/// regard to case; both are listed in the order of their folded names.
class RegistryHive {
public:
    static constexpr std::int64_t LocalMachine = 1;
    static constexpr std::int64_t CurrentUser = 2;

    /// Puts the profile's keys and values into a new store.
    RegistryHive(const Store& store, const RegistryProfile& profile);

    /// A key by its path below another, which may be empty for that key itself.
    std::optional<std::int64_t> Find(std::int64_t root, std::u16string_view path);
    /// The same, with everything made that is missing.
    std::int64_t Create(std::int64_t root, std::u16string_view path);

    /// Whether nothing may be written at this path.
    [[nodiscard]] bool IsReadOnly(std::u16string_view path) const;

    /// A key's path from its hive's short name on: "HKLM\SOFTWARE\...".
    std::u16string PathOf(std::int64_t key);

    struct Value {
        std::uint32_t type = 0;
        std::vector<std::byte> data;
    };

    std::optional<Value> Get(std::int64_t key, std::u16string_view name);
    /// Sets a value for a program. A path of the host's own disk that a program stores becomes one that the machine's
    /// file system follows.
    void Set(std::int64_t key, std::u16string_view name, std::uint32_t type, std::span<const std::byte> data);

    /// Removes a key with everything below it.
    void Remove(std::int64_t key);

    /// A key's subkeys at one moment. An enumeration by index caches one, so that its cost is proportional to the
    /// number of subkeys.
    struct Listing {
        std::vector<std::u16string> names;
        std::optional<std::uint64_t> state; // differs whenever the keys may differ; none: never read
    };

    /// Reads the listing again if this process or another has changed keys since: an enumeration by index sees what
    /// comes and goes meanwhile.
    void Refresh(std::int64_t key, Listing& listing);

private:
    std::optional<std::int64_t> Child(std::int64_t parent, std::u16string_view name);
    std::int64_t KeyAt(std::u16string_view pathWithHive);
    void Write(std::int64_t key, std::u16string_view name, std::uint32_t type,
               std::span<const std::byte> data);

    const Store& m_store;
    std::uint64_t m_changes = 0;
    std::vector<std::u16string> m_readOnly;
    Statement m_findChild;
    Statement m_addChild;
    Statement m_describe;
    Statement m_getValue;
    Statement m_setValue;
    Statement m_setHostPath;
    Statement m_clearHostPath;
    Statement m_children;
    Statement m_foreignChanges;
};

/// A registry key that is open, with the rights it was opened with.
struct OpenKey {
    std::int64_t number;
    std::uint32_t access;
    RegistryHive::Listing subkeys{};
};

} // namespace machine
