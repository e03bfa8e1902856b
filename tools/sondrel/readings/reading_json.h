// Readings as JSON: docs/json.md describes it.
#pragma once

#include "readings/reading.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>

namespace tool {

inline constexpr std::string_view ReadingsFormat = "sondrel-readings";
/// Increases when an older program would misread a document. Members can be added without that.
inline constexpr int ReadingsVersion = 1;

/// A number or a string; null if there is no result. A list or a document is a string, as the library gave it.
nlohmann::ordered_json ValueOf(const Reading& reading);

/// The same, but a list is an array with null for a failed element, and a document is embedded.
nlohmann::ordered_json StructuredValueOf(const Reading& reading);

/// The deciding call, or the rule, and the remedy.
nlohmann::ordered_json JsonOf(const Cause& cause);

/// Adds the members of a reading except its name, with the value in one of the two forms. What was returned instead of
/// a value is another member.
void AddMembers(const Reading& reading, nlohmann::ordered_json value, nlohmann::ordered_json& object);

/// The members with a structured value.
nlohmann::ordered_json JsonOf(const Reading& reading);

/// A document without readings. They are to be added by name to its member "readings".
nlohmann::ordered_json ReadingsDocument(const Host& host, bool isObserved);

/// As it is printed. Bytes that are not UTF-8 are replaced.
std::string TextOf(const nlohmann::ordered_json& document);

} // namespace tool
