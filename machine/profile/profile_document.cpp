#include "machine/profile/profile_document.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <stdexcept>

namespace machine {
namespace {

using nlohmann::json;

constexpr std::size_t DeepestNesting = 64;

/// Follows the parser through a document.
class DocumentCheck final : public nlohmann::json_sax<json> {
public:
    explicit DocumentCheck(ProfileIssues& issues) : m_issues(issues) {}

    [[nodiscard]] bool NestsTooDeep() const { return m_levels.size() > DeepestNesting; }

    bool null() override { return Value(); }

    bool boolean(bool) override { return Value(); }

    bool number_integer(number_integer_t) override { return Value(); }

    bool number_unsigned(number_unsigned_t) override { return Value(); }

    bool number_float(number_float_t, const string_t&) override { return Value(); }

    bool string(string_t&) override { return Value(); }

    bool binary(binary_t&) override { return Value(); }

    bool start_object(std::size_t) override { return Open(false); }

    bool end_object() override { return Close(); }

    bool start_array(std::size_t) override { return Open(true); }

    bool end_array() override { return Close(); }

    bool key(string_t& name) override {
        Level& level = m_levels.back();
        level.pointer = level.parent + '/' + PointerPart(name);
        if (!level.names.insert(name).second) {
            m_issues.push_back({level.pointer, "is in this object twice"});
        }
        return true;
    }

    bool parse_error(std::size_t position, const std::string&, const json::exception& problem) override {
        // "[json.exception.parse_error.101] parse error at line 3, column 5: syntax error while ..."
        std::string_view reason = problem.what();
        reason.remove_prefix(std::min(reason.find("] ") + 2, reason.size()));
        if (reason.starts_with("parse error at ")) {
            reason.remove_prefix(std::min(reason.find(": ") + 2, reason.size()));
        }
        m_issues.push_back({"",
                            "not a JSON document: " + std::string(reason),
                            {},
                            position - std::min<std::size_t>(position, 1)});
        return false;
    }

private:
    struct Level {
        std::string parent;
        bool isList = false;
        std::size_t index = 0;
        std::string pointer{}; // of the present member
        std::set<std::string> names{};
    };

    /// Each value of a list has the next index.
    bool Value() {
        if (!m_levels.empty() && m_levels.back().isList) {
            Level& level = m_levels.back();
            level.pointer = level.parent + '/' + std::to_string(level.index++);
        }
        return true;
    }

    bool Open(bool isList) {
        Value();
        m_levels.push_back({m_levels.empty() ? std::string() : m_levels.back().pointer, isList});
        return !NestsTooDeep();
    }

    bool Close() {
        m_levels.pop_back();
        return true;
    }

    ProfileIssues& m_issues;
    std::vector<Level> m_levels;
};

} // namespace

bool NestsTooDeep(std::string_view text) {
    ProfileIssues ignored;
    DocumentCheck check(ignored);
    json::sax_parse(text, &check);
    return check.NestsTooDeep();
}

std::optional<json> ReadDocument(std::string_view text, ProfileIssues& issues) {
    DocumentCheck check(issues);
    if (json::sax_parse(text, &check)) {
        return json::parse(text);
    }
    if (check.NestsTooDeep()) {
        issues.push_back({"", "nested deeper than any profile"});
    }
    return std::nullopt;
}

std::string ReadProfileFile(const std::string& utf8Path) {
    namespace fs = std::filesystem;
    const fs::path path(std::u8string(utf8Path.begin(), utf8Path.end()));
    std::error_code problem;
    const fs::file_status status = fs::status(path, problem);
    if (!fs::exists(status)) {
        throw std::runtime_error("no such file");
    }
    if (!fs::is_regular_file(status)) {
        throw std::runtime_error("not a regular file");
    }
    const std::uintmax_t size = fs::file_size(path, problem);
    if (!problem && size > LargestProfile) {
        throw std::runtime_error("larger than " + std::to_string(LargestProfile) + " bytes");
    }
    std::ifstream file(path, std::ios::binary);
    std::string text(problem ? 0 : static_cast<std::size_t>(size), '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (problem || !file) {
        throw std::runtime_error("cannot be read");
    }
    return text;
}

} // namespace machine
