// A report as one page for a browser.
#include "base/text.h"
#include "exports/status_style.h"
#include "output/chart.h"
#include "output/html_value.h"
#include "output/page_style.h"
#include "output/replaced_file.h"
#include "output/report.h"
#include "readings/readable.h"
#include "samples/pace.h"
#include "samples/sampler.h"
#include "samples/telemetry.h"
#include "terminal/interrupt.h"
#include "terminal/progress.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <iostream>
#include <map>

namespace tool {
namespace {

/// The samples of the telemetry.
struct Telemetry {
    std::vector<Series> series;
    std::vector<Sample> samples;
    double seconds = 0;

    [[nodiscard]] std::vector<std::optional<double>> NumbersOf(std::size_t index) const {
        std::vector<std::optional<double>> numbers;
        for (const Sample& sample : samples) {
            numbers.push_back(sample.points[index].number);
        }
        return numbers;
    }
};

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

Telemetry Measure(const Host& host, const ReadOptions& options, const Sampling& sampling) {
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

std::string Quiet(std::string_view text) {
    return std::string("<span class=\"quiet\">").append(Escaped(text)).append("</span>");
}

/// A name that can be broken after each of its words.
std::string Breakable(std::string_view name) {
    std::string html;
    for (const std::string_view word : Split(name, '_')) {
        html.append(html.empty() ? "" : "_<wbr>").append(Escaped(word));
    }
    return html;
}

std::string_view ClassOf(Status status) {
    constexpr std::array<std::string_view, static_cast<std::size_t>(Style::Count)> Classes = {
        "plain", "plain", "quiet", "warning", "bad"};
    return Classes[static_cast<std::size_t>(StyleOf(status))];
}

std::string NewestOf(const UnitStyle& style, const Point& point) {
    if (!point.number) {
        return "<span class=\"" + std::string(ClassOf(point.status)) + "\">" + Escaped(point.text) +
               "</span>";
    }
    return Escaped(NumberText(style, *point.number)) + " " + Quiet(style.displayedUnit);
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

/// "50 to 61 °C"
std::string ExtremesOf(const UnitStyle& style, const std::vector<std::optional<double>>& numbers) {
    const std::vector<double> present = NumbersIn(numbers);
    if (present.empty()) {
        return "no value in any sample";
    }
    const auto [low, high] = std::ranges::minmax(present);
    if (low == high) {
        return "steady";
    }
    return NumberText(style, low) + " to " + NumberText(style, high) + ' ' + std::string(style.displayedUnit);
}

std::string LabelOf(const Series& series) {
    if (series.row->element.count > 1) {
        std::string label(series.row->element.name);
        label.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(label.front())));
        return label.append(1, ' ').append(std::to_string(series.element));
    }
    const std::string_view summary = series.row->summary;
    return std::string(summary.substr(0, summary.find(", in the ")));
}

/// Readings of one unit are drawn with one scale, so that they can be compared.
std::map<std::string_view, Range> RangesOf(const Telemetry& telemetry,
                                           const std::vector<std::size_t>& drawn) {
    std::map<std::string_view, std::vector<double>> numbers;
    std::map<std::string_view, const UnitStyle*> styles;
    for (const std::size_t index : drawn) {
        const Export& row = *telemetry.series[index].row;
        const std::string_view group = row.unit == "raw" ? row.name : row.unit;
        styles[group] = &UnitStyleOf(row);
        const std::vector<double> present = NumbersIn(telemetry.NumbersOf(index));
        numbers[group].insert(numbers[group].end(), present.begin(), present.end());
    }
    std::map<std::string_view, Range> ranges;
    for (const auto& [group, style] : styles) {
        ranges[group] = RangeFor(*style, numbers[group]);
    }
    return ranges;
}

std::string CardOf(const Telemetry& telemetry, std::size_t index, Range range) {
    const Series& series = telemetry.series[index];
    const UnitStyle& style = UnitStyleOf(*series.row);
    const std::vector<std::optional<double>> numbers = telemetry.NumbersOf(index);
    const std::string extremes = ExtremesOf(style, numbers);
    std::string html = "<figure class=\"card\"><span class=\"label\">" + Escaped(LabelOf(series)) +
                       "</span><span class=\"value\">" +
                       NewestOf(style, telemetry.samples.back().points[index]) + "</span>";
    html += CurveSvg(numbers, range, series.name + ": " + extremes);
    html += "<span class=\"ends\"><span>" + Escaped(extremes) + "</span></span>";
    return html + "<code class=\"name\">" + Breakable(series.name) + "</code></figure>";
}

std::string BarOf(const Telemetry& telemetry, std::size_t index, Range range) {
    const Series& series = telemetry.series[index];
    const UnitStyle& style = UnitStyleOf(*series.row);
    const std::vector<std::optional<double>> numbers = telemetry.NumbersOf(index);
    return "<span>" + Escaped(LabelOf(series)) + "</span>" +
           BarSvg(numbers, range, series.name + ": " + ExtremesOf(style, numbers)) +
           "<span class=\"number\">" + NewestOf(style, telemetry.samples.back().points[index]) + "</span>";
}

std::string ChartOf(const Telemetry& telemetry, std::string_view title) {
    std::vector<std::size_t> drawn;
    for (std::size_t i = 0; i < telemetry.series.size(); ++i) {
        if (telemetry.series[i].row->chart == title) {
            drawn.push_back(i);
        }
    }
    if (drawn.empty()) {
        return {};
    }
    const std::map<std::string_view, Range> ranges = RangesOf(telemetry, drawn);
    std::string html = "<h3>" + Escaped(title) + "</h3>";
    const Drawing drawing = UnitStyleOf(*telemetry.series[drawn.front()].row).drawing;
    html += drawing == Drawing::Bars ? "<div class=\"bars\">" : "<div class=\"cards\">";
    Range shown;
    for (const std::size_t index : drawn) {
        const Export& row = *telemetry.series[index].row;
        shown = ranges.at(row.unit == "raw" ? row.name : row.unit);
        html += drawing == Drawing::Bars ? BarOf(telemetry, index, shown) : CardOf(telemetry, index, shown);
    }
    if (drawing == Drawing::Bars) {
        const UnitStyle& style = UnitStyleOf(*telemetry.series[drawn.front()].row);
        html += "<span></span><span class=\"ends\"><span>" + NumberText(style, shown.low) + "</span><span>" +
                NumberText(style, shown.high) + "</span></span><span></span>";
    }
    return html + "</div>";
}

std::string TelemetrySection(const Telemetry& telemetry) {
    char span[64];
    std::snprintf(span, sizeof span, "%.*f", telemetry.seconds < 10 ? 1 : 0, telemetry.seconds);
    const std::size_t count = telemetry.samples.size();
    std::string html = "<section id=\"telemetry\"><h2>Telemetry</h2><p class=\"quiet\">";
    html += std::to_string(count) + (count == 1 ? " sample" : " samples in ") + (count == 1 ? "" : span) +
            (count == 1 ? "" : " seconds") +
            "; the large value is the newest, and drawings of one unit have one scale.</p>";
    for (const std::string_view title : exports::ChartTitles()) {
        html += ChartOf(telemetry, title);
    }
    return html + "</section>";
}

std::string AnchorOf(Group group) {
    return "group-" + std::to_string(static_cast<unsigned>(group));
}

std::string RowOf(const Reading& reading) {
    return "<tr><th scope=\"row\"><code>" + Breakable(reading.row.name) + "</code>" +
           Quiet(reading.row.summary) + "</th><td class=\"" +
           std::string(ClassOf(reading.classification.status)) + "\">" + HtmlOf(reading) + "</td></tr>\n";
}

/// The readings in tables, group by group.
class Tables {
public:
    void Add(const Reading& reading) {
        const Status status = reading.classification.status;
        if (status == Status::NotRun || status == Status::NotExported) {
            return;
        }
        m_tables[reading.row.group] += RowOf(reading);
        ++m_count;
        if (StyleOf(status) == Style::Bad || StyleOf(status) == Style::Warning) {
            m_failures += "<li><code>" + Escaped(reading.row.name) + "</code>: <span class=\"" +
                          std::string(ClassOf(status)) + "\">" +
                          Escaped(OnOneLine(ReadableOf(reading, 200))) + "</span></li>";
        }
        if (status == Status::Ok) {
            m_values[reading.row.name] = reading.answer.text;
        }
    }

