// sondrel metrics: the numbers in the Prometheus text format, version 0.0.4.
#include "base/output_file.h"
#include "base/text.h"
#include "base/trouble.h"
#include "commands/commands.h"
#include "exports/metric_table.h"
#include "output/readable.h"

#include <charconv>

namespace tool {
namespace {

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

/// A place's number in the base unit; nothing where it failed, or is none.
std::optional<double> NumberAt(const Reading& reading, std::string_view place, const Conversion& conversion) {
    const Meaning* const meaning = MeaningOf(reading.row, place);
    const std::optional<double> number = NumberIn(place);
    if (!number || (meaning != nullptr && meaning->status != Status::Ok)) {
        return std::nullopt;
    }
    return (*number * conversion.factor + conversion.offset) / conversion.divisor;
}

std::string LabelOfPlace(const Metric& metric, std::size_t place) {
    const std::vector<std::string_view> values = Split(metric.labelValue, ',');
    return Label(metric.label, metric.labelValue.empty() || place >= values.size()
                                   ? std::to_string(place)
                                   : std::string(values[place]));
}

/// What one export adds to its metric. False where the reading failed, in a place or altogether.
bool AddSamples(Page& page, const Metric& metric, const Reading& reading) {
    if (!HasValue(reading)) {
        return reading.judgement.status == Status::Absent || reading.judgement.status == Status::NotRead;
    }
    if (reading.row.traits.display != Display::List) {
        const auto number = NumberAt(reading, reading.answer.bare, metric.conversion);
        if (number) {
            page.Add(metric.name, metric.label.empty() ? "" : LabelOfPlace(metric, 0), *number);
        }
        return number.has_value();
    }
    const std::vector<std::string_view> places = PlacesOf(reading.answer.bare);
    bool whole = true;
    for (std::size_t place = 0; place < places.size(); ++place) {
        const auto number = NumberAt(reading, places[place], metric.conversion);
        if (number) {
            page.Add(metric.name, LabelOfPlace(metric, place), *number);
        }
        const Meaning* const meaning = MeaningOf(reading.row, places[place]);
        whole = whole && (number || (meaning != nullptr && meaning->status == Status::Absent));
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
        for (const Metric& metric : AllMetrics()) {
            const Reading reading = ReadOne(m_host, m_options, *FindExport(metric.exportName), m_session);
            if (metric.name != begun) {
                m_page.Begin(metric.name, metric.help, metric.type);
                begun = metric.name;
            }
            const bool good = AddSamples(m_page, metric, reading);
            failures.Add("sondrel_reading_failed", Label("export", metric.exportName), good ? 0 : 1);
        }
        return m_page.Text() + failures.Text();
    }

private:
    void AddIdentities() {
        m_page.Begin("sondrel_build_info", "The tool that wrote this.", MetricType::Gauge);
        m_page.Add("sondrel_build_info", Label("version", SONDREL_VERSION), 1);
        std::string labels;
        for (const Identity& identity : AllIdentities()) {
            const Reading reading = ReadOne(m_host, m_options, *FindExport(identity.exportName), m_session);
            if (HasValue(reading)) {
                labels.append(labels.empty() ? "" : ",").append(Label(identity.label, reading.answer.bare));
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
