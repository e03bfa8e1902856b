// Readings as SVG drawings for the page.
#pragma once

#include "samples/telemetry.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tool {

/// A curve over the samples, with a gap for a sample without a number. Where the range is partly negative, the area is
/// drawn from 0.
std::string CurveSvg(std::span<const std::optional<double>> numbers, Range range, std::string_view title);

/// A bar up to the newest number, and a line over the range of all numbers.
std::string BarSvg(std::span<const std::optional<double>> numbers, Range range, std::string_view title);

} // namespace tool
