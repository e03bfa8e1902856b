// Samples of chosen readings.
#pragma once

#include "commands/commands.h"

#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tool {

/// One value that is followed: a reading, or one place of a reading that gives several.
struct Series {
    const Export* row;
    std::size_t place;
    /// "Thermal_Read_Cpu_Temperature" or "Thermal_Read_Fan[2]".
    std::string name;
};

struct Point {
    Status status = Status::Ok;
    /// Where there is a value and it is a number.
    std::optional<double> number;
    /// The bare value; empty where there is none.
    std::string bare;
    /// In words, for where it is no number.
    std::string told;
};

struct Sample {
    std::chrono::system_clock::time_point time;
    /// One for each series.
    std::vector<Point> points;
};

class Sampler {
public:
    /// Throws Trouble for a name that is none, is not exported or would change something.
    Sampler(const Host& host, const Options& options, std::span<const std::string> names);

    [[nodiscard]] const std::vector<Series>& AllSeries() const { return m_series; }

    [[nodiscard]] Sample Take() const;

private:
    const Host& m_host;
    const Options& m_options;
    std::vector<const Export*> m_rows;
    std::vector<Series> m_series;
    std::optional<Session> m_session;
};

} // namespace tool
