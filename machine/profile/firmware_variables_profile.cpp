#include "machine/profile/firmware_variables_profile.h"

#include "machine/profile/profile_reader.h"
#include "machine/text/wide_text.h"

#include <algorithm>
#include <span>

namespace machine {
namespace {

constexpr const char* MakersGuid = "{91b89306-5bac-4ae0-aab3-207ec12e989b}";
constexpr std::uint64_t LargestVariable = 65536;

/// A field at its offset, as text or as bytes.
void PutField(ProfileReader& reader, std::vector<std::byte>& data) {
    const auto offset = static_cast<std::size_t>(reader.Number("at", 0, LargestVariable));
    std::vector<std::byte> field;
    if (reader.Has("text")) {
        const std::string text = reader.Text("text");
        const auto bytes = std::as_bytes(std::span(text));
        field.assign(bytes.begin(), bytes.end());
    } else {
        field = reader.Bytes("bytes");
    }
    reader.Finish();
    if (offset + field.size() > data.size()) {
        reader.Fail("at", "a field that ends within the variable");
    }
    std::ranges::copy(field, data.begin() + static_cast<std::ptrdiff_t>(offset));
}

FirmwareVariable ReadVariable(ProfileReader& reader) {
    FirmwareVariable variable;
    variable.name = WideFromUtf8(reader.Text("name"));
    variable.guid = WideFromUtf8(reader.Text("guid", MakersGuid));
    const auto size = static_cast<std::size_t>(reader.Number("size", 1, LargestVariable));
    variable.data.assign(size, std::byte{reader.Number<std::uint8_t>("fill", 0)});
    for (auto& field : reader.Objects("fields")) {
        PutField(field, variable.data);
    }
    variable.readOnly = reader.Flag("read_only", false);
    reader.Finish();
    return variable;
}

} // namespace

FirmwareVariablesProfile ReadFirmwareVariables(ProfileReader reader) {
    FirmwareVariablesProfile profile;
    profile.privilegeHeld = reader.Flag("privilege_held", true);
    for (auto& variable : reader.Objects("variables")) {
        profile.variables.push_back(ReadVariable(variable));
    }
    reader.Finish();
    return profile;
}

} // namespace machine
