// The readers behind the inventory: how many rows, a number, a text over all rows.
//
// Each call runs one query over a connection of its own. A property that cannot be read, has no value or has
// another type than the reader takes counts as no value: the empty text to a text reader, nothing to take to a
// number reader.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace sondrel {

/// The number of rows; -1 when a step failed.
std::int32_t ReadWMIEnumNum(std::u16string nameSpace, std::u16string query, std::uint8_t initCom);

/// The number in the last row that has one; with `isArray` not 0, the first element of an array. -1 when there
/// is none or a step failed.
std::int32_t ReadWMIProp(std::u16string nameSpace, std::u16string query, std::u16string property,
                         std::uint8_t initCom, std::uint8_t isArray);

/// The texts of all rows with ";" between them. The property "OEMStringArray" gives the fifth text of its array
/// instead, in the last row that has one. Empty when a step failed.
std::u16string ReadWMIPropStr(std::u16string nameSpace, std::u16string query, std::u16string property,
                              std::uint8_t initCom);

/// Three properties of all rows, row after row, with ";" between all values. A property whose flag in `isNumber`
/// is not 0 is read as a number and given in decimal. Empty when a step failed.
std::u16string ReadWMIPropStr2(std::u16string nameSpace, std::u16string query,
                               std::array<std::u16string, 3> properties, std::array<std::int32_t, 3> isNumber,
                               std::uint8_t initCom);

/// Two counters of the rows whose "Name" has `nameLength` characters: the first, ";", the second. A counter that
/// reads "0" does not take the place of an earlier row's. Empty when there is no row or a step failed.
std::u16string ReadWMIPropStr2(std::u16string nameSpace, std::u16string query,
                               std::array<std::u16string, 2> properties, std::uint8_t initCom,
                               std::size_t nameLength);

} // namespace sondrel
