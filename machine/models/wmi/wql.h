// The part of WQL that the simulated machine understands.
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

    /// Whether it holds for a value. Nothing at all is neither equal nor unequal to anything. A number and a
    /// text that reads as one compare as numbers, texts without regard to case.
    [[nodiscard]] bool Holds(const WmiDatum& datum) const;
};

/// `select * | property, ... from class [where condition [and condition ...]]`
struct WqlQuery {
    std::vector<std::u16string> selected; // empty: every property
    std::u16string className;
    std::vector<WqlCondition> conditions;
};

/// Nothing when the text is no such query.
std::optional<WqlQuery> ParseWql(std::u16string_view text);

} // namespace machine
