// sondrel record [NAME...]
#include "base/child.h"
#include "base/error.h"
#include "base/input_file.h"
#include "base/text.h"
#include "commands/commands.h"
#include "recordings/replay.h"
#include "terminal/interrupt.h"
#include "terminal/progress.h"

#include <filesystem>
#include <iostream>

namespace tool {
namespace {

namespace fs = std::filesystem;

/// A reading that takes longer is given up, and is in the recording as far as it came.
constexpr std::chrono::seconds LongestReading{120};

std::vector<const Export*> RowsOf(const std::vector<std::string>& names) {
    std::vector<const Export*> rows;
    for (const std::string& name : names) {
        const Export& row = ExportNamed(name);
        if (row.report != InReport::Called) {
            throw Error(std::string(row.name) + " is no reading");
        }
        rows.push_back(&row);
    }
    for (const Export& row : AllExports()) {
        if (names.empty() && row.report == InReport::Called) {
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

/// A file that is removed at the end.
class PartFile {
public:
    explicit PartFile(fs::path file) : m_file(std::move(file)) { Remove(); }

    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    ~PartFile() { Remove(); }

    [[nodiscard]] std::string Name() const { return Utf8Of(m_file); }

    /// What is complete of it; the file is removed.
    std::string Take() {
        std::error_code problem;
        std::string text = fs::exists(m_file, problem) ? ReadFile(Name()) : std::string();
        text.resize(text.rfind('\n') + 1);
        Remove();
        return text;
    }

private:
    void Remove() const {
        std::error_code ignored;
        fs::remove(m_file, ignored);
    }

    const fs::path m_file;
};

} // namespace

int Record(const Options& options) {
    const std::vector<const Export*> rows = RowsOf(options.names);
    const Library library(options.host.library, Library::Form::Observed);
    RequireObserved(library);
    const std::string file = options.output.empty() ? "sondrel.rec" : options.output;
    NewRecordingFile recording(file);
    PartFile part(fs::absolute(PathOf(file + ".part")));
    Progress progress;
    for (const Export* const row : rows) {
        interrupt::Check();
        progress.Begin("recording " + std::string(row->name));
        const std::optional<int> status =
            host_system::RunOneself(CallOf(*row, library, options), {{"VESK_RECORD", part.Name()}},
                                    host_system::ChildOutput::Dropped, LongestReading);
        progress.Clear();
        const std::string text = part.Take();
        if (!status) {
            std::cerr << "sondrel: " << row->name
                      << " crashed or did not end; the recording shows how far it came\n";
        }
        if (text.empty()) {
            throw Error(std::string(row->name) + " could not be recorded");
        }
        recording.Append(text);
    }
    std::cerr << "sondrel: " << OnOneLine(file)
              << " holds serial numbers, addresses and names of this machine\n";
    return ExitOk;
}

} // namespace tool
