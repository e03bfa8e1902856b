#include "firmware/settings_file.h"

#include "platform/time.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>
#include <utility>

namespace sondrel {
namespace {

constexpr std::int64_t Largest = std::numeric_limits<std::int32_t>::max();

/// White space of the "C" locale.
constexpr bool IsNarrowSpace(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

/// "-2147483648" and the longest line end.
constexpr std::size_t LongestLine = 13;

// One writer at a time holds this byte, which is never part of the content: reading needs no lock.
constexpr std::uint64_t LockOffset = 0x40000000;
constexpr std::uint64_t LockSize = 1;

// A wait can take one tick of the system's clock longer, 16 ms: together they stay below one second.
constexpr unsigned LockRetries = 30;
constexpr std::uint32_t LockWaitMilliseconds = 15;

/// Whether the operation failed because the file system does not have it.
bool IsMissing(platform::SystemError error) {
    return error == platform::error::InvalidFunction || error == platform::error::NotSupported ||
           error == platform::error::InvalidParameter;
}

/// Opens the file that has this name. A name that leads elsewhere (a symbolic link, a mount point) counts as a file that
/// cannot be opened: a user who may write to the directory could make a service overwrite any file with it.
platform::OwnedFile OpenItself(const std::u16string& path, std::uint32_t access, std::uint32_t disposition) {
    const auto open = [&](std::uint32_t flags) {
        return platform::OwnedFile(platform::CreateFileW(path.c_str(), access, platform::share::ReadWrite,
                                                         disposition, platform::FileAttributeNormal | flags));
    };
    platform::OwnedFile file = open(platform::OpenReparsePoint);
    if (!file) {
        return file;
    }
    platform::FileAttributeTag info;
    if (!platform::GetFileInformationByHandleEx(file.Get(), info)) {
        return IsMissing(platform::GetLastError()) ? std::move(file) : platform::OwnedFile();
    }
    if ((info.attributes & platform::file_attribute::ReparsePoint) == 0) {
        return file;
    }
    if ((info.reparseTag & platform::reparse_tag::NameSurrogate) != 0) {
        return {};
    }
    // The content of any other reparse point, a file in the cloud for example, comes with an ordinary opening. The name
    // stays with this file meanwhile: it is open without FILE_SHARE_DELETE.
    return open(0);
}

/// The turn of one writer, until its end.
class WriterTurn {
public:
    explicit WriterTurn(platform::Handle file) : m_file(file) {
        for (unsigned retry = 0; !TryLock() && m_answer == Answer::Busy && retry < LockRetries; ++retry) {
            platform::Sleep(LockWaitMilliseconds);
        }
    }

    WriterTurn(const WriterTurn&) = delete;
    WriterTurn& operator=(const WriterTurn&) = delete;

    ~WriterTurn() {
        if (m_answer == Answer::Locked) {
            platform::UnlockFileEx(m_file, LockOffset, LockSize);
        }
    }

    /// Also on a file system without locks.
    [[nodiscard]] bool MayWrite() const { return m_answer == Answer::Locked || m_answer == Answer::NoLocks; }

private:
    enum class Answer : std::uint8_t { Locked, Busy, NoLocks, Failed };

    bool TryLock() {
        using namespace platform::lock_file;
        if (platform::LockFileEx(m_file, FailImmediately | Exclusive, LockOffset, LockSize)) {
            m_answer = Answer::Locked;
            return true;
        }
        const platform::SystemError error = platform::GetLastError();
        m_answer = error == platform::error::LockViolation ? Answer::Busy
                   : IsMissing(error)                      ? Answer::NoLocks
                                                           : Answer::Failed;
        return false;
    }

    platform::Handle m_file;
    Answer m_answer = Answer::Failed;
};

/// The number of bytes written.
std::size_t WriteAll(platform::Handle file, std::string_view text) {
    std::size_t done = 0;
    std::uint32_t written = 0;
    while (done < text.size() &&
           platform::WriteFile(file, std::as_bytes(std::span(text.substr(done))), written) && written != 0) {
        done += written;
    }
    return done;
}

/// Replaces the content of a file that was just opened. One write has the whole line, and blanks over what the old
/// content may have after it; only then the file is cut. A reader, at the same time or after this process has died, gets
/// the old number or the new one.
void Replace(platform::Handle file, std::string_view line) {
    std::string padded(line);
    padded.resize(LongestLine, ' ');
    const std::size_t written = WriteAll(file, padded);
    if (written == 0) {
        return;
    }
    // On the disk before the file is cut: after a power failure, the new length must not meet the old digits.
    platform::FlushFileBuffers(file);
    // A disk that took a part of the line has lost both numbers: no number is better than a part of one.
    platform::SetFileInformationByHandle(file, written < line.size() ? 0 : line.size());
    platform::FlushFileBuffers(file);
}

} // namespace

bool NumberScanner::Feed(std::string_view text) {
    return std::ranges::all_of(text, [this](char character) { return Feed(character); });
}

bool NumberScanner::Feed(char character) {
    if (m_place == Place::BeforeNumber && IsNarrowSpace(character)) {
        return true;
    }
    if (m_place == Place::BeforeNumber && (character == '-' || character == '+')) {
        m_place = Place::InNumber;
        m_negative = character == '-';
        return true;
    }
    if (m_place == Place::AfterNumber || character < '0' || character > '9') {
        m_place = Place::AfterNumber;
        return false;
    }
    m_place = Place::InNumber;
    m_magnitude = std::min(m_magnitude * 10 + (character - '0'), Largest + 1);
    return true;
}

std::int32_t NumberScanner::Number(std::int32_t start) const {
    if (m_place == Place::BeforeNumber) {
        return start;
    }
    return static_cast<std::int32_t>(m_negative ? -m_magnitude : std::min(m_magnitude, Largest));
}

platform::OwnedFile OpenSetting(const std::u16string& path) {
    return OpenItself(path, platform::access::GenericRead, platform::OpenExisting);
}

std::int32_t ReadSetting(const platform::OwnedFile& file, std::int32_t start) {
    if (!file) {
        return start;
    }
    NumberScanner scanner;
    std::array<char, 256> piece;
    std::uint32_t read = 0;
    while (platform::ReadFile(file.Get(), std::as_writable_bytes(std::span(piece)), read) && read != 0 &&
           scanner.Feed({piece.data(), std::min<std::size_t>(read, piece.size())})) {
    }
    return scanner.Number(start);
}

void WriteSetting(const std::u16string& path, std::int32_t number) {
    std::string line = std::to_string(number);
    line += platform::TextLineEnd();
    const platform::OwnedFile file = OpenItself(path, platform::access::GenericWrite, platform::OpenAlways);
    if (!file) {
        return;
    }
    const WriterTurn turn(file.Get());
    if (turn.MayWrite()) {
        Replace(file.Get(), line);
    }
}

} // namespace sondrel
