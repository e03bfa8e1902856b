// A condition on a reading, such as "Thermal_Read_Fan[2] < 500".
#pragma once

#include "samples/sampler.h"

#include <optional>
#include <string>
#include <string_view>

namespace tool {

class Threshold {
public:
    /// A reading, for a list also one element of it; >, >=, <, <=, == or !=; a number in the reading's unit. Throws
    /// Error for any other text.
    explicit Threshold(std::string_view text);

    [[nodiscard]] const std::string& Text() const { return m_text; }
    /// Of the reading.
    [[nodiscard]] const std::string& Name() const { return m_name; }

    /// Throws Error if none of the series is a number that it can be compared with.
    void Require(std::span<const Series> series) const;

    /// The first series whose number in this sample fulfils it, with the number: "Thermal_Read_Fan[2] is 412 rpm".
    [[nodiscard]] std::optional<std::string> Fulfilled(std::span<const Series> series, const Sample& sample);

    /// Whether a sample had a number to compare. Without one, that it was not fulfilled says nothing.
    [[nodiscard]] bool WasRead() const { return m_wasRead; }

private:
    [[nodiscard]] bool IsOn(const Series& series) const;

    std::string m_text;
    std::string m_name;
    std::optional<std::size_t> m_element;
    std::string_view m_relation;
    double m_limit = 0;
    bool m_wasRead = false;
};

} // namespace tool
