// The command line.
#pragma once

#include "output/report.h"
#include "readings/host.h"
#include "readings/reading.h"
#include "samples/sampler.h"
#include "terminal/paint.h"

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tool {

struct Options {
    /// The chosen command. Null if help or the version was asked for, which has been printed.
    int (*run)(const Options& options) = nullptr;
    HostOptions host;
    ReadOptions reading;
    ColourMode colour = ColourMode::Auto;

    /// `call`, `trace`: the export. `list`: the export to be shown in full, or empty.
    std::string name;
    std::vector<std::string> arguments;
    /// `call`, `read`, `report`, `doctor`, `diff`: as JSON.
    bool json = false;
    /// `report`: as a page, if it has a file.
    PageOptions page;
    /// `watch`, `read`, `record`: the chosen readings; none for the usual ones.
    std::vector<std::string> names;
    /// `read`: what is printed of each reading, separated by tabs; none for a line in words.
    std::vector<std::string> fields;
    Sampling watchSampling;
    /// `watch`: the file for the samples, or empty.
    std::string csv;
    /// `watch`: a line of JSON for each sample.
    bool ndjson = false;
    /// `watch`: conditions that end it.
    std::vector<std::string> failIf;
    /// `snapshot`, `diff`, `machine`: the named files.
    std::vector<std::string> files;
    /// `diff`: leave out what usually differs.
    bool steady = false;
    /// Where the output goes; empty for standard output.
    std::string output;
    /// `replay`: only this process of the recording, from 1; 0 for each in a separate process.
    std::size_t part = 0;
    /// `replay`: what exports return does not count.
    bool callsOnly = false;
    /// `record`: with everything in it.
    bool raw = false;
    /// `machine new`: the machine to start from, if not a family's.
    std::string from;
};

/// `snapshot`, `diff` and `metrics`.
void AddComparingCommands(CLI::App& app, Options& options);
/// `record`, `redact`, `replay`, `compress` and `expand`.
void AddRecordingCommands(CLI::App& app, Options& options);
/// `machine`.
void AddMachineCommands(CLI::App& app, Options& options);

/// What `read --fields` takes.
const std::vector<std::string>& ReadingFields();

/// Throws Error for an invalid command line.
Options ParseCommandLine(const std::vector<std::string>& arguments);

} // namespace tool
