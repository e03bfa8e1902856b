// sondrel watch [READING...]
#include "base/error.h"
#include "base/text.h"
#include "commands/commands.h"
#include "readings/reading_json.h"
#include "readings/selection.h"
#include "samples/pace.h"
#include "samples/sample_file.h"
#include "samples/threshold.h"
#include "samples/watch_screen.h"
#include "samples/watch_summary.h"
#include "terminal/interrupt.h"
#include "terminal/terminal.h"

#include <nlohmann/json.hpp>

#include <iostream>
#include <span>

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

/// With the readings of the conditions, where they are not chosen.
std::vector<const Export*> RowsFor(const Options& options, std::span<const Threshold> thresholds,
                                   const Host& host) {
    std::vector<std::string> words = options.names;
    if (words.empty()) {
        for (const Export* const row : TelemetryRows(host)) {
            words.emplace_back(row->name);
        }
    }
    for (const Threshold& threshold : thresholds) {
        words.push_back(threshold.Name());
    }
    if (words.empty()) {
        throw Error("this library exports no telemetry; name a reading");
    }
    return ChosenReadings(words, host.library);
}

std::string TitleFor(const Host& host, const Sampling& sampling) {
    const auto seconds = std::chrono::duration<double>(sampling.interval).count();
    char every[32];
    std::snprintf(every, sizeof every, "%g", seconds);
    return "sondrel watch  " + OnOneLine(host.machineName) + host.MachineKind() + "  every " + every + " s";
}

/// Shows the newest sample: on a full screen of the terminal, or as lines elsewhere; nothing if standard output is for
/// something else. The summary follows when the watch ends, by an interrupt too.
class SampleView {
public:
    SampleView(const std::vector<Series>& series, std::string title, ColourMode colour, bool hidden)
        : m_screen(series, std::move(title), Paint(colour, terminal::Stream::Out)),
          m_summary(series),
          m_hidden(hidden) {
        if (!m_hidden && terminal::SupportsSequences(terminal::Stream::Out)) {
            m_terminal.emplace();
            Redraw();
        }
    }

    SampleView(const SampleView&) = delete;
    SampleView& operator=(const SampleView&) = delete;

    ~SampleView() {
        if (m_terminal) {
            m_terminal.reset();
            std::cout << m_screen.LastScreen(terminal::SizeOf(terminal::Stream::Out).columns);
        }
        if (const std::string text = m_summary.Text(); !text.empty()) {
            (m_hidden ? std::cerr : std::cout) << '\n' << text << std::flush;
        }
    }

    void Show(const Sample& sample) {
        m_summary.Add(sample);
        m_screen.Add(sample);
        if (!m_hidden) {
            Write(m_terminal ? m_screen.Draw(terminal::SizeOf(terminal::Stream::Out)) : m_screen.Lines());
        }
    }

    void Redraw() const {
        if (m_terminal) {
            Write(m_screen.Draw(terminal::SizeOf(terminal::Stream::Out)));
        }
    }

    static void Write(const std::string& text) {
        std::cout << text << std::flush;
        if (!std::cout) {
            throw Error("the output could not be written");
        }
    }

private:
    WatchScreen m_screen;
    WatchSummary m_summary;
    bool m_hidden;
    std::optional<terminal::FullScreen> m_terminal;
};

/// Each sample is one line of JSON.
class SampleLines {
public:
    SampleLines(const Host& host, bool isObserved) : m_document(ReadingsDocument(host, isObserved)) {}

    void Add(const Reading& reading) {
        m_document["readings"][std::string(reading.row.name)] = JsonOf(reading);
    }

    [[nodiscard]] std::string LineOf(const Sample& sample) {
        m_document["taken"] = IsoTime(sample.time);
        std::string line = m_document.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
        m_document["readings"].clear();
        return line + '\n';
    }

private:
    nlohmann::ordered_json m_document;
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

std::vector<Threshold> ThresholdsOf(const Options& options) {
    std::vector<Threshold> thresholds;
    for (const std::string& condition : options.failIf) {
        thresholds.emplace_back(condition);
    }
    return thresholds;
}

/// Says which condition is fulfilled.
bool IsFulfilled(std::span<Threshold> thresholds, std::span<const Series> series, const Sample& sample) {
    for (Threshold& threshold : thresholds) {
        if (const auto found = threshold.Fulfilled(series, sample)) {
            std::cerr << "sondrel: " << *found << ": " << OnOneLine(threshold.Text()) << '\n';
            return true;
        }
    }
    return false;
}

/// That a condition was never fulfilled says nothing if the reading had no number.
int StatusAfter(std::span<const Threshold> thresholds) {
    int status = ExitOk;
    for (const Threshold& threshold : thresholds) {
        if (!threshold.WasRead()) {
            std::cerr << "sondrel: " << threshold.Name() << " had no number in any sample\n";
            status = ExitError;
        }
    }
    return status;
}

/// The files and lines that samples go to.
class SampleOutput {
public:
    SampleOutput(const Options& options, const Host& host, const Sampler& sampler)
        : m_view(sampler.AllSeries(), TitleFor(host, options.watchSampling), options.colour,
                 options.csv == "-" || options.ndjson) {
        if (!options.csv.empty()) {
            m_file.emplace(options.csv, sampler.AllSeries());
        }
        if (options.ndjson) {
            m_lines.emplace(host, CallLog(&host.library).IsObserved());
        }
    }

    Sample TakeFrom(Sampler& sampler) {
        Sample sample = sampler.Take([&](const Reading& reading) {
            if (m_lines) {
                m_lines->Add(reading);
            }
        });
        if (m_file) {
            m_file->Write(sample);
        }
        if (m_lines) {
            SampleView::Write(m_lines->LineOf(sample));
        }
        m_view.Show(sample);
        return sample;
    }

    [[nodiscard]] const SampleView& View() const { return m_view; }

private:
    SampleView m_view;
    std::optional<SampleFile> m_file;
    std::optional<SampleLines> m_lines;
};

} // namespace

int Watch(const Options& options) {
    std::vector<Threshold> thresholds = ThresholdsOf(options);
    const Host host(options.host);
    if (host.machine) {
        host.machine->TieToRealTime();
    }
    Sampler sampler(host, options.reading, RowsFor(options, thresholds, host));
    for (const Threshold& threshold : thresholds) {
        threshold.Require(sampler.AllSeries());
    }
    const Sampling& sampling = options.watchSampling;
    SampleOutput output(options, host, sampler);
    ReportedPace pace(sampling.interval);
    for (std::size_t taken = 1;; ++taken) {
        const Sample sample = output.TakeFrom(sampler);
        if (IsFulfilled(thresholds, sampler.AllSeries(), sample)) {
            return ExitFinding;
        }
        if (taken == sampling.count) {
            return StatusAfter(thresholds);
        }
        WaitUntil(pace.NextDue(), output.View());
    }
}

} // namespace tool
