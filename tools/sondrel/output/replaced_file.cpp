#include "output/replaced_file.h"

#include "base/error.h"
#include "base/new_file.h"
#include "base/text.h"
#include "terminal/interrupt.h"

#include <iostream>

namespace tool {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void ThrowCannotWrite(const fs::path& file, std::string_view reason) {
    throw Error(OnOneLine(Utf8Of(file)).append(": cannot be written: ").append(reason));
}

/// The target of a link, so that the link stays one.
fs::path TargetOf(const fs::path& file) {
    std::error_code problem;
    const fs::path target = fs::weakly_canonical(file, problem);
    return problem ? file : target;
}

/// The new content until it is in place. Its name cannot be guessed, so nothing can be prepared at that name.
class Draft {
public:
    explicit Draft(const fs::path& directory) : m_name(directory / UnguessableName("new")), m_file(m_name) {}

    NewFile* operator->() { return &m_file; }

private:
    /// The name is known to a forced end before the file exists and until it does not any more.
    struct Registered {
        explicit Registered(const fs::path& name) { interrupt::RemoveWhenForced(name); }

        Registered(const Registered&) = delete;
        Registered& operator=(const Registered&) = delete;

        ~Registered() { interrupt::RemoveWhenForced({}); }
    };

    const fs::path m_name;
    const Registered m_registered{m_name};
    NewFile m_file;
};

} // namespace

ReplacedFile::ReplacedFile(fs::path file) : m_file(TargetOf(file)), m_isStandardOutput(file == "-") {
    if (m_isStandardOutput) {
        return;
    }
    // Asked for the name as it was given: a system that does not let this user follow the link says so here.
    std::error_code problem;
    const fs::file_status present = fs::status(file, problem);
    if (problem && present.type() != fs::file_type::not_found) {
        ThrowCannotWrite(file, problem.message());
    }
    if (fs::is_directory(present)) {
        ThrowCannotWrite(m_file, "it is a directory");
    }
    m_replaced = !fs::exists(present) || fs::is_regular_file(present);
    if (m_replaced) {
        try {
            const Draft trial(m_file.parent_path());
        } catch (const Error& reason) {
            ThrowCannotWrite(m_file, reason.what());
        }
    }
}

void ReplacedFile::Write(std::string_view text) const {
    if (m_isStandardOutput) {
        std::cout << text;
        return;
    }
    try {
        if (!m_replaced) {
            WriteDirectly(m_file, text);
            return;
        }
        Draft draft(m_file.parent_path());
        draft->Write(text);
        interrupt::Check();
        draft->Replace(m_file);
    } catch (const Error& reason) {
        ThrowCannotWrite(m_file, reason.what());
    }
}

} // namespace tool
