#include "machine/profile/acpi_profile.h"

#include "machine/profile/profile_reader.h"

#include <algorithm>

namespace machine {
namespace {

constexpr std::size_t MostReplyBytes = 1024;
constexpr std::size_t RecordRoom = 256;

void AppendBytes(std::vector<std::uint8_t>& record, const std::vector<std::byte>& bytes) {
    for (const std::byte byte : bytes) {
        record.push_back(std::to_integer<std::uint8_t>(byte));
    }
}

std::vector<std::byte> BytesOr(ProfileReader& reader, std::string_view name, std::size_t size) {
    std::vector<std::byte> bytes = reader.Has(name) ? reader.Bytes(name) : std::vector<std::byte>(size);
    if (size != 0 && bytes.size() != size) {
        reader.Fail(name, std::to_string(size) + " bytes");
    }
    return bytes;
}

/// Either the record's parts, from which the firmware makes 256 bytes, or the bare reply.
LogRecord ReadRecord(ProfileReader& reader) {
    LogRecord record;
    if (reader.Has("reply")) {
        AppendBytes(record.bytes, reader.Bytes("reply"));
    } else {
        const auto payload = BytesOr(reader, "payload", 0);
        record.bytes = {0x5A, 0xA5};
        AppendBytes(record.bytes, BytesOr(reader, "stamp", 4));
        // A firmware may claim another length than the payload has.
        record.bytes.push_back(static_cast<std::uint8_t>(
            reader.Number("length", 0, 0xFF, std::min<std::size_t>(payload.size(), 0xFF))));
        record.bytes.push_back(reader.Number<std::uint8_t>("kind", 0x10));
        AppendBytes(record.bytes, BytesOr(reader, "source", 1));
        AppendBytes(record.bytes, payload);
        record.bytes.resize(RecordRoom);
    }
    record.bytes.resize(reader.Number("reply_size", 0, MostReplyBytes, record.bytes.size()), 0xFF);
    record.times = static_cast<std::uint32_t>(reader.Number("times", 1, 0xFFFFFFFF, 1));
    reader.Finish();
    return record;
}

AcpiFault ReadFault(ProfileReader& reader) {
    AcpiFault fault;
    fault.use = reader.Number<std::uint32_t>("use", 0);
    fault.error = reader.Number<std::uint32_t>("error", 0);
    if (reader.Has("reply_size")) {
        fault.replySize = static_cast<std::uint32_t>(reader.Number("reply_size", 0, MostReplyBytes));
    }
    reader.Finish();
    return fault;
}

} // namespace

AcpiProfile ReadAcpi(ProfileReader reader) {
    AcpiProfile acpi;
    acpi.present = reader.Flag("present", true);
    acpi.storeVersion = reader.Number<std::uint32_t>("store_version", 0);
    for (const std::uint64_t number : reader.Numbers("registers", 0, 0xFFFFFFFF)) {
        acpi.registers.push_back(static_cast<std::uint32_t>(number));
    }
    acpi.registerCount =
        static_cast<std::uint32_t>(reader.Number("register_count", 0, 0xFFFFFFFF, acpi.registers.size()));
    for (auto& record : reader.Objects("log")) {
        acpi.log.push_back(ReadRecord(record));
    }
    acpi.logEnd =
        static_cast<LogEnd>(reader.Choice("log_end", {"starts again", "stays at its end", "never ends"}, 0));
    acpi.pSensor = reader.Number<std::uint32_t>("p_sensor", 0);
    for (auto& fault : reader.Objects("faults")) {
        acpi.faults.push_back(ReadFault(fault));
    }
    reader.Finish();
    return acpi;
}

} // namespace machine
