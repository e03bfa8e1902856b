// The file system of the simulated machine: real files of the host.
//
// A path with a drive ("C:\ProgramData\...") is in a directory next to the machine's store, named like it with ".files"
// added, or in a temporary one if the store persists nothing. Names are upper case there, since Windows compares them
// without case. No such path leaves that directory: ".." ends at the drive, and links are not followed. A link is a
// symbolic link of Windows for a caller that opens it as a reparse point.
//
// A path that begins with a slash is on the host's own disk; a backslash separates its names too. It exists for the
// machine only at and below the directories that a program on this host stored in the registry, as WMISetAppPath
// does: what a profile puts there opens nothing. The machine has no current directory: other paths lead nowhere.
#pragma once

#include "machine/models/storage/store.h"
#include "machine/profile/sections/disk_profile.h"
#include "platform/files.h"

#include <sys/stat.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace machine {

/// A file descriptor of the host.
class Descriptor {
public:
    explicit Descriptor(int number = -1) : m_number(number) {}

    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}

    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }

    ~Descriptor();

    [[nodiscard]] int Get() const { return m_number; }

    [[nodiscard]] bool IsOpen() const { return m_number >= 0; }

    [[nodiscard]] int Release() { return std::exchange(m_number, -1); }

private:
    int m_number;
};

class FileSystem {
public:
    /// On the machine's first start, which `store` has not committed yet, creates the profile's files. Throws
    /// StoreError.
    FileSystem(const std::string& storePath, const Store& store, FilesProfile profile);
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    ~FileSystem();

    /// The attributes of a file or directory; nothing with `problem` set if there is none.
    std::optional<std::uint32_t> Attributes(std::u16string_view path, platform::SystemError& problem);

    struct Opening {
        std::uint32_t access;
        std::uint32_t shareMode;
        std::uint32_t disposition;
        std::uint32_t flags;
    };

    platform::SystemError Open(std::u16string_view path, const Opening& opening, int& descriptor);
    /// Owns an open file from now on, under a handle's number.
    void Keep(std::uintptr_t number, std::u16string_view path, const Opening& opening, int descriptor);
    void Close(std::uintptr_t number);

    platform::SystemError Read(std::uintptr_t number, std::span<std::byte> buffer, std::uint32_t& read);
    platform::SystemError Write(std::uintptr_t number, std::span<const std::byte> data,
                                std::uint32_t& written);
    platform::SystemError ReadTag(std::uintptr_t number, platform::FileAttributeTag& info) const;
    platform::SystemError SetEnd(std::uintptr_t number, std::uint64_t end);
    platform::SystemError Flush(std::uintptr_t number);

    /// Locks exclude each other across processes and openings, and end with the opening, as on Windows.
    platform::SystemError Lock(std::uintptr_t number, std::uint64_t offset, std::uint64_t size);
    platform::SystemError Unlock(std::uintptr_t number, std::uint64_t offset, std::uint64_t size);

    /// Where a path of the machine is on the host, for those who look at the machine from outside. Nothing if it
    /// leads nowhere.
    std::optional<std::filesystem::path> HostPath(std::u16string_view path);

private:
    struct OpenFile {
        std::filesystem::path path;
        std::uint32_t access;
        std::uint32_t shareMode;
        Descriptor descriptor;
    };

    /// A directory that is open, and a name in it; or a whole path of the host.
    struct Place {
        Descriptor directory;
        std::string name;
        bool onHost = false;

        [[nodiscard]] int At() const;
        /// The file's status; nothing with errno set.
        [[nodiscard]] std::optional<struct stat> Status() const;
    };

    using Names = std::vector<std::string>;

    [[nodiscard]] std::string GivenHostPath(std::u16string_view path) const;
    /// Finds a path's directory without following links; nothing with `problem` set.
    std::optional<Place> Find(std::u16string_view path, platform::SystemError& problem);
    int RootDescriptor();
    void CreateFiles(bool onlyMissing);
    void CreateFile(const FileProfile& file, bool onlyMissing);
    Descriptor OpenBelowRoot(std::span<const std::string> names, bool createMissing);
    [[nodiscard]] bool SharesWith(const std::filesystem::path& path, const Opening& opening) const;
    [[nodiscard]] int DescriptorOf(std::uintptr_t number) const;

    const Store& m_store;
    const FilesProfile m_profile;
    const bool m_isTemporary;
    std::filesystem::path m_root;
    Descriptor m_rootDescriptor;
    std::set<std::filesystem::path> m_locked; // by another process
    std::map<std::uintptr_t, OpenFile> m_open;
};

} // namespace machine
