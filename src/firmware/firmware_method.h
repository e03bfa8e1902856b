// One method call on the firmware's WMI class.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace sondrel {

/// Calls a method of the class's first instance and gives one property of its output, in decimal with a sign;
/// an output that is no number is "0". The empty text after any failure; a class without an instance is one.
/// Parameters are put in the order of their names, by code unit. Each call has a connection of its own; with
/// `initCom` not 0 it also enters an apartment of its own.
std::u16string wmiMethod(std::u16string methodName, std::map<std::u16string, std::u16string> parameters,
                         std::u16string outputName, std::uint8_t initCom);

} // namespace sondrel
