// A settings file: one decimal number and a line end. Other processes may have it open for reading and writing.
#pragma once

#include "platform/files.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace sondrel {

/// Parses one number as formatted extraction from a text stream does: white space is skipped, then one sign and
/// digits are read up to the first other character. The text may come in pieces. A number above 32 bits becomes
/// the nearest that fits; text that does not begin with a number becomes 0.
class NumberScanner {
public:
    /// False once the number has ended: further text cannot change it.
    bool Feed(std::string_view text);

    /// The number so far, or `start` if there was only white space.
    [[nodiscard]] std::int32_t Number(std::int32_t start) const;

private:
    enum class Place : std::uint8_t { BeforeNumber, InNumber, AfterNumber };

    bool Feed(char character);

    Place m_place = Place::BeforeNumber;
    bool m_negative = false;
    std::int64_t m_magnitude = 0;
};

/// Opens a settings file for reading; no lock is taken. Nothing if it cannot be opened, and for a symbolic link or a
/// mount point.
platform::OwnedFile OpenSetting(const std::u16string& path);

/// The number in a settings file; `start` if there is no file, or nothing but white space in it.
std::int32_t ReadSetting(const platform::OwnedFile& file, std::int32_t start);

/// Replaces the content of a settings file, which keeps its owner, access list and links. One writer at a time, by a
/// lock that is waited for at most one second; a file system without locks is written without one. A process that dies
/// leaves the old or the new number. A failure is not reported.
void WriteSetting(const std::u16string& path, std::int32_t number);

} // namespace sondrel
