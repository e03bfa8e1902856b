// Read before each file that scripts/check_visual_cpp.sh gives to clang in the mode of Visual C++: there is neither a
// Windows SDK nor Visual C++'s standard library, so that the headers of mingw-w64 and its libstdc++ take their place.
#pragma once

// mingw-w64 writes its attributes where GCC has them, and not where Visual C++ does; for a compiler without __GNUC__ it
// defines the keyword away, which clang's own headers need.
#include <_mingw_mac.h>
#undef __MINGW_MSC_PREREQ
#define __MINGW_MSC_PREREQ(major, minor) 0
#include <_mingw.h>
#undef __attribute__

// libstdc++ has parameters of these names.
#include <sal.h>
#undef __in
#undef __out

// What GCC and clang predefine for libstdc++'s <atomic>, and Visual C++ does not.
#define __GCC_ATOMIC_BOOL_LOCK_FREE 2
#define __GCC_ATOMIC_CHAR_LOCK_FREE 2
#define __GCC_ATOMIC_CHAR8_T_LOCK_FREE 2
#define __GCC_ATOMIC_CHAR16_T_LOCK_FREE 2
#define __GCC_ATOMIC_CHAR32_T_LOCK_FREE 2
#define __GCC_ATOMIC_WCHAR_T_LOCK_FREE 2
#define __GCC_ATOMIC_SHORT_LOCK_FREE 2
#define __GCC_ATOMIC_INT_LOCK_FREE 2
#define __GCC_ATOMIC_LONG_LOCK_FREE 2
#define __GCC_ATOMIC_LLONG_LOCK_FREE 2
#define __GCC_ATOMIC_POINTER_LOCK_FREE 2
#define __GCC_ATOMIC_TEST_AND_SET_TRUEVAL 1
