#include "imported_heap.h"

#include "heap.h"

#include <windows.h>

#include <oleauto.h>

#include <cerrno>
#include <cstdlib>

namespace heap {
namespace {

Plan ThePlan;
std::uint64_t Counted = 0;
std::uint64_t Failures = 0;
std::int64_t Blocks = 0;

bool CountAndFail() {
    ++Counted;
    const bool fails =
        ThePlan.nth != 0 && (Counted == ThePlan.nth || (ThePlan.andLater && Counted > ThePlan.nth));
    Failures += fails ? 1 : 0;
    return fails;
}

/// What `allocate` returns, which counts as one block more; or null for want of memory.
template <class Allocate>
void* Count(const Allocate& allocate) {
    if (CountAndFail()) {
        errno = ENOMEM;
        return nullptr;
    }
    void* const block = allocate();
    Blocks += block != nullptr ? 1 : 0;
    return block;
}

void* Malloc(std::size_t size) {
    return Count([size] { return std::malloc(size); });
}

void* Calloc(std::size_t count, std::size_t size) {
    return Count([count, size] { return std::calloc(count, size); });
}

void* Realloc(void* block, std::size_t size) {
    const std::int64_t before = Blocks;
    void* const grown = Count([block, size] { return std::realloc(block, size); });
    if (block != nullptr) {
        Blocks = before;
    }
    return grown;
}

void Free(void* block) {
    Blocks -= block != nullptr ? 1 : 0;
    std::free(block);
}

/// Who frees such a string is often not the one who has made it, so that the blocks are not counted.
BSTR WINAPI AllocateString(const OLECHAR* text, UINT length) {
    return CountAndFail() ? nullptr : ::SysAllocStringLen(text, length);
}

} // namespace

void Restart(Plan plan) {
    ThePlan = plan;
    Counted = 0;
    Failures = 0;
}

/// Only the patched module is counted, wherever it is called from.
InLibrary::InLibrary() : m_before(false) {}

InLibrary::~InLibrary() = default;

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

namespace sweep {

void WatchImports(test::ImportPatch& patch) {
    patch.Replace("malloc", &heap::Malloc);
    patch.Replace("calloc", &heap::Calloc);
    patch.Replace("realloc", &heap::Realloc);
    patch.Replace("free", &heap::Free);
    patch.Replace("SysAllocStringLen", &heap::AllocateString);
}

} // namespace sweep
