#include "platform/lock.h"

#include <windows.h>

#include <new>
#include <type_traits>

namespace platform {
namespace {

static_assert(sizeof(SRWLOCK) <= sizeof(Lock) && std::is_trivially_destructible_v<SRWLOCK>);

SRWLOCK* At(std::byte* place) {
    return std::launder(reinterpret_cast<SRWLOCK*>(place));
}

} // namespace

Lock::Lock() noexcept {
    new (m_place.data()) SRWLOCK(SRWLOCK_INIT);
}

void Lock::lock() noexcept {
    ::AcquireSRWLockExclusive(At(m_place.data()));
}

void Lock::unlock() noexcept {
    ::ReleaseSRWLockExclusive(At(m_place.data()));
}

} // namespace platform
