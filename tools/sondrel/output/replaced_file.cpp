#include "output/replaced_file.h"

#include "base/error.h"
#include "base/system.h"
#include "base/text.h"
#include "terminal/interrupt.h"

#include <fstream>

namespace tool {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void ThrowCannotWrite(const fs::path& file, std::string_view reason = {}) {
    std::string text = OnOneLine(Utf8Of(file));
    text.append(": cannot be written").append(reason.empty() ? "" : ": ").append(reason);
    throw Error(text);
}

/// The target of a link, so that the link stays one.
fs::path TargetOf(const fs::path& file) {
    std::error_code problem;
    const fs::path target = fs::weakly_canonical(file, problem);
    return problem ? file : target;
}

} // namespace

ReplacedFile::ReplacedFile(fs::path file) : m_file(TargetOf(file)), m_draft(m_file) {
    std::error_code problem;
    const fs::file_status present = fs::status(m_file, problem);
    if (fs::is_directory(present)) {
        ThrowCannotWrite(m_file, "it is a directory");
    }
    if (fs::exists(present)) {
        m_permissions = present.permissions();
    }
    if (!fs::exists(present) || fs::is_regular_file(present)) {
        m_draft += ".";
        m_draft += std::to_string(host_system::ProcessId()).append(".new");
        interrupt::RemoveWhenForced(m_draft);
        if (!std::ofstream(m_draft, std::ios::binary)) {
            interrupt::RemoveWhenForced({});
            ThrowCannotWrite(m_file);
        }
    }
}

ReplacedFile::~ReplacedFile() {
    if (m_draft != m_file) {
        std::error_code problem;
        fs::remove(m_draft, problem);
        interrupt::RemoveWhenForced({});
    }
}

void ReplacedFile::Write(std::string_view text) {
    std::ofstream out(m_draft, std::ios::binary);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    out.close();
    if (!out) {
        ThrowCannotWrite(m_file);
    }
    if (m_draft == m_file) {
        return;
    }
    std::error_code problem;
    if (m_permissions != fs::perms::unknown) {
        fs::permissions(m_draft, m_permissions, problem);
    }
    host_system::FlushToDisk(m_draft);
    interrupt::Check();
    fs::rename(m_draft, m_file, problem);
    if (problem) {
        ThrowCannotWrite(m_file, problem.message());
    }
}

} // namespace tool
