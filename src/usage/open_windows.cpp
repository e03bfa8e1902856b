#include "usage/open_windows.h"

#include "frame/diagnostics.h"
#include "frame/host_buffer.h"
#include "frame/text.h"
#include "platform/processes.h"
#include "platform/system_power.h"
#include "platform/time.h"
#include "vesk_sondrel.h"

#include <optional>
#include <string_view>

namespace sondrel {
namespace {

using platform::Window;

constexpr std::int32_t MaxListed = 5;
constexpr std::uint32_t SampleMilliseconds = 1000;
constexpr std::u16string_view FrameHost = u"ApplicationFrameHost.exe";

/// Whether a window represents its root owner: it is the root owner, and no popup of it is active instead.
bool RepresentsItsOwner(Window window) {
    // Popups that refer to each other in a circle would be followed forever.
    constexpr unsigned MaxChain = 1000;
    Window walk = platform::GetAncestor(window, platform::RootOwner);
    if (walk == Window::None) {
        return false;
    }
    for (unsigned step = 0; step < MaxChain; ++step) {
        const Window previous = walk;
        walk = platform::GetLastActivePopup(previous);
        if (platform::IsWindowVisible(walk) || walk == previous) {
            return previous == window;
        }
    }
    return false;
}

bool HasVisibleTitleBar(Window window) {
    platform::TitleBarInfo info{};
    info.size = sizeof info;
    platform::GetTitleBarInfo(window, info);
    return (info.states[0] & platform::StateInvisible) == 0;
}

/// The tests that need only the window, in their order.
bool IsApplicationWindow(Window window) {
    const std::uint32_t titleLength = platform::GetWindowTextLengthW(window);
    return platform::IsWindowEnabled(window) && platform::IsWindow(window) &&
           platform::IsWindowVisible(window) && RepresentsItsOwner(window) && HasVisibleTitleBar(window) &&
           (platform::GetWindowLongW(window, platform::ExtendedStyle) & platform::ToolWindow) == 0 &&
           titleLength != 0;
}

/// Nothing if it cannot be read.
using ProcessorTime = std::optional<std::uint64_t>;

ProcessorTime TimeOfAll() {
    platform::SystemTimes times;
    if (!platform::GetSystemTimes(times)) {
        return std::nullopt;
    }
    return times.kernel + times.user; // kernel time includes idle time
}

ProcessorTime TimeOf(platform::Handle process) {
    platform::ProcessTimes times{};
    if (!platform::GetProcessTimes(process, times)) {
        return std::nullopt;
    }
    return times.kernel + times.user;
}

/// 0 if the time could not be read before or after.
std::uint64_t Growth(ProcessorTime before, ProcessorTime after) {
    return before && after ? *after - *before : 0;
}

/// The share of all processor time that a process uses in one second, in per cent. If the process cannot be
/// opened, nothing is returned and the call does not wait.
std::optional<float> SampleCpuUsage(std::uint32_t processId) {
    const platform::OwnedProcess process(platform::OpenProcess(platform::access::ProcessAll, processId));
    if (!process) {
        return std::nullopt;
    }
    const ProcessorTime allBefore = TimeOfAll();
    const ProcessorTime ownBefore = TimeOf(process.Get());
    platform::Sleep(SampleMilliseconds);
    const std::uint64_t all = Growth(allBefore, TimeOfAll());
    const std::uint64_t own = Growth(ownBefore, TimeOf(process.Get()));
    if (all == 0) {
        return -1.0F;
    }
    return static_cast<float>(static_cast<double>(own) * 100.0 / static_cast<double>(all));
}

/// Reads the working set in kilobytes. False if the process can be opened but the query fails: the record is
/// dropped then. If it cannot be opened, the number is unchanged.
bool ReadMemUsage(std::uint32_t processId, std::int32_t& memUsage) {
    const platform::OwnedProcess process(platform::OpenProcess(platform::access::ProcessAll, processId));
    if (!process) {
        return true;
    }
    platform::ProcessMemoryCounters counters{};
    counters.size = sizeof counters;
    if (!platform::K32GetProcessMemoryInfo(process.Get(), counters, sizeof counters)) {
        return false;
    }
    // The low 32 bits, signed: 2 GiB and above wrap.
    memUsage = static_cast<std::int32_t>(static_cast<std::uint32_t>(counters.workingSetSize)) / 1024;
    return true;
}

void AppendRecord(std::u16string& document, const OpenWindowRecord& record) {
    document += u"{\"process_name\":\"";
    document += record.processName;
    document += u"\",\"process_title\":\"";
    document += record.processTitle;
    document += u"\",\"cpu_usage\":\"";
    document += CpuUsageText(record.cpuUsage);
    document += u"\",\"mem_usage\":\"";
    document += DecimalText(record.memUsage);
    document += u"\",\"z_order\":\"";
    document += record.zOrder;
    document += u"\",\"is_focused\":\"";
    document += record.isFocused;
    document += u"\"}";
}

} // namespace

void EnumOpenWindowProc(Window window, OpenWindowWalk& walk) {
    if (!IsApplicationWindow(window)) {
        return;
    }
    const std::uint32_t processId = platform::GetWindowThreadProcessId(window);
    OpenWindowRecord record;
    if (!GetWindowProcessName(window, record.processName) ||
        (record.processName == FrameHost &&
         platform::FindWindowExW(window, Window::None, CoreWindowClass) == Window::None)) {
        return;
    }
    const std::int32_t position = ++walk.WindowZOrderCounter;
    record.zOrder = DecimalText(position);
    record.isFocused = position == 1 ? u"1" : u"0";
    if (position > MaxListed) {
        return;
    }
    record.cpuUsage = SampleCpuUsage(processId).value_or(record.cpuUsage);
    if (ReadMemUsage(processId, record.memUsage)) {
        walk.records.push_back(std::move(record));
    }
}

void ReadOpenWindows(std::u16string& out) {
    OpenWindowWalk walk;
    for (const Window window : platform::EnumWindows()) {
        EnumOpenWindowProc(window, walk);
    }
    out.assign(1, u'[');
    for (const OpenWindowRecord& record : walk.records) {
        if (&record != walk.records.data()) {
            out += u',';
        }
        AppendRecord(out, record);
    }
    out += u']';
}

} // namespace sondrel

using namespace sondrel;

void AppList_OpenWindows(VeskChar16* out) {
    TraceLine("AppList_OpenWindows start");
    const auto read = [] {
        std::u16string document;
        ReadOpenWindows(document);
        return document;
    };
    AnswerWith(out, read, u"[]");
    TraceLine("AppList_OpenWindows end");
}
