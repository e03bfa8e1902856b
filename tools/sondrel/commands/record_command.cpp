// sondrel record [NAME...], sondrel redact RAW, sondrel compress FILE, sondrel expand FILE
#include "base/child.h"
#include "base/error.h"
#include "base/text.h"
#include "commands/commands.h"
#include "observer/recording/variables.h"
#include "readings/selection.h"
#include "recordings/compression.h"
#include "recordings/redaction.h"
#include "recordings/replay.h"
#include "recordings/temporary_file.h"
#include "terminal/interrupt.h"
#include "terminal/progress.h"

#include <filesystem>
#include <iostream>

namespace tool {
namespace {

/// A reading that takes longer is given up, and is in the recording as far as it came.
constexpr std::chrono::seconds LongestReading{120};

std::vector<const Export*> RowsOf(const std::vector<std::string>& words, const Library& library) {
    std::vector<const Export*> rows = ChosenReadings(words, library);
    for (const Export* const row : rows) {
        if (row->report != InReport::Called) {
            throw Error(std::string(row->name) + " is no reading");
        }
    }
    for (const Export& row : AllExports()) {
        if (words.empty() && row.report == InReport::Called) {
            rows.push_back(&row);
        }
    }
    return rows;
}

/// The command line that makes one reading.
std::vector<std::string> CallOf(const Export& row, const Library& library, const Options& options) {
    std::vector<std::string> line{"call", std::string(row.name)};
    if (!row.argument.empty()) {
        line.emplace_back(row.sample);
    }
    line.insert(line.end(),
                {"--library", Utf8Of(library.File()), "--init-com", std::to_string(options.reading.initCom)});
    if (options.host.machine) {
        line.insert(line.end(), {"--machine", *options.host.machine});
    }
    if (options.host.store) {
        line.insert(line.end(), {"--store", *options.host.store});
    }
    if (!options.reading.session) {
        line.emplace_back("--no-session");
    }
    return line;
}

void RecordAll(const std::vector<const Export*>& rows, const std::string& file, const Library& library,
               const Options& options) {
    NewRecordingFile recording(file);
    TemporaryFile part(file + ".part");
    Progress progress;
    for (const Export* const row : rows) {
        interrupt::Check();
        progress.Begin("recording " + std::string(row->name));
        const std::optional<int> status = host_system::RunOneself(
            CallOf(*row, library, options), {{observer::variable::Record, part.Name()}},
            host_system::ChildOutput::Dropped, LongestReading);
        progress.Clear();
        const std::string text = part.TakeLines();
        if (!status) {
            std::cerr << "sondrel: " << row->name
                      << " crashed or did not end; the recording shows how far it came\n";
        }
        if (text.empty()) {
            throw Error(std::string(row->name) + " could not be recorded");
        }
        recording.Append(text);
    }
}

/// Replays the redacted calls to compute the results again. That they replay proves that the library still reads them.
void Redact(const std::string& raw, const std::string& file, const Library& library) {
    const auto recording = LoadRecording(raw);
    const std::string redacted = RedactedCalls(ReadRecording(raw));
    const TemporaryFile draft(file + ".draft");
    NewRecordingFile(draft.Name()).Append(redacted);
    TemporaryFile part(file + ".part");
    std::string replayed;
    Progress progress;
    for (std::size_t number = 1; number <= recording->Parts(); ++number) {
        interrupt::Check();
        progress.Begin("replaying part " + std::to_string(number));
        const std::optional<int> status = host_system::RunOneself(
            {"replay", "--calls", "--part", std::to_string(number), "--library", Utf8Of(library.File()), "--",
             draft.Name()},
            {{observer::variable::Record, part.Name()}}, host_system::ChildOutput::Shared, LongestReading);
        progress.Clear();
        if (status != ExitOk) {
            throw Error(OnOneLine(raw) + " cannot be redacted: without what was removed it does not replay");
        }
        replayed += part.TakeLines();
    }
    NewRecordingFile(file).Append(WithResultsOf(redacted, replayed));
}

/// Before the work that would be lost.
void RequireNew(const std::string& file) {
    if (file.ends_with(".gz")) {
        throw Error(OnOneLine(file) + ": sondrel compress makes these of finished recordings");
    }
    std::error_code problem;
    if (std::filesystem::exists(PathOf(file), problem)) {
        throw Error(OnOneLine(file) + " exists");
    }
}

} // namespace

int Record(const Options& options) {
    const Library library(options.host.library, Library::Form::Observed);
    RequireObserved(library);
    const std::vector<const Export*> rows = RowsOf(options.names, library);
    const std::string file = options.output.empty() ? "sondrel.rec" : options.output;
    RequireNew(file);
    const std::string raw = options.raw ? file : file + ".raw";
    RecordAll(rows, raw, library, options);
    if (options.raw) {
        std::cerr << "sondrel: " << OnOneLine(file)
                  << " holds serial numbers, addresses and names of this machine\n";
        return ExitOk;
    }
    try {
        Redact(raw, file, library);
    } catch (const Error& problem) {
        throw Error(std::string(problem.what()) + "; the recording with everything in it is " +
                    OnOneLine(raw));
    }
    std::error_code problem;
    if (!std::filesystem::remove(PathOf(raw), problem)) {
        throw Error(OnOneLine(raw) + " cannot be removed, and has everything in it");
    }
    return ExitOk;
}

int CompressRecording(const Options& options) {
    const std::string& file = options.files.front();
    const std::string text = ReadRecording(file);
    static_cast<void>(LoadRecording(file)); // what is none is not made to look like one
    NewRecordingFile(options.output.empty() ? file + ".gz" : options.output).Append(Compressed(text));
    return ExitOk;
}

int ExpandRecording(const Options& options) {
    const std::string& file = options.files.front();
    if (options.output.empty() && !file.ends_with(".gz")) {
        throw Error(OnOneLine(file) + " has no .gz to be left out: name the new file (-o FILE)");
    }
    const std::string text = ReadRecording(file);
    static_cast<void>(LoadRecording(file));
    NewRecordingFile(options.output.empty() ? file.substr(0, file.size() - 3) : options.output).Append(text);
    return ExitOk;
}

int RedactRecording(const Options& options) {
    const Library library(options.host.library, Library::Form::Observed);
    RequireObserved(library);
    RequireNew(options.output);
    Redact(options.files.front(), options.output, library);
    return ExitOk;
}

} // namespace tool
