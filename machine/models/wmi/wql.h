// The part of WQL that the simulated machine implements.
#pragma once

#include "machine/profile/sections/wmi_profile.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace machine {

/// `property operator literal`
struct WqlCondition {
    std::u16string property;
    bool equal = true; // =, otherwise != or <>
    std::variant<bool, std::int64_t, std::u16string> literal;

    /// Whether it is true for a value. A missing value is neither equal nor unequal to anything. A number and a string
    /// of digits compare as numbers, strings compare without case.
    [[nodiscard]] bool Holds(const WmiDatum& datum) const;
};

/// `select * | property, ... from class [where condition [and condition ...]]`
struct WqlQuery {
    std::vector<std::u16string> selected; // empty: every property
    std::u16string className;
    std::vector<WqlCondition> conditions;
};

/// Nothing for any other text.
std::optional<WqlQuery> ParseWql(std::u16string_view text);

} // namespace machine
