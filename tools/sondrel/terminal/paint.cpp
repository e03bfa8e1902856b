#include "terminal/paint.h"

#include <array>
#include <cstdlib>

namespace tool {
namespace {

// Of the sixteen colours that every terminal has and that its user has chosen to suit the background.
constexpr std::array<std::string_view, static_cast<std::size_t>(Style::Count)> Sequences = {
    "", "\x1b[1m", "\x1b[2m", "\x1b[33m", "\x1b[1;31m"};

bool IsColoured(ColourMode mode, terminal::Stream stream) {
    if (mode != ColourMode::Auto) {
        return mode == ColourMode::Always;
    }
    const char* const noColour = std::getenv("NO_COLOR");
    return (noColour == nullptr || *noColour == '\0') && terminal::SupportsSequences(stream);
}

} // namespace

Paint::Paint(ColourMode mode, terminal::Stream stream) : m_coloured(IsColoured(mode, stream)) {}

std::string Paint::operator()(Style style, std::string_view text) const {
    const std::string_view sequence = Sequences[static_cast<std::size_t>(style)];
    if (!m_coloured || sequence.empty() || text.empty()) {
        return std::string(text);
    }
    return std::string(sequence).append(text).append("\x1b[0m");
}

} // namespace tool
