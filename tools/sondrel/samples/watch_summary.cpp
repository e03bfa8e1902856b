#include "samples/watch_summary.h"

#include "base/text.h"
#include "exports/classify.h"
#include "samples/telemetry.h"

#include <algorithm>

namespace tool {
namespace {

bool IsFailed(Status status) {
    return status == Status::Failed || status == Status::Untouched || status == Status::Faulty;
}

/// To the right of its column.
std::string Cell(const std::string& text) {
    constexpr std::size_t Width = 10;
    return std::string(Width - std::min(Width - 1, Columns(text)), ' ') + text;
}

} // namespace

void WatchSummary::Add(const Sample& sample) {
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const Point& point = sample.points[i];
        Row& row = m_rows[i];
        row.failures += IsFailed(point.status) ? 1 : 0;
        if (!point.number) {
            continue;
        }
        const double number = *point.number;
        row.lowest = row.samples == 0 ? number : std::min(row.lowest, number);
        row.highest = row.samples == 0 ? number : std::max(row.highest, number);
        ++row.samples;
        row.mean += (number - row.mean) / static_cast<double>(row.samples);
    }
}

std::string WatchSummary::LineOf(std::size_t index, std::size_t nameWidth) const {
    const Row& row = m_rows[index];
    const UnitStyle& style = UnitStyleOf(*m_series[index].row);
    std::string line = m_series[index].name;
    line.resize(nameWidth, ' ');
    for (const double number : {row.lowest, row.mean, row.highest}) {
        line += Cell(row.samples == 0 ? "-" : NumberText(style, number));
    }
    line += Cell(std::to_string(row.samples)) + Cell(std::to_string(row.failures));
    return line.append(style.displayedUnit.empty() ? "" : "  ").append(style.displayedUnit).append("\n");
}

std::string WatchSummary::Text() const {
    std::size_t nameWidth = 0;
    for (const Series& series : m_series) {
        nameWidth = std::max(nameWidth, series.name.size());
    }
    std::string lines;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        if (m_rows[i].samples + m_rows[i].failures != 0) {
            lines += LineOf(i, nameWidth);
        }
    }
    if (lines.empty()) {
        return lines;
    }
    std::string head(nameWidth, ' ');
    for (const char* const title : {"minimum", "mean", "maximum", "samples", "failures"}) {
        head += Cell(title);
    }
    return head + "\n" + lines;
}

} // namespace tool
