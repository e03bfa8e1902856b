#include "recordings/recording_diff.h"

#include "base/text.h"
#include "observer/record.h"
#include "platform/support/product_key.h"
#include "recordings/recording_file.h"

#include <algorithm>
#include <array>
#include <map>
#include <vector>

namespace tool {
namespace {

using observer::RecordedCall;
using observer::RecordedExport;
using observer::Recording;

using CallList = std::map<std::string, std::vector<const RecordedExport*>>;

CallList CallsOf(const Recording& recording) {
    CallList calls;
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

/// Whether the call looks for the EC's identity in the registry, where the library caches it.
bool LooksForCachedIdentity(const RecordedExport& recorded, std::size_t place) {
    constexpr std::array<std::u16string_view, 4> Names{u"EcFwRev", u"EcChipId", u"EcChipName",
                                                       platform::ProductKey};
    if (place >= recorded.calls.size()) {
        return false;
    }
    const RecordedCall& call = recorded.calls[place];
    const observer::Value* const name =
        Find(call.inputs, call.operation == observer::Operation::RegQueryValueExW ? "name" : "path");
    const auto* const text = name == nullptr ? nullptr : std::get_if<std::u16string>(&name->held);
    return text != nullptr && std::ranges::find(Names, *text) != Names.end();
}

/// "from the registry" or "from the EC", as the header of the call's part says.
std::string_view IdentityOf(const Recording& recording, const RecordedExport& recorded) {
    const observer::Value* const identity = Find(recording.Header(recorded.part), "identity");
    const auto* const source = identity == nullptr ? nullptr : std::get_if<std::u16string>(&identity->held);
    if (source == nullptr) {
        return "from an unknown place";
    }
    return *source == u"registry" ? "from the registry" : "from the EC";
}

/// Why two export calls begin to differ at this call.
std::string ReasonOf(std::string_view before, std::string_view after, bool identityCalls) {
    if (before == after || !identityCalls) {
        return "calls differ from ";
    }
    return std::string("the EC's identity came ").append(before).append(" -> ").append(after) + ", at ";
}

/// Empty where the two are the same.
std::string DifferenceOf(const RecordedExport& before, std::string_view identityBefore,
                         const RecordedExport& after, std::string_view identityAfter) {
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
        text += ReasonOf(identityBefore, identityAfter,
                         LooksForCachedIdentity(before, place) || LooksForCachedIdentity(after, place));
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
    CallList left = CallsOf(*before);
    CallList right = CallsOf(*after);
    std::string lines;
    for (const auto& [key, calls] : left) {
        const std::vector<const RecordedExport*>& others = right[key];
        for (std::size_t k = 0; k < std::min(calls.size(), others.size()); ++k) {
            const std::string text = DifferenceOf(*calls[k], IdentityOf(*before, *calls[k]), *others[k],
                                                  IdentityOf(*after, *others[k]));
            if (!text.empty()) {
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
