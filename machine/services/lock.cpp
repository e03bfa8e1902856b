#include "platform/lock.h"

#include <mutex>
#include <new>
#include <type_traits>

namespace platform {
namespace {

static_assert(sizeof(std::mutex) <= sizeof(Lock) && std::is_trivially_destructible_v<std::mutex>);

std::mutex& At(std::byte* place) {
    return *std::launder(reinterpret_cast<std::mutex*>(place));
}

} // namespace

Lock::Lock() noexcept {
    new (m_place.data()) std::mutex;
}

void Lock::lock() noexcept {
    At(m_place.data()).lock();
}

void Lock::unlock() noexcept {
    At(m_place.data()).unlock();
}

} // namespace platform
