#include "machine/models/storage/file_system.h"

#include "machine/models/storage/machine_path.h"
#include "platform/device_io.h"
#include "unicode/utf.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

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
constexpr std::uint32_t CreateAlways = 2;
constexpr std::uint32_t OpenAlways = 4;

constexpr SystemError PathNotFound = 3;
constexpr SystemError SharingViolation = 32;
constexpr SystemError DiskFull = 112;
constexpr SystemError NotLocked = 158;

// Of a directory on the way to a file. A link is no directory.
constexpr int OpenDirectory = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
// Of a file: nothing that would wait, as a pipe does, and no link.
constexpr int OpenFileOnly = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
// Of a link itself.
constexpr int OpenLink = O_PATH | O_NOFOLLOW | O_CLOEXEC;

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
    case ELOOP: // a link
    case ENXIO: // a pipe
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

[[noreturn]] void ThrowProblem(const std::string& path) {
    throw StoreError(path + ": " + std::strerror(errno));
}

/// Whether two openings of one file are possible together: each has to share what the other does.
bool AreCompatible(std::uint32_t access, std::uint32_t shareMode, const FileSystem::Opening& other) {
    const auto shares = [](std::uint32_t share, std::uint32_t wanted) {
        return ((wanted & Reading) == 0 || (share & SharesReading) != 0) &&
               ((wanted & Writing) == 0 || (share & SharesWriting) != 0);
    };
    return shares(shareMode, other.access) && shares(other.shareMode, access);
}

bool IsOfKind(int descriptor, mode_t kind) {
    struct stat status {};

    return ::fstat(descriptor, &status) == 0 && (status.st_mode & S_IFMT) == kind;
}

bool IsRegularFile(int descriptor) {
    return IsOfKind(descriptor, S_IFREG);
}

bool SetLock(int descriptor, int command, short kind, std::uint64_t offset, std::uint64_t size) {
    struct flock range {};

    range.l_type = kind;
    range.l_whence = SEEK_SET;
    range.l_start = static_cast<off_t>(offset);
    range.l_len = static_cast<off_t>(size);
    return ::fcntl(descriptor, command, &range) == 0;
}

/// Windows' file systems read and write a file one call at a time; the host's need not. Held for one call, on the bytes
/// where the content is.
class OneCallAtATime {
public:
    OneCallAtATime(int descriptor, short kind) : m_descriptor(descriptor) {
        SetLock(m_descriptor, F_OFD_SETLKW, kind, 0, ContentSize);
    }

    OneCallAtATime(const OneCallAtATime&) = delete;
    OneCallAtATime& operator=(const OneCallAtATime&) = delete;

    ~OneCallAtATime() { SetLock(m_descriptor, F_OFD_SETLK, F_UNLCK, 0, ContentSize); }

private:
    static constexpr std::uint64_t ContentSize = 4096;

    int m_descriptor;
};

bool WriteAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const auto count = ::write(descriptor, text.data(), text.size());
        if (count <= 0) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

} // namespace

Descriptor::~Descriptor() {
    if (m_number >= 0) {
        ::close(m_number);
    }
}

int FileSystem::Place::At() const {
    return onHost ? AT_FDCWD : directory.Get();
}

std::optional<struct stat> FileSystem::Place::Status() const {
    struct stat status {};

    const int flags = onHost ? 0 : AT_SYMLINK_NOFOLLOW;
    return ::fstatat(At(), name.c_str(), &status, flags) == 0 ? std::optional(status) : std::nullopt;
}

FileSystem::FileSystem(const std::string& storePath, const Store& store, FilesProfile profile)
    : m_store(store), m_profile(std::move(profile)), m_isTemporary(storePath == ":memory:") {
    if (m_isTemporary) {
        return; // created when a path asks for it
    }
    m_root = fs::absolute(storePath + ".files");
    if (::mkdir(m_root.c_str(), 0777) != 0 && errno != EEXIST) {
        ThrowProblem(m_root);
    }
    RootDescriptor();
    if (store.FilesState() != Store::Files::Complete) {
        CreateFiles(store.FilesState() == Store::Files::CreateMissing);
    }
}

FileSystem::~FileSystem() {
    if (m_isTemporary && !m_root.empty()) {
        std::error_code ignored;
        fs::remove_all(m_root, ignored);
    }
}

int FileSystem::RootDescriptor() {
    m_store.DemandUsable();
    if (m_rootDescriptor.IsOpen()) {
        return m_rootDescriptor.Get();
    }
    if (m_isTemporary) {
        std::string pattern = (fs::temp_directory_path() / "vesk-machine-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) {
            ThrowProblem(pattern);
        }
        m_root = pattern;
    }
    m_rootDescriptor = Descriptor(::open(m_root.c_str(), OpenDirectory));
    if (!m_rootDescriptor.IsOpen()) {
        ThrowProblem(m_root);
    }
    for (const std::u16string& locked : m_profile.locked) {
        m_locked.insert(*HostPath(locked));
    }
    if (m_isTemporary) {
        CreateFiles(false);
    }
    return m_rootDescriptor.Get();
}

