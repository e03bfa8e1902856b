#include "machines/profile_check.h"

#include "base/embedded_texts.h"
#include "base/text.h"
#include "machines/json_depth.h"
#include "machines/profile_formats.h"

#include <nlohmann/json.hpp>
#include <valijson/adapters/nlohmann_json_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>

#include <algorithm>
#include <set>
#include <utility>

namespace tool {
namespace {

using Json = nlohmann::json;

/// Where something is wrong: the names and indices on the way there.
using Path = std::vector<std::string>;

const Json& TheSchema() {
    static const Json Schema = Json::parse(ProfileSchemaText());
    return Schema;
}

std::string PointerOf(const Path& path) {
    std::string pointer;
    for (const std::string& part : path) {
        pointer.append(1, '/').append(PointerPart(part));
    }
    return pointer;
}

/// The schema's node, behind a reference.
const Json& Resolved(const Json& node) {
    const auto reference = node.find("$ref");
    return reference == node.end()
               ? node
               : TheSchema().at(Json::json_pointer(reference->get<std::string>().substr(1)));
}

/// What the schema says of a member or element; null where it says nothing of its own.
const Json* Below(const Json& node, const std::string& part) {
    if (const auto properties = node.find("properties");
        properties != node.end() && properties->contains(part)) {
        return &Resolved(properties->at(part));
    }
    for (const char* const others : {"additionalProperties", "items"}) {
        if (const auto found = node.find(others); found != node.end() && found->is_object()) {
            return &Resolved(*found);
        }
    }
    return nullptr;
}

/// A place of the profile and what the schema says of it.
struct Spot {
    Path path;
    const Json* value;
    const Json* node;
};

/// As far along a path as the schema has a word for it: alternatives are worded as a whole.
Spot SpotAt(const Json& profile, const Path& path) {
    Spot spot{{}, &profile, &TheSchema()};
    for (const std::string& part : path) {
        const Json* const node = Below(*spot.node, part);
        if (node == nullptr || (spot.value->is_object() && !spot.value->contains(part))) {
            break;
        }
        spot.value = spot.value->is_object() ? &spot.value->at(part) : &spot.value->at(std::stoul(part));
        spot.node = node;
        spot.path.push_back(part);
    }
    return spot;
}

/// Where the validator stumbled. It names a place as "<root>", "[ec]", "[fans]", "[0]".
std::set<Path> WrongPlaces(const Json& profile) {
    valijson::Schema schema;
    valijson::SchemaParser parser;
    parser.populateSchema(valijson::adapters::NlohmannJsonAdapter(TheSchema()), schema);
    valijson::Validator validator;
    valijson::ValidationResults results;
    validator.validate(schema, valijson::adapters::NlohmannJsonAdapter(profile), &results);
    std::set<Path> places;
    for (const auto& error : results) {
        Path path;
        for (std::size_t part = 1; part < error.context.size(); ++part) {
            path.push_back(error.context[part].substr(1, error.context[part].size() - 2));
        }
        places.insert(SpotAt(profile, path).path);
    }
    const std::set<Path> formats = WrongFormats(profile, TheSchema());
    for (const Path& path : formats) {
        places.insert(SpotAt(profile, path).path);
    }
    return places;
}

bool HasWrongPlaceBelow(const std::set<Path>& places, const Path& path) {
    const auto next = places.upper_bound(path); // what is below it follows it
    return next != places.end() && next->size() > path.size() &&
           std::equal(path.begin(), path.end(), next->begin());
}

std::string ExpectedAt(const Json& node) {
    return std::string("expected ").append(node.value("description", "something else"));
}

class Checker {
public:
    explicit Checker(std::string_view text) : m_places(text) {}

    void Check(const Json& profile) {
        for (const std::string& pointer : m_places.Twice()) {
            Add(pointer, "stands here twice");
        }
        const std::set<Path> places = WrongPlaces(profile);
        for (const Path& path : places) {
            const Spot spot = SpotAt(profile, path);
            const bool named =
                spot.value->is_object() && spot.node->contains("properties") && CheckNames(spot);
            if (!named && !HasWrongPlaceBelow(places, path)) {
                Add(PointerOf(path), ExpectedAt(*spot.node));
            }
        }
        for (const std::string& pointer : FieldsBeyondTheirVariables(profile)) {
            Add(pointer, "expected a field that ends within the variable");
        }
    }

    std::vector<Mistake> Take() {
        std::ranges::stable_sort(m_mistakes, {}, [](const Mistake& mistake) {
            return std::pair(mistake.place.line, mistake.place.column);
        });
        return std::move(m_mistakes);
    }

private:
    void Add(const std::string& pointer, const std::string& text) {
        m_mistakes.push_back(
            {m_places.Of(pointer), OnOneLine((pointer.empty() ? "/" : pointer) + ": " + text)});
    }

    /// Names that the schema does not know, or misses. False if the object's names are not its trouble.
    bool CheckNames(const Spot& spot) {
        const Json& properties = spot.node->at("properties");
        const std::string pointer = PointerOf(spot.path);
        const std::size_t before = m_mistakes.size();
        std::vector<std::string_view> known;
        for (const auto& [name, node] : properties.items()) {
            known.push_back(name);
        }
        for (const auto& [name, value] : spot.value->items()) {
            if (!properties.contains(name)) {
                Add(pointer + '/' + PointerPart(name),
                    std::string("unknown name; ").append(Suggestion(name, known)));
            }
        }
        for (const auto& name : spot.node->value("required", Json::array())) {
            const auto text = name.get<std::string>();
            if (!spot.value->contains(text)) {
                Add(pointer, std::string(1, '"')
                                 .append(text)
                                 .append("\" is missing: ")
                                 .append(ExpectedAt(Resolved(properties.at(text)))));
            }
        }
        return m_mistakes.size() != before;
    }

    static std::string Suggestion(const std::string& name, const std::vector<std::string_view>& known) {
        if (const std::string_view nearest = Nearest(name, known); !nearest.empty()) {
            return std::string("did you mean \"").append(nearest).append("\"?");
        }
        std::string all;
        for (const std::string_view each : known) {
            all.append(all.empty() ? "" : ", ").append(each);
        }
        return std::string("expected one of ").append(all);
    }

    JsonPlaces m_places;
    std::vector<Mistake> m_mistakes;
};

} // namespace

std::vector<Mistake> MistakesOf(std::string_view text) {
    if (NestsTooDeep(text)) {
        return {{{}, "/: nested deeper than any profile"}};
    }
    Json profile;
    try {
        profile = Json::parse(text);
    } catch (const Json::parse_error& problem) {
        // "[json.exception.parse_error.101] parse error at line 3, column 5: syntax error while ..."
        const std::string_view whole = problem.what();
        const std::size_t reason = whole.find(": ");
        const std::size_t byte = problem.byte != 0 ? problem.byte - 1 : 0;
        return {{PlaceOfByte(text, byte),
                 OnOneLine(std::string("no well-formed JSON: ")
                               .append(whole.substr(reason == std::string_view::npos ? 0 : reason + 2)))}};
    } catch (const Json::out_of_range& problem) {
        // "[json.exception.out_of_range.406] number overflow parsing '1e999'"
        const std::vector<std::string_view> parts = Split(problem.what(), '\'');
        const std::string_view number = parts.size() == 3 ? parts[1] : std::string_view();
        return {{PlaceOfByte(text, text.find(number)), "a number beyond all that any field takes"}};
    }
    Checker checker(text);
    checker.Check(profile);
    return checker.Take();
}

} // namespace tool
