#include "acpi/eeprom_record.h"

#include "acpi/acpi_device.h"
#include "frame/diagnostics.h"

#include <algorithm>
#include <array>

namespace sondrel {
namespace {

// The layout of a record.
constexpr std::byte FirstMark{0x5A};
constexpr std::byte SecondMark{0xA5};
constexpr std::size_t PayloadLengthAt = 6;
constexpr std::size_t KindAt = 7;
constexpr std::size_t PayloadAt = 9;
constexpr std::byte BcdKind{0x20};

/// Fills the reply where the device writes nothing.
constexpr std::byte Unwritten{0xFF};

constexpr std::size_t TokenSize = 5; // "0x5a" and a blank

/// Reads the two hexadecimal digits as a decimal number, up to the first one above 9.
constexpr std::byte DecodeBcd(std::byte byte) {
    const auto high = std::to_integer<unsigned>(byte >> 4);
    const auto low = std::to_integer<unsigned>(byte & std::byte{0xF});
    if (high > 9) {
        return std::byte{0};
    }
    return static_cast<std::byte>(low > 9 ? high : high * 10 + low);
}

static_assert(DecodeBcd(std::byte{0x59}) == std::byte{0x3B} && DecodeBcd(std::byte{0x08}) == std::byte{0x08});
static_assert(DecodeBcd(std::byte{0x99}) == std::byte{0x63} && DecodeBcd(std::byte{0x1A}) == std::byte{0x01});
static_assert(DecodeBcd(std::byte{0xA5}) == std::byte{0x00});

/// Writes one token and a blank after it.
char16_t* AppendToken(char16_t* out, std::byte byte) {
    constexpr char16_t Digits[] = u"0123456789abcdef";
    *out++ = u'0';
    *out++ = u'x';
    *out++ = Digits[std::to_integer<unsigned>(byte >> 4)];
    *out++ = Digits[std::to_integer<unsigned>(byte & std::byte{0xF})];
    *out++ = u' ';
    return out;
}

} // namespace

bool RenderEepromRecord(std::span<const std::byte, EepromRecordSize> record, std::u16string& text) {
    if (record[0] != FirstMark || record[1] != SecondMark) {
        return false;
    }
    const std::size_t claimed = PayloadAt + std::to_integer<std::size_t>(record[PayloadLengthAt]);
    const std::size_t size = std::min(claimed, record.size());
    const bool bcd = record[KindAt] == BcdKind;
    std::array<char16_t, EepromRecordSize * TokenSize> tokens;
    char16_t* end = tokens.data();
    for (std::size_t place = 0; place < size; ++place) {
        end = AppendToken(end, bcd && place >= PayloadAt ? DecodeBcd(record[place]) : record[place]);
    }
    text.assign(tokens.data(), end - 1);
    return true;
}

bool ReadEepromRecord(std::uint32_t arg0, std::uint32_t arg1, std::u16string& text) {
    TraceDevsArguments(arg0, arg1);
    text.clear();
    bool rendered = false;
    {
        const OpenZrnAcpi device;
        if (!device) {
            return false;
        }
        TraceLine("InitializeZRNACPIDevice success");
        std::array<std::byte, AcpiReplySize> reply;
        reply.fill(Unwritten);
        const std::array<std::uint32_t, 2> arguments{arg0, arg1};
        std::uint32_t replySize = 0;
        rendered = ZrnAcpiCall(acpi_method::Control, std::as_bytes(std::span(arguments)), reply, replySize) &&
                   RenderEepromRecord(std::span(reply).first<EepromRecordSize>(), text);
    }
    TraceLine("UninitializeZRNACPIDevice success");
    return rendered;
}

} // namespace sondrel
