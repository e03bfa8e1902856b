// sondrel report --html: one page for a browser, complete in itself.
#include "base/replaced_file.h"
#include "base/text.h"
#include "output/chart.h"
#include "output/html_value.h"
#include "output/page_style.h"
#include "output/readable.h"
#include "output/sample_file.h"
#include "readings/sampler.h"
#include "readings/telemetry.h"
#include "terminal/interrupt.h"
#include "terminal/paint.h"
#include "terminal/progress.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <map>

namespace tool {
namespace {

/// What the telemetry was during the samples.
struct Recording {
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

/// The time that moves while samples are taken: the machine's own, which needs none of ours.
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

std::vector<std::string> DrawnNames(const Host& host) {
    std::vector<std::string> names;
    for (const Export& row : AllExports()) {
        if (!row.chart.empty() && host.library.Find(row.name) != nullptr) {
            names.emplace_back(row.name);
        }
    }
    return names;
}

Recording Record(const Host& host, const Options& options) {
    const Sampler sampler(host, options, DrawnNames(host));
    const Sampling& sampling = options.pageSampling;
    Recording recording{.series = sampler.AllSeries(), .samples = {}};
    Progress progress;
    const SampleClock clock(host);
    std::chrono::microseconds due{0};
    for (std::size_t taken = 1;; ++taken) {
        progress.Begin("sample " + std::to_string(taken) + " of " + std::to_string(sampling.count));
        recording.samples.push_back(sampler.Take());
        recording.seconds = std::chrono::duration<double>(clock.Elapsed()).count();
        if (taken >= sampling.count) {
            return recording;
        }
        due = std::max(due + sampling.interval, clock.Elapsed());
        clock.WaitUntil(due);
    }
}

std::string Quiet(std::string_view text) {
    return std::string("<span class=\"quiet\">").append(Escaped(text)).append("</span>");
}

/// A name that may go on in the next line behind each of its words.
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

std::string NewestOf(const UnitKind& kind, const Point& point) {
    if (!point.number) {
        return "<span class=\"" + std::string(ClassOf(point.status)) + "\">" + Escaped(point.told) +
               "</span>";
    }
    return Escaped(NumberText(kind, *point.number)) + " " + Quiet(kind.shown);
}

std::vector<double> Present(const std::vector<std::optional<double>>& numbers) {
    std::vector<double> present;
    for (const std::optional<double>& number : numbers) {
        if (number) {
            present.push_back(*number);
        }
    }
    return present;
}

/// "50 to 61 °C"
std::string ExtremesOf(const UnitKind& kind, const std::vector<std::optional<double>>& numbers) {
    const std::vector<double> present = Present(numbers);
    if (present.empty()) {
        return "no value in any sample";
    }
    const auto [low, high] = std::ranges::minmax(present);
    if (low == high) {
        return "steady";
    }
    return NumberText(kind, low) + " to " + NumberText(kind, high) + ' ' + std::string(kind.shown);
}

std::string LabelOf(const Series& series) {
    if (PlacesIn(*series.row) > 1) {
        std::string label(series.row->element.name);
        label.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(label.front())));
        return label.append(1, ' ').append(std::to_string(series.place));
    }
    const std::string_view summary = series.row->summary;
    return std::string(summary.substr(0, summary.find(", in the ")));
}

/// Readings of one unit are drawn on one scale, so that they can be compared.
std::map<std::string_view, Range> RangesOf(const Recording& recording,
                                           const std::vector<std::size_t>& drawn) {
    std::map<std::string_view, std::vector<double>> numbers;
    std::map<std::string_view, const UnitKind*> kinds;
    for (const std::size_t index : drawn) {
        const Export& row = *recording.series[index].row;
        const std::string_view group = row.unit == "raw" ? row.name : row.unit;
        kinds[group] = &KindOf(row);
        const std::vector<double> present = Present(recording.NumbersOf(index));
        numbers[group].insert(numbers[group].end(), present.begin(), present.end());
    }
    std::map<std::string_view, Range> ranges;
    for (const auto& [group, kind] : kinds) {
        ranges[group] = RangeFor(*kind, numbers[group]);
    }
    return ranges;
}

std::string CardOf(const Recording& recording, std::size_t index, Range range) {
    const Series& series = recording.series[index];
    const UnitKind& kind = KindOf(*series.row);
    const std::vector<std::optional<double>> numbers = recording.NumbersOf(index);
    const std::string extremes = ExtremesOf(kind, numbers);
    std::string html = "<figure class=\"card\"><span class=\"label\">" + Escaped(LabelOf(series)) +
                       "</span><span class=\"value\">" +
                       NewestOf(kind, recording.samples.back().points[index]) + "</span>";
    html += CurveSvg(numbers, range, series.name + ": " + extremes);
    html += "<span class=\"ends\"><span>" + Escaped(extremes) + "</span></span>";
    return html + "<code class=\"name\">" + Breakable(series.name) + "</code></figure>";
}

std::string BarOf(const Recording& recording, std::size_t index, Range range) {
    const Series& series = recording.series[index];
    const UnitKind& kind = KindOf(*series.row);
    const std::vector<std::optional<double>> numbers = recording.NumbersOf(index);
    return "<span>" + Escaped(LabelOf(series)) + "</span>" +
           BarSvg(numbers, range, series.name + ": " + ExtremesOf(kind, numbers)) +
           "<span class=\"number\">" + NewestOf(kind, recording.samples.back().points[index]) + "</span>";
}

std::string ChartOf(const Recording& recording, std::string_view title) {
    std::vector<std::size_t> drawn;
    for (std::size_t i = 0; i < recording.series.size(); ++i) {
        if (recording.series[i].row->chart == title) {
            drawn.push_back(i);
        }
    }
    if (drawn.empty()) {
        return {};
    }
    const std::map<std::string_view, Range> ranges = RangesOf(recording, drawn);
    std::string html = "<h3>" + Escaped(title) + "</h3>";
    const Drawing drawing = KindOf(*recording.series[drawn.front()].row).drawing;
    html += drawing == Drawing::Bars ? "<div class=\"bars\">" : "<div class=\"cards\">";
    Range shown;
    for (const std::size_t index : drawn) {
        const Export& row = *recording.series[index].row;
        shown = ranges.at(row.unit == "raw" ? row.name : row.unit);
        html += drawing == Drawing::Bars ? BarOf(recording, index, shown) : CardOf(recording, index, shown);
    }
    if (drawing == Drawing::Bars) {
        const UnitKind& kind = KindOf(*recording.series[drawn.front()].row);
        html += "<span></span><span class=\"ends\"><span>" + NumberText(kind, shown.low) + "</span><span>" +
                NumberText(kind, shown.high) + "</span></span><span></span>";
    }
    return html + "</div>";
}

std::string TelemetryOf(const Recording& recording) {
    char span[64];
    std::snprintf(span, sizeof span, "%.*f", recording.seconds < 10 ? 1 : 0, recording.seconds);
    const std::size_t count = recording.samples.size();
    std::string html = "<section id=\"telemetry\"><h2>Telemetry</h2><p class=\"quiet\">";
    html += std::to_string(count) + (count == 1 ? " sample" : " samples in ") + (count == 1 ? "" : span) +
            (count == 1 ? "" : " seconds") +
            ", the newest value in large; drawings of one unit share one scale.</p>";
    for (const std::string_view title : exports::ChartTitles()) {
        html += ChartOf(recording, title);
    }
    return html + "</section>";
}

std::string AnchorOf(Group family) {
    return "family-" + std::to_string(static_cast<unsigned>(family));
}

std::string RowOf(const Reading& reading) {
    return "<tr><th scope=\"row\"><code>" + Breakable(reading.row.name) + "</code>" +
           Quiet(reading.row.summary) + "</th><td class=\"" +
           std::string(ClassOf(reading.classification.status)) + "\">" + HtmlOf(reading) + "</td></tr>\n";
}

/// The readings as they come in, family by family.
class Inventory {
public:
    void Add(const Reading& reading) {
        const Status status = reading.classification.status;
        if (status == Status::NotRun || status == Status::NotExported) {
            return;
        }
        m_tables[reading.row.group] += RowOf(reading);
        ++m_count;
        if (StyleOf(status) == Style::Bad || StyleOf(status) == Style::Warning) {
            m_troubled += "<li><code>" + Escaped(reading.row.name) + "</code>: <span class=\"" +
                          std::string(ClassOf(status)) + "\">" +
                          Escaped(OnOneLine(ReadableOf(reading, 200))) + "</span></li>";
        }
        if (status == Status::Ok) {
            m_values[reading.row.name] = reading.answer.bare;
        }
    }

