/* A host in C: loads the library, opens a session, reads a few values, closes the session. */
#include "vesk_sondrel.h"

#include <stdio.h>
#include <stdlib.h>

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

typedef void (*Routine)(void);

/* The library next to this program. */
static void* LoadSondrel(void) {
#ifdef _WIN32
    return LoadLibraryW(L"VeskSondrel64.dll");
#else
    return dlopen("libVeskSondrel64.so", RTLD_NOW);
#endif
}

/* Why it could not be loaded, in the system's words. */
static void PrintLoadProblem(void) {
#ifdef _WIN32
    wchar_t text[512] = L"";
    const DWORD code = GetLastError();
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, NULL, code, 0, text, 512,
                   NULL);
    printf("VeskSondrel64.dll: error %lu: %ls\n", (unsigned long)code, text);
#else
    puts(dlerror());
#endif
}

/* One export, to be cast to the type of its declaration in the header. */
static Routine Find(void* library, const char* name) {
#ifdef _WIN32
    const Routine routine = (Routine)GetProcAddress((HMODULE)library, name);
#else
    const union {
        void* address;
        Routine routine;
    } found = {dlsym(library, name)};

    const Routine routine = found.routine;
#endif
    if (routine == NULL) {
        printf("%s is not exported by this library\n", name);
    }
    return routine;
}

/* A wide text as UTF-8. VeskChar16 is UTF-16 wherever the library runs, so wprintf and its like fit on Windows only. */
static void PrintWide(const VeskChar16* text) {
    while (*text != 0) {
        unsigned long code = *text++;
        if (code >= 0xD800 && code < 0xDC00 && *text >= 0xDC00 && *text < 0xE000) {
            code = 0x10000 + ((code - 0xD800) << 10) + (*text++ - 0xDC00u);
        }
        if (code < 0x80) {
            putchar((int)code);
            continue;
        }
        static const unsigned char lead[] = {0, 0xC0, 0xE0, 0xF0};
        int tail = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
        putchar((int)(lead[tail] | code >> 6 * tail));
        while (tail-- > 0) {
            putchar((int)(0x80 | (code >> 6 * tail & 0x3F)));
        }
    }
}

static void ReadWithSession(void* library) {
    uint32_t (*const readTemperature)(void) =
        (uint32_t(*)(void))Find(library, "Thermal_Read_Cpu_Temperature");
    void (*const readFans)(char*) = (void (*)(char*))Find(library, "Thermal_Read_Fan");

    /* A number: the failure and "no such sensor" are separate values. */
    if (readTemperature != NULL) {
        const uint32_t degrees = readTemperature();
        if (degrees == VESK_READ_FAILED) {
            puts("processor: the read failed");
        } else if (degrees == 0) {
            puts("processor: no such sensor on this machine");
        } else {
            printf("processor: %u degrees Celsius\n", (unsigned)degrees);
        }
    }

    /* A list in a narrow text: each fan fails for itself, in its own place. */
    if (readFans != NULL) {
        char text[44]; /* the size that the header gives */
        readFans(text);
        const char* place = text;
        for (int fan = 0; fan < 4; ++fan) {
            char* end = NULL;
            const unsigned long speed = strtoul(place, &end, 10);
            if (speed == VESK_READ_FAILED) {
                printf("fan %d: the read failed\n", fan);
            } else {
                printf("fan %d: %lu rpm\n", fan, speed);
            }
            place = *end == ';' ? end + 1 : end;
        }
    }
}

static void ReadWithoutSession(void* library) {
    enum { EnterComForThisCall = 1 };

    static VeskChar16 text[4096];
    void (*const getSerialNumber)(VeskChar16*, uint8_t) =
        (void (*)(VeskChar16*, uint8_t))Find(library, "WMIGetSN");
    int32_t (*const readSignal)(void) = (int32_t(*)(void))Find(library, "RF_WiFiRssi");

    /* A string goes into a buffer of the host, large enough for any answer. Empty: the read failed. */
    if (getSerialNumber != NULL) {
        getSerialNumber(text, EnterComForThisCall);
        printf("serial number: ");
        PrintWide(text);
        putchar('\n');
    }

    /* A radio field: not read and failed are distinguished. */
    if (readSignal != NULL) {
        const int32_t signal = readSignal();
        if (signal == VESK_READ_FAILED) {
            puts("signal: the read failed");
        } else if (signal == VESK_RADIO_NOT_READ) {
            puts("signal: no connection");
        } else {
            printf("signal: %d dBm\n", (int)signal);
        }
    }
}

int main(void) {
    void* const library = LoadSondrel();
    if (library == NULL) {
        PrintLoadProblem();
        return 1;
    }
    int32_t (*const open)(void) = (int32_t(*)(void))Find(library, "InitializeSondrel");
    const Routine close = Find(library, "ShutdownSondrel");
    if (open != NULL && close != NULL && open() == 1) {
        ReadWithSession(library);
        close();
    } else {
        puts("no driver session");
    }
    ReadWithoutSession(library);
    return 0;
}
