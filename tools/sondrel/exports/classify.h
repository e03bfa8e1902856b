// What an answer means: distinguishes failures from zeros.
#pragma once

#include "exports/answer.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

enum class Status : std::uint8_t {
    Ok,
    Partly,      // some elements of a list failed
    Failed,      // the reading was tried and failed
    Absent,      // this machine has no such thing
    NotRead,     // the read found nothing for this field
    Untouched,   // the library did not write to the buffer
    Faulty,      // the library wrote outside its buffer or without a terminator
    NotExported, // the library does not have the export
    NotRun       // a report does not call it
};

std::string_view TextOf(Status status);

struct Classification {
    Status status = Status::Ok;
    /// In words, where the description or the answer itself gives some.
    std::string meaning;
};

/// Whether the reading succeeded, at least partly.
constexpr bool HasValue(Status status) {
    return status == Status::Ok || status == Status::Partly;
}

/// The entry that describes the answer, or all elements of the list that it is; null for an ordinary one.
const SpecialValue* SpecialValueOf(const Export& row, const Answer& answer);

/// Whether this can be the answer without a session: as a whole, or each element of a list.
bool CanLackSession(const Export& row, const Answer& answer);

Classification Classify(const Export& row, const Answer& answer);

/// The elements of a list, without the empty one after a last separator.
std::vector<std::string_view> ElementsOf(std::string_view list);

/// Ok for an ordinary element of the export's list.
Status StatusOfElement(const Export& row, std::string_view element);

Status StatusOf(exports::State state);

} // namespace tool
