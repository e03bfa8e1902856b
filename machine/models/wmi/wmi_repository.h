// The WMI service of the simulated machine: namespaces, classes, instances, queries and methods.
#pragma once

#include "machine/models/com/com_objects.h"
#include "machine/models/wmi/wql.h"
#include "machine/profile/sections/wmi_profile.h"
#include "platform/types.h"

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace machine {

/// The arguments of a method, by name as its definition spells them. Each is an unsigned 32-bit number.
using WmiArguments = std::map<std::u16string, std::uint32_t>;

struct WmiMethodAnswer {
    platform::HResult status = 0;
    /// The method's outputs; none for a method that returns no object.
    std::optional<WmiRow> out;
};

/// The methods of a class, implemented by a model.
class WmiMethods {
public:
    WmiMethods() = default;
    WmiMethods(const WmiMethods&) = delete;
    WmiMethods& operator=(const WmiMethods&) = delete;
    virtual ~WmiMethods() = default;

    /// The names of a method's inputs; nothing when there is no such method. Methods are known without regard
    /// to case.
    [[nodiscard]] virtual std::optional<std::vector<std::u16string>>
    Inputs(std::u16string_view method) const = 0;

    /// Carries a method out on the instance with this path. An input that was not put is missing in `in`.
    virtual WmiMethodAnswer Execute(std::u16string_view instance, std::u16string_view method,
                                    const WmiArguments& in) = 0;
};

/// An instance as a query returns it.
struct WmiInstance {
    WmiRow properties; // by folded name
    std::u16string path;
};

/// A class with its instances, shared by every object made from it.
struct WmiClass {
    std::u16string name;
    std::set<std::u16string> propertyNames; // folded; of all instances together
    std::vector<WmiInstance> instances;
    WmiMethods* methods = nullptr;
};

/// A namespace's classes, by folded name.
using WmiNamespace = std::map<std::u16string, std::shared_ptr<WmiClass>>;

/// The result of a query. As with the real service, a query that cannot be carried out starts all the same and fails
/// with the first row.
struct WmiQueryResult {
    platform::HResult status = 0;
    std::vector<std::u16string> selected; // folded; empty: every property
    std::shared_ptr<const WmiClass> source;
    std::vector<std::size_t> rows; // numbers of instances
};

class WmiRepository {
public:
    explicit WmiRepository(const WmiProfile& profile);

    /// A namespace by its path, which may begin with a computer's name; null when there is none.
    [[nodiscard]] const WmiNamespace* FindNamespace(std::u16string_view path) const;

    /// Lets a model implement a class's methods, if the profile has that class.
    void AnswerMethods(std::u16string_view space, std::u16string_view className, WmiMethods& methods);

    /// Changes a property in all instances of a class that have it.
    void Measure(std::u16string_view space, std::u16string_view className, std::u16string_view property,
                 const WmiDatum& datum);

    static WmiQueryResult Run(const WmiNamespace& space, std::u16string_view query);

    /// The class of the instance with this path; null when there is no such instance.
    static std::shared_ptr<WmiClass> FindInstance(const WmiNamespace& space, std::u16string_view path);

private:
    std::map<std::u16string, WmiNamespace> m_namespaces; // by folded path
};

/// Every object of the service that has properties: an instance, a class, the arguments of a method.
class WbemThing : public ComObject {
public:
    [[nodiscard]] std::string_view InterfaceName() const override { return "IWbemClassObject"; }

    virtual platform::HResult Get(std::u16string_view name, WmiDatum& datum) const = 0;
    virtual platform::HResult Put(std::u16string_view name, std::u16string_view text, std::int32_t cimType);
};

} // namespace machine
