// COM objects of the simulated machine: what an interface pointer stands for, and the classes they are made of.
#pragma once

#include "platform/com.h"

#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

namespace machine {

/// An object with one interface, counted as often as a pointer to it is out.
class ComObject {
public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;
    virtual ~ComObject() = default;

    [[nodiscard]] virtual std::string_view InterfaceName() const = 0;
};

/// A class that CoCreateInstance can make.
struct ComClass {
    platform::Guid classId;
    platform::Guid interfaceId;
    std::function<std::shared_ptr<ComObject>()> make;
};

/// The interface pointers that are out, and the classes that are registered.
class ComObjects {
public:
    void Register(ComClass row) { m_classes.push_back(std::move(row)); }

    [[nodiscard]] const ComClass* FindClass(const platform::Guid& classId) const;

    /// A new pointer to an object, in the ledger until it is released.
    template <class Interface>
    Interface HandOut(std::shared_ptr<ComObject> object) {
        return Interface{Add(std::move(object))};
    }

    /// The object behind a pointer; null when the pointer is none, or one to something else.
    template <class Object, class Interface>
    [[nodiscard]] Object* Find(Interface pointer) const {
        const auto found = m_pointers.find(static_cast<std::uintptr_t>(pointer));
        return found == m_pointers.end() ? nullptr : dynamic_cast<Object*>(found->second.get());
    }

    /// The name of the interface that was released; empty when the pointer was none.
    std::string_view Release(std::uintptr_t pointer);

private:
    std::uintptr_t Add(std::shared_ptr<ComObject> object);

    std::vector<ComClass> m_classes;
    std::map<std::uintptr_t, std::shared_ptr<ComObject>> m_pointers;
};

} // namespace machine
