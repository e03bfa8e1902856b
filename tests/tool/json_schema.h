// A published schema.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include <memory>
#include <string>

namespace test {

class JsonSchema {
public:
    explicit JsonSchema(const nlohmann::json& schema);
    JsonSchema(const JsonSchema&) = delete;
    JsonSchema& operator=(const JsonSchema&) = delete;
    ~JsonSchema();

    /// Empty if it accepts the document.
    [[nodiscard]] std::string ErrorsIn(const nlohmann::json& document) const;

private:
    struct Compiled;
    std::unique_ptr<Compiled> m_compiled;
};

} // namespace test
