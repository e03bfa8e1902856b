#include "machines/profile_check.h"

#include "base/text.h"
#include "machine/profile/profile.h"
#include "machine/profile/profile_document.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tool {
namespace {

std::string MessageOf(const machine::ProfileIssue& issue) {
    const std::vector<std::string_view> known(issue.knownNames.begin(), issue.knownNames.end());
    const std::string name = issue.pointer.substr(issue.pointer.rfind('/') + 1);
    const std::string_view nearest = known.empty() ? std::string_view() : Nearest(name, known);
    const std::string message =
        nearest.empty() ? issue.message : "unknown name; did you mean \"" + std::string(nearest) + "\"?";
    return OnOneLine(issue.byte ? message : (issue.pointer.empty() ? "/" : issue.pointer) + ": " + message);
}

} // namespace

std::vector<ProfileFinding> FindingsIn(std::string_view text) {
    machine::ProfileIssues issues;
    machine::ReadProfile(text, issues);
    std::optional<JsonPlaces> places; // only a document has some
    std::vector<ProfileFinding> findings;
    for (const machine::ProfileIssue& issue : issues) {
        TextPlace place;
        if (issue.byte) {
            place = PlaceOfByte(text, *issue.byte);
        } else if (!issue.pointer.empty()) {
            place = (places ? *places : places.emplace(text)).Of(issue.pointer);
        }
        findings.push_back({place, MessageOf(issue)});
    }
    std::ranges::stable_sort(findings, {}, [](const ProfileFinding& finding) {
        return std::pair(finding.place.line, finding.place.column);
    });
    return findings;
}

} // namespace tool
