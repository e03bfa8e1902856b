#include "machine/services/com_objects.h"

#include "machine/machine.h"
#include "machine/services/apartments.h"
#include "observer/gate.h"
#include "platform/back_end.h"

#include <algorithm>
#include <string>

namespace machine {

const ComClass* ComObjects::FindClass(const platform::Guid& classId) const {
    const auto found =
        std::ranges::find_if(m_classes, [&](const ComClass& row) { return row.classId == classId; });
    return found == m_classes.end() ? nullptr : &*found;
}

std::uintptr_t ComObjects::Add(std::shared_ptr<ComObject> object) {
    const std::uintptr_t number = Current().gate.Opened(std::string(object->InterfaceName()));
    m_pointers.emplace(number, std::move(object));
    return number;
}

std::string_view ComObjects::Release(std::uintptr_t pointer) {
    const auto found = m_pointers.find(pointer);
    if (found == m_pointers.end()) {
        return {};
    }
    const std::string_view name = found->second->InterfaceName();
    m_pointers.erase(found);
    Current().gate.Closed(pointer);
    return name;
}

} // namespace machine

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;

namespace {

HResult Create(const Guid& classId, std::uint32_t classContext, const Guid& interfaceId, Unknown& made) {
    if (machine::CurrentApartment().entered == 0) {
        return hresult::NotInitialised;
    }
    const machine::ComClass* row = Current().com.FindClass(classId);
    if (row == nullptr || (classContext & class_context::InprocServer) == 0) {
        return hresult::ClassNotRegistered;
    }
    if (row->interfaceId != interfaceId) {
        return hresult::NoInterface;
    }
    made = Current().com.HandOut<Unknown>(row->make());
    return hresult::Ok;
}

} // namespace

HResult CoCreateInstance(const Guid& classId, std::uint32_t classContext, const Guid& interfaceId,
                         Unknown& made) {
    Call call(Operation::CoCreateInstance);
    call.Note([&] { return "context " + std::to_string(classContext); });
    if (call.Refused()) {
        return call.Answered(static_cast<HResult>(call.RefusalCode()));
    }
    return call.Answered(Create(classId, classContext, interfaceId, made));
}

void Release(Unknown held) {
    Call call(Operation::Release);
    const std::string_view name = Current().com.Release(static_cast<std::uintptr_t>(held));
    call.Note([&] { return std::string(name); });
}

} // namespace VESK_BACK_END
