// Where the paths of the simulated machine lead on the host: below its own root, or where the host said.
#include "machine_fixture.h"

#include "machine/models/storage/file_system.h"
#include "machine/models/storage/registry_hive.h"
#include "machine/models/storage/store.h"
#include "machine/profile/profile.h"
#include "platform/files.h"
#include "platform/registry.h"

#include <nlohmann/json.hpp>

#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace {

using namespace testing;
namespace fs = std::filesystem;

constexpr std::uint32_t Read = 0x80000000;
constexpr std::uint32_t Write = 0x40000000;
constexpr std::uint32_t CreateAlways = 2;
constexpr std::uint32_t OpenExisting = 3;

class MachinePathsTest : public test::MachineTest {
protected:
    MachinePathsTest() {
        fs::create_directories(m_outside);
        std::ofstream(m_outside / "victim") << "untouched";
    }

    ~MachinePathsTest() override { fs::remove_all(m_outside); }

    static bool Exists(const std::u16string& path) {
        platform::SystemError problem = 0;
        return TheMachine()->storage.files->Attributes(path, problem).has_value();
    }

    static bool Opens(const std::u16string& path, std::uint32_t access, std::uint32_t disposition,
                      std::uint32_t flags = 0) {
        const machine::FileSystem::Opening opening{access, 7, disposition, flags};
        int descriptor = -1;
        const bool opened =
            TheMachine()->storage.files->Open(path, opening, descriptor) == platform::error::Success;
        if (opened) {
            TheMachine()->storage.files->Keep(1, path, opening, descriptor);
            std::uint32_t written = 0;
            std::uint32_t read = 0;
            std::array<std::byte, 1> byte{};
            const bool isLink = flags != 0;
            EXPECT_TRUE(!isLink || (TheMachine()->storage.files->Write(1, byte, written) != 0 &&
                                    TheMachine()->storage.files->Read(1, byte, read) != 0 &&
                                    TheMachine()->storage.files->SetEnd(1, 0) != 0));
            TheMachine()->storage.files->Close(1);
        }
        return opened;
    }

    void ExpectNothingOutside() const {
        EXPECT_EQ(std::distance(fs::directory_iterator(m_outside), {}), 1);
        std::ifstream victim(m_outside / "victim");
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(victim), {}), "untouched");
    }

    [[nodiscard]] std::u16string Outside(const char* below = "") const {
        return (m_outside / below).u16string();
    }

    const fs::path m_outside{m_store + ".outside"};
};

TEST_F(MachinePathsTest, APathWithADriveStaysBelowTheRoot) {
    StartMachine("{}", m_store);
    const std::u16string up = u"\\..\\..\\..\\..\\..\\..\\..\\..\\..";
    const std::u16string outside = m_outside.u16string();
    const fs::path root = fs::path(m_store + ".files");
    for (const std::u16string& path : {u"C:" + up + outside, u"C:\\a" + up + outside, u"C:" + up,
                                       u"c:/../" + outside, u"C:..\\" + outside}) {
        const auto host = TheMachine()->storage.files->HostPath(path);
        ASSERT_TRUE(host);
        EXPECT_THAT(host->string(), StartsWith(root / "C"));
        EXPECT_THAT(host->string(), Not(HasSubstr("..")));
        Opens(path + u"\\victim", Write, CreateAlways);
    }
    for (const std::u16string& path :
         {u"/:" + up + outside, u".:" + up + outside, u"\\\\?\\C:" + up + outside, u"1:\\x" + outside,
          outside, std::u16string(u"victim"), std::u16string(), std::u16string(u"C:\\a\0b", 6)}) {
        EXPECT_FALSE(TheMachine()->storage.files->HostPath(path));
        EXPECT_FALSE(Exists(path));
        EXPECT_FALSE(Opens(path, Write, CreateAlways));
    }
    ExpectNothingOutside();
}

