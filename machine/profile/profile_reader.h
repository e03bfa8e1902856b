// Reads the members of a profile's JSON objects and collects every error with its JSON pointer.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <limits>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace machine {

/// One error of a profile: "/ec/chip_id" and "expected a whole number from 0 to 255, ...".
struct ProfileIssue {
    std::string pointer; // empty: the whole document
    std::string message;
    std::vector<std::string> knownNames{}; // for an unknown name: the names that the object may have
    std::optional<std::size_t> byte{};     // where the document stops being JSON, instead of a pointer
};

using ProfileIssues = std::vector<ProfileIssue>;

/// A name as a part of a JSON pointer.
std::string PointerPart(std::string_view name);

/// Bytes from pairs of hexadecimal digits with blanks between them; nothing for another string.
std::optional<std::vector<std::byte>> BytesFromHex(std::string_view text);

/// Whether an object may lack a member, whose value is then the default.
enum class Presence : std::uint8_t { Optional, Required };

/// The range of a whole number.
struct Limits {
    std::uint64_t low = 0;
    std::uint64_t high = std::numeric_limits<std::uint64_t>::max();
};

/// What a string has to look like.
struct StringRule {
    std::string expected = "a string";
    std::function<bool(const std::string&)> holds{};
};

/// Exactly so many printable ASCII characters.
StringRule PrintableAscii(std::size_t length);
/// At most so many.
StringRule PrintableAsciiUpTo(std::size_t length);

/// One JSON object of a profile. Each function reads one member: it returns true when the member is there and
/// right. A wrong member, and a required one that is missing, becomes an issue; the value stays the default, and
/// reading goes on. Every name that is asked for is known to the grammar; all others are issues too.
class ProfileReader {
public:
    using Body = std::function<void(ProfileReader&)>;

    /// Reads a whole object with `body`.
    static void Read(const nlohmann::json& value, const std::string& pointer, ProfileIssues& issues,
                     const Body& body);

    bool Has(std::string_view name);

    /// Optional members by name, each in the whole range of its type: Members("rpm", fan.rpm, "lid", ec.lid).
    template <class Value, class... More>
    void Members(std::string_view name, Value& value, More&&... more) {
        Member(name, value);
        if constexpr (sizeof...(more) != 0) {
            Members(std::forward<More>(more)...);
        }
    }

    bool Flag(std::string_view name, bool& flag);
    bool Real(std::string_view name, double& number, double low, double high,
              Presence presence = Presence::Optional);

    /// A whole number, as a JSON number or as a string of hexadecimal digits after "0x".
    template <class Integer>
    bool Number(std::string_view name, Integer& number, Limits limits,
                Presence presence = Presence::Optional) {
        const std::optional<std::uint64_t> read = WholeNumber(name, limits, presence);
        number = read ? static_cast<Integer>(*read) : number;
        return read.has_value();
    }

    template <class Integer>
    bool Number(std::string_view name, Integer& number, Presence presence = Presence::Optional) {
        return Number(name, number, {0, std::numeric_limits<Integer>::max()}, presence);
    }

    bool String(std::string_view name, std::string& text, Presence presence = Presence::Optional,
                const StringRule& rule = {});
    bool String(std::string_view name, std::u16string& text, Presence presence = Presence::Optional,
                const StringRule& rule = {});

    /// One of a fixed set of words, which are those of an enumeration in its order.
    template <class Enumeration>
    bool Choice(std::string_view name, std::initializer_list<std::string_view> words, Enumeration& choice,
                Presence presence = Presence::Optional) {
        const std::optional<std::size_t> read = WordOf(name, words, presence);
        choice = read ? static_cast<Enumeration>(*read) : choice;
        return read.has_value();
    }

    bool Bytes(std::string_view name, std::vector<std::byte>& bytes, Presence presence = Presence::Optional);
    /// Exactly so many bytes; `separators` may be between their digits.
    bool Bytes(std::string_view name, std::vector<std::byte>& bytes, std::size_t count,
               std::string_view separators = "", Presence presence = Presence::Optional);

