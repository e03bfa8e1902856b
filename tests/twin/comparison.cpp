#include "comparison.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <fstream>
#include <set>
#include <stdexcept>

namespace twin {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

constexpr std::string_view NativeEnd = ".native.json";
constexpr std::string_view WindowsEnd = ".windows.json";

Json ReadReports(const fs::path& file) {
    std::ifstream in(file);
    return Json::parse(in);
}

/// The machines of which there is a report of either kind.
std::set<std::string> MachinesOf(const fs::path& directory) {
    std::set<std::string> machines;
    for (const auto& entry : fs::directory_iterator(directory)) {
        const std::string name = entry.path().filename().string();
        for (const std::string_view end : {NativeEnd, WindowsEnd}) {
            if (name.ends_with(end)) {
                machines.insert(name.substr(0, name.size() - end.size()));
            }
        }
    }
    return machines;
}

/// What stands around a place of a text that may be very long.
std::string Around(const std::string& text, std::ptrdiff_t place) {
    constexpr std::size_t Before = 100;
    constexpr std::size_t Whole = 400;
    const auto at = static_cast<std::size_t>(place);
    const std::size_t begin = text.size() <= Whole || at < Before ? 0 : at - Before;
    return (begin == 0 ? "" : "...") + text.substr(begin, Whole) + (begin + Whole < text.size() ? "..." : "");
}

class Comparer {
public:
    explicit Comparer(const Excuses& excuses) : m_excuses(excuses) {}

    void CompareMachine(const std::string& machine, const Json& native, const Json& windows) {
        ++m_result.machines;
        if (native.size() != windows.size()) {
            m_result.problems.push_back(machine + ": the libraries told a different number of reports");
            return;
        }
        for (std::size_t place = 0; place < native.size(); ++place) {
            ComparePart(machine + ", part " + std::to_string(place + 1), native[place].at("exports"),
                        windows[place].at("exports"));
        }
    }

    void Fail(std::string problem) { m_result.problems.push_back(std::move(problem)); }

    Comparison Finish() {
        for (const auto& [name, reason] : m_excuses) {
            if (!m_used.contains(name)) {
                Fail(name + " is excused (" + reason +
                     ") but agrees on every machine: take it off the table");
            }
        }
        for (const std::string& name : m_seen) {
            if (!m_called.contains(name)) {
                Fail(name + " was never called");
            }
        }
        m_result.exports = m_called.size();
        return std::move(m_result);
    }

private:
    void ComparePart(const std::string& where, const Json& native, const Json& windows) {
        if (native.size() != windows.size()) {
            Fail(where + ": the libraries do not have the same exports");
            return;
        }
        for (std::size_t place = 0; place < native.size(); ++place) {
            const std::string name = native[place].at("name");
            m_seen.insert(name);
            if (native[place].at("status") != "not run") {
                m_called.insert(name);
                ++m_result.answers;
            }
            if (native[place] != windows[place]) {
                Differ(where, name, native[place], windows[place]);
            }
        }
    }

    void Differ(const std::string& where, const std::string& name, const Json& native, const Json& windows) {
        if (m_excuses.contains(name)) {
            m_used.insert(name);
            return;
        }
        const std::string nativeText = native.dump();
        const std::string windowsText = windows.dump();
        const auto parting = std::ranges::mismatch(nativeText, windowsText).in1 - nativeText.begin();
        Fail(where + ": " + name + " differs from character " + std::to_string(parting) + " on" +
             "\n    native:  " + Around(nativeText, parting) +
             "\n    windows: " + Around(windowsText, parting));
    }

    const Excuses& m_excuses;
    Comparison m_result;
    std::set<std::string> m_seen;
    std::set<std::string> m_called;
    std::set<std::string> m_used;
};

} // namespace

Excuses ReadExcuses(std::istream& table) {
    Excuses excuses;
    for (std::string line; std::getline(table, line);) {
        if (line.empty() || line.starts_with('#')) {
            continue;
        }
        const std::size_t middle = line.find(": ");
        if (middle == 0 || middle == std::string::npos || middle + 2 == line.size()) {
            throw std::runtime_error("not \"NAME: reason\": " + line);
        }
        excuses[line.substr(0, middle)] = line.substr(middle + 2);
    }
    return excuses;
}

Comparison Compare(const fs::path& directory, const Excuses& excuses) {
    Comparer comparer(excuses);
    const auto machines = MachinesOf(directory);
    if (machines.empty()) {
        comparer.Fail("there are no reports in " + directory.string());
    }
    for (const std::string& machine : machines) {
        try {
            comparer.CompareMachine(machine, ReadReports(directory / machine.substr().append(NativeEnd)),
                                    ReadReports(directory / machine.substr().append(WindowsEnd)));
        } catch (const Json::exception& problem) {
            comparer.Fail(machine + ": a report is missing or damaged: " + problem.what());
        }
    }
    return comparer.Finish();
}

} // namespace twin
