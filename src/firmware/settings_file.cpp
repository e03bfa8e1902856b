#include "firmware/settings_file.h"

#include "platform/files.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>

namespace sondrel {
namespace {

constexpr std::int64_t Largest = std::numeric_limits<std::int32_t>::max();

/// White space of the "C" locale.
constexpr bool IsNarrowSpace(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

bool WriteWhole(platform::Handle file, std::string_view text) {
    std::uint32_t written = 0;
    return platform::WriteFile(file, std::as_bytes(std::span(text)), written) && written == text.size();
}

/// The outcome of replacing the settings file by a new file.
enum class NewFile : std::uint8_t { Moved, NotCreated, NotMoved, NotWritten };

/// The new file is opened exclusively: a second writer at the same time cannot create it and writes in place.
NewFile WriteNewFile(const std::u16string& newPath, std::string_view text) {
    const platform::OwnedFile file(platform::CreateFileW(newPath.c_str(), platform::access::GenericWrite,
                                                         platform::share::None, platform::CreateAlways,
                                                         platform::FileAttributeNormal));
    if (!file) {
        return NewFile::NotCreated;
    }
    const bool written = WriteWhole(file.Get(), text) && platform::FlushFileBuffers(file.Get());
    return written ? NewFile::NotMoved : NewFile::NotWritten;
}

NewFile Replace(const std::u16string& path, std::string_view text) {
    const std::u16string newPath = path + u".new";
    const NewFile outcome = WriteNewFile(newPath, text);
    if (outcome == NewFile::NotCreated) {
        return outcome;
    }
    if (outcome == NewFile::NotMoved &&
        platform::MoveFileExW(newPath.c_str(), path.c_str(),
                              platform::move_file::ReplaceExisting | platform::move_file::WriteThrough)) {
        return NewFile::Moved;
    }
    platform::DeleteFileW(newPath.c_str());
    return outcome;
}

/// One write over the old content, then the rest is cut off: the file is never empty.
void Overwrite(const std::u16string& path, std::string_view text) {
    const platform::OwnedFile file(platform::CreateFileW(path.c_str(), platform::access::GenericWrite,
                                                         platform::share::ReadWrite, platform::OpenAlways,
                                                         platform::FileAttributeNormal));
    if (file && WriteWhole(file.Get(), text)) {
        platform::SetEndOfFile(file.Get());
    }
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

std::int32_t ReadSetting(const std::u16string& path, std::int32_t start) {
    const platform::OwnedFile file(platform::CreateFileW(path.c_str(), platform::access::GenericRead,
                                                         platform::share::ReadWrite, platform::OpenExisting,
                                                         platform::FileAttributeNormal));
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
    std::string text = std::to_string(number);
    text += platform::TextLineEnd();
    const NewFile outcome = Replace(path, text);
    // When the disk is too full for the new file, the old one is not touched: writing over it could lose both
    // numbers.
    if (outcome == NewFile::NotCreated || outcome == NewFile::NotMoved) {
        Overwrite(path, text);
    }
}

} // namespace sondrel
