// Compressed recordings: files of gzip's format, which other programs open too.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tool {

/// Whether the content of a file begins as a compressed one does.
bool IsCompressed(std::string_view content);

std::string Compressed(std::string_view text);

/// Throws Error, without a file's name, for what is damaged, cut or followed by anything, and for what would be larger
/// than `largest`, which limits the memory too.
std::string Expanded(std::string_view compressed, std::size_t largest);

} // namespace tool
