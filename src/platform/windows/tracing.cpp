#include "platform/tracing.h"

#include "platform/back_end.h"
#include "platform/windows/support/system_library.h"

#include <evntprov.h>

namespace VESK_BACK_END {
namespace {

// ETW's callback has two more arguments than ours, so ours is called through this target. The provider is
// registered once in a process, so one target is enough.
struct EnableTarget {
    TraceEnableCallback callback;
    void* context;
};

EnableTarget Target{};

using SetInformationRoutine = ULONG(WINAPI*)(REGHANDLE, ULONG, PVOID, ULONG);

void NTAPI OnEnable(LPCGUID, ULONG controlCode, UCHAR level, ULONGLONG anyKeyword, ULONGLONG allKeyword,
                    PEVENT_FILTER_DESCRIPTOR, PVOID context) {
    const auto& target = *static_cast<const EnableTarget*>(context);
    target.callback(target.context, controlCode, level, anyKeyword, allKeyword);
}

/// Keeps the module that this code is in loaded until the process ends. The provider is never unregistered, so that
/// ETW may call OnEnable long after the host has called FreeLibrary.
SystemError PinModule() {
    constexpr DWORD Pin = GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS;
    HMODULE module = nullptr;
    if (::GetModuleHandleExW(Pin, reinterpret_cast<const wchar_t*>(&OnEnable), &module) != FALSE) {
        return error::Success;
    }
    const SystemError failure = ::GetLastError();
    return failure != error::Success ? failure : ERROR_MOD_NOT_FOUND;
}

} // namespace

SystemError EventRegister(const Guid& provider, TraceEnableCallback callback, void* context,
                          std::uint64_t& registration) {
    static_assert(sizeof(Guid) == sizeof(GUID));
    if (const SystemError failure = PinModule(); failure != error::Success) {
        return failure;
    }
    Target = {callback, context};
    return ::EventRegister(reinterpret_cast<const GUID*>(&provider), OnEnable, &Target, &registration);
}

SystemError EventSetInformation(std::uint64_t registration, std::uint32_t informationClass,
                                std::span<const std::byte> information) {
    // The first Windows 7 does not have it.
    const auto setInformation = SystemRoutine<SetInformationRoutine>(L"advapi32.dll", "EventSetInformation");
    if (setInformation == nullptr) {
        return error::ProcedureNotFound;
    }
    return setInformation(registration, informationClass, const_cast<std::byte*>(information.data()),
                          static_cast<ULONG>(information.size()));
}

SystemError EventWriteTransfer(std::uint64_t registration, const EventDescriptor& descriptor,
                               const std::array<EventData, 3>& data) {
    static_assert(sizeof(EventDescriptor) == sizeof(EVENT_DESCRIPTOR));
    std::array<EVENT_DATA_DESCRIPTOR, 3> native{};
    for (std::size_t index = 0; index < data.size(); ++index) {
        EventDataDescCreate(&native[index], data[index].bytes.data(),
                            static_cast<ULONG>(data[index].bytes.size()));
        native[index].Reserved = data[index].type;
    }
    return ::EventWriteTransfer(registration, reinterpret_cast<const EVENT_DESCRIPTOR*>(&descriptor), nullptr,
                                nullptr, static_cast<ULONG>(native.size()), native.data());
}

} // namespace VESK_BACK_END
