// Event records as a firmware might send them: whatever the bytes, a record is the tokens of as many bytes as it
// claims and has.
#include "acpi/eeprom_record.h"

#include <algorithm>
#include <array>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::array<std::byte, sondrel::EepromRecordSize> record;
    record.fill(std::byte{0xFF});
    std::copy_n(reinterpret_cast<const std::byte*>(data), std::min(size, record.size()), record.begin());
    std::u16string text = u"before";
    const bool begins = record[0] == std::byte{0x5A} && record[1] == std::byte{0xA5};
    if (sondrel::RenderEepromRecord(record, text) != begins) {
        std::abort();
    }
    if (!begins) {
        return text == u"before" ? 0 : (std::abort(), 0);
    }
    const std::size_t tokens =
        std::min<std::size_t>(std::to_integer<std::size_t>(record[6]) + 9, record.size());
    if (text.size() != tokens * 5 - 1) {
        std::abort();
    }
    for (std::size_t at = 0; at < text.size(); ++at) {
        constexpr std::u16string_view Digits = u"0123456789abcdef";
        const bool right = at % 5 == 0   ? text[at] == u'0'
                           : at % 5 == 1 ? text[at] == u'x'
                           : at % 5 == 4 ? text[at] == u' '
                                         : Digits.find(text[at]) != Digits.npos;
        if (!right) {
            std::abort();
        }
    }
    return 0;
}
