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
#include <utility>

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

    [[nodiscard]] std::int32_t Read() const {
        return sondrel::ReadSetting(sondrel::OpenSetting(File().u16string()), 100);
    }

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

TEST_F(SettingsFileTest, IsWrittenInPlaceAsALineOfThisPlatform) {
    std::ofstream(File()) << "60\nand what a person wrote below it, longer than any number";
    const std::uint64_t first = Identity();
    for (const auto& [number, text] : {std::pair(1234567890, "1234567890\r\n"), std::pair(-5, "-5\r\n"),
                                       std::pair(INT32_MIN, "-2147483648\r\n"), std::pair(7, "7\r\n")}) {
        Write(number);
        EXPECT_EQ(Text(), text);
        EXPECT_EQ(Read(), number);
    }
    EXPECT_EQ(Identity(), first) << "owner, access list, links and streams are the file's";
}

TEST_F(SettingsFileTest, SharesAsFarAsOthersDo) {
    Write(1234567890);
    HANDLE file = Held(FILE_SHARE_READ | FILE_SHARE_WRITE); // not to be moved or deleted
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    Write(80);
    EXPECT_EQ(Read(), 80);
    ::CloseHandle(file);
    EXPECT_EQ(Text(), "80\r\n");
    file = Held(FILE_SHARE_READ);
    Write(70);
    ::CloseHandle(file);
    EXPECT_EQ(Text(), "80\r\n") << "it is read-only";
}

TEST_F(SettingsFileTest, ALockOfAnotherWriterIsWaitedForAndThenRespected) {
    Write(80);
    const HANDLE file = Held(FILE_SHARE_READ | FILE_SHARE_WRITE);
    OVERLAPPED place{};
    place.Offset = 0x40000000;
    ASSERT_TRUE(::LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place));
    Write(70);
    EXPECT_EQ(Read(), 80) << "readers need no lock";
    ::CloseHandle(file); // the lock ends with it
    Write(60);
    EXPECT_EQ(Read(), 60);
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

/// The routine that is replaced. This program's import leads to the replacement: the test is the module that is patched.
template <class Routine>
Routine Real(const char* name) {
    return reinterpret_cast<Routine>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"kernel32.dll"), name)));
}

DWORD LockError; // of every lock

BOOL WINAPI RefuseLock(HANDLE, DWORD, DWORD, DWORD, DWORD, OVERLAPPED*) {
    ::SetLastError(LockError);
    return FALSE;
}

TEST_F(SettingsFileTest, AFileSystemWithoutLocksIsWrittenWithoutOne) {
    Write(80);
    test::ImportPatch patch(::GetModuleHandleW(nullptr));
    patch.Replace("LockFileEx", &RefuseLock);
    for (const auto& [error, number] :
         {std::pair(ERROR_INVALID_FUNCTION, 70), std::pair(ERROR_NOT_SUPPORTED, 60),
          std::pair(ERROR_ACCESS_DENIED, 60), std::pair(ERROR_LOCK_VIOLATION, 60)}) {
        LockError = static_cast<DWORD>(error);
        Write(error == ERROR_INVALID_FUNCTION ? 70 : error == ERROR_NOT_SUPPORTED ? 60 : 50);
        EXPECT_EQ(Read(), number) << error;
    }
}

// What the file is, as far as its reparse point says so, and how often it was opened as anything else.
DWORD TagError;
DWORD Tag;
int OrdinaryOpenings;

BOOL WINAPI ReportTag(HANDLE, FILE_INFO_BY_HANDLE_CLASS kind, void* info, DWORD size) {
    EXPECT_EQ(kind, FileAttributeTagInfo);
    EXPECT_EQ(size, sizeof(FILE_ATTRIBUTE_TAG_INFO));
    const DWORD attributes = Tag != 0 ? FILE_ATTRIBUTE_REPARSE_POINT : FILE_ATTRIBUTE_NORMAL;
    *static_cast<FILE_ATTRIBUTE_TAG_INFO*>(info) = {attributes, Tag};
    ::SetLastError(TagError);
    return TagError == ERROR_SUCCESS;
}

