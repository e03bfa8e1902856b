#include "base/input_file.h"

#include "base/error.h"
#include "base/text.h"

#include <cerrno>
#include <fstream>
#include <iostream>

namespace tool {
namespace {

/// Larger than any snapshot or profile.
constexpr std::size_t LargestFile = std::size_t{256} << 20;

} // namespace

std::string ReadFile(const std::string& file) {
    std::ifstream opened;
    if (file != "-") {
        errno = 0;
        opened.open(PathOf(file), std::ios::binary);
        if (!opened) {
            throw Error(OnOneLine(file) + ": cannot be read" + BecauseOfErrno());
        }
    }
    std::istream& in = file == "-" ? std::cin : opened;
    std::string text;
    char piece[1 << 16];
    while (in.read(piece, sizeof piece), in.gcount() > 0) {
        text.append(piece, static_cast<std::size_t>(in.gcount()));
        if (text.size() > LargestFile) {
            throw Error(OnOneLine(file) + ": larger than any file that this tool reads");
        }
    }
    if (in.bad()) {
        throw Error(OnOneLine(file) + ": cannot be read" + BecauseOfErrno());
    }
    return text;
}

} // namespace tool
