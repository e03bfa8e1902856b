#include "samples/sampler.h"

#include "base/text.h"
#include "readings/readable.h"
#include "terminal/interrupt.h"

#include <algorithm>
#include <cstdio>

namespace tool {
namespace {

constexpr std::size_t LongestText = 60;

std::size_t ElementCount(const Export& row) {
    return std::max<std::size_t>(row.element.count, 1);
}

std::optional<double> NumberOf(const Answer& answer) {
    if (const auto* const whole = std::get_if<std::int64_t>(&answer.number); whole != nullptr) {
        return static_cast<double>(*whole);
    }
    if (const auto* const floating = std::get_if<double>(&answer.number); floating != nullptr) {
        return *floating;
    }
    return std::nullopt;
}

/// "no session: CreateFileW ... failed with 2", or what the status is.
std::string StateText(const Reading& reading) {
    const Status status = reading.classification.status;
    std::string text(status == Status::Failed ? TextOf(reading.state) : TextOf(status));
    return reading.cause && reading.cause->call ? text.append(": ").append(TextWithRemedy(*reading.cause))
                                                : text;
}

Point PointOf(const Reading& reading) {
    Point point{.status = reading.classification.status, .number = {}, .value = {}, .text = {}};
    if (!HasValue(reading)) {
        point.text = StateText(reading);
        return point;
    }
    point.value = reading.answer.text;
    point.number = NumberOf(reading.answer);
    if (!point.number && reading.row.display == Display::List && !reading.row.unit.empty()) {
        point.number = NumberIn(point.value); // a list with one element
    }
    point.text = OnOneLine(ReadableOf(reading, LongestText));
    point.isStale = reading.state == ReadingState::Stale;
    return point;
}

/// One element of a list. If the whole list has no value, no element has.
Point ElementPoint(const Reading& reading, std::span<const std::string_view> elements, std::size_t element) {
    Point point{.status = reading.classification.status, .number = {}, .value = {}, .text = {}};
    if (HasValue(reading)) {
        const bool exists = element < elements.size() && !elements[element].empty();
        point.status = exists ? StatusOfElement(reading.row, elements[element]) : Status::Absent;
    }
    if (point.status == Status::Ok) {
        point.value = elements[element];
        point.number = NumberIn(point.value);
    }
    point.text = point.status == Status::Ok ? point.value
                 : HasValue(reading)        ? TextOf(point.status)
                                            : StateText(reading);
    return point;
}

std::vector<Series> SeriesOf(std::span<const Export* const> rows) {
    std::vector<Series> series;
    for (const Export* const row : rows) {
        const std::size_t count = ElementCount(*row);
        for (std::size_t element = 0; element < count; ++element) {
            std::string name(row->name);
            if (count > 1) {
                name.append("[").append(std::to_string(element)).append("]");
            }
            series.push_back({row, element, std::move(name)});
        }
    }
    return series;
}

} // namespace

Sampler::Sampler(const Host& host, const ReadOptions& options, std::vector<const Export*> rows)
    : m_rows(std::move(rows)), m_series(SeriesOf(m_rows)), m_reader(host, options) {}

Sample Sampler::Take(const Sink& sink) {
    m_reader.BeginSample();
    Sample sample{.time = std::chrono::system_clock::now(), .points = {}};
    for (const Export* const row : m_rows) {
        interrupt::Check();
        const Reading reading = m_reader.Read(*row);
        if (sink) {
            sink(reading);
        }
        const std::size_t count = ElementCount(*row);
        if (count == 1) {
            sample.points.push_back(PointOf(reading));
            continue;
        }
        const std::vector<std::string_view> elements = ElementsOf(reading.answer.text);
        for (std::size_t element = 0; element < count; ++element) {
            sample.points.push_back(ElementPoint(reading, elements, element));
        }
    }
    interrupt::Check();
    return sample;
}

std::vector<const Export*> TelemetryRows(const Host& host) {
    std::vector<const Export*> rows;
    for (const Export& row : AllExports()) {
        if (!row.chart.empty() && host.library.Find(row.name) != nullptr) {
            rows.push_back(&row);
        }
    }
    return rows;
}

std::string IsoTime(std::chrono::system_clock::time_point time) {
    using namespace std::chrono;
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(floor<milliseconds>(time - day));
    char text[48];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()), static_cast<int>(clock.subseconds().count()));
    return text;
}

} // namespace tool
