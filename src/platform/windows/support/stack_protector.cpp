// What the compiler's stack protector needs. The library that comes with the compiler opens a cryptographic provider for
// it while the DLL is loaded, which loads other libraries under the loader's lock.
#include <cstdint>

extern "C" {

std::uintptr_t __stack_chk_guard = 0;

[[noreturn]] void __stack_chk_fail() {
    constexpr unsigned StackCookieCheckFailure = 2;             // FAST_FAIL_STACK_COOKIE_CHECK_FAILURE
    asm volatile("int $0x29" : : "c"(StackCookieCheckFailure)); // __fastfail: no handler of the host's runs
    __builtin_unreachable();
}

} // extern "C"

namespace {

/// Data from outside cannot contain the value: it is made of the processor's clock and of random addresses. No protected
/// function is running when it is set.
__attribute__((constructor(101), no_stack_protector)) void ChooseGuard() {
    constexpr std::uint64_t Odd = 0x9E3779B97F4A7C15;
    std::uint64_t value = __builtin_ia32_rdtsc();
    value = (value ^ reinterpret_cast<std::uintptr_t>(&__stack_chk_guard)) * Odd;
    value = (value ^ value >> 32 ^ reinterpret_cast<std::uintptr_t>(&value)) * Odd;
    __stack_chk_guard =
        (value ^ value >> 32) & ~std::uint64_t{0xFF}; // a byte of 0 ends a string that is copied
}

} // namespace
