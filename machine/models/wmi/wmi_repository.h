// The WMI service of the simulated machine: namespaces, classes, instances, queries and methods.
#pragma once

#include "machine/profile/sections/wmi_profile.h"
#include "platform/types.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace machine {

/// A method of a class, implemented by a model.
struct WmiMethod {
    std::vector<std::u16string> inputs;
    /// Carries it out. `in` has the inputs by folded name; one that was not put has no value.
    std::function<platform::HResult(const WmiRow& in, WmiRow& out)> execute;
};

using WmiMethods = std::map<std::u16string, WmiMethod>; // by folded name

/// A class with its instances, whose properties are known by their folded names.
struct WmiClass {
    WmiRow definition;             // the properties of all instances together, without values
    std::vector<WmiRow> instances; // each with all properties
    WmiMethods methods;
};

/// A namespace's classes, by folded name.
using WmiNamespace = std::map<std::u16string, WmiClass>;

/// A row with its properties' names folded.
WmiRow FoldedRow(const WmiRow& row);

// The objects of the service. They refer to the repository, which lives as long as the machine does.

struct WbemServicesObject {
    const WmiNamespace* space;
};

/// The result of a query. As with the real service, a query that cannot be carried out starts all the same and fails
/// with the first row.
struct WbemRowsObject {
    platform::HResult status = 0;
    std::vector<const WmiRow*> rows{};
    std::size_t next = 0;
};

/// An instance, a class's definition, or the inputs or outputs of a method.
struct WbemClassObject {
    WmiRow properties;                    // by folded name
    const WmiClass* definition = nullptr; // of a class's definition
    bool isInputs = false;

    /// Null for a property that it does not have.
    [[nodiscard]] WmiDatum* Find(std::u16string_view name);
};

class WmiRepository {
public:
    explicit WmiRepository(const WmiProfile& profile);

    /// A namespace by its path, which may begin with a computer's name; null when there is none.
    [[nodiscard]] const WmiNamespace* FindNamespace(std::u16string_view path) const;

    /// Lets a model implement a class's methods, if the profile has that class.
    void SetMethods(std::u16string_view space, std::u16string_view className, WmiMethods methods);

    /// Changes a property in all instances of a class that have a value for it.
    void Measure(std::u16string_view space, std::u16string_view className, std::u16string_view property,
                 const WmiDatum& datum);

    static WbemRowsObject Run(const WmiNamespace& space, std::u16string_view query);

    /// The class of the instance with this path; null when there is no such instance.
    static const WmiClass* ClassOfInstance(const WmiNamespace& space, std::u16string_view path);

private:
    WmiClass* FindClass(std::u16string_view space, std::u16string_view className);

    std::map<std::u16string, WmiNamespace> m_namespaces; // by folded path
};

} // namespace machine
