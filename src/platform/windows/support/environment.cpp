// The runtime that comes with newer compilers asks the environment for settings of its own while the DLL is loaded. The
// environment is the host's: nothing in this DLL depends on it.
extern "C" char* getenv(const char* /*name*/) {
    return nullptr;
}