void FileSystem::CreateFiles(bool onlyMissing) {
    for (const std::u16string& directory : m_profile.directories) {
        if (!OpenBelowRoot(NamesBelowRoot(directory), true).IsOpen()) {
            ThrowProblem(unicode::Utf8FromWide(directory));
        }
    }
    for (const FileProfile& file : m_profile.files) {
        CreateFile(file, onlyMissing);
    }
}

void FileSystem::CreateFile(const FileProfile& file, bool onlyMissing) {
    const Names names = NamesBelowRoot(file.path);
    const Descriptor directory = OpenBelowRoot(std::span(names).first(names.size() - 1), true);
    if (!directory.IsOpen()) {
        ThrowProblem(unicode::Utf8FromWide(file.path));
    }
    const int flags = OpenFileOnly | O_WRONLY | O_CREAT | (onlyMissing ? O_EXCL : 0);
    const Descriptor created(::openat(directory.Get(), names.back().c_str(), flags, 0644));
    if (!created.IsOpen() && onlyMissing && errno == EEXIST) {
        return;
    }
    // On the disk before the store says that it is there.
    if (!created.IsOpen() || !IsRegularFile(created.Get()) || ::ftruncate(created.Get(), 0) != 0 ||
        !WriteAll(created.Get(), file.text) || ::fsync(created.Get()) != 0) {
        ThrowProblem(unicode::Utf8FromWide(file.path));
    }
}

/// Opens a directory below the root, name by name and without following links. Not open, with errno set, on failure.
Descriptor FileSystem::OpenBelowRoot(std::span<const std::string> names, bool createMissing) {
    Descriptor directory(::openat(RootDescriptor(), ".", OpenDirectory));
    for (const std::string& name : names) {
        if (createMissing && ::mkdirat(directory.Get(), name.c_str(), 0777) != 0 && errno != EEXIST) {
            return Descriptor();
        }
        directory = Descriptor(::openat(directory.Get(), name.c_str(), OpenDirectory));
        if (!directory.IsOpen()) {
            break;
        }
    }
    return directory;
}

/// The path on the host's own disk, if a program on this host has stored it or a directory above it.
std::string FileSystem::GivenHostPath(std::u16string_view path) const {
    const Names names = NamesOf(unicode::Utf8FromWide(path));
    Statement given = m_store.Prepare("SELECT path FROM host_path");
    bool isGiven = false;
    while (given.Step()) {
        isGiven |= IsWithin(names, NamesOf(unicode::Utf8FromWide(given.Text(0))));
    }
    std::string whole;
    for (const std::string& name : names) {
        whole += '/' + name;
    }
    return !isGiven ? "" : whole.empty() ? "/" : whole;
}

std::optional<fs::path> FileSystem::HostPath(std::u16string_view path) {
    if (path.find(u'\0') != std::u16string_view::npos) {
        return std::nullopt;
    }
    if (HasDrive(path)) {
        RootDescriptor();
        fs::path whole = m_root;
        for (const std::string& name : NamesBelowRoot(path)) {
            whole /= name;
        }
        return whole;
    }
    const std::string given = path.starts_with(u'/') ? GivenHostPath(path) : std::string();
    return given.empty() ? std::nullopt : std::optional<fs::path>(given);
}

std::optional<FileSystem::Place> FileSystem::Find(std::u16string_view path, SystemError& problem) {
    const auto host = HostPath(path);
    if (!host) {
        problem = platform::error::FileNotFound;
        return std::nullopt;
    }
    Place place;
    if (!HasDrive(path)) {
        place.onHost = true;
        place.name = host->string();
        return place;
    }
    const Names names = NamesBelowRoot(path);
    place.name = names.back();
    place.directory = OpenBelowRoot(std::span(names).first(names.size() - 1), false);
    if (!place.directory.IsOpen()) {
        problem = FromErrno(errno);
        return std::nullopt;
    }
    return place;
}

std::optional<std::uint32_t> FileSystem::Attributes(std::u16string_view path, SystemError& problem) {
    const auto place = Find(path, problem);
    if (!place) {
        return std::nullopt;
    }
    const auto status = place->Status();
    const bool isDirectory = status && S_ISDIR(status->st_mode);
    if (!status || (!isDirectory && !S_ISREG(status->st_mode))) {
        problem = status ? platform::error::AccessDenied : FromErrno(errno);
        return std::nullopt;
    }
    problem = platform::error::Success;
    return isDirectory ? Directory : Archive;
}

