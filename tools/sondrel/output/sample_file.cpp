#include "output/sample_file.h"

#include "base/text.h"
#include "base/trouble.h"

#include <cstdio>

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

/// What stands in a file already.
struct FileAsFound {
    std::string header;
    bool empty = true;
    bool endsLine = true;
};

FileAsFound LookInto(const fs::path& file) {
    FileAsFound found;
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

std::string IsoTime(std::chrono::system_clock::time_point time) {
    using namespace std::chrono;
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(floor<milliseconds>(time - day));
    char text[48];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()), static_cast<int>(clock.subseconds().count()));
    return text;
}

SampleFile::SampleFile(const std::string& file, const std::vector<Series>& series) : m_path(PathOf(file)) {
    const std::string header = HeaderOf(series);
    std::error_code problem;
    const bool regular = fs::is_regular_file(m_path, problem);
    const FileAsFound found = regular ? LookInto(m_path) : FileAsFound{};
    if (!found.empty && found.header != header) {
        throw Trouble(OnOneLine(file) +
                      ": holds something else than samples of these readings; give another file");
    }
    m_out.open(m_path, std::ios::binary | std::ios::app);
    if (!m_out) {
        throw Trouble(OnOneLine(file) + ": cannot be written");
    }
    if (found.empty) {
        WriteLine(header);
    } else if (!found.endsLine) {
        WriteLine(""); // an earlier run was cut off within a line
    }
}

void SampleFile::Write(const Sample& sample) {
    std::string line = IsoTime(sample.time);
    for (const Point& point : sample.points) {
        line.append(",").append(CsvField(point.bare));
    }
    WriteLine(line);
}

void SampleFile::WriteLine(const std::string& line) {
    m_out << line << "\r\n" << std::flush;
    if (!m_out) {
        throw Trouble(OnOneLine(Utf8Of(m_path)) + ": cannot be written");
    }
}

} // namespace tool
