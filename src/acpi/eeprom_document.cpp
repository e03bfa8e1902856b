// The document of the firmware's event store: its version, its registers and its event log.
#include "acpi/acpi_device.h"
#include "acpi/eeprom_record.h"
#include "frame/diagnostics.h"
#include "frame/host_buffer.h"
#include "frame/text.h"
#include "vesk_sondrel.h"

#include <cstdint>
#include <string>
#include <utility>

namespace sondrel {
namespace {

// What the store is asked for.
constexpr std::uint32_t Version = 0xE0;
constexpr std::uint32_t RegisterCount = 0xFFE3;
constexpr std::uint32_t FirstRegister = 0xE3;
constexpr std::uint32_t RegisterStep = 0x100;
constexpr std::uint32_t NextEvent = 0xE5;

/// The most registers whose request still fits 32 bits. A count beyond it cannot be walked.
constexpr std::uint32_t AddressableRegisters = (0xFFFFFFFF - FirstRegister) / RegisterStep + 1;

/// The characters of all values up to and with the last event.
constexpr std::size_t ValueLimit = 31500;

/// The document while it grows. Nothing but the text itself is kept: it is read in the order in which it is
/// written.
class Document {
public:
    void Piece(std::u16string_view text) { m_text += text; }

    /// A piece that counts toward the limit.
    void Value(std::u16string_view text) {
        m_text += text;
        m_valueLength += text.size();
    }

    [[nodiscard]] bool HasRoomFor(std::u16string_view event) const {
        return m_valueLength + event.size() <= ValueLimit;
    }

    [[nodiscard]] std::u16string Take() { return std::move(m_text); }

private:
    std::u16string m_text;
    std::size_t m_valueLength = 0;
};

/// One number of the store as a value; nothing where it cannot be read. Gives the number, 0 for none.
std::uint32_t AppendNumber(Document& document, std::uint32_t what) {
    std::uint32_t number = 0;
    if (!ACPI_ZRN_DEVS(acpi_id::EventStore, what, number)) {
        return 0;
    }
    document.Value(u"0x" + HexByteText(number));
    return number;
}

void AppendRegisters(Document& document, std::uint32_t count) {
    const std::uint32_t walked = count <= AddressableRegisters ? count : 0;
    for (std::uint32_t index = 0; index < walked; ++index) {
        if (index != 0) {
            document.Piece(u"\",\"");
        }
        AppendNumber(document, FirstRegister + RegisterStep * index);
    }
}

/// A log that never ends is ended by the limit.
void AppendEvents(Document& document) {
    std::u16string event;
    const char16_t* opening = u"\"";
    while (ReadEepromRecord(acpi_id::EventStore, NextEvent, event) && document.HasRoomFor(event)) {
        document.Piece(opening);
        document.Value(event);
        document.Piece(u"\"");
        opening = u",\"";
    }
}

std::u16string EventStore() {
    Document document;
    document.Piece(uR"({"version":")");
    AppendNumber(document, Version);
    document.Piece(uR"(","register_count":")");
    const std::uint32_t count = AppendNumber(document, RegisterCount);
    document.Piece(uR"(","register":[")");
    AppendRegisters(document, count);
    document.Piece(uR"("],"event":[)");
    AppendEvents(document);
    document.Piece(u"]}");
    return document.Take();
}

constexpr std::u16string_view NothingRead =
    uR"({"version":"","register_count":"","register":[""],"event":[]})";

} // namespace
} // namespace sondrel

using namespace sondrel;

void GetEEPROM_Data(VeskChar16* out) {
    TraceLine("GetEEPROM_Data start");
    AnswerWith(out, EventStore, NothingRead);
    TraceLine("GetEEPROM_Data end");
}
