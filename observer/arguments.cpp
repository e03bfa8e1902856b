#include "observer/arguments.h"

#include <utility>

namespace observer {

void PlainArgument::NoteInput(Call& call, Value value) const {
    if (Record* const record = call.TheRecord(); record != nullptr) {
        record->inputs.push_back({m_name, std::move(value)});
    }
}

void PlainArgument::NoteOutput(Call& call, Value value) const {
    if (Record* const record = call.TheRecord(); record != nullptr) {
        record->outputs.push_back({m_name, std::move(value)});
    }
}

} // namespace observer
