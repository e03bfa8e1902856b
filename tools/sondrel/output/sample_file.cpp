#include "output/sample_file.h"

#include "base/error.h"
#include "base/text.h"

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
    bool endsLine = true;
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
    in.seekg(-1, std::ios::end);
    found.endsLine = in.get() == '\n';
    return found;
}

} // namespace

SampleFile::SampleFile(const std::string& file, const std::vector<Series>& series) : m_path(PathOf(file)) {
    const std::string header = HeaderOf(series);
    std::error_code problem;
    const bool regular = fs::is_regular_file(m_path, problem);
    const ExistingFile found = regular ? Inspect(m_path) : ExistingFile{};
    if (!found.empty && found.header != header) {
        throw Error(OnOneLine(file) +
                    ": contains something other than samples of these readings; give another file");
    }
    m_out.open(m_path, std::ios::binary | std::ios::app);
    if (!m_out) {
        throw Error(OnOneLine(file) + ": cannot be written");
    }
    if (found.empty) {
        WriteLine(header);
    } else if (!found.endsLine) {
        WriteLine(""); // an earlier run ended within a line
    }
}

void SampleFile::Write(const Sample& sample) {
    std::string line = IsoTime(sample.time);
    for (const Point& point : sample.points) {
        line.append(",").append(CsvField(point.value));
    }
    WriteLine(line);
}

void SampleFile::WriteLine(const std::string& line) {
    m_out << line << "\r\n" << std::flush;
    if (!m_out) {
        throw Error(OnOneLine(Utf8Of(m_path)) + ": cannot be written");
    }
}

} // namespace tool