    // Lists. Elements are added to what is there; one that is wrong is left out.
    void Strings(std::string_view name, std::vector<std::u16string>& texts,
                 Presence presence = Presence::Optional, const StringRule& rule = {});
    void Reals(std::string_view name, std::vector<double>& numbers, double low, double high);

    template <class Integer>
    void Numbers(std::string_view name, std::vector<Integer>& numbers, Limits limits) {
        for (const std::uint64_t number : WholeNumbers(name, limits)) {
            numbers.push_back(static_cast<Integer>(number));
        }
    }

    /// An object that the profile may lack.
    bool Object(std::string_view name, const Body& body, Presence presence = Presence::Optional);

    /// The same for a record with a function that reads it.
    template <class Record>
    bool Object(std::string_view name, Record& record, void (*read)(ProfileReader&, Record&)) {
        return Object(name, [&](ProfileReader& reader) { read(reader, record); });
    }

    /// The same for a record that is there when the object is.
    template <class Record>
    bool Object(std::string_view name, std::optional<Record>& record, void (*read)(ProfileReader&, Record&)) {
        return Object(name, [&](ProfileReader& reader) { read(reader, record.emplace()); });
    }

    /// A list of objects.
    void Objects(std::string_view name, const Body& body);

    template <class Record>
    void Objects(std::string_view name, std::vector<Record>& records, void (*read)(ProfileReader&, Record&)) {
        Objects(name, [&](ProfileReader& reader) { read(reader, records.emplace_back()); });
    }

    /// The names of an object that chooses its names itself. All of them are known.
    std::vector<std::string> Names();

    /// A member whose type says how to read it; null when there is none.
    const nlohmann::json* Value(std::string_view name, const std::string& expected,
                                Presence presence = Presence::Optional);

    /// Adds an issue to a member.
    void Fail(std::string_view name, const std::string& expected);

private:
    void Member(std::string_view name, bool& flag) { Flag(name, flag); }

    void Member(std::string_view name, std::string& text) { String(name, text); }

    void Member(std::string_view name, std::u16string& text) { String(name, text); }

    template <std::unsigned_integral Integer>
    void Member(std::string_view name, Integer& number) {
        Number(name, number);
    }

    /// There when the member is.
    template <class Value>
    void Member(std::string_view name, std::optional<Value>& value) {
        if (Value read{}; Has(name)) {
            Member(name, read);
            value = std::move(read);
        }
    }

    ProfileReader(const nlohmann::json& object, std::string pointer, ProfileIssues& issues)
        : m_object(object), m_pointer(std::move(pointer)), m_issues(issues) {}

    /// Sets `target` to what `convert` returns for a member; a member for which that is nothing becomes an issue.
    template <class Target, class Convert>
    bool Take(std::string_view name, const std::string& expected, Presence presence, Target& target,
              Convert convert);
    /// The same for the elements of a list, which are added to `targets`.
    template <class Target, class Convert>
    void TakeAll(std::string_view name, const std::string& expected, Presence presence,
                 std::vector<Target>& targets, Convert convert);
    /// Passes on the elements of a list. One that `take` does not take becomes an issue.
    void Elements(std::string_view name, const std::string& expected, Presence presence,
                  const std::function<bool(const nlohmann::json&)>& take);
    std::optional<std::uint64_t> WholeNumber(std::string_view name, Limits limits, Presence presence);
    std::vector<std::uint64_t> WholeNumbers(std::string_view name, Limits limits);
    std::optional<std::size_t> WordOf(std::string_view name, std::initializer_list<std::string_view> words,
                                      Presence presence);
    [[nodiscard]] std::string PointerOf(std::string_view name) const;
    void ReportUnknownNames();

    const nlohmann::json& m_object;
    std::string m_pointer;
    ProfileIssues& m_issues;
    std::set<std::string, std::less<>> m_known;
};

} // namespace machine
