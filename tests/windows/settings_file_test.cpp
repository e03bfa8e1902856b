// Settings files in a real directory, which other programs may hold.
#include "import_patch.h"

#include "firmware/settings_file.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;

class SettingsFileTest : public ::testing::Test {
protected:
    SettingsFileTest() : m_directory(fs::temp_directory_path() / L"vesk-settings") {
        fs::remove_all(m_directory);
        fs::create_directories(m_directory);
    }

    ~SettingsFileTest() override { fs::remove_all(m_directory); }

    [[nodiscard]] fs::path File() const { return m_directory / L"Setting \u00C4\u4E2D.txt"; }

    void Write(std::int32_t number) const { sondrel::WriteSetting(File().u16string(), number); }

    /// The file's bytes; the directory has nothing else.
    [[nodiscard]] std::string Text() const {
        EXPECT_EQ(std::distance(fs::directory_iterator(m_directory), {}), 1);
        std::ifstream file(File(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Which file exists.
    [[nodiscard]] std::uint64_t Identity() const {
        const HANDLE file = Held(FILE_SHARE_READ);
        BY_HANDLE_FILE_INFORMATION about{};
        EXPECT_TRUE(::GetFileInformationByHandle(file, &about));
        ::CloseHandle(file);
        return std::uint64_t{about.nFileIndexHigh} << 32 | about.nFileIndexLow;
    }

    [[nodiscard]] HANDLE Held(DWORD shareMode) const {
        return ::CreateFileW(File().c_str(), GENERIC_READ, shareMode, nullptr, OPEN_EXISTING, 0, nullptr);
    }

private:
    fs::path m_directory;
};

TEST_F(SettingsFileTest, IsReplacedByALineOfThisPlatform) {
    Write(1234567890);
    EXPECT_EQ(Text(), "1234567890\r\n");
    const std::uint64_t first = Identity();
    std::ofstream(File() += L".new") << "what a crash left over";
    Write(-5);
    EXPECT_EQ(Text(), "-5\r\n");
    EXPECT_NE(Identity(), first) << "not written over, but moved there in one step";
    EXPECT_EQ(sondrel::ReadSetting(File().u16string(), 100), -5);
}

TEST_F(SettingsFileTest, SharesAsFarAsOthersDo) {
    Write(1234567890);
    HANDLE file = Held(FILE_SHARE_READ | FILE_SHARE_WRITE); // not to be moved or deleted
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    Write(80);
    EXPECT_EQ(sondrel::ReadSetting(File().u16string(), 100), 80);
    ::CloseHandle(file);
    EXPECT_EQ(Text(), "80\r\n") << "written in place and cut";
    file = Held(FILE_SHARE_READ);
    Write(70);
    ::CloseHandle(file);
    EXPECT_EQ(Text(), "80\r\n") << "it is read-only";
}

BOOL WINAPI DiskIsFull(HANDLE, const void*, DWORD, DWORD* written, OVERLAPPED*) {
    *written = 0;
    ::SetLastError(ERROR_DISK_FULL);
    return FALSE;
}

TEST_F(SettingsFileTest, AFullDiskLeavesTheStoredNumber) {
    Write(80);
    {
        // The library's own objects are part of this program.
        test::ImportPatch patch(::GetModuleHandleW(nullptr));
        patch.Replace("WriteFile", &DiskIsFull);
        Write(70);
    }
    EXPECT_EQ(Text(), "80\r\n");
}

} // namespace
