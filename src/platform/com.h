// COM: apartments, creating and releasing objects.
#pragma once

#include "platform/support/owned.h"
#include "platform/types.h"

#include <span>

namespace platform {

namespace apartment {
inline constexpr std::uint32_t Multithreaded = 0;  // COINIT_MULTITHREADED
inline constexpr std::uint32_t SingleThreaded = 2; // COINIT_APARTMENTTHREADED
} // namespace apartment

namespace class_context {
inline constexpr std::uint32_t InprocServer = 1; // CLSCTX_INPROC_SERVER
} // namespace class_context

namespace hresult {
inline constexpr HResult Ok = 0;
inline constexpr HResult False = 1; // the thread is already in this kind of apartment
inline constexpr HResult NotImplemented = static_cast<HResult>(0x80004001);
inline constexpr HResult NoInterface = static_cast<HResult>(0x80004002);
inline constexpr HResult Pointer = static_cast<HResult>(0x80004003);
inline constexpr HResult Fail = static_cast<HResult>(0x80004005);
inline constexpr HResult OutOfMemory = static_cast<HResult>(0x8007000E);
inline constexpr HResult InvalidArgument = static_cast<HResult>(0x80070057);
inline constexpr HResult ClassNotRegistered = static_cast<HResult>(0x80040154);
inline constexpr HResult NotInitialised = static_cast<HResult>(0x800401F0); // the thread is in no apartment
inline constexpr HResult ChangedMode = static_cast<HResult>(0x80010106);    // the thread is in another kind
} // namespace hresult

constexpr bool Failed(HResult status) {
    return status < 0;
}

/// CoInitializeEx with no reserved pointer. CoInitialize is the same with `apartment::SingleThreaded`.
HResult CoInitializeEx(std::uint32_t apartmentKind);

void CoUninitialize();

/// The GUID in braces, 39 characters with the terminator. 0 if `text` is too small.
int StringFromGUID2(const Guid& guid, std::span<char16_t> text);

/// An apartment that was entered and has to be left.
enum class Apartment : bool { None, Entered };

inline void LeaveApartment(Apartment) {
    CoUninitialize();
}

using OwnedApartment = Owned<Apartment, LeaveApartment, Apartment::None>;

/// An interface pointer. Each API family has its own types of this form (`WbemLocator`, ...).
enum class Unknown : std::uintptr_t { None = 0 };

/// CoCreateInstance with no outer object. `made` is written only on success.
HResult CoCreateInstance(const Guid& classId, std::uint32_t classContext, const Guid& interfaceId,
                         Unknown& made);

template <class Interface>
HResult CoCreateInstance(const Guid& classId, std::uint32_t classContext, const Guid& interfaceId,
                         Interface& made) {
    Unknown unknown = Unknown::None;
    const HResult status = CoCreateInstance(classId, classContext, interfaceId, unknown);
    made = Interface{static_cast<std::uintptr_t>(unknown)};
    return status;
}

/// IUnknown::Release.
void Release(Unknown held);

template <class Interface>
void ReleaseInterface(Interface held) {
    Release(Unknown{static_cast<std::uintptr_t>(held)});
}

template <class Interface>
using OwnedInterface = Owned<Interface, ReleaseInterface<Interface>, Interface::None>;

} // namespace platform
