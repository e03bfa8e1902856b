#include "machine/models/storage/registry_hive.h"

#include "machine/text/folding.h"
#include "platform/registry.h"

#include <algorithm>

namespace machine {
namespace {

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
      m_getValue(store.Prepare("SELECT type, data FROM registry_value WHERE key = ? AND folded = ?")),
      m_setValue(store.Prepare("INSERT INTO registry_value VALUES (?, ?, ?, ?, ?) ON CONFLICT DO UPDATE "
                               "SET type = excluded.type, data = excluded.data")),
      m_setHostPath(store.Prepare("INSERT OR REPLACE INTO host_path VALUES (?, ?, ?)")),
      m_clearHostPath(store.Prepare("DELETE FROM host_path WHERE key = ? AND folded = ?")),
      m_children(store.Prepare("SELECT name FROM registry_key WHERE parent = ? ORDER BY folded")),
      m_foreignChanges(store.Prepare("PRAGMA data_version")) {
    for (const std::u16string& path : profile.readOnly) {
        m_readOnly.push_back(Folded(path));
    }
    if (!store.IsNew()) {
        return;
    }
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
    return m_findChild.With(parent, Folded(name)).First([](const Statement& row) { return row.Number(0); });
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
        m_addChild.With(key, name, Folded(name)).Step();
        key = m_addChild.Number(0);
        m_addChild.Run();
    }
    return key;
}

bool RegistryHive::IsReadOnly(std::u16string_view path) const {
    const std::u16string folded = Folded(path);
    return std::ranges::any_of(m_readOnly, [&](const std::u16string& closed) {
        return folded.starts_with(closed) &&
               (folded.size() == closed.size() || folded[closed.size()] == u'\\');
    });
}

std::u16string RegistryHive::PathOf(std::int64_t key) {
    const auto parentAndName = [](const Statement& row) {
        return std::pair(row.Number(0), row.Text(1));
    };
    std::u16string path;
    for (auto found = m_describe.With(key).First(parentAndName); found;
         found = m_describe.With(found->first).First(parentAndName)) {
        path.insert(0, path.empty() ? found->second : found->second + u'\\');
    }
    return path;
}

std::optional<RegistryHive::Value> RegistryHive::Get(std::int64_t key, std::u16string_view name) {
    return m_getValue.With(key, Folded(name)).First([](const Statement& row) {
        return Value{static_cast<std::uint32_t>(row.Number(0)), row.Bytes(1)};
    });
}

void RegistryHive::Set(std::int64_t key, std::u16string_view name, std::uint32_t type,
                       std::span<const std::byte> data) {
    const std::u16string path = type == platform::value_type::String ? StringOf(data) : std::u16string();
    Store::Transaction whole(m_store);
    Write(key, name, type, data);
    if (path.starts_with(u'/')) {
        m_setHostPath.With(key, Folded(name), path).Run();
    } else {
        m_clearHostPath.With(key, Folded(name)).Run();
    }
    whole.Commit();
}

void RegistryHive::Write(std::int64_t key, std::u16string_view name, std::uint32_t type,
                         std::span<const std::byte> data) {
    m_setValue.With(key, name, Folded(name), std::int64_t{type}, data).Run();
}

void RegistryHive::Remove(std::int64_t key) {
    constexpr const char* Below =
        "WITH RECURSIVE below (id) AS (VALUES (?1) UNION ALL SELECT registry_key.id "
        "FROM registry_key JOIN below ON parent = below.id) DELETE FROM ";
    ++m_changes;
    Store::Transaction whole(m_store);
    for (const char* rows : {"registry_value WHERE key", "host_path WHERE key", "registry_key WHERE id"}) {
        m_store.Prepare(Below + std::string(rows) + " IN (SELECT id FROM below)").With(key).Run();
    }
    whole.Commit();
}

void RegistryHive::Refresh(std::int64_t key, Listing& listing) {
    const auto foreign = m_foreignChanges.First([](const Statement& row) { return row.Number(0); });
    const std::uint64_t state = static_cast<std::uint64_t>(*foreign) << 32 | (m_changes & 0xFFFFFFFF);
    if (listing.state == state) {
        return;
    }
    listing.names.clear();
    m_children.With(key);
    while (m_children.Step()) {
        listing.names.push_back(m_children.Text(0));
    }
    listing.state = state;
}

} // namespace machine
