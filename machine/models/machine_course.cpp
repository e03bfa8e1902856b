#include "machine/models/machine_course.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace machine {
namespace {

constexpr double StepSeconds = 0.25;
constexpr std::chrono::microseconds StepTime{250'000};
constexpr double JoulesPerMilliwattHour = 3.6;

double SecondsOf(std::chrono::microseconds time) {
    return std::chrono::duration<double>(time).count();
}

/// The share of the distance to its goal that something with this time constant covers in one step.
double StepShare(double seconds) {
    return 1 - std::exp(-StepSeconds / seconds);
}

/// The stretch at a moment, and in `seconds` what has passed of it. After the last stretch the first one follows.
template <class Stretch>
auto StretchAt(const std::vector<Stretch>& stretches, double period, double& seconds) {
    seconds = std::fmod(seconds, period);
    return std::ranges::find_if(stretches, [&](const Stretch& stretch) {
        const bool isPast = seconds >= stretch.seconds;
        seconds -= isPast ? stretch.seconds : 0;
        return !isPast;
    });
}

double RpmAt(const std::vector<FanPoint>& curve, double degrees) {
    if (curve.empty()) {
        return 0;
    }
    const auto next = std::ranges::upper_bound(curve, degrees, {}, &FanPoint::degrees);
    if (next == curve.begin() || next == curve.end()) {
        return next == curve.begin() ? curve.front().rpm : curve.back().rpm;
    }
    const FanPoint& low = *std::prev(next);
    return std::lerp(low.rpm, next->rpm, (degrees - low.degrees) / (next->degrees - low.degrees));
}

std::uint8_t WholeDegrees(double degrees) {
    return static_cast<std::uint8_t>(std::clamp(std::lround(degrees), 0L, 255L));
}

/// The EC's temperatures of the parts, without the battery.
std::array<std::uint8_t*, WarmedPartCount - 1> Thermometers(EcProfile& ec) {
    EcTemperatures& plain = ec.temperatures;
    std::array<std::uint8_t*, WarmedPartCount - 1> places{&plain.cpu, &plain.boardLeft, &plain.boardRight,
                                                          &plain.gpuLeft, &plain.gpuRight};
    for (std::size_t channel = 0; channel < ec.sensors.channels.size(); ++channel) {
        places[places.size() - ec.sensors.channels.size() + channel] = &ec.sensors.channels[channel].degrees;
    }
    return places;
}

} // namespace

LoadCourse::LoadCourse(std::vector<LoadStretch> stretches, double constant)
    : m_constant(constant), m_stretches(std::move(stretches)) {
    double from = m_stretches.empty() ? 0 : m_stretches.back().to;
    for (const LoadStretch& stretch : m_stretches) {
        m_period += stretch.seconds;
        m_busyInPeriod += stretch.seconds * std::midpoint(from, stretch.to);
        from = stretch.to;
    }
}

double LoadCourse::At(double seconds) const {
    if (m_stretches.empty()) {
        return m_constant;
    }
    const auto stretch = StretchAt(m_stretches, m_period, seconds);
    const double from = stretch == m_stretches.begin() ? m_stretches.back().to : std::prev(stretch)->to;
    return stretch == m_stretches.end() ? from : std::lerp(from, stretch->to, seconds / stretch->seconds);
}

double LoadCourse::BusySeconds(double seconds) const {
    if (m_stretches.empty()) {
        return m_constant * seconds;
    }
    double left = std::fmod(seconds, m_period);
    double busy = std::floor(seconds / m_period) * m_busyInPeriod;
    double from = m_stretches.back().to;
    for (const LoadStretch& stretch : m_stretches) {
        const double part = std::min(left, stretch.seconds);
        busy += part * std::midpoint(from, std::lerp(from, stretch.to, part / stretch.seconds));
        left -= part;
        from = stretch.to;
    }
    return busy;
}

MachineCourse::MachineCourse(const CourseProfile& course, const EcProfile& ec,
                             const SystemPowerProfile& power, const std::vector<BatteryProfile>& batteries)
    : m_course(course), m_load(course.load, power.load), m_acLine(power.acLine) {
    EcProfile atRest = ec;
    const auto thermometers = Thermometers(atRest);
    std::ranges::transform(thermometers, m_rest.begin(),
                           [](const std::uint8_t* degrees) { return *degrees; });
    m_rest.back() = ec.battery.degrees;
    for (const FanCourse& fan : m_course.fans) {
        m_rpm.push_back(RpmAt(fan.curve, m_rest[fan.follows]));
    }
    if (!batteries.empty()) {
        m_fullJoules = batteries.front().fullChargedCapacity * JoulesPerMilliwattHour;
        m_joules = std::min(batteries.front().capacity * JoulesPerMilliwattHour, m_fullJoules);
        m_batteryWatts = m_course.battery ? BatteryWatts(m_load.At(0), {}) : 0;
    }
    const auto& cells = ec.battery.cellVolts;
    m_cells = static_cast<std::size_t>(std::ranges::count_if(cells, [](double volts) { return volts > 0; }));
    const double sum = std::accumulate(cells.begin(), cells.end(), 0.0);
    for (std::size_t cell = 0; cell < cells.size() && m_cells != 0; ++cell) {
        m_cellOffsets[cell] = cells[cell] > 0 ? cells[cell] - sum / static_cast<double>(m_cells) : 0;
    }
}

bool MachineCourse::MoveTo(std::chrono::microseconds now) {
    const std::int64_t steps = now / StepTime;
    if (steps <= m_steps) {
        return false;
    }
    for (m_steps = std::max<std::int64_t>(m_steps, 0); m_steps < steps; ++m_steps) {
        Step();
    }
    return true;
}

void MachineCourse::Step() {
    const double load = m_load.At((static_cast<double>(m_steps) + 0.5) * StepSeconds);
    const double fanShare = FanShare();
    for (std::size_t part = 0; part < WarmedPartCount; ++part) {
        const Warming& warming = m_course.warming[part];
        const double goal = warming.degrees * load * (1 - warming.cooled * fanShare);
        m_rise[part] += (goal - m_rise[part]) * StepShare(warming.seconds);
    }
    for (std::size_t fan = 0; fan < m_rpm.size(); ++fan) {
        const FanCourse& course = m_course.fans[fan];
        m_rpm[fan] +=
            (RpmAt(course.curve, DegreesOf(course.follows)) - m_rpm[fan]) * StepShare(course.seconds);
    }
    StepBattery(load);
}

void MachineCourse::StepBattery(double load) {
    if (!m_course.battery || m_fullJoules <= 0) {
        return;
    }
    const double before = m_joules;
    m_joules = std::clamp(m_joules + BatteryWatts(load, m_steps * StepTime) * StepSeconds, 0.0, m_fullJoules);
    m_batteryWatts = (m_joules - before) / StepSeconds;
}

/// The power into the battery unless it is full.
double MachineCourse::BatteryWatts(double load, std::chrono::microseconds now) const {
    const BatteryCourse& battery = *m_course.battery;
    constexpr std::uint8_t OnAc = 1;
    const double charger = AcLine(now) == OnAc ? battery.chargerWatts : 0;
    return charger - std::lerp(battery.idleWatts, battery.busyWatts, load);
}

double MachineCourse::FanShare() const {
    double share = 0;
    for (std::size_t fan = 0; fan < m_rpm.size(); ++fan) {
        const auto& curve = m_course.fans[fan].curve;
        const double most = curve.empty() ? 0 : std::ranges::max(curve, {}, &FanPoint::rpm).rpm;
        share += most > 0 ? m_rpm[fan] / most : 0;
    }
    return m_rpm.empty() ? 0 : share / static_cast<double>(m_rpm.size());
}

/// Of an average cell, under the present current.
double MachineCourse::CellVolts() const {
    const BatteryCourse& battery = *m_course.battery;
    const double open = std::lerp(battery.emptyVolts, battery.fullVolts, m_joules / m_fullJoules);
    if (m_cells == 0 || open <= 0) {
        return open;
    }
    return std::max(0.0, open + battery.cellOhms * m_batteryWatts / (open * static_cast<double>(m_cells)));
}

void MachineCourse::Measure(EcProfile& ec) const {
    const auto thermometers = Thermometers(ec);
    for (std::size_t part = 0; part < thermometers.size(); ++part) {
        *thermometers[part] = WholeDegrees(DegreesOf(part));
    }
    ec.battery.degrees = DegreesOf(WarmedPartCount - 1);
    ec.fans.resize(std::max(ec.fans.size(), m_rpm.size()));
    for (std::size_t fan = 0; fan < m_rpm.size(); ++fan) {
        ec.fans[fan].rpm = static_cast<std::uint32_t>(std::lround(m_rpm[fan]));
    }
    if (!m_course.battery || m_fullJoules <= 0 || m_cells == 0) {
        return;
    }
    constexpr double MostVolts = 65.535;
    constexpr double MostAmperes = 32.767;
    const double average = CellVolts();
    double pack = 0;
    for (std::size_t cell = 0; cell < ec.battery.cellVolts.size(); ++cell) {
        double& volts = ec.battery.cellVolts[cell];
        volts = volts > 0 ? std::clamp(average + m_cellOffsets[cell], 0.001, MostVolts) : 0;
        pack += volts;
    }
    ec.battery.packageVolts = std::min(pack, MostVolts);
    ec.battery.amperes = pack > 0 ? std::clamp(m_batteryWatts / pack, -MostAmperes, MostAmperes) : 0;
}

void MachineCourse::Measure(BatteryProfile& battery) const {
    if (!m_course.battery || m_fullJoules <= 0) {
        return;
    }
    battery.capacity = static_cast<std::uint32_t>(std::lround(m_joules / JoulesPerMilliwattHour));
    if (m_cells != 0) {
        battery.voltage =
            static_cast<std::uint32_t>(std::lround(CellVolts() * static_cast<double>(m_cells) * 1000));
    }
}

std::optional<std::uint32_t> MachineCourse::PackagePower() const {
    if (!m_course.packagePower) {
        return std::nullopt;
    }
    const double load = m_load.At(static_cast<double>(std::max<std::int64_t>(m_steps, 0)) * StepSeconds);
    return static_cast<std::uint32_t>(
        std::llround(std::lerp(m_course.packagePower->idle, m_course.packagePower->busy, load)));
}

std::uint8_t MachineCourse::AcLine(std::chrono::microseconds now) const {
    double period = 0;
    for (const SupplyStretch& stretch : m_course.supply) {
        period += stretch.seconds;
    }
    double seconds = SecondsOf(now);
    const auto stretch = StretchAt(m_course.supply, period, seconds);
    return stretch == m_course.supply.end() ? m_acLine : std::uint8_t{stretch->onAc};
}

} // namespace machine
