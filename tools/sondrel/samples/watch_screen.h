// What `watch` shows: the newest sample and the history of each reading.
#pragma once

#include "samples/sampler.h"
#include "terminal/paint.h"
#include "terminal/terminal.h"

#include <cstddef>
#include <deque>
#include <string>
#include <vector>

namespace tool {

class WatchScreen {
public:
    /// `title` is the line above the readings.
    WatchScreen(const std::vector<Series>& series, std::string title, Paint paint);

    void Add(const Sample& sample);

    /// The whole screen, from the upper left corner. No line is wider than the terminal.
    [[nodiscard]] std::string Draw(terminal::Size size) const;

    /// The newest sample as it stays on the terminal when the watch has ended, with all of its readings.
    [[nodiscard]] std::string LastScreen(std::size_t columns) const;

    /// The newest sample for a file or a pipe: one line for each reading.
    [[nodiscard]] std::string Lines() const;

private:
    [[nodiscard]] std::size_t NameWidth(std::size_t columns) const;
    [[nodiscard]] std::string Head(std::size_t columns) const;
    [[nodiscard]] std::string LineOf(std::size_t index, std::size_t nameWidth, std::size_t columns) const;
    [[nodiscard]] std::string HistoryOf(std::size_t index, std::size_t columns) const;

    const std::vector<Series>& m_series;
    std::string m_title;
    Paint m_paint;
    Sample m_newest;
    std::size_t m_count = 0;
    /// The numbers of each series, the newest last.
    std::vector<std::deque<std::optional<double>>> m_histories;
};

} // namespace tool
