// Reads a machine profile with errors that say where the mistake stands and what was expected there.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace machine {

/// One mistake, worded for the person who wrote the profile: "/ec/chip_id: expected a number from 0 to 255".
class ProfileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One JSON object of a profile. Every name that is asked for counts as known; `Finish` refuses the others,
/// so that a misspelt name is told instead of passed over.
class ProfileReader {
public:
    ProfileReader(const nlohmann::json& object, std::string place);

    [[nodiscard]] bool Has(std::string_view name) const;

    std::string Text(std::string_view name);
    std::string Text(std::string_view name, std::string_view fallback);
    /// A text of exactly so many printable ASCII characters.
    std::string FixedText(std::string_view name, std::size_t length);

    /// A whole number, as JSON number or as text of hexadecimal digits behind "0x".
    std::uint64_t Number(std::string_view name, std::uint64_t low, std::uint64_t high);
    std::uint64_t Number(std::string_view name, std::uint64_t low, std::uint64_t high,
                         std::uint64_t fallback);

    template <class Integer>
    Integer Number(std::string_view name, Integer fallback) {
        return static_cast<Integer>(Number(name, 0, std::numeric_limits<Integer>::max(), fallback));
    }

    double Real(std::string_view name, double low, double high, double fallback);
    bool Flag(std::string_view name, bool fallback);

    /// One of a fixed set of words; gives its place in the set.
    std::size_t Choice(std::string_view name, std::initializer_list<std::string_view> words,
                       std::size_t fallback);

    /// Bytes, as text of hexadecimal pairs, blanks between them allowed.
    std::vector<std::byte> Bytes(std::string_view name);

    /// An object, empty where the profile has none.
    ProfileReader Object(std::string_view name);
    /// A list of objects, empty where the profile has none.
    std::vector<ProfileReader> Objects(std::string_view name);
    /// A list of texts, empty where the profile has none.
    std::vector<std::string> Texts(std::string_view name);
    /// A list of whole numbers, empty where the profile has none.
    std::vector<std::uint64_t> Numbers(std::string_view name, std::uint64_t low, std::uint64_t high);
    /// A list of numbers, empty where the profile has none.
    std::vector<double> Reals(std::string_view name, double low, double high);
    /// The names of this object, in the order of their letters, for objects whose names are the profile's
    /// own.
    std::vector<std::string> Names();
    /// The bare value, for data whose type says how it is to be read.
    const nlohmann::json& Raw(std::string_view name);

    void Finish() const;

    [[nodiscard]] const std::string& Place() const { return m_place; }

    [[noreturn]] void Fail(std::string_view name, const std::string& expected) const;

private:
    const nlohmann::json* Find(std::string_view name);
    [[nodiscard]] std::string PlaceOf(std::string_view name) const;

    const nlohmann::json* m_object;
    std::string m_place;
    std::set<std::string, std::less<>> m_known;
};

/// Bytes from hexadecimal pairs; false when the text is none.
bool BytesFromHex(std::string_view text, std::vector<std::byte>& bytes);

} // namespace machine
