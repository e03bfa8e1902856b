// The command line.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tool {

enum class ColourWish : std::uint8_t { Auto, Always, Never };

/// What is read again and again.
struct Sampling {
    std::chrono::milliseconds interval{1000};
    /// How many samples; 0 for as many as there is time for.
    std::size_t count = 0;
};

struct Options {
    /// The command that was chosen. Null when help or the version was asked for and has been printed.
    int (*run)(const Options& options) = nullptr;
    /// `call`, `trace`: the export. `list`: the export to be told in full, or empty.
    std::string name;
    std::vector<std::string> arguments;
    bool json = false;
    /// `snapshot`, `diff`, `machine`: the files that are named.
    std::vector<std::string> files;
    /// Where the output goes; empty for standard output.
    std::string output;
    /// `diff`: leave out what always moves.
    bool steady = false;
    /// `machine new`: the machine to start from, if it is not a family's.
    std::string from;

    ColourWish colour = ColourWish::Auto;
    /// `report`: the page to be written, or empty.
    std::string html;
    Sampling pageSampling{.count = 20};
    /// `watch`: the exports, or none for the usual ones.
    std::vector<std::string> names;
    Sampling watchSampling{.interval = std::chrono::milliseconds(2000)};
    /// `watch`: the file that keeps the samples, or empty.
    std::string csv;

    std::string library;
    std::optional<std::string> machine;
    std::optional<std::string> store;
    bool trace = false;
    std::uint8_t initCom = 1;
    bool session = true;
};

/// `snapshot`, `diff` and `metrics`.
void AddComparingCommands(CLI::App& app, Options& options);
/// `machine`.
void AddMachineCommands(CLI::App& app, Options& options);

/// Throws Trouble for a command line that is none.
Options ParseCommandLine(const std::vector<std::string>& arguments);

} // namespace tool
