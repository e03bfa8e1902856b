// sondrel trace [--] NAME [ARG...]
#include "base/error.h"
#include "base/text.h"
#include "commands/commands.h"
#include "exports/status_style.h"
#include "readings/readable.h"
#include "readings/single_call.h"
#include "terminal/interrupt.h"
#include "terminal/paint.h"
#include "vesk_sondrel_machine.h"
#include "vesk_sondrel_observer.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <span>

namespace tool {
namespace {

using Clock = std::chrono::steady_clock;

enum class Line : std::uint8_t { Call, Ec, Debug, Event, Count };

struct LineKind {
    std::string_view mark;
    Style style;
    std::string_view one;
    std::string_view several;
};

constexpr std::array<LineKind, static_cast<std::size_t>(Line::Count)> LineKinds = {{
    {"call ", Style::Plain, "boundary call", "boundary calls"},
    {"EC   ", Style::Title, "EC command", "EC commands"},
    {"debug", Style::Quiet, "debug line", "debug lines"},
    {"event", Style::Warning, "event line", "event lines"},
}};

std::string Milliseconds(std::chrono::nanoseconds time) {
    char text[48];
    std::snprintf(text, sizeof text, "%10.3f", std::chrono::duration<double, std::milli>(time).count());
    return text;
}

/// The value of an argument as it is printed; empty where the call has none of that name.
std::string_view ValueOf(const VeskObserver_Call& call, std::string_view name, bool output) {
    const std::span arguments(call.arguments, call.argumentCount);
    const auto found = std::ranges::find_if(arguments, [&](const VeskObserver_Argument& argument) {
        return name == argument.name && (argument.output != 0) == output;
    });
    return found == arguments.end() ? std::string_view() : found->value;
}

/// "bb 03 -> 4b" for the IOCTL of one EC command; empty for any other call.
std::string EcCommandOf(const VeskObserver_Call& call) {
    constexpr std::string_view EcCommand = "0x80102070";
    constexpr std::size_t Count = 1;
    constexpr std::size_t Data = 2;
    constexpr std::size_t DataSize = 8;
    constexpr std::size_t Reads = 10;
    constexpr std::size_t Result = 11;
    if (std::string_view(call.operation) != "DeviceIoControl" || ValueOf(call, "code", false) != EcCommand) {
        return {};
    }
    const auto in = BytesOfHex(ValueOf(call, "in", false));
    if (!in || in->size() <= Result || (*in)[Count] > DataSize) {
        return {};
    }
    std::string text = Hex(std::span(*in).first(1));
    for (std::size_t i = 0; i < (*in)[Count]; ++i) {
        text.append(" ").append(Hex(std::span(*in).subspan(Data + i, 1)));
    }
    if (call.succeeded == 0) {
        return text + "  refused";
    }
    const auto out = BytesOfHex(ValueOf(call, "out", true));
    const bool answered = (*in)[Reads] != 0 && out && out->size() > Result;
    return answered ? text + " -> " + Hex(std::span(*out).subspan(Result, 1)) : text;
}

/// The observer of a library, and the machine below it where that is a simulated one.
struct Observed {
    decltype(VeskObserver_SetSink)* setSink;
    const SimulatedMachine* machine;
};

/// Prints what a call does while it does it.
class Transcript {
public:
    Transcript(const Observed& observed, ColourMode colour)
        : m_observed(observed),
          m_paint(colour, terminal::Stream::Out),
          m_start(MachineTime()),
          m_begin(Clock::now()) {
        std::cout << m_paint(Style::Quiet, m_observed.machine ? "machine ms    here ms" : "   here ms")
                  << '\n';
        if (m_observed.machine != nullptr) {
            m_observed.machine->Listen(OnLine, this);
        }
        m_observed.setSink(OnCall, this);
    }

    Transcript(const Transcript&) = delete;
    Transcript& operator=(const Transcript&) = delete;

    ~Transcript() {
        m_observed.setSink(nullptr, nullptr);
        if (m_observed.machine != nullptr) {
            m_observed.machine->Listen(nullptr, nullptr);
        }
    }

    void PrintEnd() const {
        std::string text;
        for (std::size_t i = 0; i < LineKinds.size(); ++i) {
            text.append(text.empty() ? "" : ", ").append(std::to_string(m_counts[i])).append(1, ' ');
            text += m_counts[i] == 1 ? LineKinds[i].one : LineKinds[i].several;
        }
        std::cout << Times() << "  end    " << text << '\n';
    }