    /// A value for the page's header, or the empty string.
    [[nodiscard]] std::string ValueOf(std::string_view name) const {
        const auto found = m_values.find(name);
        return found != m_values.end() ? Shortened(OnOneLine(found->second), 100) : std::string();
    }

    [[nodiscard]] std::string Links() const {
        std::string html;
        for (const auto& [group, table] : m_tables) {
            html += "<a href=\"#" + AnchorOf(group) + "\">" + Escaped(exports::TitleOf(group)) + "</a>";
        }
        return html;
    }

    [[nodiscard]] std::string Failures() const {
        const std::string count = std::to_string(m_count) + " readings";
        return m_failures.empty()
                   ? "<p>" + count + ", none failed.</p>"
                   : "<p>" + count + ". Failed, or not complete:</p><ul>" + m_failures + "</ul>";
    }

    [[nodiscard]] std::string Html() const {
        std::string html;
        for (const auto& [group, table] : m_tables) {
            html += "<section id=\"" + AnchorOf(group) + "\"><h2>" + Escaped(exports::TitleOf(group)) +
                    "</h2><table class=\"readings\"><tbody>\n" + table + "</tbody></table></section>\n";
        }
        return html;
    }

private:
    std::map<Group, std::string> m_tables;
    std::map<std::string_view, std::string> m_values;
    std::string m_failures;
    std::size_t m_count = 0;
};

std::string HeaderOf(const Host& host, const Tables& tables) {
    const std::string product = tables.ValueOf("WMIGetProductName");
    std::string facts;
    for (const std::string_view name : {"WMIGetSN", "WMIGetCPUInfo", "WMIGetBiosVersion", "WMIGetOSInfo"}) {
        const std::string value = tables.ValueOf(name);
        facts.append(facts.empty() || value.empty() ? "" : " · ").append(value);
    }
    const std::string title = product.empty() ? host.machineName : product;
    return "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">"
           "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src "
           "'unsafe-inline'; img-src data:\">"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">"
           "<link rel=\"icon\" href=\"data:,\"><title>" +
           Escaped(title) + " - sondrel report</title><style>" + std::string(PageStyle) +
           "</style></head>\n<body><header><h1>" + Escaped(title) + "</h1><p>" + Escaped(facts) +
           "</p><p class=\"quiet\">Machine " + Escaped(host.machineName) + host.MachineKind() + ", read at " +
           IsoTime(std::chrono::system_clock::now()) + " through <code>" +
           Escaped(Utf8Of(host.library.File())) + "</code></p>" + tables.Failures() +
           "<nav><a href=\"#telemetry\">Telemetry</a>" + tables.Links() + "</nav></header>\n";
}

} // namespace

void ReportAsPage(const Host& host, const ReadOptions& options, const PageOptions& pageOptions) {
    const ReplacedFile file(PathOf(pageOptions.file));
    Tables tables;
    Reader(host, options).ReadAll([&](const Reading& reading) { tables.Add(reading); });
    const Telemetry telemetry = Measure(host, options, pageOptions.sampling);
    std::string page = HeaderOf(host, tables);
    page.append("<main>\n").append(TelemetrySection(telemetry)).append("\n").append(tables.Html());
    page.append("</main><footer>Written by sondrel. The page needs no other file.</footer></body></html>\n");
    file.Write(page);
}

} // namespace tool
