#include "observer/recording/recorder.h"

#include "observer/back_end.h"
#include "observer/recording/json.h"
#include "observer/recording/recording.h"
#include "observer/recording/replay.h"
#include "observer/recording/variables.h"
#include "platform/support/product_key.h"
#include "unicode/utf.h"

#include <chrono>
#include <cstdio>
#include <optional>

namespace observer {
namespace {

Value Text(std::string_view text) {
    return {unicode::WideFromUtf8(text)};
}

template <class Integer>
Value Whole(Integer number) {
    return {Number{static_cast<std::int64_t>(number)}};
}

/// "2026-01-31T23:59:59Z"
std::string Now() {
    using namespace std::chrono;
    const auto now = floor<seconds>(system_clock::now());
    const auto day = floor<days>(now);
    const year_month_day date(day);
    const hh_mm_ss time(now - day);
    char text[40];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return text;
}

/// What the header of the recording that is replayed has; nothing where none is.
std::optional<Value> Replayed(std::string_view name) {
    const auto replay = CurrentReplay();
    if (replay == nullptr) {
        return std::nullopt;
    }
    const Value* const recorded = Find(replay->TheRecording().Header(), name);
    return recorded == nullptr ? Value{} : *recorded;
}

/// The system that the library reads: natively the simulated one.
Value ReadSystem() {
    if (std::optional<Value> replayed = Replayed("windows")) {
        return *std::move(replayed);
    }
    platform::OsVersion version{.infoSize = platform::OsVersionInfoExSize};
    if (!platform::back_end::RtlGetVersion(version)) {
        return {};
    }
    return Text(std::to_string(version.major) + '.' + std::to_string(version.minor) + '.' +
                std::to_string(version.build));
}

/// Where the library finds the EC's identity, as the core looks for it.
Value ReadIdentity() {
    namespace system = platform::back_end;
    if (std::optional<Value> replayed = Replayed("identity")) {
        return *std::move(replayed);
    }
    platform::Key key = platform::Key::None;
    if (system::RegOpenKeyExW(platform::Key::LocalMachine, platform::ProductKey, platform::access::KeyRead,
                              key) != platform::error::Success) {
        return Text("ec");
    }
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    const bool cached = system::RegQueryValueExW(key, platform::EcRevisionValue, type, nullptr, size) ==
                        platform::error::Success;
    system::RegCloseKey(key);
    return Text(cached ? "registry" : "ec");
}

Value Header() {
    const system::Host host = system::CurrentHost();
    return {Structure{{line_kind::Header, Whole(RecordingVersion)},
                      {"library", Text(VESK_VERSION)},
                      {"build", Text(system::Build())},
                      {"windows", ReadSystem()},
                      {"identity", ReadIdentity()},
                      {"user", Text(host.user)},
                      {"elevated", {host.elevated}},
                      {"session", Whole(host.session)},
                      {"time", Text(Now())},
                      {"host", Text(host.program)},
                      {"process", Whole(host.process)}}};
}

void AppendNumber(std::string& line, std::string_view name, std::int64_t number) {
    AppendName(line, name);
    line += std::to_string(number);
}

void AppendField(std::string& line, std::string_view name, const Value& value) {
    AppendName(line, name);
    AppendJson(line, value);
}

void AppendFields(std::string& line, std::string_view name, const Structure& fields) {
    AppendName(line, name);
    line += '{';
    for (const Field& field : fields) {
        AppendField(line, field.name, field.value);
    }
    line += '}';
}

void AppendString(std::string& line, std::string_view name, std::string_view plain) {
    AppendName(line, name);
    line.append(1, '"').append(plain).append(1, '"');
}

bool IsNothing(const Value& value) {
    return std::holds_alternative<std::monostate>(value.held);
}

} // namespace

bool Recorder::Create(const std::string& path, std::string& problem) {
    if (!m_file.Create(path)) {
        problem = system::LastProblem();
        return false;
    }
    m_origin = std::chrono::steady_clock::now().time_since_epoch();
    std::string line;
    AppendJson(line, Header());
    if (!m_file.Append(line + '\n')) {
        problem = system::LastProblem();
        return false;
    }
    m_line.reserve(4096);
    return true;
}

template <class AnyRecord, class Compose>
void Recorder::Write(const AnyRecord& record, const Compose& compose) noexcept {
    if (m_failed) {
        return;
    }
    try {
        m_line = '{';
        compose();
        m_lost = m_lost || record.incomplete;
        m_line += m_lost ? ",\"incomplete\":true}\n" : "}\n";
        m_lost = false;
    } catch (...) {
        m_lost = true;
        return;
    }
    if (!m_file.Append(m_line)) {
        m_failed = true; // the last line may have no end; nothing must be written after it
        system::Complain(std::string(variable::Record) +
                         ": the recording ends here: " + system::LastProblem());
    }
}

void Recorder::ExportBegan(const ExportRecord& record) {
    Write(record, [&] {
        AppendNumber(m_line, line_kind::Export, static_cast<std::int64_t>(record.number));
        AppendString(m_line, "name", record.name);
        AppendFields(m_line, "arguments", record.arguments);
        AppendStart(record);
    });
}

void Recorder::Began(const Record& record) {
    Write(record, [&] {
        AppendNumber(m_line, line_kind::Call, static_cast<std::int64_t>(record.identity));
        AppendNumber(m_line, "of", static_cast<std::int64_t>(record.exportCall));
        AppendString(m_line, "operation", RowOf(record.operation).name);
        AppendFields(m_line, "in", record.inputs);
        AppendStart(record);
    });
}

void Recorder::Ended(const Record& record) {
    Write(record, [&] {
        AppendNumber(m_line, line_kind::End, static_cast<std::int64_t>(record.identity));
        AppendAnswer(record.result, "out", record.outputs);
        if (record.lastError) {
            AppendNumber(m_line, "error", *record.lastError);
        }
        if (record.injected != Failure::None) {
            AppendNumber(m_line, "injected", Bit(record.injected));
        }
        if (record.outOfMemory) {
            m_line += ",\"out_of_memory\":true";
        }
        AppendNumber(m_line, "took", record.duration.count());
    });
}

void Recorder::ExportEnded(const ExportRecord& record) {
    Write(record, [&] {
        AppendNumber(m_line, line_kind::Return, static_cast<std::int64_t>(record.number));
        AppendAnswer(record.result, "buffers", record.buffers);
        AppendNumber(m_line, "took", record.duration.count());
    });
}

template <class AnyRecord>
void Recorder::AppendStart(const AnyRecord& record) {
    AppendNumber(m_line, "thread", record.thread);
    AppendNumber(m_line, "at", (record.start - m_origin).count());
}

void Recorder::AppendAnswer(const Value& result, std::string_view name, const Structure& outputs) {
    if (!IsNothing(result)) {
        AppendField(m_line, "result", result);
    }
    if (!outputs.empty()) {
        AppendFields(m_line, name, outputs);
    }
}

} // namespace observer
