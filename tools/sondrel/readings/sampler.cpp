#include "readings/sampler.h"

#include "base/text.h"
#include "base/trouble.h"
#include "output/readable.h"
#include "readings/telemetry.h"
#include "terminal/interrupt.h"

namespace tool {
namespace {

constexpr std::size_t LongestText = 60;

std::optional<double> NumberOf(const Answer& answer) {
    if (const auto* const whole = std::get_if<std::int64_t>(&answer.number); whole != nullptr) {
        return static_cast<double>(*whole);
    }
    if (const auto* const floating = std::get_if<double>(&answer.number); floating != nullptr) {
        return *floating;
    }
    return std::nullopt;
}

/// A reading that is one value.
Point WholePoint(const Reading& reading) {
    Point point{.status = reading.classification.status, .number = {}, .bare = {}, .told = {}};
    if (!HasValue(reading)) {
        point.told = TextOf(point.status);
        return point;
    }
    point.bare = reading.answer.bare;
    point.number = NumberOf(reading.answer);
    const bool single = reading.row.display == Display::List && !reading.row.unit.empty();
    if (!point.number && single) {
        point.number = NumberIn(point.bare); // a list with one place
    }
    point.told = OnOneLine(ReadableOf(reading, LongestText));
    return point;
}

/// One place of a list. What the whole list could not tell, no place can.
Point PlacePoint(const Reading& reading, std::span<const std::string_view> places, std::size_t place) {
    Point point{.status = reading.classification.status, .number = {}, .bare = {}, .told = {}};
    if (HasValue(reading)) {
        const bool given = place < places.size() && !places[place].empty();
        point.status = given ? StatusOfElement(reading.row, places[place]) : Status::Absent;
    }
    if (point.status == Status::Ok) {
        point.bare = places[place];
        point.number = NumberIn(point.bare);
    }
    point.told = point.status == Status::Ok ? point.bare : TextOf(point.status);
    return point;
}

const Export& ReadableExport(const Host& host, const std::string& name) {
    const Export& row = ExportNamed(name);
    if (row.report == InReport::Skipped) {
        throw Trouble(name + " changes something; only readings can be watched");
    }
    AddressOf(host.library, row);
    return row;
}

} // namespace

Sampler::Sampler(const Host& host, const Options& options, std::span<const std::string> names)
    : m_host(host), m_options(options) {
    for (const std::string& name : names) {
        const Export& row = ReadableExport(host, name);
        m_rows.push_back(&row);
        const std::size_t places = PlacesIn(row);
        for (std::size_t place = 0; place < places; ++place) {
            std::string title(row.name);
            if (places > 1) {
                title.append("[").append(std::to_string(place)).append("]");
            }
            m_series.push_back({&row, place, std::move(title)});
        }
    }
    if (options.session) {
        OpenSession(m_session, host);
    }
}

Sample Sampler::Take() const {
    Sample sample{.time = std::chrono::system_clock::now(), .points = {}};
    for (const Export* const row : m_rows) {
        interrupt::Check();
        const Reading reading = ReadOne(m_host, m_options, *row, m_session);
        const std::size_t count = PlacesIn(*row);
        if (count == 1) {
            sample.points.push_back(WholePoint(reading));
            continue;
        }
        const std::vector<std::string_view> places = ElementsOf(reading.answer.bare);
        for (std::size_t place = 0; place < count; ++place) {
            sample.points.push_back(PlacePoint(reading, places, place));
        }
    }
    interrupt::Check();
    return sample;
}

} // namespace tool
