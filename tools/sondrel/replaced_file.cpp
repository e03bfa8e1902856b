#include "replaced_file.h"

#include "system.h"
#include "text.h"
#include "trouble.h"

#include <fstream>

namespace tool {
namespace {

namespace fs = std::filesystem;

Trouble CannotWrite(const fs::path& file, const std::string& reason) {
    return Trouble(OnOneLine(Utf8Of(file)) + ": cannot be written" + (reason.empty() ? "" : ": ") + reason);
}

/// The new text beside the file, gone with its owner unless it has taken the file's place.
class Draft {
public:
    explicit Draft(const fs::path& file) : m_path(file) {
        m_path += std::to_string(host_system::ProcessNumber()).insert(0, 1, '.').append(".new");
    }

    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    ~Draft() {
        std::error_code problem;
        fs::remove(m_path, problem);
    }

    [[nodiscard]] const fs::path& Path() const { return m_path; }

private:
    fs::path m_path;
};

void Write(const fs::path& file, std::string_view text) {
    std::ofstream out(file, std::ios::binary);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    out.close();
    if (!out) {
        throw CannotWrite(file, "");
    }
}

/// Behind a link, so that the link stays one.
fs::path TargetOf(const fs::path& file) {
    std::error_code problem;
    const fs::path target = fs::weakly_canonical(file, problem);
    return problem ? file : target;
}

} // namespace

void ReplaceFile(const fs::path& file, std::string_view text) {
    const fs::path target = TargetOf(file);
    std::error_code problem;
    const fs::file_status present = fs::status(target, problem);
    if (fs::is_directory(present)) {
        throw CannotWrite(file, "it is a directory");
    }
    if (fs::exists(present) && !fs::is_regular_file(present)) {
        Write(target, text);
        return;
    }
    const Draft draft(target);
    Write(draft.Path(), text);
    if (fs::exists(present)) {
        fs::permissions(draft.Path(), present.permissions(), problem);
    }
    host_system::FlushToDisk(draft.Path());
    fs::rename(draft.Path(), target, problem);
    if (problem) {
        throw CannotWrite(file, problem.message());
    }
}

} // namespace tool
