// A complete host: loads the library, opens a session, reads a few values, closes the session.
#include "vesk_sondrel.h"

#include <cstdio>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace {

/// The library beside this program.
void* LoadSondrel() {
#ifdef _WIN32
    return LoadLibraryW(L"VeskSondrel64.dll");
#else
    return dlopen("libVeskSondrel64.so", RTLD_NOW);
#endif
}

/// One export as a function of its own type, which is that of its declaration in the header.
template <class Function>
Function* Find(void* library, const char* name) {
#ifdef _WIN32
    const auto address = reinterpret_cast<void (*)()>(GetProcAddress(static_cast<HMODULE>(library), name));
#else
    void* const address = dlsym(library, name);
#endif
    if (address == nullptr) {
        std::printf("%s is not exported by this library\n", name);
    }
    return reinterpret_cast<Function*>(address);
}

} // namespace

int main() {
    void* const library = LoadSondrel();
    if (library == nullptr) {
        std::puts("the library could not be loaded");
        return 1;
    }
    const auto open = Find<decltype(InitializeSondrel)>(library, "InitializeSondrel");
    const auto close = Find<decltype(ShutdownSondrel)>(library, "ShutdownSondrel");
    const auto readTabletMode = Find<decltype(System_Read_TabletMode)>(library, "System_Read_TabletMode");
    const auto getSerialNumber = Find<decltype(WMIGetSN)>(library, "WMIGetSN");

    // What the embedded controller and the processor tell needs a session.
    const bool session = open != nullptr && close != nullptr && open() == 1;
    if (!session) {
        std::puts("no driver session");
    }
    if (session && readTabletMode != nullptr) {
        const uint32_t mode = readTabletMode();
        if (mode == VESK_READ_FAILED) {
            std::puts("tablet mode: the read failed");
        } else {
            std::printf("tablet mode: %u\n", static_cast<unsigned>(mode));
        }
    }
    if (session) {
        close();
    }

    // All else does not. A text goes into a buffer of the host's, large enough for whatever comes.
    if (getSerialNumber != nullptr) {
        constexpr uint8_t EnterComForThisCall = 1;
        std::vector<VeskChar16> text(4096);
        getSerialNumber(text.data(), EnterComForThisCall);
        std::printf("serial number: ");
        for (std::size_t i = 0; text[i] != 0; ++i) {
            std::putchar(text[i] < 0x80 ? static_cast<char>(text[i]) : '?');
        }
        std::putchar('\n');
    }
    return 0;
}
