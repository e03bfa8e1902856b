#include "heap.h"

#include "observer/observer.h"

#include <cstddef>
#include <cstdlib>
#include <new>
#include <utility>

namespace heap {
namespace {

bool Watching = false;
Plan ThePlan;
std::uint64_t Counted = 0;
std::uint64_t Failures = 0;
std::int64_t Blocks = 0;

/// In front of every block: whether it is one of the library's.
struct alignas(std::max_align_t) Head {
    bool counted;
};

bool Meant() {
    return ThePlan.nth != 0 && (Counted == ThePlan.nth || (ThePlan.andLater && Counted > ThePlan.nth));
}

void* Allocate(std::size_t size) {
    const bool counted = Watching && !observer::IsBelowBoundary();
    if (counted && (++Counted, Meant())) {
        ++Failures;
        throw std::bad_alloc();
    }
    auto* const head = static_cast<Head*>(std::malloc(sizeof(Head) + size));
    if (head == nullptr) {
        throw std::bad_alloc();
    }
    head->counted = counted;
    Blocks += counted ? 1 : 0;
    return head + 1;
}

void* AllocateOrNull(std::size_t size) {
    try {
        return Allocate(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void Free(void* memory) {
    if (memory != nullptr) {
        Head* const head = static_cast<Head*>(memory) - 1;
        Blocks -= head->counted ? 1 : 0;
        std::free(head);
    }
}

} // namespace

void Restart(Plan plan) {
    ThePlan = plan;
    Counted = 0;
    Failures = 0;
}

InLibrary::InLibrary() : m_before(std::exchange(Watching, true)) {}

InLibrary::~InLibrary() {
    Watching = m_before;
}

std::uint64_t Count() {
    return Counted;
}

std::uint64_t Injected() {
    return Failures;
}

std::int64_t Live() {
    return Blocks;
}

} // namespace heap

// All forms, since a sanitizer brings its own for each that is left out.
void* operator new(std::size_t size) {
    return ::heap::Allocate(size);
}

void* operator new[](std::size_t size) {
    return ::heap::Allocate(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return ::heap::AllocateOrNull(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return ::heap::AllocateOrNull(size);
}

void operator delete(void* memory) noexcept {
    ::heap::Free(memory);
}

void operator delete[](void* memory) noexcept {
    ::heap::Free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    ::heap::Free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
    ::heap::Free(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept {
    ::heap::Free(memory);
}

void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    ::heap::Free(memory);
}
