#include "machine/models/wmi/wmi_repository.h"

#include "machine/models/wmi/wql.h"
#include "machine/text/folding.h"
#include "platform/wmi.h"

#include <algorithm>
#include <utility>

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

WmiClass MakeClass(const std::u16string& space, const std::u16string& name, const std::vector<WmiRow>& rows) {
    WmiClass made;
    for (const WmiRow& row : rows) {
        WmiRow& instance = made.instances.emplace_back(FoldedRow(row));
        instance[u"__PATH"] = WmiDatum{PathOf(space, name, instance)};
        instance[u"__CLASS"] = WmiDatum{name};
        for (const auto& [property, datum] : instance) {
            made.definition.try_emplace(property);
        }
    }
    for (WmiRow& instance : made.instances) {
        instance.insert(made.definition.begin(), made.definition.end());
    }
    made.definition[u"__CLASS"] = WmiDatum{name};
    return made;
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

WmiRow FoldedRow(const WmiRow& row) {
    WmiRow folded;
    for (const auto& [name, datum] : row) {
        folded[Folded(name)] = datum;
    }
    return folded;
}

WmiDatum* WbemClassObject::Find(std::u16string_view name) {
    const auto found = properties.find(Folded(name));
    return found == properties.end() ? nullptr : &found->second;
}

WmiRepository::WmiRepository(const WmiProfile& profile) {
    for (const auto& [space, classes] : profile) {
        WmiNamespace& made = m_namespaces[Folded(space)];
        for (const auto& [name, rows] : classes) {
            made[Folded(name)] = MakeClass(space, name, rows);
        }
    }
}

const WmiNamespace* WmiRepository::FindNamespace(std::u16string_view path) const {
    const auto found = m_namespaces.find(Folded(WithoutComputer(path)));
    return found == m_namespaces.end() ? nullptr : &found->second;
}

WmiClass* WmiRepository::FindClass(std::u16string_view space, std::u16string_view className) {
    const auto classes = m_namespaces.find(Folded(space));
    if (classes == m_namespaces.end()) {
        return nullptr;
    }
    const auto found = classes->second.find(Folded(className));
    return found == classes->second.end() ? nullptr : &found->second;
}

void WmiRepository::SetMethods(std::u16string_view space, std::u16string_view className, WmiMethods methods) {
    if (WmiClass* const found = FindClass(space, className); found != nullptr) {
        found->methods = std::move(methods);
    }
}

void WmiRepository::Measure(std::u16string_view space, std::u16string_view className,
                            std::u16string_view property, const WmiDatum& datum) {
    WmiClass* const found = FindClass(space, className);
    if (found == nullptr) {
        return;
    }
    for (WmiRow& instance : found->instances) {
        if (const auto row = instance.find(Folded(property));
            row != instance.end() && row->second.value.index() != 0) {
            row->second = datum;
        }
    }
}

WbemRowsObject WmiRepository::Run(const WmiNamespace& space, std::u16string_view query) {
    auto parsed = ParseWql(query);
    if (!parsed) {
        return {platform::wbem::InvalidQuery};
    }
    const auto found = space.find(Folded(parsed->className));
    if (found == space.end()) {
        return {platform::wbem::InvalidClass};
    }
    const auto& [definition, instances, methods] = found->second;
    for (WqlCondition& condition : parsed->conditions) {
        condition.property = Folded(condition.property);
        if (!instances.empty() && !definition.contains(condition.property)) {
            return {platform::wbem::InvalidQuery};
        }
    }
    WbemRowsObject result;
    for (const WmiRow& row : instances) {
        if (std::ranges::all_of(parsed->conditions, [&](const WqlCondition& condition) {
                return condition.Holds(row.at(condition.property));
            })) {
            result.rows.push_back(&row);
        }
    }
    return result;
}

const WmiClass* WmiRepository::ClassOfInstance(const WmiNamespace& space, std::u16string_view path) {
    for (const auto& [name, each] : space) {
        for (const WmiRow& instance : each.instances) {
            if (Folded(std::get<std::u16string>(instance.at(u"__PATH").value)) == Folded(path)) {
                return &each;
            }
        }
    }
    return nullptr;
}

} // namespace machine
