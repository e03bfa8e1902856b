#include "machine/models/wmi/wmi_repository.h"

#include "machine/text/folding.h"
#include "platform/wmi.h"

#include <algorithm>

namespace machine {
namespace {

/// The properties that may identify an instance in its path, in this order.
constexpr std::u16string_view KeyProperties[] = {u"InstanceName", u"DeviceID", u"ObjectId", u"Name"};

std::u16string QuotedForPath(const std::u16string& text) {
    std::u16string quoted;
    for (const char16_t unit : text) {
        if (unit == u'"' || unit == u'\\') {
            quoted += u'\\';
        }
        quoted += unit;
    }
    return quoted;
}

std::u16string PathOf(const std::u16string& space, const std::u16string& className, const WmiRow& row) {
    std::u16string path = u"\\\\.\\" + space + u':' + className;
    for (const std::u16string_view key : KeyProperties) {
        const auto found = row.find(Folded(key));
        if (found == row.end()) {
            continue;
        }
        if (const auto* text = std::get_if<std::u16string>(&found->second.value)) {
            return path.append(u".").append(key) + u"=\"" + QuotedForPath(*text) + u'"';
        }
    }
    return path + u"=@";
}

std::shared_ptr<WmiClass> MakeClass(const std::u16string& space, const WmiClassProfile& profile) {
    auto made = std::make_shared<WmiClass>();
    made->name = profile.name;
    made->instances.reserve(profile.rows.size());
    for (const WmiRow& row : profile.rows) {
        WmiInstance& instance = made->instances.emplace_back();
        for (const auto& [name, datum] : row) {
            const std::u16string folded = Folded(name);
            made->propertyNames.insert(folded);
            instance.properties[folded] = datum;
        }
        instance.path = PathOf(space, profile.name, instance.properties);
    }
    return made;
}

bool Matches(const WmiInstance& instance, const std::vector<WqlCondition>& conditions) {
    return std::ranges::all_of(conditions, [&](const WqlCondition& condition) {
        const auto found = instance.properties.find(condition.property);
        return found != instance.properties.end() && condition.Holds(found->second);
    });
}

WmiQueryResult FailedQuery(platform::HResult status) {
    WmiQueryResult result;
    result.status = status;
    return result;
}

/// `\\computer\space` as `space`.
std::u16string_view WithoutComputer(std::u16string_view path) {
    if (!path.starts_with(u"\\\\")) {
        return path;
    }
    const std::size_t end = path.find(u'\\', 2);
    return end == std::u16string_view::npos ? std::u16string_view{} : path.substr(end + 1);
}

} // namespace

WmiRepository::WmiRepository(const WmiProfile& profile) {
    for (const WmiNamespaceProfile& space : profile.namespaces) {
        WmiNamespace& classes = m_namespaces[Folded(space.name)];
        for (const WmiClassProfile& row : space.classes) {
            classes[Folded(row.name)] = MakeClass(space.name, row);
        }
    }
}

const WmiNamespace* WmiRepository::FindNamespace(std::u16string_view path) const {
    const auto found = m_namespaces.find(Folded(WithoutComputer(path)));
    return found == m_namespaces.end() ? nullptr : &found->second;
}

void WmiRepository::AnswerMethods(std::u16string_view space, std::u16string_view className,
                                  WmiMethods& methods) {
    const auto classes = m_namespaces.find(Folded(space));
    if (classes == m_namespaces.end()) {
        return;
    }
    if (const auto found = classes->second.find(Folded(className)); found != classes->second.end()) {
        found->second->methods = &methods;
    }
}

void WmiRepository::Measure(std::u16string_view space, std::u16string_view className,
                            std::u16string_view property, const WmiDatum& datum) {
    const auto classes = m_namespaces.find(Folded(space));
    if (classes == m_namespaces.end()) {
        return;
    }
    const auto found = classes->second.find(Folded(className));
    if (found == classes->second.end()) {
        return;
    }
    for (WmiInstance& instance : found->second->instances) {
        if (const auto row = instance.properties.find(Folded(property)); row != instance.properties.end()) {
            row->second = datum;
        }
    }
}

WmiQueryResult WmiRepository::Run(const WmiNamespace& space, std::u16string_view query) {
    auto parsed = ParseWql(query);
    if (!parsed) {
        return FailedQuery(platform::wbem::InvalidQuery);
    }
    const auto found = space.find(Folded(parsed->className));
    if (found == space.end()) {
        return FailedQuery(platform::wbem::InvalidClass);
    }
    WmiQueryResult result;
    result.source = found->second;
    for (WqlCondition& condition : parsed->conditions) {
        condition.property = Folded(condition.property);
        if (!result.source->instances.empty() && !result.source->propertyNames.contains(condition.property)) {
            return FailedQuery(platform::wbem::InvalidQuery);
        }
    }
    for (const std::u16string& name : parsed->selected) {
        result.selected.push_back(Folded(name));
    }
    for (std::size_t row = 0; row < result.source->instances.size(); ++row) {
        if (Matches(result.source->instances[row], parsed->conditions)) {
            result.rows.push_back(row);
        }
    }
    return result;
}

std::shared_ptr<WmiClass> WmiRepository::FindInstance(const WmiNamespace& space, std::u16string_view path) {
    for (const auto& [name, row] : space) {
        if (std::ranges::any_of(row->instances, [&](const WmiInstance& instance) {
                return Folded(instance.path) == Folded(path);
            })) {
            return row;
        }
    }
    return nullptr;
}

platform::HResult WbemThing::Put(std::u16string_view, std::u16string_view, std::int32_t) {
    return platform::wbem::AccessDenied;
}

} // namespace machine
