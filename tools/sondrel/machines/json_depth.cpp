#include "machines/json_depth.h"

#include <cstddef>

namespace tool {
namespace {

constexpr std::size_t DeepestNesting = 64;

/// The place behind a string whose opening quotation mark stands at `open`.
std::size_t BehindString(std::string_view text, std::size_t open) {
    for (std::size_t place = open + 1; place < text.size(); ++place) {
        if (text[place] == '\\') {
            ++place;
        } else if (text[place] == '"') {
            return place + 1;
        }
    }
    return text.size();
}

} // namespace

// One pass of its own: the parser's callback, which knows the depth too, makes it look through a whole list again
// for each of its members.
bool NestsTooDeep(std::string_view text) {
    std::size_t depth = 0;
    for (std::size_t place = 0; place < text.size();) {
        const char character = text[place];
        if (character == '"') {
            place = BehindString(text, place);
            continue;
        }
        if (character == '[' || character == '{') {
            ++depth;
        } else if ((character == ']' || character == '}') && depth > 0) {
            --depth;
        }
        if (depth > DeepestNesting) {
            return true;
        }
        ++place;
    }
    return false;
}

} // namespace tool
