#include "output/telemetry_html.h"

#include "base/text.h"
#include "output/chart.h"
#include "output/html_value.h"
#include "readings/converted.h"
#include "samples/pace.h"
#include "samples/telemetry.h"
#include "terminal/interrupt.h"
#include "terminal/progress.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <iostream>

namespace tool {
namespace {

/// The time of the samples. That of a simulated machine does not have to be waited for.
class SampleClock {
public:
    explicit SampleClock(const Host& host)
        : m_machine(host.machine ? &*host.machine : nullptr), m_start(Now()) {}

    [[nodiscard]] std::chrono::microseconds Elapsed() const { return Now() - m_start; }

    void WaitUntil(std::chrono::microseconds due) const {
        for (auto left = due - Elapsed(); left.count() > 0; left = due - Elapsed()) {
            if (m_machine != nullptr) {
                m_machine->PassTime(left);
                continue;
            }
            static_cast<void>(interrupt::WaitFor(std::chrono::ceil<std::chrono::milliseconds>(left)));
            interrupt::Check();
        }
    }

private:
    [[nodiscard]] std::chrono::microseconds Now() const {
        return m_machine != nullptr ? m_machine->Now()
                                    : std::chrono::duration_cast<std::chrono::microseconds>(
                                          std::chrono::steady_clock::now().time_since_epoch());
    }

    const SimulatedMachine* m_machine;
    std::chrono::microseconds m_start;
};

std::string NewestOf(const Series& series, const Point& point) {
    if (!point.number) {
        // The causes are listed at the top of the page.
        const std::size_t end = HasValue(point.status) ? std::string::npos : point.text.find(": ");
        return std::string("<span class=\"").append(ClassOf(point.status)).append("\">") +
               Escaped(point.text.substr(0, end)) + "</span>";
    }
    const UnitStyle& style = UnitStyleOf(*series.row);
    std::string html = Escaped(NumberText(style, *point.number)) + " " + QuietHtml(style.displayedUnit);
    if (const std::string assumed = AssumedText(*series.row, *point.number); !assumed.empty()) {
        html += " " + QuietHtml("(" + assumed + ")");
    }
    return html;
}

std::vector<double> NumbersIn(const std::vector<std::optional<double>>& numbers) {
    std::vector<double> present;
    for (const std::optional<double>& number : numbers) {
        if (number) {
            present.push_back(*number);
        }
    }
    return present;
}

/// What the samples of one series were.
struct Course {
    std::vector<std::optional<double>> numbers;
    std::vector<double> present;
    double low = 0;
    double high = 0;

    explicit Course(std::vector<std::optional<double>> samples)
        : numbers(std::move(samples)), present(NumbersIn(numbers)) {
        if (!present.empty()) {
            const auto [lowest, highest] = std::ranges::minmax(present);
            low = lowest;
            high = highest;
        }
    }

    /// There is something to draw.
    [[nodiscard]] bool Changed() const { return !present.empty() && low != high; }
};

std::string LabelOf(const Series& series) {
    if (series.row->element.count > 1) {
        std::string label(series.row->element.name);
        label.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(label.front())));
        return label.append(1, ' ').append(std::to_string(series.element));
    }
    const std::string_view summary = series.row->summary;
    return std::string(summary.substr(0, summary.find(", in the ")));
}

/// Of the drawing's own numbers. What can be negative is drawn from 0.
Range RangeOf(const UnitStyle& style, const Course& course) {
    const Range range = RangeFor(style, course.present);
    return course.low < 0 ? Range{range.low, std::max(range.high, 0.0)} : range;
}

std::string Between(std::string_view className, const std::string& first, const std::string& last) {
    return std::string("<span class=\"").append(className).append("\"><span>") + Escaped(first) +
           "</span><span>" + Escaped(last) + "</span></span>";
}

std::string SecondsText(double seconds) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f s", seconds < 10 ? 1 : 0, seconds);
    return text;
}

std::string CardOf(const Telemetry& telemetry, std::size_t index, const Course& course) {
    const Series& series = telemetry.series[index];
    const UnitStyle& style = UnitStyleOf(*series.row);
    const Range range = RangeOf(style, course);
    const std::string extremes = NumberText(style, course.low) + " to " + NumberText(style, course.high) +
                                 ' ' + std::string(style.displayedUnit);
    return "<figure class=\"card\"><span class=\"label\">" + Escaped(LabelOf(series)) +
           "</span><span class=\"value\">" + NewestOf(series, telemetry.samples.back().points[index]) +
           "</span><div class=\"plot\">" +
           Between("scale", NumberText(style, range.high), NumberText(style, range.low)) +
           CurveSvg(course.numbers, range, series.name + ": " + extremes) +
           Between("ends", "0 s", SecondsText(telemetry.seconds)) + "</div><code class=\"name\">" +
           BreakableHtml(series.name) + "</code></figure>";
}

std::string BarOf(const Telemetry& telemetry, std::size_t index, Range range) {
    const Series& series = telemetry.series[index];
    return "<span>" + Escaped(LabelOf(series)) + "</span>" +
           BarSvg(telemetry.NumbersOf(index), range, series.name) + "<span class=\"number\">" +
           NewestOf(series, telemetry.samples.back().points[index]) + "</span>";
}

