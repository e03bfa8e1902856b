#include "samples/sample_file.h"

#include "base/error.h"
#include "base/text.h"

#include <cerrno>
#include <iostream>

namespace tool {
namespace {

namespace fs = std::filesystem;

std::string CsvField(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
        return std::string(text);
    }
    std::string field = "\"";
    for (const char character : text) {
        field.append(character == '"' ? 2 : 1, character);
    }
    return field.append(1, '"');
}

std::string HeaderOf(const std::vector<Series>& series) {
    std::string line = "time";
    for (const Series& one : series) {
        line.append(",").append(CsvField(one.name));
    }
    return line;
}

/// What an existing file contains.
struct ExistingFile {
    std::string header;
    bool empty = true;
    /// The size without a last line that an earlier run did not finish.
    std::uintmax_t wholeLines = 0;
};

ExistingFile Inspect(const fs::path& file) {
    ExistingFile found;
    std::ifstream in(file, std::ios::binary);
    if (!std::getline(in, found.header)) {
        return found;
    }
    found.empty = false;
    if (!found.header.empty() && found.header.back() == '\r') {
        found.header.pop_back();
    }
    in.clear();
    in.seekg(0, std::ios::end);
    found.wholeLines = static_cast<std::uintmax_t>(in.tellg());
    while (found.wholeLines > 0 &&
           (in.seekg(static_cast<std::streamoff>(found.wholeLines) - 1), in.get()) != '\n') {
        --found.wholeLines;
    }
    return found;
}

/// Numbers without the noise of their last digits, strings without control characters.
std::string FieldOf(const Point& point) {
    const bool isFraction = point.number && point.value.find_first_of(".e") != std::string::npos;
    return CsvField(isFraction ? PlainNumber(*point.number) : OnOneLine(point.value));
}

} // namespace

SampleFile::SampleFile(const std::string& file, const std::vector<Series>& series) : m_path(PathOf(file)) {
    const std::string header = HeaderOf(series);
    if (file == "-") {
        WriteLine(header);
        return;
    }
    std::error_code problem;
    const bool regular = fs::is_regular_file(m_path, problem);
    const ExistingFile found = regular ? Inspect(m_path) : ExistingFile{};
    if (!found.empty && found.header != header) {
        throw Error(OnOneLine(file) +
                    ": contains something other than samples of these readings; give another file");
    }
    errno = 0;
    m_out.open(m_path, std::ios::binary | std::ios::app);
    if (!m_out) {
        throw Error(OnOneLine(file) + ": cannot be written" + BecauseOfErrno());
    }
    if (found.empty) {
        WriteLine(header);
    } else if (found.wholeLines != fs::file_size(m_path, problem)) {
        fs::resize_file(m_path, found.wholeLines, problem);
        std::cerr << "sondrel: " << OnOneLine(file) << ": the last line was incomplete and is removed\n";
    }
}

void SampleFile::Write(const Sample& sample) {
    std::string line = IsoTime(sample.time);
    for (const Point& point : sample.points) {
        line.append(",").append(FieldOf(point));
    }
    WriteLine(line);
}

void SampleFile::WriteLine(const std::string& line) {
    errno = 0;
    std::ostream& out = m_out.is_open() ? m_out : std::cout;
    out << line << "\r\n" << std::flush;
    if (!out) {
        throw Error(OnOneLine(Utf8Of(m_path)) + ": cannot be written" + BecauseOfErrno());
    }
}

} // namespace tool
