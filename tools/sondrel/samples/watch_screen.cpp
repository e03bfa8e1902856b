#include "samples/watch_screen.h"

#include "base/text.h"
#include "exports/status_style.h"
#include "readings/converted.h"
#include "samples/telemetry.h"

#include <algorithm>
#include <array>

namespace tool {
namespace {

constexpr std::size_t LongestHistory = 512; // more than any terminal shows
constexpr std::size_t ValueWidth = 12;
constexpr std::size_t ExtremeWidth = 15;

constexpr std::array<std::string_view, 8> Steps = {"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
constexpr std::string_view Gap = "·";

std::string_view StepFor(double number, Range range) {
    const double height = (number - range.low) / (range.high - range.low) * static_cast<double>(Steps.size());
    return Steps[static_cast<std::size_t>(std::clamp(height, 0.0, static_cast<double>(Steps.size() - 1)))];
}

std::string Padded(std::string text, std::size_t columns, bool right) {
    const std::size_t blanks = columns - std::min(columns, Columns(text));
    return text.insert(right ? 0 : text.size(), blanks, ' ');
}

std::string ValueText(const Series& series, const Point& point) {
    if (!point.number) {
        return point.text;
    }
    const UnitStyle& style = UnitStyleOf(*series.row);
    std::string text = NumberText(style, *point.number);
    text.append(style.displayedUnit.empty() ? "" : " ").append(style.displayedUnit);
    if (const std::string assumed = AssumedText(*series.row, *point.number); !assumed.empty()) {
        text.append(" (").append(assumed).append(")");
    }
    return point.isStale ? text.append(" (stale)") : text;
}

std::vector<double> NumbersIn(const std::deque<std::optional<double>>& history, std::size_t newest) {
    std::vector<double> numbers;
    for (std::size_t i = history.size() - std::min(history.size(), newest); i < history.size(); ++i) {
        if (history[i]) {
            numbers.push_back(*history[i]);
        }
    }
    return numbers;
}

/// "2455..3071", over the whole history.
std::string ExtremesOf(const UnitStyle& style, const std::deque<std::optional<double>>& history) {
    const std::vector<double> numbers = NumbersIn(history, history.size());
    if (numbers.empty()) {
        return {};
    }
    const auto [low, high] = std::ranges::minmax(numbers);
    return NumberText(style, low) + ".." + NumberText(style, high);
}

} // namespace

WatchScreen::WatchScreen(const std::vector<Series>& series, std::string title, Paint paint)
    : m_series(series), m_title(std::move(title)), m_paint(paint), m_histories(series.size()) {}

void WatchScreen::Add(const Sample& sample) {
    m_newest = sample;
    ++m_count;
    for (std::size_t i = 0; i < m_series.size(); ++i) {
        m_histories[i].push_back(sample.points[i].number);
        if (m_histories[i].size() > LongestHistory) {
            m_histories[i].pop_front();
        }
    }
}

std::string WatchScreen::HistoryOf(std::size_t index, std::size_t columns) const {
    const auto& history = m_histories[index];
    const std::vector<double> numbers = NumbersIn(history, columns);
    if (numbers.empty()) {
        return {};
    }
    const Range range = RangeFor(UnitStyleOf(*m_series[index].row), numbers);
    std::string text;
    for (std::size_t i = history.size() - std::min(history.size(), columns); i < history.size(); ++i) {
        text += history[i] ? StepFor(*history[i], range) : Gap;
    }
    return text;
}

std::string WatchScreen::LineOf(std::size_t index, std::size_t nameWidth, std::size_t columns) const {
    const Series& series = m_series[index];
    const Point& point = m_newest.points[index];
    std::string name = Padded(Shortened(series.name, nameWidth), nameWidth, false);
    const std::size_t available = columns - std::min(columns, nameWidth + 1);
    const std::string value = Shortened(ValueText(series, point), std::max(available, std::size_t{1}));
    std::string line = name + ' ' + m_paint(StyleOf(point.status), Padded(value, ValueWidth, true));
    std::size_t left = available - std::min(available, std::max(ValueWidth, Columns(value)));
    const std::string extremes =
        Padded(ExtremesOf(UnitStyleOf(*series.row), m_histories[index]), ExtremeWidth, true);
    if (left > ExtremeWidth + 10) {
        line += m_paint(Style::Quiet, extremes);
        left -= Columns(extremes);
    }
    return left > 2 ? line + "  " + HistoryOf(index, left - 2) : line;
}

/// At least 18 columns are left for the value.
std::size_t WatchScreen::NameWidth(std::size_t columns) const {
    std::size_t width = 0;
    for (const Series& series : m_series) {
        width = std::max(width, series.name.size());
    }
    return std::min(width, std::max<std::size_t>(columns, 18) - 18);
}

std::string WatchScreen::Head(std::size_t columns) const {
    return m_paint(Style::Title, Shortened(m_title, columns));
}

std::string WatchScreen::Draw(terminal::Size size) const {
    constexpr std::string_view NextLine = "\x1b[K\r\n";
    std::string text = "\x1b[H" + Head(size.columns);
    text += NextLine;
    if (m_count == 0) {
        return text + m_paint(Style::Quiet, Shortened("taking the first sample ...", size.columns));
    }
    const std::string state =
        IsoTime(m_newest.time) + "  sample " + std::to_string(m_count) + "  Ctrl-C ends";
    text += m_paint(Style::Quiet, Shortened(state, size.columns));
    const std::size_t lines = size.lines - std::min<std::size_t>(size.lines, 2);
    const bool all = m_series.size() <= lines;
    const std::size_t shown = all ? m_series.size() : lines - std::min<std::size_t>(lines, 1);
    for (std::size_t i = 0; i < shown; ++i) {
        text += NextLine;
        text += LineOf(i, NameWidth(size.columns), size.columns);
    }
    if (!all && lines > 0) {
        const std::string more =
            "... " + std::to_string(m_series.size() - shown) + " more in a taller window";
        text.append(NextLine).append(m_paint(Style::Quiet, Shortened(more, size.columns)));
    }
    return text + "\x1b[K\x1b[J";
}

std::string WatchScreen::LastScreen(std::size_t columns) const {
    std::string text = Head(columns) + "\n";
    for (std::size_t i = 0; m_count != 0 && i < m_series.size(); ++i) {
        text.append(LineOf(i, NameWidth(columns), columns)).append("\n");
    }
    return text;
}

std::string WatchScreen::Lines() const {
    std::size_t nameWidth = 0;
    for (const Series& series : m_series) {
        nameWidth = std::max(nameWidth, series.name.size());
    }
    std::string text;
    for (std::size_t i = 0; i < m_series.size(); ++i) {
        text.append(IsoTime(m_newest.time)).append("  ");
        text.append(Padded(m_series[i].name, nameWidth, false)).append("  ");
        text.append(m_paint(StyleOf(m_newest.points[i].status), ValueText(m_series[i], m_newest.points[i])));
        text.append("\n");
    }
    return text;
}

} // namespace tool