/// A family in one drawing: all bars begin at 0 and have one scale.
std::string BarsOf(const Telemetry& telemetry, const std::vector<std::size_t>& indices) {
    std::vector<double> numbers;
    for (const std::size_t index : indices) {
        const std::vector<double> present = NumbersIn(telemetry.NumbersOf(index));
        numbers.insert(numbers.end(), present.begin(), present.end());
    }
    const UnitStyle& style = UnitStyleOf(*telemetry.series[indices.front()].row);
    Range range = RangeFor(style, numbers);
    range = {std::min(range.low, 0.0), std::max(range.high, 0.0)};
    std::string html = "<div class=\"bars\">";
    for (const std::size_t index : indices) {
        html += BarOf(telemetry, index, range);
    }
    return html + "<span></span>" +
           Between("ends", NumberText(style, range.low), NumberText(style, range.high)) +
           "<span></span></div>";
}

/// "Fan 0: 2913 rpm"
std::string LineOf(const Telemetry& telemetry, std::size_t index) {
    const Series& series = telemetry.series[index];
    return "<li><span>" + Escaped(LabelOf(series)) + "</span><span class=\"number\">" +
           NewestOf(series, telemetry.samples.back().points[index]) + "</span><code class=\"name\">" +
           BreakableHtml(series.name) + "</code></li>";
}

/// What one drawing shows, in the order of the exports.
struct Family {
    std::string cards;
    std::string lines;  // did not change, or was not read
    std::string absent; // not on this machine
};

void Add(const Telemetry& telemetry, std::size_t index, Family& family) {
    const Course course(telemetry.NumbersOf(index));
    const Point& newest = telemetry.samples.back().points[index];
    if (course.Changed()) {
        family.cards += CardOf(telemetry, index, course);
    } else if (course.present.empty() && newest.status == Status::Absent) {
        family.absent.append(family.absent.empty() ? "" : ", ")
            .append(Escaped(LabelOf(telemetry.series[index])));
    } else {
        family.lines += LineOf(telemetry, index);
    }
}

std::string ChartOf(const Telemetry& telemetry, std::string_view title) {
    std::vector<std::size_t> bars;
    Family family;
    for (std::size_t i = 0; i < telemetry.series.size(); ++i) {
        const Export& row = *telemetry.series[i].row;
        if (row.chart != title) {
            continue;
        }
        const bool isBar = UnitStyleOf(row).drawing == Drawing::Bars;
        if (isBar && !NumbersIn(telemetry.NumbersOf(i)).empty()) {
            bars.push_back(i);
        } else {
            Add(telemetry, i, family);
        }
    }
    std::string html = bars.empty() ? std::string() : BarsOf(telemetry, bars);
    html += family.cards.empty() ? "" : "<div class=\"cards\">" + family.cards + "</div>";
    html += family.lines.empty() ? "" : "<ul class=\"steady\">" + family.lines + "</ul>";
    html += family.absent.empty() ? "" : "<p class=\"quiet\">Not on this machine: " + family.absent + ".</p>";
    return html.empty() ? html : "<h3>" + Escaped(title) + "</h3>" + html;
}

} // namespace

std::vector<std::optional<double>> Telemetry::NumbersOf(std::size_t index) const {
    std::vector<std::optional<double>> numbers;
    for (const Sample& sample : samples) {
        numbers.push_back(sample.points[index].number);
    }
    return numbers;
}

Telemetry MeasureTelemetry(const Host& host, const ReadOptions& options, const Sampling& sampling) {
    Sampler sampler(host, options, TelemetryRows(host));
    Telemetry telemetry{.series = sampler.AllSeries(), .samples = {}};
    Progress progress;
    const SampleClock clock(host);
    Pace pace(sampling.interval);
    for (std::size_t taken = 1;; ++taken) {
        progress.Begin("sample " + std::to_string(taken) + " of " + std::to_string(sampling.count));
        telemetry.samples.push_back(sampler.Take());
        telemetry.seconds = std::chrono::duration<double>(clock.Elapsed()).count();
        if (taken >= sampling.count) {
            progress.Clear();
            if (const std::string remark = pace.Remark(); !remark.empty()) {
                std::cerr << "sondrel: " << remark << '\n';
            }
            return telemetry;
        }
        clock.WaitUntil(pace.Next(clock.Elapsed()));
    }
}

std::string TelemetrySection(const Telemetry& telemetry) {
    const std::size_t count = telemetry.samples.size();
    std::string html = "<section id=\"telemetry\"><h2>Telemetry</h2><p class=\"quiet\">";
    html +=
        count == 1
            ? "1 sample."
            : std::to_string(count) + " samples in " + SecondsText(telemetry.seconds) +
                  ". What changed is drawn, each curve with its own scale; the large value is the newest.";
    html += "</p>";
    for (const std::string_view title : exports::ChartTitles()) {
        html += ChartOf(telemetry, title);
    }
    return html + "</section>";
}

} // namespace tool
