// One record of the firmware's event log as a string.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace sondrel {

/// The length byte of a record allows 264 bytes, but the firmware returns only 256.
inline constexpr std::size_t EepromRecordSize = 256;

/// Renders a record as "0x5a 0xa5 ...", one token for each byte. The payload of the BCD kind is decoded first. A
/// record with a length above 256 ends after 256 tokens. False if the bytes are not a record; `text` is unchanged
/// then.
bool RenderEepromRecord(std::span<const std::byte, EepromRecordSize> record, std::u16string& text);

/// Fetches the next record of the log and renders it. The firmware keeps the position. False with an empty
/// `text`: the device is absent or refused the call, or there are no more records.
bool ReadEepromRecord(std::uint32_t arg0, std::uint32_t arg1, std::u16string& text);

} // namespace sondrel
