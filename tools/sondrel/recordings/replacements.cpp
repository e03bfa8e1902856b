#include "recordings/replacements.h"

#include "base/text.h"
#include "observer/recording/json.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <vector>

namespace tool {
namespace {

/// Shorter ones are replaced only where no letter or digit is next to them.
constexpr std::size_t LongEnough = 6;

/// The letter that a replacement of each kind is filled with.
constexpr std::u16string_view Fillers = u"SAHNUCDPTO";
static_assert(Fillers.size() == static_cast<std::size_t>(Secret::Count));

/// What makers write where there is nothing: it identifies no machine, and is part of too much else.
constexpr std::u16string_view Placeholders[] = {u"none",
                                                u"unknown",
                                                u"default string",
                                                u"not specified",
                                                u"not available",
                                                u"not applicable",
                                                u"system serial number",
                                                u"chassis serial number",
                                                u"to be filled by o.e.m."};

/// Directories of all users.
constexpr std::u16string_view SharedProfiles[] = {u"public", u"default", u"all users"};

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

bool IsUpper(char16_t c) {
    return c >= u'A' && c <= u'Z';
}

bool IsLower(char16_t c) {
    return c >= u'a' && c <= u'z';
}

bool IsLetterOrDigit(char16_t c) {
    return IsDigit(c) || IsUpper(c) || IsLower(c) || c >= 0x80;
}

std::optional<unsigned> HexDigit(char16_t c) {
    return IsDigit(c)               ? std::optional(c - u'0')
           : c >= u'a' && c <= u'f' ? std::optional(c - u'a' + 10)
           : c >= u'A' && c <= u'F' ? std::optional(c - u'A' + 10)
                                    : std::nullopt;
}

bool IsIpV4(std::u16string_view token) {
    unsigned numbers = 0;
    while (!token.empty()) {
        unsigned number = 0;
        std::size_t digits = 0;
        for (; digits < token.size() && IsDigit(token[digits]); ++digits) {
            number = std::min(number * 10 + token[digits] - u'0', 1000u);
        }
        if (digits == 0 || digits > 3 || number > 255 || (digits < token.size() && token[digits] != u'.')) {
            return false;
        }
        ++numbers;
        token.remove_prefix(std::min(token.size(), digits + 1));
    }
    return numbers == 4;
}

bool IsIpV6(std::u16string_view token) {
    const auto colons = std::ranges::count(token, u':');
    const bool shortened = token.find(u"::") != std::u16string_view::npos;
    return token.size() > 3 && std::ranges::count(token, u'.') == 0 &&
           (colons == 7 || (shortened && colons >= 2));
}

/// Another character of the same class and, in UTF-8, of the same length.
char16_t Filled(char16_t c, char16_t filler) {
    return IsDigit(c)                  ? u'0'
           : IsUpper(c)                ? filler
           : IsLower(c)                ? static_cast<char16_t>(filler + 32)
           : c < 0x80                  ? c
           : c < 0x800                 ? u'\u00F8'
           : c >= 0xD800 && c < 0xDC00 ? char16_t{0xD83D}
           : c >= 0xDC00 && c < 0xE000 ? char16_t{0xDE00}
                                       : u'\u4E00';
}

/// The number from the last place on, each place in its own alphabet.
std::u16string Numbered(std::u16string_view text, char16_t filler, unsigned number) {
    const unsigned letters = filler == u'A' ? 6 : 26; // a UUID stays hexadecimal
    std::u16string made(text);
    for (char16_t& c : made) {
        c = Filled(c, filler);
    }
    for (std::size_t place = made.size(); place-- > 0 && number != 0;) {
        if (IsDigit(made[place])) {
            made[place] = static_cast<char16_t>(u'0' + number % 10);
            number /= 10;
        } else if (IsLower(made[place]) || IsUpper(made[place])) {
            made[place] = static_cast<char16_t>((IsLower(made[place]) ? u'a' : u'A') + number % letters);
            number /= letters;
        }
    }
    return made;
}

/// Where a part begins again in a string, from a place on, not inside a longer word if it is short.
std::size_t FindWord(const std::u16string& lower, const std::u16string& part, std::size_t from) {
    for (std::size_t place = lower.find(part, from); place != std::u16string::npos;
         place = lower.find(part, place + 1)) {
        const std::size_t end = place + part.size();
        const bool alone = (place == 0 || !IsLetterOrDigit(lower[place - 1])) &&
                           (end == lower.size() || !IsLetterOrDigit(lower[end]));
        if (alone || part.size() >= LongEnough) {
            return place;
        }
    }
    return std::u16string::npos;
}

std::u16string Units(const observer::Bytes& bytes, std::size_t first) {
    std::u16string text((bytes.size() - first) / 2, u'\0');
    std::memcpy(text.data(), bytes.data() + first, text.size() * 2);
    return text;
}

/// As it is recorded, which is as it is written without braces.
std::u16string GuidString(const platform::Guid& guid) {
    std::string json;
    observer::AppendJson(json, {guid});
    const std::size_t length = std::string_view("5e1b8c0f-3d2a-4b71-9c44-7a60d1f2e385").size();
    const std::string text = json.substr(json.rfind('"') - length, length);
    return {text.begin(), text.end()};
}

observer::Bytes RawBytes(const platform::Guid& guid) {
    observer::Bytes bytes(sizeof guid);
    std::memcpy(bytes.data(), &guid, sizeof guid);
    return bytes;
}

} // namespace

void Replacements::AddText(Secret kind, std::u16string_view text) {
    const std::u16string lower = Lower(text);
    const bool says = std::ranges::any_of(text, IsLetterOrDigit);
    const bool repeats = std::ranges::all_of(lower, [&](char16_t c) { return c == lower.front(); });
    if (lower.size() < 2 || !says || repeats ||
        std::ranges::find(Placeholders, lower) != std::end(Placeholders)) {
        return;
    }
    m_everywhere.emplace(lower, TextFor(kind, text));
}

void Replacements::AddBytes(Secret kind, const observer::Bytes& bytes) {
    if (std::ranges::any_of(bytes, [&](std::byte byte) { return byte != bytes.front(); })) {
        BytesFor(kind, bytes);
    }
}

void Replacements::AddAccount(std::u16string_view account) {
    if (const std::size_t next = account.find(u';'); next != std::u16string_view::npos) {
        AddAccount(account.substr(next + 1));
        account = account.substr(0, next);
    }
    const std::size_t separator = account.find(u'\\');
    if (separator != std::u16string_view::npos) {
        AddText(Secret::Computer, account.substr(0, separator));
        account.remove_prefix(separator + 1);
    }
    AddText(Secret::User, account);
}

void Replacements::AddGuid(const platform::Guid& guid) {
    AddBytes(Secret::Uuid, RawBytes(guid));
    m_everywhere.emplace(Lower(GuidString(guid)), GuidString(Guid(guid)));
}

observer::Bytes Replacements::Ssid(const observer::Bytes& name) {
    std::u16string text(name.size(), u'\0');
    std::ranges::transform(name, text.begin(),
                           [](std::byte byte) { return std::to_integer<char16_t>(byte); });
    if (!text.empty()) {
        text = TextFor(Secret::Ssid, text);
    }
    observer::Bytes made(name.size());
    std::ranges::transform(text, made.begin(), [](char16_t c) { return static_cast<std::byte>(c); });
    return made;
}

std::u16string Replacements::WholeText(Secret kind, const std::u16string& text) {
    return text.empty() ? text : TextFor(kind, text);
}

std::u16string Replacements::Text(std::u16string text) {
    ReplaceProfilePaths(text);
    ReplaceSids(text);
    ReplaceAddresses(text);
    ReplaceIpAddresses(text);
    ReplaceKnown(text);
    return text;
}

observer::Bytes Replacements::Block(observer::Bytes bytes) {
    for (const auto& [secret, replacement] : m_bytes) {
        for (auto found = bytes.begin();;) {
            found = std::search(found, bytes.end(), secret.begin(), secret.end());
            if (found == bytes.end()) {
                break;
            }
            found = std::ranges::copy(replacement, found).out;
        }
    }
    for (const std::size_t first : {std::size_t{0}, std::size_t{1}}) {
        if (bytes.size() >= first + 4) {
            const std::u16string text = Text(Units(bytes, first));
            std::memcpy(bytes.data() + first, text.data(), text.size() * 2);
        }
    }
    std::u16string narrow(bytes.size(), u'\0');
    std::ranges::transform(bytes, narrow.begin(),
                           [](std::byte byte) { return std::to_integer<char16_t>(byte); });
    narrow = Text(std::move(narrow));
    std::ranges::transform(narrow, bytes.begin(), [](char16_t c) { return static_cast<std::byte>(c); });
    return bytes;
}

platform::Guid Replacements::Guid(const platform::Guid& guid) const {
    platform::Guid replaced = guid;
    if (const auto found = m_bytes.find(RawBytes(guid)); found != m_bytes.end()) {
        std::memcpy(&replaced, found->second.data(), sizeof replaced);
    }
    return replaced;
}

const std::u16string& Replacements::TextFor(Secret kind, std::u16string_view text) {
    const auto [place, isNew] = m_texts.try_emplace(Lower(text));
    while (isNew && (place->second.empty() || Lower(place->second) == place->first)) {
        place->second = Numbered(text, Fillers[static_cast<std::size_t>(kind)], NextOf(kind));
        if (std::ranges::none_of(text, IsLetterOrDigit)) {
            break; // nothing to replace
        }
    }
    return place->second;
}

/// An address stays one that is locally administered; everything else becomes a number.
const observer::Bytes& Replacements::BytesFor(Secret kind, const observer::Bytes& bytes) {
    const auto [place, isNew] = m_bytes.try_emplace(bytes);
    if (isNew) {
        observer::Bytes made(bytes.size());
        unsigned number = NextOf(kind);
        for (std::size_t i = made.size(); i-- > 0 && number != 0; number >>= 8) {
            made[i] = static_cast<std::byte>(number);
        }
        made.front() |= kind == Secret::NetAddress ? std::byte{2} : std::byte{0x5E};
        place->second = std::move(made);
    }
    return place->second;
}

/// The longest first: one may be part of another.
void Replacements::ReplaceKnown(std::u16string& text) const {
    std::vector<const std::pair<const std::u16string, std::u16string>*> known;
    for (const auto& each : m_everywhere) {
        known.push_back(&each);
    }
    std::ranges::stable_sort(known, std::greater(), [](const auto* each) { return each->first.size(); });
    std::u16string lower = Lower(text);
    for (const auto* const each : known) {
        const auto& [secret, replacement] = *each;
        for (std::size_t place = FindWord(lower, secret, 0); place != std::u16string::npos;
             place = FindWord(lower, secret, place + secret.size())) {
            for (std::size_t i = 0; i < secret.size(); ++i) { // in the case of the place
                const char16_t c = replacement[i];
                text[place + i] = IsLower(text[place + i]) && IsUpper(c)   ? static_cast<char16_t>(c + 32)
                                  : IsUpper(text[place + i]) && IsLower(c) ? static_cast<char16_t>(c - 32)
                                                                           : c;
                lower[place + i] = u'\0'; // not to be found again
            }
        }
    }
}

void Replacements::ReplaceAddresses(std::u16string& text) {
    // Bytes in hexadecimal with one separator between them: a MAC address of 6, a UUID of 16 with hyphens.
    for (std::size_t start = 0; start + 17 <= text.size(); ++start) {
        if (start != 0 && (HexDigit(text[start - 1]) || text[start - 1] == u':')) {
            continue;
        }
        const char16_t separator = text[start + 2];
        observer::Bytes bytes;
        for (std::size_t i = start;
             i + 1 < text.size() && bytes.size() < 6 && HexDigit(text[i]) && HexDigit(text[i + 1]); i += 3) {
            bytes.push_back(static_cast<std::byte>(*HexDigit(text[i]) << 4 | *HexDigit(text[i + 1])));
            if (bytes.size() < 6 && (i + 2 >= text.size() || text[i + 2] != separator)) {
                break;
            }
        }
        const bool ends =
            start + 17 == text.size() || (!HexDigit(text[start + 17]) && text[start + 17] != separator);
        if (bytes.size() != 6 || !ends || (separator != u':' && separator != u'-') ||
            std::ranges::all_of(bytes, [&](std::byte byte) { return byte == bytes.front(); })) {
            continue;
        }
        const observer::Bytes& made = BytesFor(Secret::NetAddress, bytes);
        for (std::size_t i = 0; i < made.size(); ++i) {
            const bool upper = std::ranges::any_of(text.substr(start, 17), IsUpper);
            const std::u16string_view digits = upper ? u"0123456789ABCDEF" : u"0123456789abcdef";
            text[start + 3 * i] = digits[std::to_integer<unsigned>(made[i]) >> 4];
            text[start + 3 * i + 1] = digits[std::to_integer<unsigned>(made[i]) & 0xF];
        }
    }
}

/// Four numbers up to 255, or colons between hexadecimal digits. A version looks like the former: it is none where a
/// package's name goes on, or where it is called one.
void Replacements::ReplaceIpAddresses(std::u16string& text) {
    const auto belongs = [](char16_t c) {
        return HexDigit(c) || c == u'.' || c == u':';
    };
    for (std::size_t start = 0; start < text.size(); ++start) {
        std::size_t end = start;
        while (end < text.size() && belongs(text[end])) {
            ++end;
        }
        const std::u16string token = text.substr(start, end - start);
        const auto isWord = [&](std::size_t place) {
            return IsLetterOrDigit(text[place]) || text[place] == u'_';
        };
        const bool alone = (start == 0 || !isWord(start - 1)) && (end == text.size() || !isWord(end));
        const std::u16string before = Lower(std::u16string_view(text).substr(0, start));
        const bool version =
            before.find(u"version", start - std::min<std::size_t>(start, 12)) != std::u16string::npos;
        if (alone && ((IsIpV4(token) && !version && !m_versions) || IsIpV6(token))) {
            text.replace(start, token.size(), TextFor(Secret::NetAddress, token));
        }
        start = std::max(start, end);
    }
}

/// "S-1-5-21-" and the numbers of a machine or a domain.
void Replacements::ReplaceSids(std::u16string& text) {
    constexpr std::u16string_view Start = u"S-1-5-21-";
    for (std::size_t place = 0; (place = text.find(Start, place)) != std::u16string::npos;) {
        place += Start.size();
        const std::size_t end = std::min(text.find_first_not_of(u"0123456789-", place), text.size());
        const std::u16string numbers = text.substr(place, end - place);
        if (!numbers.empty()) {
            text.replace(place, numbers.size(), TextFor(Secret::Sid, numbers));
        }
        place = end;
    }
}

/// "C:\Users\" and what comes after it, name by name.
void Replacements::ReplaceProfilePaths(std::u16string& text) {
    constexpr std::u16string_view Start = u":\\users\\";
    const std::u16string lower = Lower(text);
    for (std::size_t place = 0; (place = lower.find(Start, place)) != std::u16string::npos;) {
        place += Start.size();
        std::u16string_view ends(u"\"<>|?*;,\0", 9);
        const std::size_t end = std::min(lower.find_first_of(ends, place), lower.size());
        bool first = true;
        for (std::size_t name = place; name < end;) {
            const std::size_t nameEnd = std::min(lower.find_first_of(u"\\.", name), end);
            const std::u16string part = text.substr(name, nameEnd - name);
            if (first && std::ranges::find(SharedProfiles, Lower(part)) == std::end(SharedProfiles)) {
                AddText(Secret::User, part);
            }
            if (!part.empty() && (name == place || text[name - 1] != u'.')) {
                text.replace(name, part.size(), TextFor(first ? Secret::User : Secret::Path, part));
            }
            first = false;
            name = nameEnd + 1;
        }
        place = end;
    }
}

} // namespace tool
