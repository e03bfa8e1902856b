// What the failure of an operation means, by its code: the state, the words, the remedy, and whether it decides.
#pragma once

#include "causes/reading_state.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tool {

/// What a failure means for the reading it occurs in.
enum class Course : std::uint8_t {
    Decides,
    Retried,   // the same, unless another try follows: with another share mode, or a larger buffer
    Optional,  // something is not there, which is an answer too: it decides if nothing failed
    EndOfList, // the same if it is the first answer; nothing after an item
    Expected,  // usual: it decides if there is nothing else
    Never      // the library does without it
};

struct CodeMeaning {
    ReadingState state = ReadingState::Failed;
    std::string_view words;
    std::string_view remedy;
    Course course = Course::Decides;
};

/// `code`: nothing for an operation that fails without one.
CodeMeaning MeaningOf(std::string_view operation, std::optional<std::uint32_t> code);

} // namespace tool
