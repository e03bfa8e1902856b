// Samples of chosen readings.
#pragma once

#include "readings/reading.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tool {

struct Sampling {
    /// Processor usage alone takes a second to read.
    std::chrono::milliseconds interval{2000};
    /// The number of samples; 0 for no limit.
    std::size_t count = 0;
};

/// One value that is followed: a reading, or one element of a reading that is a list.
struct Series {
    const Export* row;
    std::size_t element;
    /// "Thermal_Read_Cpu_Temperature" or "Thermal_Read_Fan[2]".
    std::string name;
};

struct Point {
    Status status = Status::Ok;
    /// If there is a value and it is a number.
    std::optional<double> number;
    /// The value as the library gave it; empty if there is none.
    std::string value;
    /// In words, for display.
    std::string text;
    /// Not read again for this sample.
    bool isStale = false;
};

struct Sample {
    std::chrono::system_clock::time_point time;
    /// One for each series.
    std::vector<Point> points;
};

class Sampler {
public:
    Sampler(const Host& host, const ReadOptions& options, std::vector<const Export*> rows);

    [[nodiscard]] const std::vector<Series>& AllSeries() const { return m_series; }

    using Sink = std::function<void(const Reading&)>;

    /// The sink gets each reading, too.
    [[nodiscard]] Sample Take(const Sink& sink = {});

private:
    std::vector<const Export*> m_rows;
    std::vector<Series> m_series;
    Reader m_reader;
};

/// What a watch without names and a page show: the exports of this library that are drawn.
std::vector<const Export*> TelemetryRows(const Host& host);

/// "2026-01-31T23:59:59.123Z"
std::string IsoTime(std::chrono::system_clock::time_point time);

} // namespace tool