    /// A value for the page's head, or the empty text.
    [[nodiscard]] std::string ValueOf(std::string_view name) const {
        const auto found = m_values.find(name);
        return found != m_values.end() ? Shortened(OnOneLine(found->second), 100) : std::string();
    }

    [[nodiscard]] std::string Links() const {
        std::string html;
        for (const auto& [family, table] : m_tables) {
            html += "<a href=\"#" + AnchorOf(family) + "\">" + Escaped(exports::TitleOf(family)) + "</a>";
        }
        return html;
    }

    [[nodiscard]] std::string Troubles() const {
        const std::string count = std::to_string(m_count) + " readings";
        return m_troubled.empty()
                   ? "<p>" + count + ", none failed.</p>"
                   : "<p>" + count + ". Not told, or not in full:</p><ul>" + m_troubled + "</ul>";
    }

    [[nodiscard]] std::string Tables() const {
        std::string html;
        for (const auto& [family, table] : m_tables) {
            html += "<section id=\"" + AnchorOf(family) + "\"><h2>" + Escaped(exports::TitleOf(family)) +
                    "</h2><table class=\"readings\"><tbody>\n" + table + "</tbody></table></section>\n";
        }
        return html;
    }

private:
    std::map<Group, std::string> m_tables;
    std::map<std::string_view, std::string> m_values;
    std::string m_troubled;
    std::size_t m_count = 0;
};

std::string HeadOf(const Host& host, const Inventory& inventory) {
    const std::string product = inventory.ValueOf("WMIGetProductName");
    std::string facts;
    for (const std::string_view name : {"WMIGetSN", "WMIGetCPUInfo", "WMIGetBiosVersion", "WMIGetOSInfo"}) {
        const std::string value = inventory.ValueOf(name);
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
           "</p><p class=\"quiet\">Machine " + Escaped(host.machineName) +
           (host.machine ? " (simulated)" : "") + ", read at " + IsoTime(std::chrono::system_clock::now()) +
           " through <code>" + Escaped(Utf8Of(host.library.File())) + "</code></p>" + inventory.Troubles() +
           "<nav><a href=\"#telemetry\">Telemetry</a>" + inventory.Links() + "</nav></header>\n";
}

} // namespace

void ReportAsPage(const Host& host, const Options& options) {
    ReplacedFile file(PathOf(options.html));
    Inventory inventory;
    ReadAll(host, options, [&](const Reading& reading) { inventory.Add(reading); });
    const Recording recording = Record(host, options);
    std::string page = HeadOf(host, inventory);
    page.append("<main>\n").append(TelemetryOf(recording)).append("\n").append(inventory.Tables());
    page.append(
        "</main><footer>Written by sondrel. The page is complete in itself.</footer></body></html>\n");
    file.Put(page);
}

} // namespace tool
