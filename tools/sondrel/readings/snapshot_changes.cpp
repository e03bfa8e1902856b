#include "readings/snapshot_changes.h"

#include "base/text.h"

#include <algorithm>
#include <map>

namespace tool {
namespace {

using Json = nlohmann::json;

/// Members that identify the elements of a list, the best one first.
constexpr std::string_view KeyMembers[] = {"name", "application", "process_name", "id"};

/// Lists of the library's documents whose elements are identified by their index.
constexpr std::string_view IndexedLists[] = {"register"};

struct Element {
    std::string name; // empty if it is identified by its content
    const Json* value;
};

std::string Below(const std::string& path, std::string_view name) {
    return path.empty() ? OnOneLine(name) : (path + " / ").append(OnOneLine(name));
}

bool IsQuantity(const Json& value) {
    return value.is_number() || value.is_null();
}

class Comparison {
public:
    explicit Comparison(std::string_view elementName) : m_elementName(elementName) {}

    void Compare(const Json& before, const Json& after, const std::string& path) {
        if (before == after) {
            return;
        }
        if (before.is_object() && after.is_object()) {
            CompareMembers(before, after, path);
        } else if (before.is_array() && after.is_array()) {
            CompareLists(before, after, path);
        } else {
            m_changes.push_back({path, before, after});
        }
    }

    std::vector<Change> Take() { return std::move(m_changes); }

private:
    void CompareMembers(const Json& before, const Json& after, const std::string& path) {
        for (const auto& [name, value] : before.items()) {
            if (const auto other = after.find(name); other != after.end()) {
                Compare(value, *other, Below(path, name));
            } else {
                m_changes.push_back({Below(path, name), value, std::nullopt});
            }
        }
        for (const auto& [name, value] : after.items()) {
            if (!before.contains(name)) {
                m_changes.push_back({Below(path, name), std::nullopt, value});
            }
        }
    }

    void CompareLists(const Json& before, const Json& after, const std::string& path) {
        const bool quantities =
            std::ranges::all_of(before, IsQuantity) && std::ranges::all_of(after, IsQuantity);
        const bool indexed = std::ranges::any_of(IndexedLists, [&](std::string_view name) {
            return path == name || path.ends_with(std::string(" / ").append(name));
        });
        if (quantities || indexed) {
            CompareByIndex(before, after, path);
        } else {
            CompareElements(before, after, path);
        }
    }

    void CompareByIndex(const Json& before, const Json& after, const std::string& path) {
        for (std::size_t index = 0; index < std::max(before.size(), after.size()); ++index) {
            const std::string elementPath =
                Below(path, std::string(m_elementName) + ' ' + std::to_string(index));
            if (index >= before.size()) {
                m_changes.push_back({elementPath, std::nullopt, after[index]});
            } else if (index >= after.size()) {
                m_changes.push_back({elementPath, before[index], std::nullopt});
            } else {
                Compare(before[index], after[index], elementPath);
            }
        }
    }

    void CompareElements(const Json& before, const Json& after, const std::string& path) {
        const auto old = ByKey(before);
        const auto present = ByKey(after);
        for (const auto& [key, element] : old) {
            const std::string elementPath = element.name.empty() ? path : Below(path, element.name);
            if (const auto other = present.find(key); other != present.end()) {
                Compare(*element.value, *other->second.value, elementPath);
            } else {
                m_changes.push_back({elementPath, *element.value, std::nullopt});
            }
        }
        for (const auto& [key, element] : present) {
            if (!old.contains(key)) {
                m_changes.push_back(
                    {element.name.empty() ? path : Below(path, element.name), std::nullopt, *element.value});
            }
        }
    }

    static Element ElementOf(const Json& element) {
        if (!element.is_object()) {
            return {"", &element};
        }
        for (const std::string_view name : KeyMembers) {
            const auto member = element.find(name);
            if (member != element.end() && !member->is_structured()) {
                return {member->is_string() ? member->get<std::string>() : member->dump(), &element};
            }
        }
        // {"machine": [...]}: the name of the only member identifies it.
        return element.size() == 1 ? Element{element.begin().key(), &element.front()} : Element{"", &element};
    }

    /// The elements by what identifies them. Equal ones are counted.
    static std::map<std::pair<std::string, std::size_t>, Element> ByKey(const Json& list) {
        std::map<std::pair<std::string, std::size_t>, Element> elements;
        std::map<std::string, std::size_t> uses;
        for (const Json& each : list) {
            Element element = ElementOf(each);
            const std::string key =
                element.name.empty() ? std::string(1, '\0').append(each.dump()) : element.name;
            const std::size_t use = uses[key]++;
            if (use != 0 && !element.name.empty()) {
                element.name.append(" #").append(std::to_string(use + 1));
            }
            elements.emplace(std::pair(key, use), std::move(element));
        }
        return elements;
    }

    std::string_view m_elementName;
    std::vector<Change> m_changes;
};

} // namespace

std::vector<Change> ChangesBetween(const Json& before, const Json& after, std::string_view elementName) {
    Comparison comparison(elementName);
    comparison.Compare(before, after, "");
    return comparison.Take();
}

} // namespace tool
