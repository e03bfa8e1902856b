#include "machine/models/storage/store.h"

namespace machine {
namespace {

constexpr int BusyMilliseconds = 5000;
constexpr std::int64_t SchemaVersion = 1;

// Names are compared in their folded form; the name itself keeps the case it was written with. Numbers of
// keys are given in the order of creation, names are listed in the order of their folded form.
constexpr const char* Schema = R"(
CREATE TABLE registry_key (
    id INTEGER PRIMARY KEY,
    parent INTEGER NOT NULL,
    name TEXT NOT NULL,
    folded TEXT NOT NULL,
    UNIQUE (parent, folded));
CREATE TABLE registry_value (
    key INTEGER NOT NULL REFERENCES registry_key (id),
    name TEXT NOT NULL,
    folded TEXT NOT NULL,
    type INTEGER NOT NULL,
    data BLOB NOT NULL,
    PRIMARY KEY (key, folded)) WITHOUT ROWID;
CREATE TABLE firmware_variable (
    guid TEXT NOT NULL,
    name TEXT NOT NULL,
    data BLOB NOT NULL,
    PRIMARY KEY (guid, name)) WITHOUT ROWID;
PRAGMA user_version = 1;
)";

[[noreturn]] void ThrowProblem(sqlite3* database) {
    throw StoreError(database != nullptr ? sqlite3_errmsg(database) : "out of memory");
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

Statement& Statement::Bind(int place, std::int64_t number) {
    sqlite3_bind_int64(m_statement.get(), place, number);
    return *this;
}

Statement& Statement::Bind(int place, std::u16string_view text) {
    sqlite3_bind_text16(m_statement.get(), place, text.data(),
                        static_cast<int>(text.size() * sizeof(char16_t)), SQLITE_TRANSIENT);
    return *this;
}

Statement& Statement::Bind(int place, std::span<const std::byte> bytes) {
    // A null pointer would bind NULL, and no bytes are not the same as no value.
    sqlite3_bind_blob64(m_statement.get(), place, bytes.empty() ? "" : static_cast<const void*>(bytes.data()),
                        bytes.size(), SQLITE_TRANSIENT);
    return *this;
}

bool Statement::Step() {
    const int outcome = sqlite3_step(m_statement.get());
    if (outcome == SQLITE_ROW) {
        return true;
    }
    if (outcome != SQLITE_DONE) {
        const std::string problem = sqlite3_errmsg(sqlite3_db_handle(m_statement.get()));
        Reset();
        throw StoreError(problem);
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
        Transaction whole(*this);
        Statement version = Prepare("PRAGMA user_version");
        version.Step();
        const std::int64_t found = version.Number(0);
        version.Reset();
        m_new = found == 0;
        if (m_new) {
            Execute(Schema);
        } else if (found != SchemaVersion) {
            throw StoreError("made by another version of the simulated machine");
        }
        whole.Commit();
    } catch (const StoreError& problem) {
        throw StoreError(path + ": " + problem.what());
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
