// The persistent state of a simulated machine: one SQLite file.
#pragma once

#include "machine/models/storage/store_error.h"

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace machine {

/// One prepared statement, used again and again.
class Statement {
public:
    Statement(sqlite3* database, std::string_view sql);

    /// Binds all values, in their order.
    template <class... Values>
    Statement& With(const Values&... values) {
        int place = 0;
        (Bind(++place, values), ...);
        return *this;
    }

    /// Runs to the next row. False at the end, after which the statement is ready for its next use.
    bool Step();
    /// Runs to the end.
    void Run();

    /// What `read` returns for the first row, at which the use ends; nothing without a row.
    template <class Read>
    auto First(Read read) -> std::optional<decltype(read(*this))> {
        if (!Step()) {
            return std::nullopt;
        }
        auto result = read(*this);
        Reset();
        return result;
    }

    // Columns of the present row, from 0.

    [[nodiscard]] std::int64_t Number(int column) const;
    [[nodiscard]] std::u16string Text(int column) const;
    [[nodiscard]] std::vector<std::byte> Bytes(int column) const;

private:
    void Bind(int place, std::int64_t number);
    void Bind(int place, std::u16string_view text);
    void Bind(int place, std::span<const std::byte> bytes);
    void Reset();

    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

/// Opens a store. On the machine's first start the store stays in one transaction, in which registry, firmware
/// variables and files get their first state, until `CommitFirstState`: a first start that is interrupted starts
/// again with the next process, and another process waits for its end.
class Store {
public:
    /// ":memory:" persists nothing.
    explicit Store(const std::string& path);

    [[nodiscard]] Statement Prepare(std::string_view sql) const { return {m_database.get(), sql}; }

    void Execute(const char* sql) const;

    /// Whether registry and firmware variables have no state yet.
    [[nodiscard]] bool IsNew() const { return m_hasNoState; }

    /// What the machine's files need: earlier versions of the machine did not create all of them.
    enum class Files : std::uint8_t { Create, CreateMissing, Complete };

    [[nodiscard]] Files FilesState() const { return m_files; }

    /// Refuses a store that another machine has made: two machines would change each other's state.
    void BelongTo(const std::string& machine) const;

    /// Ends the first start: all of its state is there now. Does nothing on a later start.
    void CommitFirstState();

    /// Lets every further use fail, for a machine whose own store cannot be read.
    void FailFromNowOn();
    /// Throws StoreError after `FailFromNowOn`.
    void DemandUsable() const;

    /// All or nothing of the changes within it, and no other process writes meanwhile.
    class Transaction {
    public:
        explicit Transaction(const Store& store);
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;
        ~Transaction();
        void Commit();

    private:
        const Store& m_store;
        bool m_open = true;
    };

private:
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
    };

    [[nodiscard]] std::int64_t NumberOf(const char* query) const;
    void ReadState();
    void CheckIntegrity() const;

    std::unique_ptr<sqlite3, Close> m_database;
    bool m_hasNoState = false;
    bool m_fails = false;
    Files m_files = Files::Complete;
};

} // namespace machine
