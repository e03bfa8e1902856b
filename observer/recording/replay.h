// Answers the library's calls from a recording, in place of a back end.
#pragma once

#include "observer/export_record.h"
#include "observer/lock.h"
#include "observer/record.h"
#include "observer/recording/recording.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace observer {

/// Where a replayed export call differs from the recorded one.
struct Difference {
    enum class Kind : std::uint8_t {
        Call =
            1, // the library asks for something else than was recorded; its export is refused everything further
        Answer = 2,   // the export's result or one of its buffers
        NotAsked = 3, // the library asked for less than was recorded
    };

    Kind kind{};
    const char* exportName = nullptr;
    std::size_t line = 0; // of the recording; 0: none
    std::string text;     // one line, without the former
};

/// "WMIGetSN: line 12: ..."
std::string Printed(const Difference& difference);

/// A recording that is a machine. Any thread may ask.
class Replay {
public:
    using Report = std::function<void(const Difference&)>;

    Replay(std::string text, std::size_t onlyPart, Report report)
        : m_recording(std::move(text), onlyPart), m_report(std::move(report)) {
        Index();
    }

    /// The next one of this name with these arguments; the last one again after all of them. Null where there is none,
    /// which is reported.
    const RecordedExport* Next(const char* exportName, const Structure& arguments);

    /// One at a time.
    void PassOn(const Difference& difference);

    /// The latest export call before this one, in its process, that made this boundary call; null where there is none.
    [[nodiscard]] const RecordedExport* EarlierWith(const RecordedExport& recorded,
                                                    const Record& asked) const;

    [[nodiscard]] const Recording& TheRecording() const { return m_recording; }

private:
    struct Calls {
        std::vector<const RecordedExport*> all;
        std::size_t next = 0;
    };

    void Index();

    Lock m_lock;
    const Recording m_recording;
    const Report m_report;
    std::map<std::string, Calls> m_calls;
};

/// One export call of a replay. It belongs to the thread that makes the call.
class ReplayedExport {
public:
    ReplayedExport(std::shared_ptr<Replay> replay, const char* exportName, const Structure& arguments);

    /// The recorded call that this one has to match, and does. Null where it does not, which is reported once; nothing is
    /// answered any more then.
    const RecordedCall* Match(const Record& asked);

    /// What was recorded is no answer to this call.
    void CannotAnswer(const Record& asked, const RecordedCall& recorded);

    /// The number of a handle in this export call: a new one for each name.
    std::uintptr_t NumberOf(const HandleName& name);

    /// Compares the answers, and looks whether everything was asked for.
    void Returned(const ExportRecord& record);

private:
    void Refuse(std::size_t line, std::string problem);
    [[nodiscard]] std::string Asked(const Record& asked) const;

    std::shared_ptr<Replay> m_replay;
    const char* m_exportName;
    const RecordedExport* m_recorded;
    std::size_t m_next = 0;
    bool m_refused = false;
    std::map<std::pair<HandleKindRow::Space, std::uint32_t>, std::uintptr_t> m_handles;
};

/// The recording that answers now; null for the back end.
std::shared_ptr<Replay> CurrentReplay();
void SetReplay(std::shared_ptr<Replay> replay);

/// The same without a lock, for calls outside an export: they are refused in a replay.
bool IsReplaying() noexcept;

} // namespace observer
