// One method call on the firmware's WMI class.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace sondrel {

/// Calls a method of the first instance and returns one property of its output as a signed decimal string; "0" if
/// the property is not a number. The empty string after any failure, which includes a class without an instance.
/// Parameters are put in the order of their names, by code unit. Each call makes its own connection; with
/// `initCom` not 0 it also enters and leaves the multithreaded apartment.
std::u16string wmiMethod(std::u16string methodName, std::map<std::u16string, std::u16string> parameters,
                         std::u16string outputName, std::uint8_t initCom);

} // namespace sondrel
