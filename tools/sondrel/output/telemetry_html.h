// The telemetry of the page: what changed as curves, everything else in a line.
#pragma once

#include "readings/host.h"
#include "samples/sampler.h"

#include <optional>
#include <string>
#include <vector>

namespace tool {

struct Telemetry {
    std::vector<Series> series;
    std::vector<Sample> samples;
    double seconds = 0;

    [[nodiscard]] std::vector<std::optional<double>> NumbersOf(std::size_t index) const;
};

/// Takes the samples. Those of a simulated machine do not have to be waited for.
Telemetry MeasureTelemetry(const Host& host, const ReadOptions& options, const Sampling& sampling);

std::string TelemetrySection(const Telemetry& telemetry);

} // namespace tool
