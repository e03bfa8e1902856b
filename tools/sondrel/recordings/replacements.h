// What a redacted recording has in place of what a person or a machine could be recognised by.
#pragma once

#include "observer/value.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace tool {

enum class Secret : std::uint8_t {
    Serial,
    Uuid,
    NetAddress,
    Ssid,
    User,
    Computer,
    Sid,
    Path,
    Title,
    Oem,
    Count
};

/// Replaces what it was given, and what it recognises by its form: MAC and IP addresses, SIDs, paths below a user's
/// profile. A replacement has the length and the alphabet of what it replaces and is numbered within its kind by first
/// appearance, so that nothing can be computed back and two recordings of one machine compare.
class Replacements {
public:
    /// The string is replaced wherever it appears, in any case: in strings, and in bytes as UTF-8 and UTF-16.
    void AddText(Secret kind, std::u16string_view text);

    /// The bytes are replaced wherever they appear in a block of bytes.
    void AddBytes(Secret kind, const observer::Bytes& bytes);

    /// "Domain\user", or a user alone; several with semicolons between them, as the library joins them.
    void AddAccount(std::u16string_view account);

    void AddGuid(const platform::Guid& guid);

    /// In place only.
    observer::Bytes Ssid(const observer::Bytes& name);

    /// Four numbers with dots are a version from now on, or an address.
    void TakeForVersions(bool versions) { m_versions = versions; }

    /// In place only: the whole string, whatever it is.
    std::u16string WholeText(Secret kind, const std::u16string& text);

    /// With everything replaced in it.
    std::u16string Text(std::u16string text);
    observer::Bytes Block(observer::Bytes bytes);
    [[nodiscard]] platform::Guid Guid(const platform::Guid& guid) const;

private:
    /// The replacement that this string has had before, or a new one.
    const std::u16string& TextFor(Secret kind, std::u16string_view text);
    const observer::Bytes& BytesFor(Secret kind, const observer::Bytes& bytes);
    unsigned NextOf(Secret kind) { return ++m_numbers[static_cast<std::size_t>(kind)]; }

    void ReplaceKnown(std::u16string& text) const;
    void ReplaceAddresses(std::u16string& text);
    void ReplaceIpAddresses(std::u16string& text);
    void ReplaceSids(std::u16string& text);
    void ReplaceProfilePaths(std::u16string& text);

    bool m_versions = false;
    std::array<unsigned, static_cast<std::size_t>(Secret::Count)> m_numbers{};
    std::map<std::u16string, std::u16string> m_texts; // by the text in lower case
    std::map<std::u16string, std::u16string>
        m_everywhere; // those of them that are replaced wherever they appear
    std::map<observer::Bytes, observer::Bytes> m_bytes;
};

} // namespace tool
