// The machine's store: first starts that are interrupted or happen at the same time, and stores that are damaged.
#include "machine/models/storage/file_system.h"
#include "machine/models/storage/firmware_store.h"
#include "machine/models/storage/registry_hive.h"
#include "machine/models/storage/storage.h"
#include "machine/models/storage/store.h"
#include "machine/profile/profile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <latch>
#include <thread>

namespace {

using namespace testing;
using machine::OpenStorage;
using machine::RegistryHive;
using machine::Storage;
using machine::Store;
using machine::StoreError;

constexpr const char* Guid = "{91b89306-5bac-4ae0-aab3-207ec12e989b}";
const std::string LongText(20000, 'x');

machine::Profile SomeProfile() {
    return machine::ParseProfile(R"({"name": "x", "ec": {"revision": "KL", "chip_name": "KC01"},
        "registry": {"keys": ["HKCU\\A\\B"], "values": [
            {"key": "HKLM\\SOFTWARE\\First", "name": "a", "data": "one"},
            {"key": "HKLM\\SOFTWARE\\Last", "name": "z", "type": "REG_DWORD", "data": 7}]},
        "firmware_variables": {"variables": [{"name": "First", "size": 4}, {"name": "Last", "size": 300}]},
        "files": {"directories": ["C:\\Empty"], "files": [
            {"path": "C:\\Data\\First.txt", "text": "first"},
            {"path": "D:\\Data\\Last.txt", "text": ")" +
                                     LongText + "\"}]}}",
                                 "profile");
}

std::string ContentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The parts of the first state that a machine lacks.
std::string Missing(const Storage& machine) {
    std::string missing;
    const auto demand = [&](bool there, const char* what) {
        missing += there ? "" : std::string(what) + ' ';
    };
    const auto last = machine.registry->Find(RegistryHive::LocalMachine, u"SOFTWARE\\Last");
    demand(machine.registry->Find(RegistryHive::CurrentUser, u"A\\B").has_value(), "key");
    demand(machine.registry->Find(RegistryHive::LocalMachine, u"SOFTWARE\\First").has_value(), "first value");
    demand(last && machine.registry->Get(*last, u"z"), "last value");
    demand(machine.firmwareVariables->Get(std::u16string(Guid, Guid + 38), u"First").has_value(),
           "first variable");
    demand(machine.firmwareVariables->Get(std::u16string(Guid, Guid + 38), u"Last").has_value(),
           "last variable");
    platform::SystemError problem = 0;
    demand(machine.files->Attributes(u"C:\\Empty", problem).has_value(), "directory");
    demand(ContentOf(*machine.files->HostPath(u"C:\\Data\\First.txt")) == "first", "first file");
    demand(ContentOf(*machine.files->HostPath(u"D:\\Data\\Last.txt")) == LongText, "last file");
    return missing;
}

std::string MissingIn(const std::string& store) {
    return Missing(OpenStorage(SomeProfile(), store));
}

/// Runs `body` in a child process and returns its status, as waitpid reports it.
int InChild(const std::function<void()>& body) {
    const pid_t child = ::fork();
    if (child == 0) {
        try {
            body();
        } catch (const std::exception& problem) {
            ::write(STDERR_FILENO, problem.what(), std::string_view(problem.what()).size());
            ::_exit(3);
        }
        ::_exit(0);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    return status;
}

class MachineStoreTest : public Test {
protected:
    MachineStoreTest() {
        std::string pattern = (std::filesystem::temp_directory_path() / "sondrel-machine-XXXXXX").string();
        m_directory = ::mkdtemp(pattern.data());
        m_store = m_directory / "store";
    }

    ~MachineStoreTest() override { std::filesystem::remove_all(m_directory); }

    void Remove() const {
        for (const auto& entry : std::filesystem::directory_iterator(m_directory)) {
            std::filesystem::remove_all(entry);
        }
    }

    std::filesystem::path m_directory;
    std::string m_store;
};

/// Kills the process at a statement of the store, counted from the process's start.
int StatementsLeft = 0;

int KillAtStatement(unsigned, void*, void*, void*) {
    if (--StatementsLeft == 0) {
        ::raise(SIGKILL);
    }
    return 0;
}

int TraceStatements(sqlite3* database, char**, const void*) {
    return sqlite3_trace_v2(database, SQLITE_TRACE_STMT, KillAtStatement, nullptr);
}

TEST_F(MachineStoreTest, AFirstStartThatIsKilledStartsAgain) {
    int killed = 0;
    for (bool done = false; !done; ++killed) {
        ASSERT_LT(killed, 1000);
        Remove();
        done = !WIFSIGNALED(InChild([&] {
            StatementsLeft = killed + 1;
            sqlite3_auto_extension(reinterpret_cast<void (*)()>(TraceStatements));
            const Storage machine = OpenStorage(SomeProfile(), m_store);
        }));
        ASSERT_EQ(MissingIn(m_store), "") << "killed at statement " << killed + 1;
    }
    EXPECT_GT(killed, 20) << "this kills nothing within the first start";
    // In the middle of a file.
    for (const rlim_t limit : {rlim_t{1}, rlim_t{LongText.size() - 1}}) {
        Remove();
        const int status = InChild([&] {
            const rlimit most{limit, limit};
            ::signal(SIGXFSZ, SIG_DFL);
            ::setrlimit(RLIMIT_FSIZE, &most);
            const Storage machine = OpenStorage(SomeProfile(), m_store);
        });
        EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 3);
        ASSERT_EQ(MissingIn(m_store), "");
    }
    // At any other moment.
    for (int round = 0; round < 60; ++round) {
        Remove();
        const pid_t child = ::fork();
        if (child == 0) {
            const Storage machine = OpenStorage(SomeProfile(), m_store);
            ::_exit(0);
        }
        std::this_thread::sleep_for(std::chrono::microseconds(100 * round));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ASSERT_EQ(MissingIn(m_store), "") << round;
    }
}

TEST_F(MachineStoreTest, FirstStartsAtTheSameTimeSeeOneWholeMachine) {
    for (int round = 0; round < 20; ++round) {
        Remove();
        std::array<int, 2> gate{};
        ASSERT_EQ(::pipe(gate.data()), 0);
        std::array<pid_t, 3> children{};
        for (pid_t& child : children) {
            child = ::fork();
            if (child == 0) {
                char byte = 0;
                ::close(gate[1]);
                ::read(gate[0], &byte, 1); // until all of them are there
                try {
                    ::_exit(MissingIn(m_store).empty() ? 0 : 1);
                } catch (const StoreError& problem) {
                    ::write(STDERR_FILENO, problem.what(), std::string_view(problem.what()).size());
                    ::_exit(2);
                }
            }
        }
        ::close(gate[0]);
        ::close(gate[1]);
        for (const pid_t child : children) {
            int status = -1;
            ::waitpid(child, &status, 0);
            EXPECT_EQ(status, 0) << round;
        }
    }
}

TEST_F(MachineStoreTest, ATransactionWaitsForTheOneBeforeIt) {
    const Storage machine = OpenStorage(SomeProfile(), m_store);
    std::latch started(1);
    bool sawTheKey = false;
    Store::Transaction first(*machine.store);
    std::thread other([&] {
        const Store store(m_store);
        RegistryHive hive(store, {});
        started.count_down();
        Store::Transaction second(store);
        sawTheKey = hive.Find(RegistryHive::LocalMachine, u"Made\\First").has_value();
        second.Commit();
    });
    started.wait();
    std::this_thread::sleep_for(std::chrono::milliseconds(100)); // for the other to begin without waiting
    machine.registry->Create(RegistryHive::LocalMachine, u"Made\\First");
    first.Commit();
    other.join();
    EXPECT_TRUE(sawTheKey);
}

TEST_F(MachineStoreTest, ADamagedStoreIsAnErrorAndIsNotChanged) {
    const auto expectError = [this](const std::string& content) {
        std::ofstream(m_store, std::ios::binary) << content;
        EXPECT_THAT([this] { MissingIn(m_store); },
                    Throws<StoreError>(AllOf(Property(&StoreError::what, HasSubstr(m_store + ": ")),
                                             Property(&StoreError::IsDamage, true))));
        EXPECT_EQ(ContentOf(m_store), content);
    };
    expectError("this is no database, and it must not be changed");
    Remove();
    ASSERT_EQ(MissingIn(m_store), "");
    const std::string whole = ContentOf(m_store);
    constexpr std::size_t PageSize = 4096;
    ASSERT_GT(whole.size(), 5 * PageSize);
    for (std::size_t page = 0; page < whole.size(); page += PageSize) {
        SCOPED_TRACE(page / PageSize);
        expectError(std::string(whole).replace(page, PageSize, PageSize, '\0'));
        if (page != 0) {
            expectError(whole.substr(0, page));
        }
    }
    expectError(std::string(whole).replace(60, 4, {0, 0, 0, 9})); // user_version
    EXPECT_THROW(Store("/nowhere/at/all/store"), StoreError);
}

TEST_F(MachineStoreTest, AStoreThatCannotBeUsedFailsInsteadOfBeingEmpty) {
    const Storage machine = OpenStorage(SomeProfile(), ":memory:");
    machine.store->FailFromNowOn();
    EXPECT_THROW(machine.registry->Find(RegistryHive::LocalMachine, u"SOFTWARE"), StoreError);
    EXPECT_THROW(machine.registry->Create(RegistryHive::LocalMachine, u"SOFTWARE\\New"), StoreError);
    EXPECT_THROW(machine.firmwareVariables->Get(u"{}", u"First"), StoreError);
    platform::SystemError problem = 0;
    EXPECT_THROW(machine.files->Attributes(u"C:\\Data", problem), StoreError);
}

/// As the first version left a store: marked before it had its state, its files created later or never.
TEST_F(MachineStoreTest, AStoreOfTheFirstVersionIsCompleted) {
    ASSERT_EQ(MissingIn(m_store), "");
    Store(m_store).Execute("DROP TABLE host_path; PRAGMA user_version = 1");
    std::filesystem::remove_all(m_store + ".files/C/DATA");
    std::ofstream(m_store + ".files/D/DATA/LAST.TXT") << "changed by a program";
    EXPECT_EQ(MissingIn(m_store), "last file ");
    EXPECT_EQ(ContentOf(m_store + ".files/D/DATA/LAST.TXT"), "changed by a program");
    Store(m_store).Execute(
        "DELETE FROM registry_value; DELETE FROM registry_key; DELETE FROM firmware_variable;"
        "PRAGMA user_version = 1");
    EXPECT_EQ(MissingIn(m_store), "last file ");
}

} // namespace
