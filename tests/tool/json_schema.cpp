#include "json_schema.h"

#include <nlohmann/json.hpp>
#include <valijson/adapters/nlohmann_json_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

namespace test {

using valijson::adapters::NlohmannJsonAdapter;

struct JsonSchema::Compiled {
    valijson::Schema schema;
};

JsonSchema::JsonSchema(const nlohmann::json& schema) : m_compiled(std::make_unique<Compiled>()) {
    valijson::SchemaParser().populateSchema(NlohmannJsonAdapter(schema), m_compiled->schema);
}

JsonSchema::~JsonSchema() = default;

std::string JsonSchema::ErrorsIn(const nlohmann::json& document) const {
    valijson::ValidationResults results;
    valijson::Validator validator;
    if (validator.validate(m_compiled->schema, NlohmannJsonAdapter(document), &results)) {
        return {};
    }
    std::string errors;
    for (valijson::ValidationResults::Error error; results.popError(error);) {
        for (const std::string& step : error.context) {
            errors += step;
        }
        errors += ": " + error.description + '\n';
    }
    return errors.empty() ? "refused" : errors;
}

} // namespace test
