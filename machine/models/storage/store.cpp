#include "machine/models/storage/store.h"

#include "unicode/utf.h"

namespace machine {
namespace {

constexpr int BusyMilliseconds = 5000;

// Values of user_version. The first version marked a store before it had its state, and created files later or never.
constexpr std::int64_t NotMade = 0;
constexpr std::int64_t MadeByFirstVersion = 1;
constexpr std::int64_t Made = 2;

// Names are compared in their folded form; the name itself keeps its case. Keys are numbered in the order of their
// creation, names are listed in the order of their folded form. host_path has the values in which a program on this
// host stored a path of the host's own disk; what the profile put into the registry is not in it.
constexpr const char* OwnerTable = "CREATE TABLE IF NOT EXISTS machine (name TEXT NOT NULL)";

constexpr const char* Schema = R"(
CREATE TABLE IF NOT EXISTS machine (name TEXT NOT NULL);
CREATE TABLE IF NOT EXISTS registry_key (
    id INTEGER PRIMARY KEY,
    parent INTEGER NOT NULL,
    name TEXT NOT NULL,
    folded TEXT NOT NULL,
    UNIQUE (parent, folded));
CREATE TABLE IF NOT EXISTS registry_value (
    key INTEGER NOT NULL REFERENCES registry_key (id),
    name TEXT NOT NULL,
    folded TEXT NOT NULL,
    type INTEGER NOT NULL,
    data BLOB NOT NULL,
    PRIMARY KEY (key, folded)) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS firmware_variable (
    guid TEXT NOT NULL,
    name TEXT NOT NULL,
    data BLOB NOT NULL,
    PRIMARY KEY (guid, name)) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS host_path (
    key INTEGER NOT NULL,
    folded TEXT NOT NULL,
    path TEXT NOT NULL,
    PRIMARY KEY (key, folded)) WITHOUT ROWID;
)";

[[noreturn]] void ThrowProblem(sqlite3* database) {
    const int code = database != nullptr ? sqlite3_errcode(database) : SQLITE_NOMEM;
    throw StoreError(database != nullptr ? sqlite3_errmsg(database) : "out of memory",
                     code == SQLITE_CORRUPT || code == SQLITE_NOTADB);
}

} // namespace

Statement::Statement(sqlite3* database, std::string_view sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT,
                           &statement, nullptr) != SQLITE_OK) {
        ThrowProblem(database);
    }
    m_statement.reset(statement);
}

void Statement::Bind(int place, std::int64_t number) {
    sqlite3_bind_int64(m_statement.get(), place, number);
}

void Statement::Bind(int place, std::u16string_view text) {
    sqlite3_bind_text16(m_statement.get(), place, text.data(),
                        static_cast<int>(text.size() * sizeof(char16_t)), SQLITE_TRANSIENT);
}

void Statement::Bind(int place, std::span<const std::byte> bytes) {
    // A null pointer would bind NULL, and no bytes are not the same as no value.
    sqlite3_bind_blob64(m_statement.get(), place, bytes.empty() ? "" : static_cast<const void*>(bytes.data()),
                        bytes.size(), SQLITE_TRANSIENT);
}

bool Statement::Step() {
    const int outcome = sqlite3_step(m_statement.get());
    if (outcome == SQLITE_ROW) {
        return true;
    }
    if (outcome != SQLITE_DONE) {
        const std::string problem = sqlite3_errmsg(sqlite3_db_handle(m_statement.get()));
        Reset();
        throw StoreError(problem, outcome == SQLITE_CORRUPT || outcome == SQLITE_NOTADB);
    }
    Reset();
    return false;
}

void Statement::Run() {
    while (Step()) {
    }
}

void Statement::Reset() {
    sqlite3_reset(m_statement.get());
}

std::int64_t Statement::Number(int column) const {
    return sqlite3_column_int64(m_statement.get(), column);
}

std::u16string Statement::Text(int column) const {
    const void* text = sqlite3_column_text16(m_statement.get(), column);
    const auto length =
        static_cast<std::size_t>(sqlite3_column_bytes16(m_statement.get(), column)) / sizeof(char16_t);
    return text == nullptr ? std::u16string() : std::u16string(static_cast<const char16_t*>(text), length);
}

std::vector<std::byte> Statement::Bytes(int column) const {
    const auto* bytes = static_cast<const std::byte*>(sqlite3_column_blob(m_statement.get(), column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column));
    return {bytes, bytes + size};
}

Store::Store(const std::string& path) {
    sqlite3* database = nullptr;
    const int outcome = sqlite3_open_v2(
        path.c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX, nullptr);
    m_database.reset(database);
    try {
        if (outcome != SQLITE_OK) {
            ThrowProblem(database);
        }
        sqlite3_busy_timeout(database, BusyMilliseconds);
        ReadState();
        if (m_files == Files::Complete) {
            CheckIntegrity();
            Execute(OwnerTable); // earlier versions did not make it
            return;
        }
        Execute("BEGIN IMMEDIATE");
        ReadState(); // another process may have been first
        Execute(m_files == Files::Complete ? "COMMIT" : Schema);
    } catch (const StoreError& problem) {
        throw StoreError(path + ": " + problem.what(), problem.IsDamage());
    }
}

std::int64_t Store::NumberOf(const char* query) const {
    return Prepare(query).First([](const Statement& row) { return row.Number(0); }).value();
}

void Store::ReadState() {
    const std::int64_t version = NumberOf("PRAGMA user_version");
    if (version != NotMade && version != MadeByFirstVersion && version != Made) {
        throw StoreError("made by another version of the simulated machine", true);
    }
    m_hasNoState = version == NotMade || NumberOf("SELECT count(*) FROM registry_key") == 0;
    m_files = version == Made ? Files::Complete : version == NotMade ? Files::Create : Files::CreateMissing;
}

/// Damage is found here, and not when what it hides is taken for absent.
void Store::CheckIntegrity() const {
    const auto found =
        Prepare("PRAGMA integrity_check(1)").First([](const Statement& row) { return row.Text(0); });
    if (found != u"ok" || m_hasNoState) {
        throw StoreError("the store is damaged", true);
    }
}

void Store::BelongTo(const std::string& machine) const {
    const std::u16string name = unicode::WideFromUtf8(machine);
    const auto owner =
        Prepare("SELECT name FROM machine").First([](const Statement& row) { return row.Text(0); });
    if (!owner) {
        Prepare("INSERT INTO machine VALUES (?)").With(std::u16string_view(name)).Run();
    } else if (*owner != name) {
        throw StoreError("it is the store of the machine \"" + unicode::Utf8FromWide(*owner) +
                         "\"; give each machine another one");
    }
}

void Store::CommitFirstState() {
    if (m_files != Files::Complete) {
        Execute("PRAGMA user_version = 2");
        Execute("COMMIT");
        m_files = Files::Complete;
    }
}

void Store::FailFromNowOn() {
    m_fails = true;
    sqlite3_progress_handler(
        m_database.get(), 1, [](void*) { return 1; }, nullptr);
}

void Store::DemandUsable() const {
    if (m_fails) {
        throw StoreError("the machine's store cannot be used");
    }
}

void Store::Execute(const char* sql) const {
    if (sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
        ThrowProblem(m_database.get());
    }
}

Store::Transaction::Transaction(const Store& store) : m_store(store) {
    m_store.Execute("BEGIN IMMEDIATE");
}

Store::Transaction::~Transaction() {
    if (m_open) {
        sqlite3_exec(m_store.m_database.get(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void Store::Transaction::Commit() {
    m_store.Execute("COMMIT");
    m_open = false;
}

} // namespace machine
