// sondrel metrics: the numbers in the Prometheus text format, version 0.0.4.
#include "base/output_file.h"
#include "base/text.h"
#include "base/trouble.h"
#include "commands/commands.h"
#include "exports/description.h"
#include "output/readable.h"

#include <charconv>

namespace tool {
namespace {

using exports::Metric;
using exports::MetricType;

std::string LabelText(std::string_view text) {
    std::string escaped;
    for (const char character : WellFormed(text)) {
        switch (character) {
        case '\\':
            escaped += "\\\\";
            break;
        case '"':
            escaped += "\\\"";
            break;
        case '\n':
            escaped += "\\n";
            break;
        default:
            escaped.push_back(character);
        }
    }
    return escaped;
}

std::string Label(std::string_view name, std::string_view value) {
    return std::string(name).append("=\"").append(LabelText(value)).append(1, '"');
}

std::string NumberText(double number) {
    char text[32];
    const auto [end, problem] = std::to_chars(text, text + sizeof text, number);
    return problem == std::errc{} ? std::string(text, end) : "NaN";
}

class Page {
public:
    void Begin(std::string_view name, std::string_view help, MetricType type) {
        m_text.append("# HELP ").append(name).append(1, ' ').append(help);
        m_text.append("\n# TYPE ").append(name);
        m_text.append(type == MetricType::Counter ? " counter\n" : " gauge\n");
    }

    void Add(std::string_view name, const std::string& labels, double number) {
        m_text.append(name);
        if (!labels.empty()) {
            m_text.append(1, '{').append(labels).append(1, '}');
        }
        m_text.append(1, ' ').append(NumberText(number)).append(1, '\n');
    }

    [[nodiscard]] const std::string& Text() const { return m_text; }

private:
    std::string m_text;
};

/// The number in the base unit; nothing for what is none.
std::optional<double> BaseNumber(std::string_view text, const exports::Conversion& conversion) {
    const std::optional<double> number = NumberIn(text);
    return number ? std::optional((*number * conversion.factor + conversion.offset) / conversion.divisor)
                  : std::nullopt;
}

std::string LabelOfPlace(const Metric& metric, std::size_t place) {
    const std::vector<std::string_view> values = Split(metric.labelValues, ',');
    return Label(metric.label, metric.labelValues.empty() || place >= values.size()
                                   ? std::to_string(place)
                                   : std::string(values[place]));
}

/// What one export adds to its metric. False where the reading failed, in a place or altogether.
bool AddSamples(Page& page, const Metric& metric, const Reading& reading) {
    if (!HasValue(reading)) {
        return reading.classification.status == Status::Absent ||
               reading.classification.status == Status::NotRead;
    }
    if (reading.row.display != Display::List) {
        const auto number = BaseNumber(reading.answer.bare, metric.conversion);
        if (number) {
            page.Add(metric.name, metric.label.empty() ? "" : LabelOfPlace(metric, 0), *number);
        }
        return number.has_value();
    }
    const std::vector<std::string_view> places = ElementsOf(reading.answer.bare);
    bool whole = true;
    for (std::size_t place = 0; place < places.size(); ++place) {
        const Status status = StatusOfElement(reading.row, places[place]);
        const auto number =
            status == Status::Ok ? BaseNumber(places[place], metric.conversion) : std::nullopt;
        if (number) {
            page.Add(metric.name, LabelOfPlace(metric, place), *number);
        }
        whole = whole && (number || status == Status::Absent);
    }
    return whole;
}

class Exporter {
public:
    explicit Exporter(const Options& options) : m_options(options), m_host(options) {
        if (options.session) {
            OpenSession(m_session, m_host);
        }
    }

    std::string Print() {
        AddIdentities();
        std::string_view begun;
        Page failures;
        failures.Begin("sondrel_reading_failed", "1 if a reading failed, altogether or in one of its places.",
                       MetricType::Gauge);
        for (const Metric& metric : exports::AllMetrics()) {
            const Reading reading = ReadOne(m_host, m_options, AllExports()[metric.index], m_session);
            if (metric.name != begun) {
                m_page.Begin(metric.name, metric.help, metric.type);
                begun = metric.name;
            }
            const bool good = AddSamples(m_page, metric, reading);
            failures.Add("sondrel_reading_failed", Label("export", reading.row.name), good ? 0 : 1);
        }
        return m_page.Text() + failures.Text();
    }

private:
    void AddIdentities() {
        m_page.Begin("sondrel_build_info", "The tool that wrote this.", MetricType::Gauge);
        m_page.Add("sondrel_build_info", Label("version", SONDREL_VERSION), 1);
        std::string labels;
        for (const Export& row : AllExports()) {
            if (row.infoLabel.empty()) {
                continue;
            }
            const Reading reading = ReadOne(m_host, m_options, row, m_session);
            if (HasValue(reading)) {
                labels.append(labels.empty() ? "" : ",").append(Label(row.infoLabel, reading.answer.bare));
            }
        }
        m_page.Begin("sondrel_machine_info", "What the machine is.", MetricType::Gauge);
        m_page.Add("sondrel_machine_info", labels, 1);
    }

    const Options& m_options;
    Host m_host;
    std::optional<Session> m_session;
    Page m_page;
};

} // namespace

int PrintMetrics(const Options& options) {
    WriteOutput(options.output, Exporter(options).Print());
    return ExitDone;
}

} // namespace tool
