// sondrel watch [NAME...]
#include "base/text.h"
#include "base/trouble.h"
#include "output/sample_file.h"
#include "output/watch_screen.h"
#include "readings/telemetry.h"
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
        throw Trouble("this library exports none of the usual readings; name one");
    }
    return names;
}

std::string TitleFor(const Host& host, const Sampling& sampling) {
    const auto seconds = std::chrono::duration<double>(sampling.interval).count();
    char every[32];
    std::snprintf(every, sizeof every, "%g", seconds);
    return "sondrel watch  " + OnOneLine(host.machineName) + (host.machine ? " (simulated)" : "") +
           "  every " + every + " s";
}

/// Shows the newest sample: on the terminal as a screen, elsewhere as lines.
class SampleView {
public:
    SampleView(const std::vector<Series>& series, std::string title, ColourWish colour)
        : m_screen(series, std::move(title), Paint(colour, terminal::Stream::Out)) {
        if (terminal::TakesSequences(terminal::Stream::Out)) {
            m_terminal.emplace();
            ShowAgain();
        }
    }

    void Show(const Sample& sample) {
        m_screen.Add(sample);
        Put(m_terminal ? m_screen.Draw(terminal::SizeOf(terminal::Stream::Out)) : m_screen.Lines());
    }

    void ShowAgain() const {
        if (m_terminal) {
            Put(m_screen.Draw(terminal::SizeOf(terminal::Stream::Out)));
        }
    }

private:
    static void Put(const std::string& text) {
        std::cout << text << std::flush;
        if (!std::cout) {
            throw Trouble("the output could not be written");
        }
    }

    WatchScreen m_screen;
    std::optional<terminal::FullScreen> m_terminal;
};

/// Waits until the next sample is due. The view follows the terminal meanwhile.
void WaitUntil(Clock::time_point due, const SampleView& view) {
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(due - Clock::now());
        const interrupt::Wake wake = interrupt::WaitFor(left);
        interrupt::Check();
        if (wake == interrupt::Wake::TimeUp) {
            return;
        }
        view.ShowAgain();
    }
}

} // namespace

int Watch(const Options& options) {
    const Host host(options);
    if (host.machine) {
        host.machine->TieToRealTime();
    }
    const Sampler sampler(host, options, ChosenNames(options, host));
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
            return ExitDone;
        }
        due = std::max(due + sampling.interval, Clock::now()); // a late sample does not hurry the next ones
        WaitUntil(due, view);
    }
}

} // namespace tool
