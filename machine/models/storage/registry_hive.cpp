#include "machine/models/storage/registry_hive.h"

#include "machine/text/folding.h"
#include "platform/registry.h"

#include <algorithm>

namespace machine {
namespace {

constexpr std::int64_t NoParent = 0;

/// Takes the first name off a path; adjacent backslashes count as one.
std::u16string_view TakeName(std::u16string_view& path) {
    while (!path.empty() && path.front() == u'\\') {
        path.remove_prefix(1);
    }
    const std::u16string_view name = path.substr(0, path.find(u'\\'));
    path.remove_prefix(name.size());
    return name;
}

/// The string in a value's data, without what follows a terminator.
std::u16string StringOf(std::span<const std::byte> data) {
    std::u16string text(data.size() / sizeof(char16_t), u'\0');
    std::ranges::copy(data.first(text.size() * sizeof(char16_t)),
                      std::as_writable_bytes(std::span(text)).begin());
    text.resize(std::min(text.find(u'\0'), text.size()));
    return text;
}

const Store& WithHives(const Store& store) {
    if (store.IsNew()) {
        store.Execute("INSERT INTO registry_key VALUES (1, 0, 'HKLM', 'HKLM'), (2, 0, 'HKCU', 'HKCU')");
    }
    return store;
}

} // namespace

RegistryHive::RegistryHive(const Store& store, const RegistryProfile& profile)
    : m_store(WithHives(store)),
      m_findChild(store.Prepare("SELECT id FROM registry_key WHERE parent = ? AND folded = ?")),
      m_addChild(store.Prepare("INSERT INTO registry_key (parent, name, folded) VALUES (?, ?, ?) "
                               "ON CONFLICT DO UPDATE SET name = name RETURNING id")),
      m_describe(store.Prepare("SELECT parent, name FROM registry_key WHERE id = ?")),
      m_getValue(store.Prepare("SELECT name, type, data FROM registry_value WHERE key = ? AND folded = ?")),
      m_setValue(store.Prepare("INSERT INTO registry_value VALUES (?, ?, ?, ?, ?) ON CONFLICT DO UPDATE "
                               "SET type = excluded.type, data = excluded.data")),
      m_setHostPath(store.Prepare("INSERT OR REPLACE INTO host_path VALUES (?, ?, ?)")),
      m_clearHostPath(store.Prepare("DELETE FROM host_path WHERE key = ? AND folded = ?")),
      m_children(store.Prepare("SELECT name FROM registry_key WHERE parent = ? ORDER BY folded")),
      m_foreignChanges(store.Prepare("PRAGMA data_version")) {
    for (const std::u16string& path : profile.readOnly) {
        m_readOnly.push_back(Folded(path));
    }
    if (store.IsNew()) {
        Seed(profile);
    }
}

void RegistryHive::Seed(const RegistryProfile& profile) {
    for (const std::u16string& key : profile.keys) {
        KeyAt(key);
    }
    for (const RegistryValue& value : profile.values) {
        Write(KeyAt(value.key), value.name, value.type, value.data);
    }
}

std::int64_t RegistryHive::KeyAt(std::u16string_view pathWithHive) {
    const std::u16string_view hive = TakeName(pathWithHive);
    return Create(hive == u"HKCU" ? CurrentUser : LocalMachine, pathWithHive);
}

std::optional<std::int64_t> RegistryHive::Child(std::int64_t parent, std::u16string_view name) {
    m_findChild.Bind(1, parent).Bind(2, Folded(name));
    if (!m_findChild.Step()) {
        return std::nullopt;
    }
    const std::int64_t id = m_findChild.Number(0);
    m_findChild.Reset();
    return id;
}

std::optional<std::int64_t> RegistryHive::Find(std::int64_t root, std::u16string_view path) {
    std::optional<std::int64_t> key = root;
    for (auto name = TakeName(path); key && !name.empty(); name = TakeName(path)) {
        key = Child(*key, name);
    }
    return key;
}

std::int64_t RegistryHive::Create(std::int64_t root, std::u16string_view path) {
    std::int64_t key = root;
    for (auto name = TakeName(path); !name.empty(); name = TakeName(path)) {
        if (const auto child = Child(key, name)) {
            key = *child;
            continue;
        }
        ++m_changes;
        m_addChild.Bind(1, key).Bind(2, name).Bind(3, Folded(name));
        m_addChild.Step();
        key = m_addChild.Number(0);
        m_addChild.Run();
    }
    return key;
}

bool RegistryHive::IsReadOnly(std::u16string_view path) const {
    const std::u16string folded = Folded(path);
    for (const std::u16string& closed : m_readOnly) {
        if (folded.starts_with(closed) &&
            (folded.size() == closed.size() || folded[closed.size()] == u'\\')) {
            return true;
        }
    }
    return false;
}

std::u16string RegistryHive::PathOf(std::int64_t key) {
    std::u16string path;
    while (key != NoParent) {
        m_describe.Bind(1, key);
        if (!m_describe.Step()) {
            break;
        }
        key = m_describe.Number(0);
        path.insert(0, path.empty() ? m_describe.Text(1) : m_describe.Text(1) + u'\\');
        m_describe.Reset();
    }
    return path;
}

std::optional<RegistryHive::Value> RegistryHive::Get(std::int64_t key, std::u16string_view name) {
    m_getValue.Bind(1, key).Bind(2, Folded(name));
    if (!m_getValue.Step()) {
        return std::nullopt;
    }
    Value value{m_getValue.Text(0), static_cast<std::uint32_t>(m_getValue.Number(1)), m_getValue.Bytes(2)};
    m_getValue.Reset();
    return value;
}

void RegistryHive::Set(std::int64_t key, std::u16string_view name, std::uint32_t type,
                       std::span<const std::byte> data) {
    const std::u16string path = type == platform::value_type::String ? StringOf(data) : std::u16string();
    Store::Transaction whole(m_store);
    Write(key, name, type, data);
    if (path.starts_with(u'/')) {
        m_setHostPath.Bind(1, key).Bind(2, Folded(name)).Bind(3, path).Run();
    } else {
        m_clearHostPath.Bind(1, key).Bind(2, Folded(name)).Run();
    }
    whole.Commit();
}

void RegistryHive::Write(std::int64_t key, std::u16string_view name, std::uint32_t type,
                         std::span<const std::byte> data) {
    m_setValue.Bind(1, key).Bind(2, name).Bind(3, Folded(name)).Bind(4, type).Bind(5, data);
    m_setValue.Run();
}

void RegistryHive::Remove(std::int64_t key) {
    constexpr const char* Below =
        "WITH RECURSIVE below (id) AS (VALUES (?1) UNION ALL SELECT registry_key.id "
        "FROM registry_key JOIN below ON parent = below.id) ";
    ++m_changes;
    Store::Transaction whole(m_store);
    m_store.Prepare(std::string(Below) + "DELETE FROM registry_value WHERE key IN (SELECT id FROM below)")
        .Bind(1, key)
        .Run();
    m_store.Prepare(std::string(Below) + "DELETE FROM host_path WHERE key IN (SELECT id FROM below)")
        .Bind(1, key)
        .Run();
    m_store.Prepare(std::string(Below) + "DELETE FROM registry_key WHERE id IN (SELECT id FROM below)")
        .Bind(1, key)
        .Run();
    whole.Commit();
}

std::vector<std::u16string> RegistryHive::SubkeyNames(std::int64_t key) {
    std::vector<std::u16string> names;
    m_children.Bind(1, key);
    while (m_children.Step()) {
        names.push_back(m_children.Text(0));
    }
    return names;
}

std::uint64_t RegistryHive::KeyState() {
    m_foreignChanges.Step();
    const auto foreign = static_cast<std::uint64_t>(m_foreignChanges.Number(0));
    m_foreignChanges.Reset();
    return foreign << 32 | (m_changes & 0xFFFFFFFF);
}

void RegistryHive::Refresh(std::int64_t key, Listing& listing) {
    const std::uint64_t state = KeyState();
    if (listing.state != state) {
        listing.names = SubkeyNames(key);
        listing.state = state;
    }
}

} // namespace machine
