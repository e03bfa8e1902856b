// A settings file: one number in decimal and a line end, as text.
//
// Other readers and writers may have the file open at the same time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sondrel {

/// Reads one number like formatted extraction from a text stream, however the text is cut into pieces: white
/// space is passed over, then come one sign and digits up to the first other character. Anything else gives 0,
/// a number beyond 32 bits the nearest that fits; nothing but white space gives no number.
class NumberScanner {
public:
    /// False when the number has ended, so that nothing that follows can change it.
    bool Feed(std::string_view text);

    /// The number so far, or `start` where none has begun.
    [[nodiscard]] std::int32_t Number(std::int32_t start) const;

private:
    enum class Place : std::uint8_t { BeforeNumber, InNumber, BehindNumber };

    bool Feed(char character);

    Place m_place = Place::BeforeNumber;
    bool m_negative = false;
    std::int64_t m_magnitude = 0;
};

/// The number in a settings file; `start` where the file is absent or holds none.
std::int32_t ReadSetting(const std::u16string& path, std::int32_t start);

/// Puts a number in place of what the file held. A crash or a full disk leaves the old number or the new one,
/// but for a file that somebody holds open without sharing its deletion: that one is written in place. A
/// failure is not told.
void WriteSetting(const std::u16string& path, std::int32_t number);

} // namespace sondrel
