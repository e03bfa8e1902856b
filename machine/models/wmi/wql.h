// The part of WQL that the simulated machine implements: whole rows, by conditions on their values.
#pragma once

#include "machine/profile/sections/wmi_profile.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace machine {

/// `property operator literal`
struct WqlCondition {
    std::u16string property;
    bool equal = true; // =, otherwise != or <>
    WmiDatum literal;  // a string, a whole number or a Boolean

    /// Whether it is true for a value. A missing value is neither equal nor unequal to anything. Two strings compare
    /// without case, everything else as numbers: a string by its digits, a Boolean and its name as 0 or 1.
    [[nodiscard]] bool Holds(const WmiDatum& datum) const;
};

/// `select * from class [where condition [and condition ...]]`
struct WqlQuery {
    std::u16string className;
    std::vector<WqlCondition> conditions;
};

/// Nothing for any other text.
std::optional<WqlQuery> ParseWql(std::u16string_view text);

/// The whole number that a string of up to 18 digits means; every such number fits in 64 bits.
std::optional<std::int64_t> WholeNumber(std::u16string_view text);

} // namespace machine