TEST_F(MachinePathsTest, LinksAreNotFollowed) {
    StartMachine(R"({"files": {"files": [{"path": "C:\\a\\b.txt", "text": "b"}]}})", m_store);
    const fs::path root = m_store + ".files";
    fs::create_directory_symlink(m_outside, root / "C" / "LINK");
    fs::create_directory_symlink(m_outside, root / "E");
    fs::create_symlink(m_outside / "victim", root / "C" / "FILE");
    fs::create_symlink(m_outside / "new", root / "C" / "NEW");
    ASSERT_EQ(::mkfifo((root / "C" / "PIPE").c_str(), 0600), 0);
    for (const char16_t* path :
         {u"C:\\link\\victim", u"C:\\link", u"E:\\victim", u"E:\\", u"C:\\file", u"C:\\new", u"C:\\pipe"}) {
        EXPECT_FALSE(Exists(path));
        EXPECT_FALSE(Opens(path, Read, OpenExisting));
        EXPECT_FALSE(Opens(path, Write, CreateAlways));
    }
    for (const char16_t* link : {u"C:\\file", u"C:\\new"}) {
        EXPECT_TRUE(Opens(link, Read | Write, platform::OpenAlways, platform::OpenReparsePoint))
            << "the link itself";
        EXPECT_FALSE(Opens(u"C:\\link\\new", Write, platform::OpenAlways, platform::OpenReparsePoint));
    }
    EXPECT_TRUE(Opens(u"C:\\a\\b.txt", Read, OpenExisting));
    ExpectNothingOutside();

    // Before the first start.
    const auto profile = R"({"files": {"files": [{"path": "C:\\x", "text": "attack"}]}})";
    for (const char* link : {".files", ".files/C"}) {
        fs::remove_all(m_store);
        fs::remove_all(m_store + ".files");
        if (link != std::string(".files")) {
            fs::create_directory(m_store + ".files");
        }
        fs::create_directory_symlink(m_outside, m_store + link);
        EXPECT_THROW(StartMachine(profile, m_store), machine::StoreError);
        ExpectNothingOutside();
    }
}

TEST_F(MachinePathsTest, OnlyTheHostItselfOpensItsOwnDisk) {
    // The registry of the profile already has an app path, for the user whom WMI names.
    const nlohmann::json profile{{"registry",
                                  {{"values",
                                    {{{"key", R"(HKLM\SOFTWARE\Vesk\Vesk Kelvane\VeskTessaly)"},
                                      {"name", R"(KELVANE-14\mira)"},
                                      {"data", m_outside.string()}}}}}}};
    StartMachine(profile.dump(), m_store);
    WMISetBatteryHealth(80, 1);
    EXPECT_FALSE(Exists(Outside()));
    EXPECT_FALSE(Opens(Outside("victim"), Read, OpenExisting));
    ExpectNothingOutside();

    WMISetAppPath(Outside().c_str(), 1);
    WMISetBatteryHealth(80, 1);
    EXPECT_TRUE(fs::exists(m_outside / "BatteryHealthSetting.txt"));
    fs::remove(m_outside / "BatteryHealthSetting.txt");
    StartMachine(profile.dump(), m_store); // the next process
    EXPECT_TRUE(Exists(Outside("victim")));
    EXPECT_FALSE(Exists(Outside("../")));
    EXPECT_FALSE(Exists(Outside() + u"\\..\\" + m_outside.filename().u16string()));
    EXPECT_FALSE(Exists(Outside() + u"x"));
    EXPECT_FALSE(Exists(m_outside.parent_path().u16string()));

    WMISetAppPath(u"C:\\elsewhere", 1);
    EXPECT_FALSE(Exists(Outside("victim"))) << "it has taken its path back";
    ExpectNothingOutside();
}

TEST_F(MachinePathsTest, AStoredPathEndsWithItsKey) {
    StartMachine("{}", m_store);
    const auto key =
        TheMachine()->storage.registry->Create(machine::RegistryHive::LocalMachine, u"Some\\Key");
    const std::u16string path = Outside();
    const auto data = std::as_bytes(std::span(path.c_str(), path.size() + 1));
    TheMachine()->storage.registry->Set(key, u"a", platform::value_type::Binary, data);
    EXPECT_FALSE(Exists(path));
    TheMachine()->storage.registry->Set(key, u"a", platform::value_type::String, data);
    EXPECT_TRUE(Exists(path));
    TheMachine()->storage.registry->Remove(key);
    EXPECT_FALSE(Exists(path));
}

} // namespace
