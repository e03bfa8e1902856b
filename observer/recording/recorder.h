// Writes a recording while the library works. docs/recording.md describes the file.
#pragma once

#include "observer/observer.h"
#include "observer/recording/system.h"

#include <string>

namespace observer {

/// One line for the beginning of each call, before the operating system is asked, and one for its end. A line is passed
/// to the operating system immediately. What cannot be noted for lack of memory is missing; the next line that can be
/// written is marked as incomplete, and so are records that lack a part.
class Recorder final : public Sink {
public:
    /// False, with the reason, where the file cannot be made; it must not exist.
    bool Create(const std::string& path, std::string& problem);

    void ExportBegan(const ExportRecord& record) override;
    void Began(const Record& record) override;
    void Ended(const Record& record) override;
    void ExportEnded(const ExportRecord& record) override;

private:
    template <class AnyRecord, class Compose>
    void Write(const AnyRecord& record, const Compose& compose) noexcept;

    template <class AnyRecord>
    void AppendStart(const AnyRecord& record);
    void AppendAnswer(const Value& result, std::string_view name, const Structure& outputs);

    system::NewFile m_file;
    std::chrono::nanoseconds m_origin{0}; // of all times
    std::string m_line;                   // grows to the longest one and is used again
    bool m_lost = false;                  // a line could not be made
    bool m_failed = false;                // nothing more is written
};

} // namespace observer