bool FileSystem::SharesWith(const fs::path& path, const Opening& opening) const {
    for (const auto& [number, file] : m_open) {
        if (file.path == path && !AreCompatible(file.access, file.shareMode, opening)) {
            return false;
        }
    }
    return true;
}

SystemError FileSystem::Open(std::u16string_view path, const Opening& opening, int& descriptor) {
    SystemError problem = platform::error::Success;
    const auto place = Find(path, problem);
    if (!place) {
        return problem;
    }
    if (!SharesWith(*HostPath(path), opening)) {
        return SharingViolation;
    }
    const bool opensLinks = (opening.flags & platform::OpenReparsePoint) != 0;
    int flags = place->onHost && !opensLinks ? OpenFileOnly & ~O_NOFOLLOW : OpenFileOnly;
    if ((opening.access & Writing) != 0) {
        flags |= (opening.access & Reading) != 0 ? O_RDWR : O_WRONLY;
    }
    if (opening.disposition == CreateAlways || opening.disposition == OpenAlways) {
        flags |= O_CREAT;
    }
    Descriptor opened(::openat(place->At(), place->name.c_str(), flags, 0644));
    if (!opened.IsOpen() && errno == ELOOP && opensLinks) {
        opened = Descriptor(::openat(place->At(), place->name.c_str(), OpenLink));
    }
    if (!opened.IsOpen()) {
        return FromErrno(errno);
    }
    if (!IsRegularFile(opened.Get()) && !IsOfKind(opened.Get(), S_IFLNK)) {
        return platform::error::AccessDenied;
    }
    if (opening.disposition == CreateAlways && ::ftruncate(opened.Get(), 0) != 0) {
        return FromErrno(errno);
    }
    descriptor = opened.Release();
    return platform::error::Success;
}

void FileSystem::Keep(std::uintptr_t number, std::u16string_view path, const Opening& opening,
                      int descriptor) {
    m_open.insert_or_assign(
        number, OpenFile{*HostPath(path), opening.access, opening.shareMode, Descriptor(descriptor)});
}

void FileSystem::Close(std::uintptr_t number) {
    m_open.erase(number);
}

int FileSystem::DescriptorOf(std::uintptr_t number) const {
    const auto found = m_open.find(number);
    return found == m_open.end() ? -1 : found->second.descriptor.Get();
}

SystemError FileSystem::Read(std::uintptr_t number, std::span<std::byte> buffer, std::uint32_t& read) {
    const int descriptor = DescriptorOf(number);
    const OneCallAtATime turn(descriptor, F_RDLCK);
    const auto count = ::read(descriptor, buffer.data(), buffer.size());
    read = count > 0 ? static_cast<std::uint32_t>(count) : 0;
    return Outcome(count >= 0);
}

SystemError FileSystem::Write(std::uintptr_t number, std::span<const std::byte> data,
                              std::uint32_t& written) {
    const int descriptor = DescriptorOf(number);
    const OneCallAtATime turn(descriptor, F_WRLCK);
    const auto count = ::write(descriptor, data.data(), data.size());
    written = count > 0 ? static_cast<std::uint32_t>(count) : 0;
    return Outcome(count >= 0);
}

SystemError FileSystem::ReadTag(std::uintptr_t number, platform::FileAttributeTag& info) const {
    const int descriptor = DescriptorOf(number);
    info = {Archive, 0};
    if (IsOfKind(descriptor, S_IFLNK)) {
        info = {platform::file_attribute::ReparsePoint, platform::reparse_tag::SymbolicLink};
    }
    return descriptor < 0 ? platform::error::InvalidHandle : platform::error::Success;
}

SystemError FileSystem::SetEnd(std::uintptr_t number, std::uint64_t end) {
    return Outcome(::ftruncate(DescriptorOf(number), static_cast<off_t>(end)) == 0);
}

SystemError FileSystem::Flush(std::uintptr_t number) {
    return Outcome(::fsync(DescriptorOf(number)) == 0);
}

SystemError FileSystem::Lock(std::uintptr_t number, std::uint64_t offset, std::uint64_t size) {
    const auto found = m_open.find(number);
    if (found == m_open.end()) {
        return platform::error::InvalidHandle;
    }
    if (m_locked.contains(found->second.path)) {
        return platform::error::LockViolation;
    }
    if (SetLock(found->second.descriptor.Get(), F_OFD_SETLK, F_WRLCK, offset, size)) {
        return platform::error::Success;
    }
    if (errno == EAGAIN || errno == EACCES) {
        return platform::error::LockViolation;
    }
    return errno == EBADF ? platform::error::InvalidHandle : platform::error::NotSupported;
}

SystemError FileSystem::Unlock(std::uintptr_t number, std::uint64_t offset, std::uint64_t size) {
    const bool unlocked = SetLock(DescriptorOf(number), F_OFD_SETLK, F_UNLCK, offset, size);
    return unlocked ? platform::error::Success : NotLocked;
}

} // namespace machine
