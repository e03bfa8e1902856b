// The runtime that comes with newer compilers asks the environment for its settings while the DLL is loaded. The
// environment is the host's: nothing in this DLL depends on it.
#include <cstdlib>

extern "C" char* getenv(const char* /*name*/) {
    return nullptr;
}
