// sondrel watch [NAME...]
#include "base/error.h"
#include "base/text.h"
#include "commands/commands.h"
#include "output/sample_file.h"
#include "output/watch_screen.h"
#include "readings/pace.h"
#include "terminal/interrupt.h"
#include "terminal/terminal.h"

#include <iostream>

namespace tool {
namespace {

using Clock = std::chrono::steady_clock;

/// The times of the samples. What was late is reported at the end, by an interrupt too.
class ReportedPace : public Pace {
public:
    using Pace::Pace;

    ReportedPace(const ReportedPace&) = delete;
    ReportedPace& operator=(const ReportedPace&) = delete;

    ~ReportedPace() {
        if (const std::string remark = Remark(); !remark.empty()) {
            std::cerr << "sondrel: " << remark << '\n';
        }
    }

    [[nodiscard]] Clock::time_point NextDue() {
        return m_begin + Next(std::chrono::duration_cast<Time>(Clock::now() - m_begin));
    }

private:
    const Clock::time_point m_begin = Clock::now();
};

std::vector<std::string> ChosenNames(const Options& options, const Host& host) {
    std::vector<std::string> names = options.names.empty() ? TelemetryNames(host) : options.names;
    if (names.empty()) {
        throw Error("this library exports no telemetry; name a reading");
    }
    return names;
}

std::string TitleFor(const Host& host, const Sampling& sampling) {
    const auto seconds = std::chrono::duration<double>(sampling.interval).count();
    char every[32];
    std::snprintf(every, sizeof every, "%g", seconds);
    return "sondrel watch  " + OnOneLine(host.machineName) + host.MachineKind() + "  every " + every + " s";
}

/// Shows the newest sample: on a full screen of the terminal, or as lines elsewhere; nothing if standard output is for
/// something else.
class SampleView {
public:
    SampleView(const std::vector<Series>& series, std::string title, ColourMode colour, bool hidden)
        : m_screen(series, std::move(title), Paint(colour, terminal::Stream::Out)), m_hidden(hidden) {
        if (!m_hidden && terminal::SupportsSequences(terminal::Stream::Out)) {
            m_terminal.emplace();
            Redraw();
        }
    }

    void Show(const Sample& sample) {
        if (m_hidden) {
            return;
        }
        m_screen.Add(sample);
        Write(m_terminal ? m_screen.Draw(terminal::SizeOf(terminal::Stream::Out)) : m_screen.Lines());
    }

    void Redraw() const {
        if (m_terminal) {
            Write(m_screen.Draw(terminal::SizeOf(terminal::Stream::Out)));
        }
    }

private:
    static void Write(const std::string& text) {
        std::cout << text << std::flush;
        if (!std::cout) {
            throw Error("the output could not be written");
        }
    }

    WatchScreen m_screen;
    bool m_hidden;
    std::optional<terminal::FullScreen> m_terminal;
};

/// Waits until the next sample is due. The view is redrawn when the terminal changes.
void WaitUntil(Clock::time_point due, const SampleView& view) {
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(due - Clock::now());
        const interrupt::Wake wake = interrupt::WaitFor(left);
        interrupt::Check();
        if (wake == interrupt::Wake::TimeUp) {
            return;
        }
        view.Redraw();
    }
}

} // namespace

int Watch(const Options& options) {
    const Host host(options.host);
    if (host.machine) {
        host.machine->TieToRealTime();
    }
    Sampler sampler(host, options.reading, ChosenNames(options, host));
    std::optional<SampleFile> file;
    if (!options.csv.empty()) {
        file.emplace(options.csv, sampler.AllSeries());
    }
    const Sampling& sampling = options.watchSampling;
    ReportedPace pace(sampling.interval);
    SampleView view(sampler.AllSeries(), TitleFor(host, sampling), options.colour, options.csv == "-");
    for (std::size_t taken = 1;; ++taken) {
        const Sample sample = sampler.Take();
        if (file) {
            file->Write(sample);
        }
        view.Show(sample);
        if (taken == sampling.count) {
            return ExitOk;
        }
        WaitUntil(pace.NextDue(), view);
    }
}

} // namespace tool
