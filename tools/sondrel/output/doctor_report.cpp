// What `doctor` found, as text and as JSON.
#include "output/report.h"

#include "base/text.h"
#include "readings/reading_json.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>
#include <utility>

namespace tool {
namespace {

std::string LineOf(const PreconditionFinding& finding) {
    std::string line = "  " + std::string(finding.precondition->title);
    if (finding.precondition->title.starts_with("WMI ")) {
        line.append(1, ' ').append(finding.precondition->name);
    }
    line.append(": ").append(!finding.isMet ? "not checked" : TextOf(finding.state));
    return finding.value.empty() ? line : line.append(" (").append(OnOneLine(finding.value)).append(1, ')');
}

/// The causes in the order of the preconditions, each with those that it has.
std::vector<std::pair<std::string, std::vector<const PreconditionFinding*>>>
ByCause(std::span<const PreconditionFinding> findings) {
    std::vector<std::pair<std::string, std::vector<const PreconditionFinding*>>> groups;
    for (const PreconditionFinding& finding : findings) {
        const std::string cause = finding.cause ? OnOneLine(TextWithRemedy(*finding.cause)) : std::string();
        auto group = std::ranges::find(groups, cause, [](const auto& each) { return each.first; });
        if (group == groups.end()) {
            group = groups.insert(group, {cause, {}});
        }
        group->second.push_back(&finding);
    }
    return groups;
}

} // namespace

bool AreMet(std::span<const PreconditionFinding> findings) {
    return std::ranges::none_of(findings,
                                [](const PreconditionFinding& finding) { return finding.isMet == false; });
}

void PrintFindings(const Host& host, std::span<const PreconditionFinding> findings, ColourMode colour) {
    const Paint paint(colour, terminal::Stream::Out);
    std::cout << paint(Style::Title, "sondrel doctor") << "  " << OnOneLine(host.machineName)
              << host.MachineKind() << '\n';
    for (const auto& [cause, group] : ByCause(findings)) {
        const bool isMissing =
            std::ranges::any_of(group, [](const PreconditionFinding* each) { return each->isMet == false; });
        const Style style = isMissing ? Style::Bad : cause.empty() ? Style::Plain : Style::Quiet;
        if (!cause.empty()) {
            std::cout << '\n' << paint(style, cause) << '\n';
        }
        for (const PreconditionFinding* const finding : group) {
            std::cout << paint(style, LineOf(*finding)) << '\n';
        }
    }
    const auto count = [&](std::optional<bool> isMet) {
        return std::ranges::count(findings, isMet, &PreconditionFinding::isMet);
    };
    std::cout << '\n'
              << count(true) << " met, " << count(false) << " not met, " << count(std::nullopt)
              << " not checked\n";
}

void PrintFindingsAsJson(const Host& host, std::span<const PreconditionFinding> findings) {
    using OrderedJson = nlohmann::ordered_json;
    OrderedJson document;
    document["format"] = "sondrel-doctor";
    document["version"] = 1;
    document["library"] = Utf8Of(host.library.File());
    document["machine"] = host.machineName;
    document["simulated"] = host.machine.has_value();
    document["met"] = AreMet(findings);
    document["preconditions"] = OrderedJson::array();
    for (const PreconditionFinding& finding : findings) {
        OrderedJson& object = document["preconditions"].emplace_back();
        object["name"] = finding.precondition->name;
        object["title"] = finding.precondition->title;
        object["met"] = finding.isMet ? OrderedJson(*finding.isMet) : OrderedJson();
        object["state"] = finding.isMet ? OrderedJson(TextOf(finding.state)) : OrderedJson();
        object["reading"] = finding.precondition->reading.empty()
                                ? OrderedJson()
                                : OrderedJson(finding.precondition->reading);
        object["value"] = finding.value.empty() ? OrderedJson() : OrderedJson(finding.value);
        object["cause"] = finding.cause ? JsonOf(*finding.cause) : OrderedJson();
    }
    std::cout << document.dump(2, ' ', false, OrderedJson::error_handler_t::replace) << '\n';
}

} // namespace tool
