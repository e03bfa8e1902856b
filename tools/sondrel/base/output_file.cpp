#include "base/output_file.h"

#include "base/replaced_file.h"
#include "base/text.h"
#include "base/trouble.h"

#include <fstream>
#include <iostream>

namespace tool {
namespace {

/// More than any file that a person compares or writes.
constexpr std::size_t LargestFile = std::size_t{256} << 20;

} // namespace

void WriteOutput(const std::string& file, std::string_view text) {
    if (file.empty() || file == "-") {
        std::cout << text;
        return;
    }
    ReplacedFile(PathOf(file)).Put(text);
}

std::string ReadFile(const std::string& file) {
    std::ifstream in(PathOf(file), std::ios::binary);
    std::string text;
    char piece[1 << 16];
    while (in.read(piece, sizeof piece), in.gcount() > 0) {
        text.append(piece, static_cast<std::size_t>(in.gcount()));
        if (text.size() > LargestFile) {
            throw Trouble(OnOneLine(file) + ": larger than any file that this tool reads");
        }
    }
    if (!in.is_open() || in.bad()) {
        throw Trouble(OnOneLine(file) + ": cannot be read");
    }
    return text;
}

} // namespace tool
