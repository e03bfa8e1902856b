// Event records as a firmware might send them: whatever the bytes, a record is the tokens of as many bytes as it
// claims and has.
#include "harness.h"

#include "acpi/eeprom_record.h"
#include "unicode/utf.h"

#include <array>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::array<std::uint8_t, sondrel::EepromRecordSize> record;
    record.fill(0xFF);
    std::copy_n(data, std::min(size, record.size()), record.begin());
    const bool begins = record[0] == 0x5A && record[1] == 0xA5;
    std::string expected = begins ? "" : " before";
    for (std::size_t place = 0; begins && place < std::min<std::size_t>(record[6] + 9u, record.size());
         ++place) {
        char digits[8];
        std::snprintf(digits, sizeof digits, "%02x", record[place] & 0xFFu);
        if (record[7] == 0x20 && place >= 9) { // decimal digits, as far as they go
            std::snprintf(digits, sizeof digits, "%02lx", std::strtoul(digits, nullptr, 10));
        }
        expected.append(" 0x").append(digits);
    }
    std::u16string text = u"before";
    const std::span<const std::byte, sondrel::EepromRecordSize> bytes = std::as_bytes(std::span(record));
    fuzz::Demand(sondrel::RenderEepromRecord(bytes, text) == begins);
    fuzz::Demand(u' ' + text == unicode::WideFromUtf8(expected));
    return 0;
}
