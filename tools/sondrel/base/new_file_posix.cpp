// New files on systems with POSIX calls.
#include "base/error.h"
#include "base/new_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace tool {
namespace {

struct Opened {
    int number;

    ~Opened() { close(number); }
};

[[noreturn]] void ThrowReason(int code) {
    throw Error(std::generic_category().message(code));
}

void WriteAll(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = write(file, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            ThrowReason(errno);
        }
    }
}

/// What an ordinary new file gets.
mode_t UsualPermissions() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

} // namespace

NewFile::NewFile(std::filesystem::path name)
    : m_name(std::move(name)),
      m_file(open(m_name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600)) {
    if (m_file == -1) {
        ThrowReason(errno);
    }
}

NewFile::~NewFile() {
    close(m_file);
    if (!m_inPlace) {
        unlink(m_name.c_str());
    }
}

// NOLINTNEXTLINE(readability-make-member-function-const): it changes the file.
void NewFile::Write(std::string_view text) {
    WriteAll(m_file, text);
}

void NewFile::Replace(const std::filesystem::path& other) {
    struct stat before {};

    if (lstat(other.c_str(), &before) != 0) {
        before.st_mode = UsualPermissions();
    } else if (before.st_uid != geteuid() || before.st_gid != getegid()) {
        // Only root can give a file away; another user's file stays readable for its group.
        [[maybe_unused]] const int given = fchown(m_file, before.st_uid, before.st_gid);
    }
    if (fchmod(m_file, before.st_mode & 0777) != 0) {
        ThrowReason(errno);
    }
    if (fsync(m_file) != 0 && errno != EINVAL &&
        errno != ENOTSUP) { // a file system that has nothing to flush
        ThrowReason(errno);
    }
    if (rename(m_name.c_str(), other.c_str()) != 0) {
        ThrowReason(errno);
    }
    m_inPlace = true;
}

void WriteDirectly(const std::filesystem::path& device, std::string_view text) {
    const Opened file{open(device.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC)};
    if (file.number < 0) {
        ThrowReason(errno);
    }
    WriteAll(file.number, text);
}

} // namespace tool
