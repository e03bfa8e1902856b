#include "firmware/disk_temperature.h"

#include "frame/host_buffer.h"
#include "frame/text.h"
#include "vesk_sondrel.h"
#include "wmi/wmi_query.h"
#include "wmi/wmi_values.h"

#include <algorithm>
#include <span>

namespace sondrel {

std::array<SmartDiskRecord, 10> SmartDiskTable;

namespace {

// The data block: a revision word, then the entries.
constexpr std::size_t FirstEntryAt = 2;
constexpr std::size_t EntrySize = 12;

// The layout of an entry; its last byte is not used.
constexpr std::size_t IdAt = 0;
constexpr std::size_t FlagsAt = 1;
constexpr std::size_t CurrentAt = 3;
constexpr std::size_t WorstAt = 4;
constexpr std::size_t RawAt = 5;

constexpr std::uint8_t TemperatureId = 194;

/// The byte with this index; 0 outside the block.
std::uint8_t ByteAt(const platform::WmiBytes& block, std::size_t index) {
    const auto place = static_cast<std::int64_t>(index) - block.lowerBound;
    return place >= 0 && place < std::ssize(block.bytes)
               ? std::to_integer<std::uint8_t>(block.bytes[static_cast<std::size_t>(place)])
               : std::uint8_t{0};
}

SmartAttribute AttributeAt(const platform::WmiBytes& block, std::size_t entry) {
    SmartAttribute attribute;
    attribute.id = ByteAt(block, entry + IdAt);
    attribute.flags =
        static_cast<std::uint16_t>(ByteAt(block, entry + FlagsAt) | ByteAt(block, entry + FlagsAt + 1) << 8);
    attribute.current = ByteAt(block, entry + CurrentAt);
    attribute.worst = ByteAt(block, entry + WorstAt);
    for (std::size_t place = 0; place < attribute.raw.size(); ++place) {
        attribute.raw[place] = ByteAt(block, entry + RawAt + place);
    }
    return attribute;
}

/// False if the row has no name or no data; the record is unchanged then. A disk whose name is the empty string takes
/// its record, which the list leaves out.
bool FillRecord(platform::WbemObject row, SmartDiskRecord& record) {
    const platform::WmiValue name = ReadWmiProperty(row, u"InstanceName");
    const platform::WmiValue vendor = ReadWmiProperty(row, u"VendorSpecific");
    const auto* block = std::get_if<platform::WmiBytes>(&vendor);
    if (!std::holds_alternative<std::u16string>(name) || block == nullptr) {
        return false;
    }
    record.InstanceName.fill(u'\0');
    StringUpToZeroOf(name).copy(record.InstanceName.data(), SmartNameLength);
    for (std::size_t place = 0; place < record.attributes.size(); ++place) {
        record.attributes[place] = AttributeAt(*block, FirstEntryAt + EntrySize * place);
    }
    return true;
}

std::u16string TemperatureList() {
    std::u16string list;
    for (const SmartDiskRecord& record : SmartDiskTable) {
        if (record.InstanceName.front() == u'\0') {
            continue;
        }
        for (const SmartAttribute& attribute : record.attributes) {
            if (attribute.id != TemperatureId) {
                continue;
            }
            if (!list.empty()) {
                list += u';';
            }
            list += DecimalText(attribute.raw.front());
        }
    }
    return list;
}

} // namespace

void ReadWMISmartData(std::u16string nameSpace, std::u16string query, std::uint8_t initCom) {
    std::size_t disk = 0;
    WalkWmiQuery(WmiReader::SmartData, nameSpace, query, initCom, [&](platform::WbemObject row) {
        if (disk < SmartDiskTable.size() && FillRecord(row, SmartDiskTable[disk])) {
            ++disk;
        }
    });
}

} // namespace sondrel

using namespace sondrel;

void WMIGetHDDTemp(VeskChar16* out, uint8_t initCom) {
    AnswerWith(out, [=] {
        ReadWMISmartData(u"ROOT\\WMI", u"Select * from MSStorageDriver_FailurePredictData", initCom);
        return TemperatureList();
    });
}
