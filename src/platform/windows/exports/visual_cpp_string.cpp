// The two exports that return a string object, converted for hosts of Visual C++.
//
// The release std::string of Visual C++ has had one layout since 2015, and that of this DLL's compiler is another one.
// The DLL exports these functions under the names of the core's exports, which return plain strings of this compiler.
// Both compilers return an object of 32 bytes through a hidden pointer: the first argument, in RCX, returned in RAX.
#include "vesk_sondrel.h"

#include <windows.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t SmallCapacity = 15;

/// The host frees the block. Blocks of 4096 bytes or more would need Visual C++'s header in front of the characters.
constexpr std::size_t LargestBlock = 4095;

struct VisualCppString {
    union {
        char characters[SmallCapacity + 1]; // if the capacity is SmallCapacity
        char* block; // of the process heap, which is that of the host's operator delete
    };
    std::size_t size;
    std::size_t capacity; // without the terminator
};
static_assert(sizeof(VisualCppString) == 32);
static_assert(offsetof(VisualCppString, size) == 16 && offsetof(VisualCppString, capacity) == 24);

/// Takes at most SmallCapacity characters.
VisualCppString Small(std::string_view characters) {
    VisualCppString small{{}, characters.size(), SmallCapacity};
    characters.copy(small.characters, characters.size());
    return small;
}

/// A list of words, each with a ";" after it, without the last words if its block would be too large.
std::string_view WithinLargestBlock(std::string_view list) {
    if (list.size() < LargestBlock) {
        return list;
    }
    const std::size_t lastEnd = list.rfind(';', LargestBlock - 2);
    return list.substr(0, lastEnd == std::string_view::npos ? 0 : lastEnd + 1);
}

VisualCppString ForVisualCpp(const std::string& plain) {
    const std::string_view characters = WithinLargestBlock(plain);
    if (characters.size() <= SmallCapacity) {
        return Small(characters);
    }
    auto* const block = static_cast<char*>(::HeapAlloc(::GetProcessHeap(), 0, characters.size() + 1));
    if (block == nullptr) {
        return Small("error_string");
    }
    std::memcpy(block, characters.data(), characters.size());
    block[characters.size()] = '\0';
    VisualCppString large{{}, characters.size(), characters.size()};
    large.block = block;
    return large;
}

} // namespace

#ifdef VESK_OBSERVED
extern "C" std::string VeskObserved_RF_PhyMode();
extern "C" std::string VeskObserved_RF_BTConnectedType();
#define VESK_PLAIN(name) VeskObserved_##name
#else
#define VESK_PLAIN(name) name
#endif

extern "C" VisualCppString VeskVisualCpp_RF_PhyMode() {
    return ForVisualCpp(VESK_PLAIN(RF_PhyMode)());
}

extern "C" VisualCppString VeskVisualCpp_RF_BTConnectedType() {
    return ForVisualCpp(VESK_PLAIN(RF_BTConnectedType)());
}
