// The queries that the library makes, taken apart.
#pragma once

#include "profiles/evidence.h"

namespace tool {

/// "MediaType = 4"
struct WmiCondition {
    std::string property;
    bool equal = true;
    ProfileJson value;
};

/// "select * from CLASS where CONDITION and CONDITION"
struct WmiQuery {
    std::string className;
    std::vector<WmiCondition> conditions;
};

/// Nothing for a query of another form.
std::optional<WmiQuery> ParsedQuery(const std::u16string& text);

} // namespace tool
