// The WMI readers: the number of rows, a number, a string over all rows.
//
// Each call makes its own connection and runs one query. A property that cannot be read, has no value or has a
// type that the reader does not take is no value: the empty string for a string reader, skipped by a number
// reader.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace sondrel {

/// The number of rows; -1 if a step failed.
std::int32_t ReadWMIEnumNum(std::u16string nameSpace, std::u16string query, std::uint8_t initCom);

/// The number in the last row that has one; with `isArray` not 0, the first element of an array. -1 if there is
/// none or a step failed.
std::int32_t ReadWMIProp(std::u16string nameSpace, std::u16string query, std::u16string property,
                         std::uint8_t initCom, std::uint8_t isArray);

/// The strings of all rows, joined by ";". For the property "OEMStringArray" the fifth string of the array, in
/// the last row that has one. Empty if a step failed.
std::u16string ReadWMIPropStr(std::u16string nameSpace, std::u16string query, std::u16string property,
                              std::uint8_t initCom);

/// Three properties of all rows, row after row, all values joined by ";". A property whose flag in `isNumber`
/// is not 0 is read as a number and returned in decimal. Empty if a step failed.
std::u16string ReadWMIPropStr2(std::u16string nameSpace, std::u16string query,
                               std::array<std::u16string, 3> properties, std::array<std::int32_t, 3> isNumber,
                               std::uint8_t initCom);

/// Two counters of the rows whose "Name" has `nameLength` characters: the first, ";", the second. A counter "0"
/// does not replace one of an earlier row. Empty if there is no row or a step failed.
std::u16string ReadWMIPropStr2(std::u16string nameSpace, std::u16string query,
                               std::array<std::u16string, 2> properties, std::uint8_t initCom,
                               std::size_t nameLength);

} // namespace sondrel
