// compare_answers DIRECTORY: what both libraries answered on the same machines, in NAME.native.json and NAME.windows.json.
// Prints every difference; the exit status is 0 when there is none.
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>
#include <string>

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

constexpr std::string_view Ends[] = {".native.json", ".windows.json"};

/// The machines of which there is a report of either kind.
std::set<std::string> MachinesOf(const fs::path& directory) {
    std::set<std::string> machines;
    for (const auto& entry : fs::directory_iterator(directory)) {
        const std::string name = entry.path().filename().string();
        for (const std::string_view end : Ends) {
            if (name.ends_with(end)) {
                machines.insert(name.substr(0, name.size() - end.size()));
            }
        }
    }
    return machines;
}

/// The surroundings of a position in a string that may be very long.
std::string Around(const std::string& text, std::size_t place) {
    constexpr std::size_t Before = 100;
    constexpr std::size_t Whole = 400;
    const std::size_t begin = text.size() <= Whole || place < Before ? 0 : place - Before;
    return (begin == 0 ? "" : "...") + text.substr(begin, Whole) + (begin + Whole < text.size() ? "..." : "");
}

class Comparison {
public:
    void CompareMachine(const std::string& machine, const Json& native, const Json& windows) {
        if (native.size() != windows.size()) {
            Fail(machine + ": the libraries printed a different number of reports");
            return;
        }
        for (std::size_t part = 0; part < native.size(); ++part) {
            ComparePart(machine + ", part " + std::to_string(part + 1), native[part].at("exports"),
                        windows[part].at("exports"));
        }
    }

    void Fail(const std::string& problem) {
        std::cout << problem << '\n';
        ++m_problems;
    }

    /// The exit status.
    int Finish(std::size_t machines) {
        for (const std::string& name : m_seen) {
            if (!m_called.contains(name)) {
                Fail(name + " was never called");
            }
        }
        std::cout << machines << " machines, " << m_called.size() << " exports, " << m_answers
                  << " answers compared: " << m_problems << " problems\n";
        return m_problems == 0 ? 0 : 1;
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
                ++m_answers;
            }
            if (native[place] != windows[place]) {
                const std::string texts[] = {native[place].dump(), windows[place].dump()};
                const auto parting = static_cast<std::size_t>(std::ranges::mismatch(texts[0], texts[1]).in1 -
                                                              texts[0].begin());
                Fail(where + ": " + name + " differs from character " + std::to_string(parting) + " on" +
                     "\n    native:  " + Around(texts[0], parting) +
                     "\n    windows: " + Around(texts[1], parting));
            }
        }
    }

    std::set<std::string> m_seen;
    std::set<std::string> m_called;
    std::size_t m_answers = 0;
    std::size_t m_problems = 0;
};

int CompareAll(const fs::path& directory) {
    Comparison comparison;
    const auto reportOf = [&directory](std::string machine, std::string_view end) {
        std::ifstream in(directory / machine.append(end));
        return Json::parse(in);
    };
    const auto machines = MachinesOf(directory);
    if (machines.empty()) {
        comparison.Fail("there are no reports");
    }
    for (const std::string& machine : machines) {
        try {
            comparison.CompareMachine(machine, reportOf(machine, Ends[0]), reportOf(machine, Ends[1]));
        } catch (const Json::exception& problem) {
            comparison.Fail(machine + ": a report is missing or damaged: " + problem.what());
        }
    }
    return comparison.Finish(machines.size());
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: compare_answers DIRECTORY\n";
        return 2;
    }
    try {
        return CompareAll(arguments[1]);
    } catch (const std::exception& problem) {
        std::cerr << "compare_answers: " << problem.what() << '\n';
        return 2;
    }
}
