#include "machine/profile/sections/firmware_profile.h"

#include "machine/profile/profile_reader.h"

#include <algorithm>
#include <span>

namespace machine {
namespace {

using Bytes = std::vector<std::byte>;

constexpr std::uint32_t MostReplyBytes = 1024;
constexpr std::size_t LargestVariable = 65536;
constexpr std::size_t MostVariables = 256;

/// Either the record's parts, from which the firmware makes 256 bytes, or the bare reply.
void ReadRecord(ProfileReader& reader, LogRecord& record) {
    constexpr std::size_t RecordSize = 256;
    if (reader.Has("reply")) {
        reader.Bytes("reply", record.bytes);
    } else {
        Bytes stamp(4);
        Bytes source(1);
        Bytes payload;
        reader.Bytes("payload", payload);
        reader.Bytes("stamp", stamp, stamp.size());
        reader.Bytes("source", source, source.size());
        // A firmware may claim another length than the payload has.
        auto length = static_cast<std::uint8_t>(std::min<std::size_t>(payload.size(), 0xFF));
        std::uint8_t kind = 0x10;
        reader.Members("length", length, "kind", kind);
        record.bytes = {std::byte{0x5A}, std::byte{0xA5}};
        for (const Bytes& part : {stamp, Bytes{std::byte{length}, std::byte{kind}}, source, payload}) {
            record.bytes.insert(record.bytes.end(), part.begin(), part.end());
        }
        record.bytes.resize(RecordSize);
    }
    std::size_t size = record.bytes.size();
    reader.Number("reply_size", size, {0, MostReplyBytes});
    record.bytes.resize(size, std::byte{0xFF});
    reader.Number("times", record.times, {1, 0xFFFFFFFF});
}

void ReadAcpiFault(ProfileReader& reader, AcpiFault& fault) {
    reader.Members("use", fault.use, "error", fault.error);
    if (std::uint32_t size = 0; reader.Number("reply_size", size, {0, MostReplyBytes})) {
        fault.replySize = size;
    }
}

/// A field at its offset, as a string or as bytes.
void ReadField(ProfileReader& reader, Bytes& variable) {
    std::size_t offset = 0;
    Bytes field;
    reader.Number("at", offset, {0, LargestVariable}, Presence::Required);
    if (reader.Has("text")) {
        std::string text;
        reader.String("text", text);
        const auto bytes = std::as_bytes(std::span(text));
        field.assign(bytes.begin(), bytes.end());
    } else {
        reader.Bytes("bytes", field, Presence::Required);
    }
    if (offset > variable.size() || field.size() > variable.size() - offset) {
        reader.Fail("at", "a field that ends within the variable");
        return;
    }
    std::ranges::copy(field, variable.begin() + static_cast<std::ptrdiff_t>(offset));
}

void ReadVariable(ProfileReader& reader, FirmwareVariable& variable) {
    variable.guid = u"{91b89306-5bac-4ae0-aab3-207ec12e989b}"; // the maker's
    std::size_t size = 0;
    std::uint8_t fill = 0;
    reader.String("name", variable.name, Presence::Required);
    reader.Members("guid", variable.guid, "fill", fill, "read_only", variable.readOnly);
    if (!reader.Number("size", size, {1, LargestVariable}, Presence::Required)) {
        size = LargestVariable; // its fields are checked all the same
    }
    variable.data.assign(size, std::byte{fill});
    reader.Objects("fields", [&](ProfileReader& field) { ReadField(field, variable.data); });
}

void ReadFeature(ProfileReader& reader, FeatureProfile& feature) {
    reader.Members("supported", feature.supported, "setting", feature.setting, "result", feature.result);
}

} // namespace

void ReadAcpi(ProfileReader& reader, AcpiProfile& acpi) {
    reader.Members("present", acpi.present, "store_version", acpi.storeVersion, "p_sensor", acpi.pSensor);
    reader.Numbers("registers", acpi.registers, {0, 0xFFFFFFFF});
    acpi.registerCount = static_cast<std::uint32_t>(acpi.registers.size());
    reader.Number("register_count", acpi.registerCount);
    reader.Objects("log", acpi.log, ReadRecord);
    reader.Choice("log_end", {"starts again", "stays at its end", "never ends"}, acpi.logEnd);
    reader.Objects("faults", acpi.faults, ReadAcpiFault);
}

void ReadFirmwareVariables(ProfileReader& reader, FirmwareVariablesProfile& variables) {
    reader.Flag("privilege_held", variables.privilegeHeld);
    std::size_t count = 0;
    reader.Objects("variables", [&](ProfileReader& row) {
        FirmwareVariable variable;
        ReadVariable(row, variable);
        if (++count <= MostVariables) {
            variables.variables.push_back(std::move(variable));
        }
    });
    if (count > MostVariables) {
        reader.Fail("variables", "at most " + std::to_string(MostVariables) + " variables");
    }
}

void ReadFirmwareFeatures(ProfileReader& reader, FirmwareFeaturesProfile& features) {
    reader.Object("battery_health", features.batteryHealth, ReadFeature);
    reader.Object("quiet_fan", features.quietFan, ReadFeature);
}

} // namespace machine
