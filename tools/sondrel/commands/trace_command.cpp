// sondrel trace [--] NAME [ARG...]
#include "base/text.h"
#include "base/trouble.h"
#include "output/readable.h"
#include "readings/single_call.h"
#include "terminal/interrupt.h"
#include "terminal/paint.h"
#include "vesk_sondrel_machine.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <iostream>

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

/// The boundary call that a debug line is, once it is on its way.
constexpr std::string_view DebugLineWritten = "EventWriteTransfer = 0";

std::string Milliseconds(std::chrono::nanoseconds time) {
    char text[48];
    std::snprintf(text, sizeof text, "%10.3f", std::chrono::duration<double, std::milli>(time).count());
    return text;
}

/// "bb 03 -> 4b" for the driver's request of one EC command; empty for any other call.
std::string EcCommandOf(std::string_view line) {
    constexpr std::string_view Start = "DeviceIoControl 0x80102070 in ";
    constexpr std::size_t Count = 1;
    constexpr std::size_t Data = 2;
    constexpr std::size_t DataRoom = 8;
    constexpr std::size_t Reads = 10;
    constexpr std::size_t Result = 11;
    if (!line.starts_with(Start)) {
        return {};
    }
    const std::vector<std::string_view> words = Split(line.substr(Start.size()), ' ');
    const auto in = BytesOfHex(words.front());
    if (!in || in->size() <= Result || (*in)[Count] > DataRoom) {
        return {};
    }
    std::string text = Hex(std::span(*in).first(1));
    for (std::size_t i = 0; i < (*in)[Count]; ++i) {
        text.append(" ").append(Hex(std::span(*in).subspan(Data + i, 1)));
    }
    if (words.back() == "0" || words.size() < 3) {
        return text + "  refused";
    }
    const auto out = BytesOfHex(words[2]);
    const bool answered = (*in)[Reads] != 0 && out && out->size() > Result;
    return answered ? text + " -> " + Hex(std::span(*out).subspan(Result, 1)) : text;
}

/// Writes what the machine tells as it happens.
class Transcript {
public:
    Transcript(const SimulatedMachine& machine, ColourWish colour)
        : m_machine(machine),
          m_paint(colour, terminal::Stream::Out),
          m_start(machine.Now()),
          m_begin(Clock::now()) {
        std::cout << m_paint(Style::Quiet, "machine ms    here ms") << '\n';
        machine.ListenToCalls(Hear, this);
    }

    Transcript(const Transcript&) = delete;
    Transcript& operator=(const Transcript&) = delete;

    ~Transcript() { m_machine.ListenToCalls(nullptr, nullptr); }

    void TellEnd() const {
        std::string text;
        for (std::size_t i = 0; i < LineKinds.size(); ++i) {
            text.append(text.empty() ? "" : ", ").append(std::to_string(m_counts[i])).append(1, ' ');
            text += m_counts[i] == 1 ? LineKinds[i].one : LineKinds[i].several;
        }
        std::cout << Times() << "  end    " << text << '\n';
    }

private:
    static void Hear(void* context, int kind, const char* line) {
        static_cast<Transcript*>(context)->Tell(kind, line);
    }

    [[nodiscard]] std::string Times() const {
        return Milliseconds(m_machine.Now() - m_start) + ' ' + Milliseconds(Clock::now() - m_begin);
    }

    void Tell(int kind, std::string_view line) {
        while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) {
            line.remove_suffix(1);
        }
        if (kind == VESK_MACHINE_DEBUG_LINE) {
            Put(Line::Debug, line);
        } else if (kind == VESK_MACHINE_EVENT_LINE) {
            Put(Line::Event, line);
        } else if (line == DebugLineWritten) {
            ++m_counts[static_cast<std::size_t>(Line::Call)]; // the debug line has just been shown
        } else if (const std::string command = EcCommandOf(line); !command.empty()) {
            ++m_counts[static_cast<std::size_t>(Line::Call)];
            Put(Line::Ec, command);
        } else {
            Put(Line::Call, line);
        }
    }

    void Put(Line line, std::string_view text) {
        const LineKind& kind = LineKinds[static_cast<std::size_t>(line)];
        ++m_counts[static_cast<std::size_t>(line)];
        std::string shown(kind.mark);
        shown.append("  ").append(OnOneLine(text));
        std::cout << m_paint(Style::Quiet, Times()) << "  " << m_paint(kind.style, shown) << '\n'
                  << std::flush;
    }

    const SimulatedMachine& m_machine;
    Paint m_paint;
    std::chrono::microseconds m_start;
    Clock::time_point m_begin;
    std::array<std::size_t, LineKinds.size()> m_counts{};
};

/// What the real machine does not let the tool see.
constexpr std::string_view NotToldHere =
    "the calls behind the library's boundary and the EC's bytes are told by the simulated machine only; ";

void TellResult(const Export& row, const Answer& answer, const Paint& paint) {
    constexpr std::size_t Longest = 2000;
    const Reading reading{row, answer, Judge(row, answer)};
    const std::string text =
        row.shape == &shape::Nothing ? "(none)" : OnOneLine(ReadableOf(reading, Longest));
    std::cout << "result  " << paint(StyleOf(reading.judgement.status), text) << '\n';
}

} // namespace

int TraceExport(const Options& options) {
    const SingleCall call(options); // opening the session is not part of it
    Answer answer;
    if (const SimulatedMachine* const machine = call.Machine(); machine != nullptr) {
        Transcript transcript(*machine, options.colour);
        answer = call.Make();
        transcript.TellEnd();
    } else {
        const Clock::time_point begin = Clock::now();
        answer = call.Make();
        std::cout << "time    " << Milliseconds(Clock::now() - begin).substr(1) << " ms\n";
        std::cerr << "sondrel: " << NotToldHere << host_system::WhereTraceLinesAre() << '\n';
    }
    call.GiveBackSession(answer);
    interrupt::Check();
    TellResult(call.Row(), answer, Paint(options.colour, terminal::Stream::Out));
    return answer.fault.empty() ? ExitDone : ExitFault;
}

} // namespace tool
