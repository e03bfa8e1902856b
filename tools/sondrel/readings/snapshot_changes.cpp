#include "readings/snapshot_changes.h"

#include "base/text.h"

#include <algorithm>
#include <map>

namespace tool {
namespace {

using Json = nlohmann::json;

/// Members that tell the elements of a list apart, the best one first.
constexpr std::string_view KeyMembers[] = {"name", "application", "process_name", "id"};

/// Lists of the library's documents whose elements mean something by their places.
constexpr std::string_view PlacedLists[] = {"register"};

struct Element {
    std::string shown; // how its place is called; empty where it is told by its content
    const Json* value;
};

std::string Below(const std::string& place, std::string_view name) {
    return place.empty() ? OnOneLine(name) : (place + " / ").append(OnOneLine(name));
}

bool IsQuantity(const Json& value) {
    return value.is_number() || value.is_null();
}

class Comparison {
public:
    explicit Comparison(std::string_view placeName) : m_placeName(placeName) {}

    void Compare(const Json& before, const Json& after, const std::string& place) {
        if (before == after) {
            return;
        }
        if (before.is_object() && after.is_object()) {
            CompareMembers(before, after, place);
        } else if (before.is_array() && after.is_array()) {
            CompareLists(before, after, place);
        } else {
            m_changes.push_back({place, before, after});
        }
    }

    std::vector<Change> Take() { return std::move(m_changes); }

private:
    void CompareMembers(const Json& before, const Json& after, const std::string& place) {
        for (const auto& [name, value] : before.items()) {
            if (const auto other = after.find(name); other != after.end()) {
                Compare(value, *other, Below(place, name));
            } else {
                m_changes.push_back({Below(place, name), value, std::nullopt});
            }
        }
        for (const auto& [name, value] : after.items()) {
            if (!before.contains(name)) {
                m_changes.push_back({Below(place, name), std::nullopt, value});
            }
        }
    }

    void CompareLists(const Json& before, const Json& after, const std::string& place) {
        const bool quantities =
            std::ranges::all_of(before, IsQuantity) && std::ranges::all_of(after, IsQuantity);
        const bool placed = std::ranges::any_of(PlacedLists, [&](std::string_view name) {
            return place == name || place.ends_with(std::string(" / ").append(name));
        });
        if (quantities || placed) {
            ComparePlaces(before, after, place);
        } else {
            CompareElements(before, after, place);
        }
    }

    void ComparePlaces(const Json& before, const Json& after, const std::string& place) {
        for (std::size_t index = 0; index < std::max(before.size(), after.size()); ++index) {
            const std::string here = Below(place, std::string(m_placeName) + ' ' + std::to_string(index));
            if (index >= before.size()) {
                m_changes.push_back({here, std::nullopt, after[index]});
            } else if (index >= after.size()) {
                m_changes.push_back({here, before[index], std::nullopt});
            } else {
                Compare(before[index], after[index], here);
            }
        }
    }

    void CompareElements(const Json& before, const Json& after, const std::string& place) {
        const auto old = ByKey(before);
        const auto fresh = ByKey(after);
        for (const auto& [key, element] : old) {
            const std::string here = element.shown.empty() ? place : Below(place, element.shown);
            if (const auto other = fresh.find(key); other != fresh.end()) {
                Compare(*element.value, *other->second.value, here);
            } else {
                m_changes.push_back({here, *element.value, std::nullopt});
            }
        }
        for (const auto& [key, element] : fresh) {
            if (!old.contains(key)) {
                m_changes.push_back({element.shown.empty() ? place : Below(place, element.shown),
                                     std::nullopt, *element.value});
            }
        }
    }

    /// What an element is called, and what is compared of it.
    static Element Told(const Json& element) {
        if (!element.is_object()) {
            return {"", &element};
        }
        for (const std::string_view name : KeyMembers) {
            const auto member = element.find(name);
            if (member != element.end() && !member->is_structured()) {
                return {member->is_string() ? member->get<std::string>() : member->dump(), &element};
            }
        }
        // {"machine": [...]}: the one member's name says which it is.
        return element.size() == 1 ? Element{element.begin().key(), &element.front()} : Element{"", &element};
    }

    /// The elements by what tells them apart. Those that are alike are counted.
    static std::map<std::pair<std::string, std::size_t>, Element> ByKey(const Json& list) {
        std::map<std::pair<std::string, std::size_t>, Element> elements;
        std::map<std::string, std::size_t> uses;
        for (const Json& each : list) {
            Element element = Told(each);
            const std::string key =
                element.shown.empty() ? std::string(1, '\0').append(each.dump()) : element.shown;
            const std::size_t use = uses[key]++;
            if (use != 0 && !element.shown.empty()) {
                element.shown.append(" #").append(std::to_string(use + 1));
            }
            elements.emplace(std::pair(key, use), std::move(element));
        }
        return elements;
    }

    std::string_view m_placeName;
    std::vector<Change> m_changes;
};

} // namespace

std::vector<Change> ChangesBetween(const Json& before, const Json& after, std::string_view placeName) {
    Comparison comparison(placeName);
    comparison.Compare(before, after, "");
    return comparison.Take();
}

} // namespace tool
