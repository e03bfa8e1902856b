// What the exports' numbers are called in Prometheus.
#pragma once

#include <span>
#include <string_view>

namespace tool {

enum class MetricType : unsigned char { Gauge, Counter };

/// From the export's unit to the base unit: (number * factor + offset) / divisor. Dividing keeps 3862 mV at
/// 3.862 V.
struct Conversion {
    double factor = 1;
    double offset = 0;
    double divisor = 1;
};

/// One export's place in a metric. Rows of one metric stand together; the first one's help is the metric's.
struct Metric {
    std::string_view exportName;
    std::string_view name;
    std::string_view help;
    Conversion conversion;
    /// What tells the samples of one metric apart.
    std::string_view label;
    /// Its value, or the values of a list's places, joined by ","; empty: the places are counted from 0.
    std::string_view labelValue;
    MetricType type = MetricType::Gauge;
};

std::span<const Metric> AllMetrics();

/// A text that identifies the machine: a label of the info metric.
struct Identity {
    std::string_view exportName;
    std::string_view label;
};

std::span<const Identity> AllIdentities();

/// What one place of an export's list is called: "fan", "cell".
std::string_view PlaceNameOf(std::string_view exportName);

} // namespace tool
