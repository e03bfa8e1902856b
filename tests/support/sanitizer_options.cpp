// Linked into programs that load the library at run time.
//
// The address sanitizer guesses where a loaded library's thread-local data begin. For some layouts of the heap the guess
// is wrong, and its search for leaks crashes.

extern "C" const char* __asan_default_options();

extern "C" const char* __asan_default_options() {
    return "intercept_tls_get_addr=0";
}
