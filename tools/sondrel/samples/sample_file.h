// Samples in a CSV file (RFC 4180).
#pragma once

#include "samples/sampler.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace tool {

/// One line for each sample, written as soon as it is taken. A field is empty if the reading has no value: it failed, or
/// the machine has no such thing.
class SampleFile {
public:
    /// Continues a file with samples of the same readings, after its last complete line. "-" is standard output. Throws
    /// Error for a file with any other content.
    SampleFile(const std::string& file, const std::vector<Series>& series);

    void Write(const Sample& sample);

private:
    void WriteLine(const std::string& line);

    std::filesystem::path m_path;
    std::ofstream m_out;
};

} // namespace tool
