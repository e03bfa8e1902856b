// One record of the firmware's event log, as text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace sondrel {

/// A record has a length byte, so it can claim up to 264 bytes; the firmware gives 256, and what is claimed
/// beyond them does not exist.
inline constexpr std::size_t EepromRecordSize = 256;

/// Renders a record: "0x5a 0xa5 ...", one token for each of its bytes, with the payload of the BCD kind read as
/// decimal digits. A record that claims more than its 256 bytes is rendered as far as it exists, in 256
/// tokens. False leaves `text` as it was: the bytes begin no record.
bool RenderEepromRecord(std::span<const std::byte, EepromRecordSize> record, std::u16string& text);

/// Fetches the next record of the log and renders it. Which record is next is the firmware's affair. False
/// with an empty text: the device is absent or refused the call, or there is no further record.
bool ReadEepromRecord(std::uint32_t arg0, std::uint32_t arg1, std::u16string& text);

} // namespace sondrel
