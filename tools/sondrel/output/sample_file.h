// Samples kept in a CSV file (RFC 4180).
#pragma once

#include "readings/sampler.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace tool {

/// "2026-01-31T23:59:59.123Z"
std::string IsoTime(std::chrono::system_clock::time_point time);

/// One line for each sample, on the disk's way as soon as it is taken. A field is empty where the reading has no
/// value: it failed, or the machine has no such thing.
class SampleFile {
public:
    /// A file that holds samples of the same readings is continued. Throws Trouble for one that holds anything
    /// else: nothing is overwritten.
    SampleFile(const std::string& file, const std::vector<Series>& series);

    void Write(const Sample& sample);

private:
    void WriteLine(const std::string& line);

    std::filesystem::path m_path;
    std::ofstream m_out;
};

} // namespace tool
