// The places of a JSON document's values in its text.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// Counted from 1; a column is a character.
struct TextPlace {
    std::size_t line = 1;
    std::size_t column = 1;
};

/// The place of a byte, counted from 0.
TextPlace PlaceOfByte(std::string_view text, std::size_t byte);

/// From the first byte to the one after the last.
struct ByteRange {
    std::size_t begin = 0;
    std::size_t end = 0;
};

class JsonPlaces {
public:
    /// The text has to be well-formed JSON, nested no deeper than the stack goes.
    explicit JsonPlaces(std::string_view text);

    /// Where the member or element at this JSON pointer begins, with its name if it has one. Of a name that an object
    /// has twice the second counts, as it does for the value.
    [[nodiscard]] TextPlace Of(const std::string& pointer) const;
    /// The bytes of the value.
    [[nodiscard]] ByteRange ValueOf(const std::string& pointer) const;

private:
    struct Range {
        std::size_t named = 0;
        ByteRange value;
    };

    void Value(const std::string& pointer, std::size_t named);
    void Object(const std::string& pointer);
    void Array(const std::string& pointer);
    std::string_view String();
    void SkipSpace();

    std::string_view m_text;
    std::size_t m_at = 0;
    std::vector<std::size_t> m_lines; // where each begins
    std::map<std::string, Range> m_ranges;
};

} // namespace tool
