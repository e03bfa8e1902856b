// Locks. They are types and no operations: what records the operations of the boundary, or makes them fail, does not
// see them.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>

namespace platform {

/// A lock of one owner at a time, for std::lock_guard. A thread that has it must not take it again. Taking it neither
/// fails nor allocates, and a lock holds nothing that has to be released.
class Lock {
public:
    Lock() noexcept;
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

    void lock() noexcept;
    void unlock() noexcept;

private:
    // The platform's lock is constructed here; each back end asserts that its one fits.
    alignas(std::max_align_t) std::array<std::byte, 64> m_place{};
};

/// A lock that the thread which has it may take again.
class RecursiveLock {
public:
    void lock() noexcept {
        if (m_owner.load(std::memory_order_relaxed) != ThisThread()) {
            m_lock.lock();
            m_owner.store(ThisThread(), std::memory_order_relaxed);
        }
        ++m_depth;
    }

    void unlock() noexcept {
        if (--m_depth == 0) {
            m_owner.store(nullptr, std::memory_order_relaxed);
            m_lock.unlock();
        }
    }

private:
    static const void* ThisThread() {
        thread_local const char Address = 0;
        return &Address;
    }

    Lock m_lock;
    std::atomic<const void*> m_owner = nullptr;
    unsigned m_depth = 0;
};

} // namespace platform
