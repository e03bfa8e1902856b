#include "output/metrics_page.h"

#include "base/text.h"
#include "readings/converted.h"

#include <vector>

namespace tool {
namespace {

using exports::Metric;
using exports::MetricType;

std::string EscapedLabel(std::string_view text) {
    std::string escaped;
    for (const std::string_view line : Split(text, '\n')) {
        escaped += line.data() == text.data() ? "" : "\\n";
        for (const char character : OnOneLine(line)) {
            escaped.append(character == '\\' || character == '"' ? "\\" : "").push_back(character);
        }
    }
    return escaped;
}

std::string Label(std::string_view name, std::string_view value) {
    return std::string(name).append("=\"").append(EscapedLabel(value)).append(1, '"');
}

class Page {
public:
    void Begin(std::string_view name, std::string_view help, MetricType type = MetricType::Gauge) {
        m_text.append("# HELP ").append(name).append(1, ' ').append(help);
        m_text.append("\n# TYPE ").append(name);
        m_text.append(type == MetricType::Counter ? " counter\n" : " gauge\n");
    }

    void Add(std::string_view name, const std::string& labels, double number) {
        m_text.append(name);
        if (!labels.empty()) {
            m_text.append(1, '{').append(labels).append(1, '}');
        }
        m_text.append(1, ' ').append(PlainNumber(number)).append(1, '\n');
    }

    [[nodiscard]] const std::string& Text() const { return m_text; }

private:
    std::string m_text;
};

std::string LabelOf(const Metric& metric, std::size_t element) {
    if (metric.label.empty()) {
        return {};
    }
    const std::vector<std::string_view> values = Split(metric.labelValues, ',');
    const bool named = !metric.labelValues.empty() && element < values.size();
    return Label(metric.label, named ? std::string(values[element]) : std::to_string(element));
}

/// Adds the samples of one export. False if the reading failed, completely or in an element.
bool AddSamples(Page& page, const Metric& metric, const Reading& reading) {
    if (!HasValue(reading)) {
        const Status status = reading.classification.status;
        return status == Status::Absent || status == Status::NotRead;
    }
    const bool isList = reading.row.display == Display::List;
    const std::vector<std::string_view> elements =
        isList ? ElementsOf(reading.answer.text) : std::vector<std::string_view>{reading.answer.text};
    bool complete = true;
    for (std::size_t element = 0; element < elements.size(); ++element) {
        const auto number = BaseNumber(reading.row, elements[element]);
        if (number) {
            page.Add(metric.name, LabelOf(metric, element), *number);
        }
        complete = complete && (number || StatusOfElement(reading.row, elements[element]) == Status::Absent);
    }
    return complete;
}

/// The labels that identify the machine.
std::string InfoLabels(Reader& reader) {
    std::string labels;
    for (const Export& row : AllExports()) {
        if (row.infoLabel.empty()) {
            continue;
        }
        if (const Reading reading = reader.Read(row); HasValue(reading)) {
            labels.append(labels.empty() ? "" : ",").append(Label(row.infoLabel, reading.answer.text));
        }
    }
    return labels;
}

} // namespace

std::string MetricsPage(Reader& reader, std::string_view toolVersion) {
    Page page;
    page.Begin("sondrel_build_info", "The tool that wrote this.");
    page.Add("sondrel_build_info", Label("version", toolVersion), 1);
    page.Begin("sondrel_machine_info", "What the machine is.");
    page.Add("sondrel_machine_info", InfoLabels(reader), 1);
    Page failures;
    failures.Begin("sondrel_reading_failed", "1 if a reading failed, completely or in an element.");
    std::string_view current;
    for (const Metric& metric : exports::AllMetrics()) {
        const Reading reading = reader.Read(AllExports()[metric.index]);
        if (metric.name != current) {
            page.Begin(metric.name, metric.help, metric.type);
            current = metric.name;
        }
        const bool complete = AddSamples(page, metric, reading);
        const bool failed = !complete || IsFailure(reading.state);
        const std::string state = Label("state", TextOf(reading.state));
        failures.Add("sondrel_reading_failed", Label("export", reading.row.name) + "," + state,
                     failed ? 1 : 0);
    }
    return page.Text() + failures.Text();
}

} // namespace tool
