// The file system of the simulated machine: real files of the host.
//
// A path with a drive ("C:\ProgramData\...") lies in a directory beside the machine's store, named as that with
// ".files" behind it, or in one that goes with the machine where the store keeps nothing. Names are kept there
// in upper case, since they compare without regard to case. A path that begins with a slash is the host's own;
// a backslash separates there too. The machine has no present directory: other paths lead nowhere.
#pragma once

#include "machine/profile/sections/disk_profile.h"
#include "platform/types.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace machine {

class FileSystem {
public:
    FileSystem(std::string storePath, bool storeIsNew, FilesProfile profile);
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    ~FileSystem();

    /// The attributes of what is at a path; nothing with `problem` set where there is nothing.
    std::optional<std::uint32_t> Attributes(std::u16string_view path, platform::SystemError& problem);

    /// Opens a file under a number of the ledger's.
    struct Opening {
        std::uint32_t access;
        std::uint32_t shareMode;
        std::uint32_t disposition;
    };

    platform::SystemError Open(std::u16string_view path, const Opening& opening, int& descriptor);
    void Keep(std::uintptr_t number, std::u16string_view path, const Opening& opening, int descriptor);
    void Close(std::uintptr_t number);

    platform::SystemError Read(std::uintptr_t number, std::span<std::byte> buffer, std::uint32_t& read);
    platform::SystemError Write(std::uintptr_t number, std::span<const std::byte> data,
                                std::uint32_t& written);
    platform::SystemError CutAtPosition(std::uintptr_t number);
    platform::SystemError Flush(std::uintptr_t number);

    platform::SystemError Move(std::u16string_view existing, std::u16string_view next, bool replace);
    platform::SystemError Delete(std::u16string_view path);

    /// Where a path of the machine lies on the host. Nothing where it leads nowhere.
    std::optional<std::filesystem::path> HostPath(std::u16string_view path);

private:
    struct OpenFile {
        std::filesystem::path path;
        std::uint32_t access;
        std::uint32_t shareMode;
        int descriptor;
    };

    const std::filesystem::path& Root();
    void Seed();
    [[nodiscard]] bool SharesWith(const std::filesystem::path& path, const Opening& opening) const;
    [[nodiscard]] bool SharesDeletion(const std::filesystem::path& path) const;
    [[nodiscard]] int DescriptorOf(std::uintptr_t number) const;

    std::string m_storePath;
    bool m_storeIsNew;
    FilesProfile m_profile;
    std::filesystem::path m_root;
    std::set<std::filesystem::path> m_held;
    std::map<std::uintptr_t, OpenFile> m_open;
};

} // namespace machine
