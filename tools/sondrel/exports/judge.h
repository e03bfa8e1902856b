// What an answer means: failures told apart from zeros.
#pragma once

#include "exports/answer.h"
#include "exports/export_table.h"

#include <string>
#include <string_view>
#include <vector>

namespace tool {

struct Judgement {
    Status status = Status::Ok;
    /// In words, where the table or the answer itself has some.
    std::string meaning;
};

Judgement Judge(const Export& row, const Answer& answer);

/// The places of a list, without the empty one behind a last separator.
std::vector<std::string_view> PlacesOf(std::string_view list);

/// The row of the table that tells what a value means, or null.
const Meaning* MeaningOf(const Export& row, std::string_view value);

} // namespace tool
