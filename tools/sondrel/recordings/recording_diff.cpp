#include "recordings/recording_diff.h"

#include "base/text.h"
#include "observer/record.h"
#include "recordings/recording_file.h"

#include <algorithm>
#include <array>
#include <map>
#include <vector>

namespace tool {
namespace {

using observer::RecordedCall;
using observer::RecordedExport;

using Calls = std::map<std::string, std::vector<const RecordedExport*>>;

Calls CallsOf(const observer::Recording& recording) {
    Calls calls;
    for (const RecordedExport& each : recording.Exports()) {
        calls[KeyOf(each.name, each.arguments)].push_back(&each);
    }
    return calls;
}

bool IsSame(const RecordedCall& left, const RecordedCall& right) {
    return left.operation == right.operation && left.inputs == right.inputs && left.ended == right.ended &&
           left.outputs == right.outputs && left.result == right.result &&
           left.lastError == right.lastError && left.outOfMemory == right.outOfMemory;
}

std::string TextOf(const RecordedCall& call) {
    return Printed(observer::Record{.operation = call.operation,
                                    .inputs = call.inputs,
                                    .outputs = call.outputs,
                                    .result = call.result,
                                    .outOfMemory = call.outOfMemory,
                                    .lastError = call.lastError});
}

/// "line 12 RegOpenKeyExW ..."
std::string CallAt(const RecordedExport& recorded, std::size_t place) {
    return place < recorded.calls.size()
               ? "line " + std::to_string(recorded.calls[place].line) + ' ' + TextOf(recorded.calls[place])
               : "no further call";
}

/// Whether the call reads the EC's identity from the registry, where the library caches it.
bool ReadsCachedIdentity(const RecordedExport& recorded, std::size_t place) {
    constexpr std::array<std::u16string_view, 3> Names{u"EcFwRev", u"EcChipId", u"EcChipName"};
    if (place >= recorded.calls.size() ||
        recorded.calls[place].operation != observer::Operation::RegQueryValueExW) {
        return false;
    }
    const observer::Value* const name = Find(recorded.calls[place].inputs, "name");
    const auto* const text = name == nullptr ? nullptr : std::get_if<std::u16string>(&name->held);
    return text != nullptr && std::ranges::find(Names, *text) != Names.end();
}

/// Empty where the two are the same.
std::string DifferenceOf(const RecordedExport& before, const RecordedExport& after) {
    std::string text;
    if (before.result != after.result) {
        text = "result " + Printed(before.result) + " -> " + Printed(after.result);
    }
    for (const observer::Field& buffer : before.buffers) {
        const observer::Value* const other = Find(after.buffers, buffer.name);
        if (other != nullptr && *other != buffer.value) {
            text.append(text.empty() ? "" : "; ").append(buffer.name).append(1, ' ');
            text.append(Printed(buffer.value)).append(" -> ").append(Printed(*other));
        }
    }
    const auto [left, right] = std::ranges::mismatch(before.calls, after.calls, IsSame);
    const auto place = static_cast<std::size_t>(left - before.calls.begin());
    if (left != before.calls.end() || right != after.calls.end()) {
        text.append(text.empty() ? "" : "; ");
        text += ReadsCachedIdentity(before, place) && ReadsCachedIdentity(after, place)
                    ? "the EC's identity was in the registry for one and read from the EC for the other, at "
                    : "calls differ from ";
        text.append(CallAt(before, place)).append(" -> ").append(CallAt(after, place));
    }
    return text;
}

void AddLine(std::string& lines, const std::string& key, const std::string& text) {
    const std::string_view shown =
        key.ends_with("{}") ? std::string_view(key).substr(0, key.size() - 2) : key;
    lines.append(OnOneLine(shown)).append(": ").append(OnOneLine(text)).append(1, '\n');
}

} // namespace

std::string RecordingDifferences(const std::string& beforeFile, const std::string& afterFile) {
    const auto before = LoadRecording(beforeFile);
    const auto after = LoadRecording(afterFile);
    Calls left = CallsOf(*before);
    Calls right = CallsOf(*after);
    std::string lines;
    for (const auto& [key, calls] : left) {
        const std::vector<const RecordedExport*>& others = right[key];
        for (std::size_t k = 0; k < std::min(calls.size(), others.size()); ++k) {
            if (const std::string text = DifferenceOf(*calls[k], *others[k]); !text.empty()) {
                AddLine(lines, key, text);
            }
        }
    }
    for (const auto& [key, others] : right) {
        if (const std::size_t count = left[key].size(); count != others.size()) {
            AddLine(lines, key,
                    "called " + std::to_string(count) + " -> " + std::to_string(others.size()) + " times");
        }
    }
    return lines;
}

} // namespace tool
