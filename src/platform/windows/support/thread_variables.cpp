// Variables of which each thread has one, in place of the compiler's own implementation. That one ends the process where it
// has no memory, and the C++ runtime asks for such a variable with the first exception of each thread: often the one that
// says that there is no memory. It also never returns its index to the operating system, which has about a thousand.
#include "platform/windows/support/thread_variables.h"

#include <windows.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <iterator>

// Of mingw-w64, and declared in none of its headers: `release` is called with the thread's value when a thread ends.
// NOLINTNEXTLINE(readability-redundant-declaration): an internal header of libstdc++ has it too
extern "C" int __mingwthr_key_dtor(unsigned long key, void (*release)(void*));

namespace {

/// What the compiler emits for each of them.
struct Variable {
    std::size_t size;
    std::size_t alignment;
    std::size_t number;  // from 1, with its first use; 0 before
    const void* initial; // null: zero
};

struct alignas(16) Cell {
    std::byte content[16];
    bool used;
};

/// The variables of one thread, by their numbers: more than the DLL has.
struct Block {
    Cell cells[17];
};

/// For threads that need theirs when there is no memory.
struct Reserve {
    std::atomic<DWORD> thread; // 0: free
    Block block;
};

Reserve Reserves[32];
std::atomic<DWORD> Index = TLS_OUT_OF_INDEXES;
std::atomic<std::size_t> Numbered = 0;

void Release(void* block) {
    for (Reserve& reserve : Reserves) {
        if (&reserve.block == block) {
            reserve.block = {};
            reserve.thread = 0;
            return;
        }
    }
    std::free(block);
}

/// At the end of the thread, or where the DLL is unloaded: whichever of the two comes first.
void ReleaseOfThread(void* block) {
    ::TlsSetValue(Index, nullptr);
    Release(block);
}

DWORD IndexOfBlocks() {
    DWORD index = Index;
    if (index == TLS_OUT_OF_INDEXES) {
        const DWORD made = ::TlsAlloc();
        if (made == TLS_OUT_OF_INDEXES) {
            std::abort();
        }
        if (Index.compare_exchange_strong(index, made)) {
            __mingwthr_key_dtor(
                made, &ReleaseOfThread); // where that has no memory, ended threads leave their blocks
            return made;
        }
        ::TlsFree(made); // another thread was faster
    }
    return index;
}

/// Null if the thread has none.
Block* ReservedBlockOf(DWORD thread) {
    for (Reserve& reserve : Reserves) {
        if (reserve.thread == thread) {
            return &reserve.block;
        }
    }
    return nullptr;
}

/// The one that belongs to the thread already, or a free one.
Block* ReservedBlock() {
    const DWORD thread = ::GetCurrentThreadId();
    Block* block = ReservedBlockOf(thread);
    for (Reserve* reserve = std::begin(Reserves); block == nullptr; ++reserve) {
        DWORD none = 0;
        if (reserve == std::end(Reserves)) {
            std::abort();
        }
        if (reserve->thread.compare_exchange_strong(none, thread)) {
            block = &reserve->block;
        }
    }
    return block;
}

Block& BlockOfThread() {
    const DWORD error = ::GetLastError(); // a routine of the system may just have set it
    const DWORD index = IndexOfBlocks();
    auto* block = static_cast<Block*>(::TlsGetValue(index));
    if (block == nullptr) {
        block = static_cast<Block*>(std::calloc(1, sizeof(Block)));
        if (block == nullptr || ::TlsSetValue(index, block) == FALSE) {
            std::free(block);
            block = ReservedBlock();
            ::TlsSetValue(index, block);
        }
    }
    ::SetLastError(error);
    return *block;
}

std::size_t NumberOf(Variable& variable) {
    std::atomic_ref<std::size_t> number(variable.number);
    std::size_t known = number;
    if (known == 0) {
        const std::size_t next = ++Numbered;
        known = number.compare_exchange_strong(known, next) ? next : known;
    }
    if (known >= std::size(Block{}.cells) || variable.size > sizeof Cell::content) {
        std::abort(); // found by the first test of a DLL with a variable that has no cell
    }
    return known;
}

} // namespace

void FreeThreadVariables() {
    if (Index != TLS_OUT_OF_INDEXES) {
        ReleaseOfThread(::TlsGetValue(Index));
        ::TlsFree(Index.exchange(TLS_OUT_OF_INDEXES));
    }
}

extern "C" void* __emutls_get_address(Variable* variable) {
    Cell& cell = BlockOfThread().cells[NumberOf(*variable)];
    if (!cell.used) {
        cell.used = true;
        if (variable->initial != nullptr) {
            std::memcpy(cell.content, variable->initial, variable->size);
        }
    }
    return cell.content;
}
