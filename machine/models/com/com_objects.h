// COM objects of the simulated machine: what an interface pointer means, and the classes they are made of.
#pragma once

#include "machine/models/handle_table.h"
#include "platform/com.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace machine {

/// An object with one interface. Each pointer that is handed out is released once.
class ComObject {
public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;
    virtual ~ComObject() = default;

    /// A literal.
    [[nodiscard]] virtual std::string_view InterfaceName() const = 0;
};

/// A class that CoCreateInstance can make.
struct ComClass {
    platform::Guid classId;
    platform::Guid interfaceId;
    std::function<std::shared_ptr<ComObject>()> make;
};

/// The interface pointers that are out, among the machine's handles, and the classes that are registered.
class ComObjects {
public:
    explicit ComObjects(HandleTable& handles) : m_handles(handles) {}

    void Register(ComClass row) { m_classes.push_back(std::move(row)); }

    [[nodiscard]] const ComClass* FindClass(const platform::Guid& classId) const;

    /// A new pointer to an object.
    template <class Interface>
    Interface HandOut(std::shared_ptr<ComObject> object) {
        const std::string_view name = object->InterfaceName();
        return Interface{m_handles.Open(name, std::move(object))};
    }

    /// The object of a pointer; null when the pointer is none, or one to something else.
    template <class Object, class Interface>
    [[nodiscard]] Object* Find(Interface pointer) const {
        const auto* const found =
            m_handles.Find<std::shared_ptr<ComObject>>(static_cast<std::uintptr_t>(pointer));
        return found == nullptr ? nullptr : dynamic_cast<Object*>(found->get());
    }

    void Release(std::uintptr_t pointer) { m_handles.Close(pointer); }

private:
    HandleTable& m_handles;
    std::vector<ComClass> m_classes;
};

} // namespace machine
