// The core's use of the heap in the observed DLL: counted, and made to fail as asked.
//
// What the runtime, the observer and the back end allocate is neither, nor is anything outside an export call. Blocks are
// those of the C runtime: a host frees a string with its own.
#include "vesk_sondrel_observer.h"

#include "observer/observer.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

struct CountsAndPlan {
    std::atomic<std::uint64_t> nth; // 0: none fails
    std::atomic<bool> andLater;
    std::atomic<std::uint64_t> allocations;
    std::atomic<std::uint64_t> failed;
};

CountsAndPlan Heap;

/// Whether the plan makes this allocation fail.
bool CountAndFail() noexcept {
    const std::uint64_t place = ++Heap.allocations;
    const std::uint64_t nth = Heap.nth;
    const bool fails = nth != 0 && (place == nth || (Heap.andLater && place > nth));
    Heap.failed += fails ? 1 : 0;
    return fails;
}

void* Allocate(std::size_t size) noexcept {
    return observer::IsInCore() && CountAndFail() ? nullptr : std::malloc(size != 0 ? size : 1);
}

void* AllocateOrThrow(std::size_t size) {
    void* const block = Allocate(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

} // namespace

void* operator new(std::size_t size) {
    return AllocateOrThrow(size);
}

void* operator new[](std::size_t size) {
    return AllocateOrThrow(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}

void operator delete(void* block) noexcept {
    std::free(block);
}

void operator delete[](void* block) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}

void VeskObserver_FailAllocation(uint64_t nth, int32_t andLater) {
    Heap.nth = nth;
    Heap.andLater = andLater != 0;
    Heap.allocations = 0;
    Heap.failed = 0;
}

int32_t VeskObserver_GetHeap(VeskObserver_Heap* heap) {
    if (heap == nullptr || heap->size < sizeof *heap) {
        return 0;
    }
    heap->allocations = Heap.allocations;
    heap->failed = Heap.failed;
    return 1;
}
