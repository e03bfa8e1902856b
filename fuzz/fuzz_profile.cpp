// Machine profiles of any text: each has errors with places, or a machine starts with its files below its root.
#include "harness.h"

#include "machine/models/storage/file_system.h"
#include "machine/models/storage/machine_path.h"
#include "machine/profile/profile_reader.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    machine::ProfileIssues issues;
    machine::Profile profile = machine::ReadProfile(text, issues);
    for (const machine::ProfileIssue& issue : issues) {
        fuzz::Demand(!issue.message.empty() && issue.byte.value_or(0) <= size);
        fuzz::Demand(issue.pointer.empty() || issue.pointer.starts_with('/'));
    }
    if (!issues.empty()) {
        return 0;
    }
    const auto files = profile.files.files;
    for (const machine::FileProfile& file : files) {
        const auto names = machine::NamesBelowRoot(file.path);
        fuzz::Demand(names.front().size() == 1 && std::ranges::find(names, "..") == names.end());
    }
    machine::Start(std::move(profile), ":memory:");
    try {
        if (!files.empty()) {
            machine::Current()->storage.files->HostPath(u"C:\\"); // creates them
        }
    } catch (const machine::StoreError&) { // one file within another, or a name that the host does not allow
    }
    return 0;
}
