#include "observer/recording/replay.h"

#include "observer/undestroyed.h"
#include "platform/registry.h"

#include <atomic>
#include <mutex>
#include <utility>

namespace observer {
namespace {

struct Current {
    Lock lock;
    std::shared_ptr<Replay> replay;
    std::atomic<bool> any = false;
};

Current& TheCurrent() {
    return Undestroyed<Current>();
}

/// Large, so that it is no handle of the process should one get out.
std::atomic<std::uint32_t> LastHandle = 0x5E000000;

std::uintptr_t Predefined(std::string_view name) {
    return name == "HKLM"      ? static_cast<std::uintptr_t>(platform::Key::LocalMachine)
           : name == "HKCU"    ? static_cast<std::uintptr_t>(platform::Key::CurrentUser)
           : name == "invalid" ? ~std::uintptr_t{0}
                               : 0;
}

std::string Line(std::size_t line) {
    return std::string("line ").append(std::to_string(line));
}

/// What a call returned in one export call.
struct AnswerPair {
    std::string_view name;
    const Value* recorded;
    const Value* now;
};

} // namespace

std::string Printed(const Difference& difference) {
    std::string text(difference.exportName);
    if (difference.line != 0) {
        text.append(": ").append(Line(difference.line));
    }
    return text.append(": ").append(difference.text);
}

void Replay::Index() {
    for (const RecordedExport& recorded : m_recording.Exports()) {
        m_calls[KeyOf(recorded.name, recorded.arguments)].all.push_back(&recorded);
    }
}

const RecordedExport* Replay::Next(const char* exportName, const Structure& arguments) {
    {
        const std::lock_guard lock(m_lock);
        if (const auto found = m_calls.find(KeyOf(exportName, arguments)); found != m_calls.end()) {
            Calls& calls = found->second;
            const RecordedExport* const recorded = calls.all[calls.next];
            calls.next += calls.next + 1 < calls.all.size() ? 1 : 0;
            return recorded;
        }
    }
    PassOn(
        {Difference::Kind::Call, exportName, 0,
         "the recording has no call of it" + std::string(arguments.empty() ? "" : " with these arguments")});
    return nullptr;
}

void Replay::PassOn(const Difference& difference) {
    const std::lock_guard lock(m_lock);
    if (m_report) {
        m_report(difference);
    }
}

const RecordedExport* Replay::EarlierWith(const RecordedExport& recorded, const Record& asked) const {
    const std::vector<RecordedExport>& exports = m_recording.Exports();
    for (const RecordedExport* earlier = &recorded; earlier-- != exports.data();) {
        if (earlier->part != recorded.part) {
            break;
        }
        for (const RecordedCall& call : earlier->calls) {
            if (call.operation == asked.operation && call.inputs == asked.inputs) {
                return earlier;
            }
        }
    }
    return nullptr;
}

ReplayedExport::ReplayedExport(std::shared_ptr<Replay> replay, const char* exportName,
                               const Structure& arguments)
    : m_replay(std::move(replay)),
      m_exportName(exportName),
      m_recorded(m_replay->Next(exportName, arguments)),
      m_refused(m_recorded == nullptr) {}

const RecordedCall* ReplayedExport::Match(const Record& asked) {
    if (m_refused) {
        return nullptr;
    }
    if (m_next == m_recorded->calls.size()) {
        std::string problem =
            Asked(asked) + (m_recorded->returnLine != 0 ? "; the recorded call has returned here"
                                                        : "; the recording of this call ends here");
        if (const RecordedExport* const earlier = m_replay->EarlierWith(*m_recorded, asked);
            earlier != nullptr) {
            problem.append("; ")
                .append(earlier->name)
                .append(" had asked that before it in the same process, in ");
            problem.append(Line(earlier->line)).append(", and the library cached the answer");
        }
        Refuse(m_recorded->returnLine != 0 ? m_recorded->returnLine : m_recorded->line, std::move(problem));
        return nullptr;
    }
    const RecordedCall& recorded = m_recorded->calls[m_next];
    if (recorded.operation != asked.operation || recorded.inputs != asked.inputs) {
        std::string problem =
            Asked(asked) + "; recorded is " + PrintedInputs(recorded.operation, recorded.inputs);
        if (const RecordedExport* const earlier = m_replay->EarlierWith(*m_recorded, asked);
            earlier != nullptr) {
            problem.append("; ")
                .append(earlier->name)
                .append(" asked that before it, in ")
                .append(Line(earlier->line));
        }
        Refuse(recorded.line, std::move(problem));
        return nullptr;
    }
    if (!recorded.ended || recorded.incomplete) {
        Refuse(recorded.line, Asked(asked) + (recorded.ended ? "; there was no memory to record the answer"
                                                             : "; the recorded call never ended"));
        return nullptr;
    }
    ++m_next;
    return &recorded;
}

void ReplayedExport::CannotAnswer(const Record& asked, const RecordedCall& recorded) {
    Refuse(recorded.line, Asked(asked) + "; what the recording returns is no answer to it, or too large");
}

std::uintptr_t ReplayedExport::NumberOf(const HandleName& name) {
    if (!name.predefined.empty()) {
        return Predefined(name.predefined);
    }
    if (name.number == 0) {
        return LastHandle += 4;
    }
    const auto [place, isNew] = m_handles.try_emplace({RowOf(name.kind).space, name.number});
    if (isNew) {
        place->second = LastHandle += 4;
    }
    return place->second;
}

void ReplayedExport::Returned(const ExportRecord& record) {
    if (m_refused || m_recorded->returnLine == 0 || record.incomplete) {
        return;
    }
    if (m_next < m_recorded->calls.size()) {
        const RecordedCall& next = m_recorded->calls[m_next];
        m_replay->PassOn({Difference::Kind::NotAsked, m_exportName, next.line,
                          "not asked: " + PrintedInputs(next.operation, next.inputs)});
    }
    std::vector<AnswerPair> answers{{"result", &m_recorded->result, &record.result}};
    for (const Field& buffer : record.buffers) {
        answers.push_back({buffer.name, Find(m_recorded->buffers, buffer.name), &buffer.value});
    }
    for (const auto& [name, recorded, now] : answers) {
        if (recorded == nullptr || !(*recorded == *now)) {
            m_replay->PassOn({Difference::Kind::Answer, m_exportName, m_recorded->returnLine,
                              std::string(name) + " is " + Printed(*now) + "; recorded is " +
                                  (recorded == nullptr ? "nothing" : Printed(*recorded))});
        }
    }
}

void ReplayedExport::Refuse(std::size_t line, std::string problem) {
    m_refused = true;
    m_replay->PassOn({Difference::Kind::Call, m_exportName, line, std::move(problem)});
}

std::string ReplayedExport::Asked(const Record& asked) const {
    return "asked for " + PrintedInputs(asked.operation, asked.inputs);
}

std::shared_ptr<Replay> CurrentReplay() {
    Current& current = TheCurrent();
    if (!current.any) {
        return nullptr;
    }
    const std::lock_guard lock(current.lock);
    return current.replay;
}

void SetReplay(std::shared_ptr<Replay> replay) {
    Current& current = TheCurrent();
    const std::lock_guard lock(current.lock);
    current.replay = std::move(replay);
    current.any = current.replay != nullptr;
}

bool IsReplaying() noexcept {
    return TheCurrent().any;
}

} // namespace observer
