// The WMI repository of a profile: namespaces, classes and their instances.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace machine {

class ProfileReader;

/// One property's value. A whole number of more than 32 bits is a string, as WMI returns it.
struct WmiDatum {
    std::variant<std::monostate, bool, std::int64_t, std::u16string, std::vector<std::int64_t>,
                 std::vector<std::u16string>, std::vector<std::byte>>
        value;
    std::int32_t lowerBound = 0; // of an array
};

/// The properties of an instance, by name as the profile spells it.
using WmiRow = std::map<std::u16string, WmiDatum>;

/// The rows of each class of each namespace.
using WmiProfile = std::map<std::u16string, std::map<std::u16string, std::vector<WmiRow>>>;

/// {"ROOT\\CIMV2": {"Win32_Bios": [{"Name": "..."}]}}. A value is
///
///   null                                     no value
///   true, false                              a Boolean
///   a whole number                           within 32 bits, signed or unsigned; a larger one becomes a string
///   a string                                 a string; also how a 64-bit number that is small is written
///   [numbers], [strings]                     an array
///   {"bytes": "00 ff"}                       an array of bytes
///   {"lower_bound": 1, "values": [...]}      an array that does not begin at 0
void ReadWmi(ProfileReader& reader, WmiProfile& wmi);

} // namespace machine
