#include "machine/models/storage/file_system.h"

#include "machine/models/storage/store.h"
#include "machine/text/wide_text.h"
#include "platform/device_io.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>

namespace machine {
namespace {

namespace fs = std::filesystem;
using platform::SystemError;

// File attributes, access and share bits, dispositions.
constexpr std::uint32_t Directory = 0x10;
constexpr std::uint32_t Archive = 0x20;
constexpr std::uint32_t Reading = 0x80000000;
constexpr std::uint32_t Writing = 0x40000000;
constexpr std::uint32_t SharesReading = 1;
constexpr std::uint32_t SharesWriting = 2;
constexpr std::uint32_t SharesDeleting = 4;
constexpr std::uint32_t CreateAlways = 2;
constexpr std::uint32_t OpenAlways = 4;

constexpr SystemError PathNotFound = 3;
constexpr SystemError SharingViolation = 32;
constexpr SystemError DiskFull = 112;
constexpr SystemError AlreadyExists = 183;

SystemError FromErrno(int code) {
    switch (code) {
    case ENOENT:
        return platform::error::FileNotFound;
    case ENOTDIR:
        return PathNotFound;
    case EACCES:
    case EPERM:
    case EISDIR:
    case EROFS:
        return platform::error::AccessDenied;
    case ENOSPC:
        return DiskFull;
    case EBADF:
        return platform::error::InvalidHandle;
    default:
        return platform::error::GenFailure;
    }
}

SystemError Outcome(bool done) {
    return done ? platform::error::Success : FromErrno(errno);
}

/// Takes one name after the other; both separators count.
std::string_view TakeName(std::string_view& path) {
    const std::size_t begin = std::min(path.find_first_not_of("\\/"), path.size());
    path.remove_prefix(begin);
    const std::string_view name = path.substr(0, path.find_first_of("\\/"));
    path.remove_prefix(name.size());
    return name;
}

/// The path below `top`, which it cannot leave.
fs::path Below(const fs::path& top, std::string_view names) {
    fs::path below;
    for (auto name = TakeName(names); !name.empty(); name = TakeName(names)) {
        if (name == "..") {
            below = below.parent_path();
        } else if (name != ".") {
            below /= name;
        }
    }
    return below.empty() ? top : top / below;
}

bool HasDrive(std::u16string_view path) {
    return path.size() >= 2 && path[1] == u':' &&
           ((path[0] >= u'A' && path[0] <= u'Z') || (path[0] >= u'a' && path[0] <= u'z'));
}

/// Whether two openings of one file get along: each has to share what the other does.
bool GetAlong(std::uint32_t access, std::uint32_t shareMode, const FileSystem::Opening& other) {
    const auto shares = [](std::uint32_t share, std::uint32_t wanted) {
        return ((wanted & Reading) == 0 || (share & SharesReading) != 0) &&
               ((wanted & Writing) == 0 || (share & SharesWriting) != 0);
    };
    return shares(shareMode, other.access) && shares(other.shareMode, access);
}

} // namespace

FileSystem::FileSystem(std::string storePath, bool storeIsNew, FilesProfile profile)
    : m_storePath(std::move(storePath)), m_storeIsNew(storeIsNew), m_profile(std::move(profile)) {}

FileSystem::~FileSystem() {
    for (const auto& [number, file] : m_open) {
        ::close(file.descriptor);
    }
    if (m_storePath == ":memory:" && !m_root.empty()) {
        std::error_code ignored;
        fs::remove_all(m_root, ignored);
    }
}

const fs::path& FileSystem::Root() {
    if (m_root.empty()) {
        if (m_storePath == ":memory:") {
            std::string pattern = (fs::temp_directory_path() / "vesk-machine-XXXXXX").string();
            if (::mkdtemp(pattern.data()) == nullptr) {
                throw StoreError(pattern + ": no directory for the machine's files");
            }
            m_root = pattern;
        } else {
            m_root = fs::absolute(m_storePath + ".files");
        }
        Seed();
    }
    return m_root;
}

void FileSystem::Seed() {
    std::error_code problem;
    for (const std::u16string& directory : m_profile.directories) {
        fs::create_directories(*HostPath(directory), problem);
    }
    for (const FileProfile& file : m_profile.files) {
        const fs::path path = *HostPath(file.path);
        fs::create_directories(path.parent_path(), problem);
        if (m_storeIsNew) {
            std::ofstream(path, std::ios::binary) << file.text;
        }
    }
    for (const std::u16string& held : m_profile.heldOpen) {
        m_held.insert(*HostPath(held));
    }
}

std::optional<fs::path> FileSystem::HostPath(std::u16string_view path) {
    if (HasDrive(path)) {
        const std::string drive(1, static_cast<char>(Folded(path)[0]));
        return Below(Root() / drive, Utf8FromWide(Folded(path.substr(2))));
    }
    if (path.starts_with(u'/')) {
        return Below("/", Utf8FromWide(path));
    }
    return std::nullopt;
}

std::optional<std::uint32_t> FileSystem::Attributes(std::u16string_view path, SystemError& problem) {
    const auto host = HostPath(path);
    std::error_code trouble;
    const fs::file_status status =
        host ? fs::status(*host, trouble) : fs::file_status(fs::file_type::not_found);
    if (!fs::exists(status)) {
        problem = trouble ? FromErrno(trouble.value()) : platform::error::FileNotFound;
        return std::nullopt;
    }
    problem = platform::error::Success;
    return fs::is_directory(status) ? Directory : Archive;
}

bool FileSystem::SharesWith(const fs::path& path, const Opening& opening) const {
    for (const auto& [number, file] : m_open) {
        if (file.path == path && !GetAlong(file.access, file.shareMode, opening)) {
            return false;
        }
    }
    return !m_held.contains(path) || GetAlong(Reading, SharesReading | SharesWriting, opening);
}

bool FileSystem::SharesDeletion(const fs::path& path) const {
    for (const auto& [number, file] : m_open) {
        if (file.path == path && (file.shareMode & SharesDeleting) == 0) {
            return false;
        }
    }
    return !m_held.contains(path);
}

SystemError FileSystem::Open(std::u16string_view path, const Opening& opening, int& descriptor) {
    const auto host = HostPath(path);
    if (!host) {
        return platform::error::FileNotFound;
    }
    if (!SharesWith(*host, opening)) {
        return SharingViolation;
    }
    int flags = O_CLOEXEC;
    const bool writes = (opening.access & Writing) != 0;
    if (writes) {
        flags |= (opening.access & Reading) != 0 ? O_RDWR : O_WRONLY;
    }
    if (opening.disposition == CreateAlways || opening.disposition == OpenAlways) {
        flags |= O_CREAT;
    }
    if (opening.disposition == CreateAlways) {
        flags |= O_TRUNC;
    }
    if (fs::is_directory(*host)) {
        return platform::error::AccessDenied;
    }
    descriptor = ::open(host->c_str(), flags, 0644);
    return Outcome(descriptor >= 0);
}

void FileSystem::Keep(std::uintptr_t number, std::u16string_view path, const Opening& opening,
                      int descriptor) {
    m_open[number] = {*HostPath(path), opening.access, opening.shareMode, descriptor};
}

void FileSystem::Close(std::uintptr_t number) {
    if (const auto found = m_open.find(number); found != m_open.end()) {
        ::close(found->second.descriptor);
        m_open.erase(found);
    }
}

int FileSystem::DescriptorOf(std::uintptr_t number) const {
    const auto found = m_open.find(number);
    return found == m_open.end() ? -1 : found->second.descriptor;
}

SystemError FileSystem::Read(std::uintptr_t number, std::span<std::byte> buffer, std::uint32_t& read) {
    const auto count = ::read(DescriptorOf(number), buffer.data(), buffer.size());
    read = count > 0 ? static_cast<std::uint32_t>(count) : 0;
    return Outcome(count >= 0);
}

SystemError FileSystem::Write(std::uintptr_t number, std::span<const std::byte> data,
                              std::uint32_t& written) {
    const auto count = ::write(DescriptorOf(number), data.data(), data.size());
    written = count > 0 ? static_cast<std::uint32_t>(count) : 0;
    return Outcome(count >= 0);
}

SystemError FileSystem::CutAtPosition(std::uintptr_t number) {
    const int descriptor = DescriptorOf(number);
    return Outcome(::ftruncate(descriptor, ::lseek(descriptor, 0, SEEK_CUR)) == 0);
}

SystemError FileSystem::Flush(std::uintptr_t number) {
    return Outcome(::fsync(DescriptorOf(number)) == 0);
}

SystemError FileSystem::Move(std::u16string_view existing, std::u16string_view next, bool replace) {
    const auto from = HostPath(existing);
    const auto to = HostPath(next);
    if (!from || !to) {
        return platform::error::FileNotFound;
    }
    if (!SharesDeletion(*from)) {
        return SharingViolation;
    }
    if (!SharesDeletion(*to) || fs::is_directory(*to)) {
        return platform::error::AccessDenied;
    }
    if (!replace && fs::exists(*to)) {
        return AlreadyExists;
    }
    return Outcome(::rename(from->c_str(), to->c_str()) == 0);
}

SystemError FileSystem::Delete(std::u16string_view path) {
    const auto host = HostPath(path);
    if (!host) {
        return platform::error::FileNotFound;
    }
    if (!SharesDeletion(*host)) {
        return SharingViolation;
    }
    return Outcome(::unlink(host->c_str()) == 0);
}

} // namespace machine
