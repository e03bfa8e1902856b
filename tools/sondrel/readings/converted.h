// Readings in base units: volts, amperes, degrees.
#pragma once

#include "readings/reading.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// One element of a list, or the whole answer of another export, as a number in the base unit; nothing for one that
/// failed, and for other text. An export without a conversion is in the base unit.
std::optional<double> BaseNumber(const Export& row, std::string_view text);

/// The elements of a list, or the answer itself, in the base unit. Empty if there is no value or nothing to convert.
std::vector<std::optional<double>> ConvertedNumbers(const Reading& reading);

/// "8.6 GB", for bytes; the elements of a list are separated by commas.
std::string SizeText(const Reading& reading);

/// "26.95 °C" or "4.15, 4.149 V", for raw numbers whose unit is assumed; empty for every other reading.
std::string AssumedText(const Reading& reading);
std::string AssumedText(const Export& row, double number);

} // namespace tool
