// What a watch has seen, when it ends.
#pragma once

#include "samples/sampler.h"

#include <string>
#include <vector>

namespace tool {

class WatchSummary {
public:
    explicit WatchSummary(const std::vector<Series>& series) : m_series(series), m_rows(series.size()) {}

    void Add(const Sample& sample);

    /// A table of the series with numbers or failures; empty if there are none.
    [[nodiscard]] std::string Text() const;

private:
    struct Row {
        std::size_t samples = 0; // with a number
        std::size_t failures = 0;
        double lowest = 0;
        double highest = 0;
        double mean = 0;
    };

    [[nodiscard]] std::string LineOf(std::size_t index, std::size_t nameWidth) const;

    const std::vector<Series>& m_series;
    std::vector<Row> m_rows;
};

} // namespace tool
