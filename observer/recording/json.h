// Values as JSON: one line each, nothing lost. docs/recording.md describes the forms.
#pragma once

#include "observer/value.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace observer {

void AppendJson(std::string& line, const Value& value);

/// `"name":`, with a comma before it unless it is the first of an object.
void AppendName(std::string& line, std::string_view name);

/// What is wrong with a line, and at which character, from 0.
class JsonError : public std::runtime_error {
public:
    JsonError(const char* problem, std::size_t place) : std::runtime_error(problem), m_place(place) {}

    [[nodiscard]] std::size_t Place() const { return m_place; }

private:
    std::size_t m_place;
};

/// The value of a whole line. Names of fields are parts of it, which has to live as long. Throws JsonError.
Value ParsedJson(std::string_view line);

} // namespace observer