    std::vector<BoundaryCall> TakeCalls() { return std::move(m_calls); }

private:
    static void OnLine(void* context, int kind, const char* line) {
        static_cast<Transcript*>(context)->Print(kind == VESK_MACHINE_EVENT_LINE ? Line::Event : Line::Debug,
                                                 line);
    }

    static void OnCall(void* context, const VeskObserver_Call* call) {
        static_cast<Transcript*>(context)->PrintCall(*call);
    }

    [[nodiscard]] std::chrono::microseconds MachineTime() const {
        return m_observed.machine != nullptr ? m_observed.machine->Now() : std::chrono::microseconds();
    }

    [[nodiscard]] std::string Times() const {
        const std::string here = Milliseconds(Clock::now() - m_begin);
        return m_observed.machine != nullptr ? Milliseconds(MachineTime() - m_start) + ' ' + here : here;
    }

    void PrintCall(const VeskObserver_Call& call) {
        if (auto logged = BoundaryCallOf(call)) {
            m_calls.push_back(*std::move(logged));
        }
        const bool isDebugLine = std::string_view(call.operation) == "EventWriteTransfer";
        if (isDebugLine && call.succeeded != 0 && m_observed.machine != nullptr) {
            ++m_counts[static_cast<std::size_t>(Line::Call)]; // the debug line has just been printed
        } else if (const std::string command = EcCommandOf(call); !command.empty()) {
            ++m_counts[static_cast<std::size_t>(Line::Call)];
            Print(Line::Ec, command);
        } else {
            Print(Line::Call, call.line);
        }
    }

    void Print(Line line, std::string_view text) {
        while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
            text.remove_suffix(1);
        }
        const LineKind& kind = LineKinds[static_cast<std::size_t>(line)];
        ++m_counts[static_cast<std::size_t>(line)];
        std::string shown(kind.mark);
        shown.append("  ").append(OnOneLine(text));
        std::cout << m_paint(Style::Quiet, Times()) << "  " << m_paint(kind.style, shown) << '\n'
                  << std::flush;
    }

    const Observed m_observed;
    Paint m_paint;
    std::chrono::microseconds m_start;
    Clock::time_point m_begin;
    std::array<std::size_t, LineKinds.size()> m_counts{};
    std::vector<BoundaryCall> m_calls;
};

constexpr std::string_view NotObserved = "this library is not observed: its calls and the EC's bytes are "
                                         "shown by the library in the folder \"observed\" "
                                         "(--library FILE); ";

void PrintResult(const Reading& reading, const Paint& paint) {
    constexpr std::size_t Longest = 2000;
    const std::string text =
        reading.row.signature == Signature::NoResult ? "(none)" : OnOneLine(ReadableOf(reading, Longest));
    std::cout << "result  " << paint(StyleOf(reading.classification.status), text) << '\n';
}

} // namespace

int TraceExport(const Options& options) {
    // Opening the session is not part of the trace.
    const HostOptions host = WithObserver(options.host);
    SingleCall call(host, options.reading, options.name, options.arguments);
    Answer answer;
    std::optional<std::vector<BoundaryCall>> calls;
    if (const Address setSink = call.Find("VeskObserver_SetSink"); setSink != nullptr) {
        const Observed observed{reinterpret_cast<decltype(VeskObserver_SetSink)*>(setSink), call.Machine()};
        Transcript transcript(observed, options.colour);
        answer = call.Make();
        transcript.PrintEnd();
        calls = transcript.TakeCalls();
    } else {
        const Clock::time_point begin = Clock::now();
        answer = call.Make();
        std::cout << "time    " << Milliseconds(Clock::now() - begin).substr(1) << " ms\n";
        std::cerr << "sondrel: " << NotObserved << host_system::WhereTraceLinesAre() << '\n';
    }
    call.CloseSession(answer);
    interrupt::Check();
    const Reading reading = call.Explained(std::move(answer), std::move(calls));
    PrintResult(reading, Paint(options.colour, terminal::Stream::Out));
    return reading.answer.fault.empty() ? ExitOk : ExitFinding;
}

} // namespace tool