HANDLE WINAPI OpenAndCount(LPCWSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                           DWORD disposition, DWORD flags, HANDLE likeness) {
    OrdinaryOpenings += (flags & FILE_FLAG_OPEN_REPARSE_POINT) == 0 ? 1 : 0;
    return Real<decltype(&::CreateFileW)>("CreateFileW")(path, access, share, security, disposition, flags,
                                                         likeness);
}

TEST_F(SettingsFileTest, ANameThatLeadsElsewhereIsNoFile) {
    struct Case {
        DWORD tag;
        DWORD error;
        bool isFile;
        int ordinaryOpenings; // of one write and one read
    };
    const Case cases[] = {{0, ERROR_SUCCESS, true, 0},
                          {IO_REPARSE_TAG_SYMLINK, ERROR_SUCCESS, false, 0},
                          {IO_REPARSE_TAG_MOUNT_POINT, ERROR_SUCCESS, false, 0},
                          {0x9000001A, ERROR_SUCCESS, true, 2}, // IO_REPARSE_TAG_CLOUD
                          {IO_REPARSE_TAG_DEDUP, ERROR_SUCCESS, true, 2},
                          {0, ERROR_INVALID_PARAMETER, true, 0}, // FAT has no reparse points
                          {0, ERROR_ACCESS_DENIED, false, 0}};
    for (const Case& at : cases) {
        Write(80);
        {
            test::ImportPatch patch(::GetModuleHandleW(nullptr));
            patch.Replace("GetFileInformationByHandleEx", &ReportTag);
            patch.Replace("CreateFileW", &OpenAndCount);
            Tag = at.tag;
            TagError = at.error;
            OrdinaryOpenings = 0;
            Write(70);
            EXPECT_EQ(Read(), at.isFile ? 70 : 100) << at.tag << ' ' << at.error;
            EXPECT_EQ(OrdinaryOpenings, at.ordinaryOpenings) << at.tag << ' ' << at.error;
        }
        EXPECT_EQ(Text(), at.isFile ? "70\r\n" : "80\r\n");
    }
}

std::string Calls; // that change the file, in their order

BOOL WINAPI Flush(HANDLE file) {
    Calls += "flush ";
    return Real<decltype(&::FlushFileBuffers)>("FlushFileBuffers")(file);
}

BOOL WINAPI WriteAndNote(HANDLE file, const void* data, DWORD size, DWORD* written, OVERLAPPED* place) {
    Calls += "write " + std::to_string(size) + ' ';
    return Real<decltype(&::WriteFile)>("WriteFile")(file, data, size, written, place);
}

BOOL WINAPI Cut(HANDLE file, FILE_INFO_BY_HANDLE_CLASS kind, void* info, DWORD size) {
    Calls += "cut ";
    return Real<decltype(&::SetFileInformationByHandle)>("SetFileInformationByHandle")(file, kind, info,
                                                                                       size);
}

BOOL WINAPI Lock(HANDLE file, DWORD flags, DWORD reserved, DWORD low, DWORD high, OVERLAPPED* place) {
    Calls += "lock ";
    return Real<decltype(&::LockFileEx)>("LockFileEx")(file, flags, reserved, low, high, place);
}

BOOL WINAPI Unlock(HANDLE file, DWORD reserved, DWORD low, DWORD high, OVERLAPPED* place) {
    Calls += "unlock";
    return Real<decltype(&::UnlockFileEx)>("UnlockFileEx")(file, reserved, low, high, place);
}

TEST_F(SettingsFileTest, AWriteIsLockedAndFlushedBeforeItIsCutAndAfterwards) {
    Write(1234567890);
    test::ImportPatch patch(::GetModuleHandleW(nullptr));
    patch.Replace("FlushFileBuffers", &Flush);
    patch.Replace("WriteFile", &WriteAndNote);
    patch.Replace("SetFileInformationByHandle", &Cut);
    patch.Replace("LockFileEx", &Lock);
    patch.Replace("UnlockFileEx", &Unlock);
    Calls.clear();
    Write(8);
    EXPECT_EQ(Calls, "lock write 13 flush cut flush unlock");
}

} // namespace
