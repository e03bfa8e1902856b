// The examples of each command. The tests run them.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tool {

struct Example {
    /// "machine new"
    std::string_view command;
    std::string_view line;
    std::string_view about;
    /// What a test finds in the output, and adds to the line so that it ends.
    std::string_view shows;
    std::string_view ending = {};
};

/// In an order in which they can be run: files are written before they are read.
std::span<const Example> AllExamples();

/// For the help of a command; empty if it has none.
std::string ExamplesOf(std::string_view command);

} // namespace tool
