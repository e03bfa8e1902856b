#include "terminal/paint.h"

#include <array>
#include <cstdlib>

namespace tool {
namespace {

// The sixteen colours that every terminal has and its user has chosen, so that they suit its background.
constexpr std::array<std::string_view, static_cast<std::size_t>(Style::Count)> Sequences = {
    "", "\x1b[1m", "\x1b[2m", "\x1b[33m", "\x1b[1;31m"};

constexpr auto StatusStyles =
    std::to_array<Style>({Style::Plain, Style::Warning, Style::Bad, Style::Quiet, Style::Warning, Style::Bad,
                          Style::Bad, Style::Quiet, Style::Quiet});
static_assert(StatusStyles.size() == static_cast<std::size_t>(Status::NotRun) + 1);

bool Wanted(ColourWish wish, terminal::Stream stream) {
    if (wish != ColourWish::Auto) {
        return wish == ColourWish::Always;
    }
    const char* const refused = std::getenv("NO_COLOR");
    return (refused == nullptr || *refused == '\0') && terminal::TakesSequences(stream);
}

} // namespace

Style StyleOf(Status status) {
    return StatusStyles[static_cast<std::size_t>(status)];
}

Paint::Paint(ColourWish wish, terminal::Stream stream) : m_coloured(Wanted(wish, stream)) {}

std::string Paint::operator()(Style style, std::string_view text) const {
    const std::string_view sequence = Sequences[static_cast<std::size_t>(style)];
    if (!m_coloured || sequence.empty() || text.empty()) {
        return std::string(text);
    }
    return std::string(sequence).append(text).append("\x1b[0m");
}

} // namespace tool
