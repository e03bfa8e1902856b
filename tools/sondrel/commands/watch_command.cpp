// sondrel watch [NAME...]
#include "base/error.h"
#include "base/text.h"
#include "commands/commands.h"
#include "output/sample_file.h"
#include "output/watch_screen.h"
#include "terminal/interrupt.h"
#include "terminal/terminal.h"

#include <iostream>

namespace tool {
namespace {

using Clock = std::chrono::steady_clock;

std::vector<std::string> ChosenNames(const Options& options, const Host& host) {
    if (!options.names.empty()) {
        return options.names;
    }
    std::vector<std::string> names;
    for (const Export& row : AllExports()) {
        if (row.watched && host.library.Find(row.name) != nullptr) {
            names.emplace_back(row.name);
        }
    }
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

/// Shows the newest sample: on a full screen of the terminal, or as lines elsewhere.
class SampleView {
public:
    SampleView(const std::vector<Series>& series, std::string title, ColourMode colour)
        : m_screen(series, std::move(title), Paint(colour, terminal::Stream::Out)) {
        if (terminal::SupportsSequences(terminal::Stream::Out)) {
            m_terminal.emplace();
            Redraw();
        }
    }

    void Show(const Sample& sample) {
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
    SampleView view(sampler.AllSeries(), TitleFor(host, sampling), options.colour);
    Clock::time_point due = Clock::now();
    for (std::size_t taken = 1;; ++taken) {
        const Sample sample = sampler.Take();
        if (file) {
            file->Write(sample);
        }
        view.Show(sample);
        if (taken == sampling.count) {
            return ExitOk;
        }
        // A late sample does not shorten the next intervals.
        due = std::max(due + sampling.interval, Clock::now());
        WaitUntil(due, view);
    }
}

} // namespace tool
