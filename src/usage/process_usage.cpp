// The busiest and the largest processes, from WMI's formatted performance counters.
#include "frame/diagnostics.h"
#include "frame/host_buffer.h"
#include "frame/text.h"
#include "usage/decimal_number.h"
#include "usage/open_window_record.h"
#include "vesk_sondrel.h"
#include "wmi/wmi_query.h"
#include "wmi/wmi_values.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace sondrel {
namespace {

using Record = OpenWindowRecord;

constexpr const char16_t* Query = u"SELECT * FROM Win32_PerfFormattedData_PerfProc_Process";

/// The differences between the two lists.
struct UsageList {
    WmiReader reader;
    std::size_t limit;
    bool (*isListed)(const Record& record);                  // its key is above 0
    bool (*before)(const Record& left, const Record& right); // its key is larger
};

constexpr UsageList CpuList{WmiReader::CpuUsage, 5, [](const Record& record) { return record.cpuUsage > 0; },
                            [](const Record& left, const Record& right) {
                                return left.cpuUsage > right.cpuUsage;
                            }};

constexpr UsageList MemList{WmiReader::MemUsage, 10, [](const Record& record) { return record.memUsage > 0; },
                            [](const Record& left, const Record& right) {
                                return left.memUsage > right.memUsage;
                            }};

/// The counter is the sum over all processors. The divisor is fixed, not the number of processors.
float CpuUsageOf(const std::u16string& percentProcessorTime) {
    const auto percent = static_cast<float>(WideToDouble(percentProcessorTime));
    return static_cast<float>(static_cast<double>(percent) / 10.0);
}

/// Nothing for the idle process and the total of all processes, whose process id is 0.
std::optional<Record> ReadRecord(platform::WbemObject row) {
    Record record;
    record.processName = StringUpToZeroOf(ReadWmiProperty(row, u"Name"));
    const std::int32_t processId = NumberOf(ReadWmiProperty(row, u"IDProcess")).value_or(0);
    record.cpuUsage = CpuUsageOf(StringUpToZeroOf(ReadWmiProperty(row, u"PercentProcessorTime")));
    record.memUsage = WideToInt32(StringUpToZeroOf(ReadWmiProperty(row, u"WorkingSet"))) / 1024;
    return processId != 0 ? std::optional(std::move(record)) : std::nullopt;
}

std::u16string RecordJson(const Record& record) {
    return u"{\"process_name\":\"" + record.processName + u"\",\"cpu_usage\":\"" +
           CpuUsageText(record.cpuUsage) + u"\",\"mem_usage\":\"" + DecimalText(record.memUsage) + u"\"}";
}

/// Adds a record; in a full list it replaces the smallest one. Only as many records as can be listed are held.
void Add(Record record, std::vector<Record>& largest, const UsageList& list) {
    if (!list.isListed(record)) {
        return;
    }
    if (largest.size() < list.limit) {
        largest.push_back(std::move(record));
        return;
    }
    const auto smallest = std::ranges::max_element(largest, list.before);
    if (list.before(record, *smallest)) {
        *smallest = std::move(record);
    }
}

std::u16string Document(std::vector<Record> records, const UsageList& list) {
    std::ranges::sort(records, list.before);
    std::u16string document = u"[";
    for (const Record& record : records) {
        if (&record != records.data()) {
            document += u',';
        }
        document += RecordJson(record);
    }
    return document + u']';
}

std::u16string ReadUsage(const UsageList& list, const std::u16string& nameSpace, const std::u16string& query,
                         std::uint8_t initCom) {
    std::vector<Record> largest;
    const bool read = WalkWmiQuery(list.reader, nameSpace, query, initCom, [&](platform::WbemObject row) {
        if (auto record = ReadRecord(row)) {
            Add(std::move(*record), largest, list);
        }
    });
    return read ? Document(std::move(largest), list) : std::u16string();
}

std::u16string ReadWMICpuUsage(std::u16string nameSpace, std::u16string query, std::uint8_t initCom) {
    return ReadUsage(CpuList, nameSpace, query, initCom);
}

std::u16string ReadWMIMemUsage(std::u16string nameSpace, std::u16string query, std::uint8_t initCom) {
    return ReadUsage(MemList, nameSpace, query, initCom);
}

} // namespace
} // namespace sondrel

using namespace sondrel;

void AppList_CpuUsage(VeskChar16* out) {
    TraceLine("AppList_CpuUsage start");
    AnswerWith(out, [] { return ReadWMICpuUsage(u"ROOT\\CIMV2", Query, 1); });
    TraceLine("AppList_CpuUsage end");
}

void AppList_MemUsage(VeskChar16* out) {
    TraceLine("AppList_MemUsage start");
    AnswerWith(out, [] { return ReadWMIMemUsage(u"ROOT\\CIMV2", Query, 1); });
    TraceLine("AppList_MemUsage end");
}
