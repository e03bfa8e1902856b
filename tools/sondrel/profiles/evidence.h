// What a recording shows of a machine, call by call.
#pragma once

#include "observer/recording/recording.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

using ProfileJson = nlohmann::ordered_json;

/// What a profile has no place for, by the export that needs it; of several reasons the first.
class LeftOut {
public:
    void Add(std::string_view exportName, std::string reason);

    /// "Thermal_Read_Fan: why"
    [[nodiscard]] std::vector<std::string> Lines() const;

private:
    std::map<std::string, std::string, std::less<>> m_reasons;
};

/// Null where there is no value of this type.
template <class T>
const T* Held(const observer::Structure& fields, std::string_view name) {
    const observer::Value* const value = Find(fields, name);
    return value == nullptr ? nullptr : std::get_if<T>(&value->held);
}

// What is missing or of another type is empty, or 0.
std::u16string StringIn(const observer::Structure& fields, std::string_view name);
std::int64_t NumberIn(const observer::Structure& fields, std::string_view name);
observer::Bytes BytesIn(const observer::Structure& fields, std::string_view name);
/// The number of a handle within its export call.
std::uint32_t HandleIn(const observer::Structure& fields, std::string_view name);
/// The elements of a list.
observer::List ListIn(const observer::Structure& fields, std::string_view name);

std::int64_t NumberOf(const observer::Value& value);
/// Of a handle that the call returns.
std::uint32_t HandleOf(const observer::Value& value);

/// A little-endian word; 0 where the bytes end before it.
std::uint32_t WordAt(const observer::Bytes& bytes, std::size_t offset);
std::string HexOf(const observer::Bytes& bytes);

bool IsUtf8(const std::string& text);

/// Nothing for a string that UTF-8 cannot express.
std::optional<std::string> Utf8Of(const std::u16string& text);

bool HasFailed(const observer::RecordedCall& call);
/// The code with which it has failed.
std::uint32_t FailureOf(const observer::RecordedCall& call);

} // namespace tool
