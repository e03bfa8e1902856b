// The JSON document of the firmware's event store: version, registers and event log.
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

// The second argument of DEVS selects what is read.
constexpr std::uint32_t Version = 0xE0;
constexpr std::uint32_t RegisterCount = 0xFFE3;
constexpr std::uint32_t FirstRegister = 0xE3;
constexpr std::uint32_t RegisterStep = 0x100;
constexpr std::uint32_t NextEvent = 0xE5;

/// The registers whose selector fits 32 bits. The list of a larger count cannot be read.
constexpr std::uint32_t AddressableRegisters = (0xFFFFFFFF - FirstRegister) / RegisterStep + 1;

/// The maximum length of all values together, the last event included.
constexpr std::size_t ValueLimit = 31500;

/// The document so far. It is written in the order in which the store is read.
class Document {
public:
    void Piece(std::u16string_view text) { m_text += text; }

    /// A piece that counts for the limit.
    void Value(std::u16string_view text) {
        m_text += text;
        m_valueLength += text.size();
    }

    [[nodiscard]] bool CanAdd(std::u16string_view event) const {
        return m_valueLength + event.size() <= ValueLimit;
    }

    [[nodiscard]] std::u16string Take() { return std::move(m_text); }

private:
    std::u16string m_text;
    std::size_t m_valueLength = 0;
};

/// Reads one number and adds it as a value. Returns the number; 0 when the read failed, and no value is added.
std::uint32_t AppendNumber(Document& document, std::uint32_t selector) {
    std::uint32_t number = 0;
    if (!ACPI_ZRN_DEVS(acpi_id::EventStore, selector, number)) {
        return 0;
    }
    document.Value(u"0x" + HexByteText(number));
    return number;
}

void AppendRegisters(Document& document, std::uint32_t count) {
    const std::uint32_t listed = count <= AddressableRegisters ? count : 0;
    for (std::uint32_t index = 0; index < listed; ++index) {
        if (index != 0) {
            document.Piece(u"\",\"");
        }
        AppendNumber(document, FirstRegister + RegisterStep * index);
    }
}

/// The limit also ends a log that never ends.
void AppendEvents(Document& document) {
    std::u16string event;
    const char16_t* opening = u"\"";
    while (ReadEepromRecord(acpi_id::EventStore, NextEvent, event) && document.CanAdd(event)) {
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
