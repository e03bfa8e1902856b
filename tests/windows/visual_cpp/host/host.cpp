// A host of the MSVC ABI: it calls the two exports that return a string object as Visual C++ compiles such calls,
// destroys what it got as that compiler's class does, and looks at the heap after each. It is linked with the kit's
// import library and includes the kit's header; it has neither a C runtime nor a standard library.
#include "fake_radios.h"
#include "vesk_sondrel.h"

using HANDLE = void*;
using BOOL = int;
using DWORD = unsigned long;
using SIZE_T = size_t;

extern "C" {
__declspec(dllimport) BOOL CopyFileW(const wchar_t* existing, const wchar_t* next, BOOL failIfThere);
__declspec(dllimport) BOOL DeleteFileW(const wchar_t* file);
__declspec(dllimport) void ExitProcess(unsigned status);
__declspec(dllimport) BOOL FreeLibrary(HANDLE library);
__declspec(dllimport) BOOL GetFileVersionInfoW(const wchar_t* file, DWORD, DWORD size, void* data);
__declspec(dllimport) DWORD GetModuleFileNameW(HANDLE library, wchar_t* file, DWORD size);
__declspec(dllimport) HANDLE GetModuleHandleW(const wchar_t* name);
__declspec(dllimport) void* GetProcAddress(HANDLE library, const char* name);
__declspec(dllimport) HANDLE GetProcessHeap();
__declspec(dllimport) HANDLE GetStdHandle(DWORD which);
__declspec(dllimport) DWORD GetTempPathW(DWORD size, wchar_t* path);
__declspec(dllimport) BOOL HeapFree(HANDLE heap, DWORD flags, void* block);
__declspec(dllimport) SIZE_T HeapSize(HANDLE heap, DWORD flags, const void* block);
__declspec(dllimport) BOOL HeapValidate(HANDLE heap, DWORD flags, const void* block);
__declspec(dllimport) HANDLE LoadLibraryW(const wchar_t* file);
__declspec(dllimport) BOOL
    VerQueryValueW(const void* data, const wchar_t* place, void** value, unsigned* size);
__declspec(dllimport) BOOL WriteFile(HANDLE file, const void* data, DWORD size, DWORD* written, void*);

int _fltused = 0;

void* memset(void* start, int value, size_t size) {
    for (auto* at = static_cast<volatile char*>(start); size > 0; --size, ++at) {
        *at = static_cast<char>(value);
    }
    return start;
}

void* memcpy(void* to, const void* from, size_t size) {
    auto* at = static_cast<volatile char*>(to);
    for (const auto* source = static_cast<const char*>(from); size > 0; --size, ++at, ++source) {
        *at = *source;
    }
    return to;
}
}

namespace {

int Failures;
int BlocksReturned;
const char* Doing = "";

size_t LengthOf(const char* text) {
    size_t length = 0;
    while (text[length] != '\0') {
        ++length;
    }
    return length;
}

void Print(const char* text) {
    DWORD written = 0;
    WriteFile(GetStdHandle(static_cast<DWORD>(-11)), text, static_cast<DWORD>(LengthOf(text)), &written,
              nullptr);
}

void Expect(bool holds, const char* what) {
    if (!holds) {
        ++Failures;
        Print(Doing);
        Print(": not so: ");
        Print(what);
        Print("\n");
    }
}

/// A text that grows up to a limit which no case here reaches.
template <class Character>
class Text {
public:
    void Add(const Character* more) {
        for (; *more != 0 && m_size + 1 < sizeof m_characters / sizeof(Character); ++more, ++m_size) {
            m_characters[m_size] = *more;
        }
        m_characters[m_size] = 0;
    }

    const Character* Characters() const { return m_characters; }

    size_t Size() const { return m_size; }

private:
    Character m_characters[16384] = {};
    size_t m_size = 0;
};

using NarrowText = Text<char>;
using WideText = Text<wchar_t>;

bool Same(const std::string& string, const NarrowText& expected) {
    bool same = string.size() == expected.Size();
    for (size_t place = 0; same && place <= expected.Size(); ++place) { // the terminator too
        same = string.c_str()[place] == expected.Characters()[place];
    }
    return same;
}

using StringExport = decltype(RF_PhyMode);

/// Calls the export, looks at the object, and destroys it.
void Check(StringExport* call, const NarrowText& expected) {
    const int returnedBefore = BlocksReturned;
    bool small = true;
    {
        const std::string string = call();
        if (string.capacity() < 15 || string.capacity() > 65536) {
            Expect(false, "the object has the layout of Visual C++");
            ExitProcess(1); // whatever else is done with it spoils this process
        }
        Expect(Same(string, expected), "the string is the expected one");
        small = string.capacity() <= 15;
        Expect(small ? string.capacity() == 15 : string.capacity() >= string.size(),
               "the capacity holds the string");
        Expect(small == (string.size() <= 15), "short strings take no block");
        if (!small) {
            Expect(string.capacity() + 1 < 4096, "the block is below 4096 bytes");
            const SIZE_T size = HeapSize(GetProcessHeap(), 0, string.c_str());
            Expect(size != static_cast<SIZE_T>(-1) && size >= string.capacity() + 1,
                   "the block is one of the process heap, and as large as the capacity says");
        }
        Expect(HeapValidate(GetProcessHeap(), 0, nullptr) != 0, "the heap is whole while the string lives");
    }
    Expect(BlocksReturned - returnedBefore == (small ? 0 : 1), "the destructor returned the block");
    Expect(HeapValidate(GetProcessHeap(), 0, nullptr) != 0, "the heap is whole after it");
}

/// The result's address goes in as the first argument and comes back as the result.
void CheckConvention(StringExport* call) {
    using Explicit = void*(void*);
    alignas(std::string) unsigned char place[sizeof(std::string)];
    void* const returned = reinterpret_cast<Explicit*>(reinterpret_cast<void (*)()>(call))(place);
    Expect(returned == place, "the hidden pointer is returned");
    static_cast<std::string*>(static_cast<void*>(place))->~string();
}

/// A copy of the library under another file name, so that it has separate process-wide state.
class LoadedCopy {
public:
    explicit LoadedCopy(const wchar_t* name) {
        wchar_t original[1024];
        GetModuleFileNameW(GetModuleHandleW(name), original, 1024);
        wchar_t directory[512];
        GetTempPathW(512, directory);
        static wchar_t letter[] = L"a"; // of this copy
        m_file.Add(directory);
        m_file.Add(L"visual_cpp_");
        m_file.Add(letter);
        m_file.Add(L".dll");
        ++letter[0];
        Expect(CopyFileW(original, m_file.Characters(), 0) != 0, "the library can be copied");
        m_module = LoadLibraryW(m_file.Characters());
        Expect(m_module != nullptr, "the copy loads");
    }

    LoadedCopy(const LoadedCopy&) = delete;

    ~LoadedCopy() {
        FreeLibrary(m_module);
        DeleteFileW(m_file.Characters());
    }

    HANDLE Module() const { return m_module; }

    template <class Function>
    Function* Find(const char* name) const {
        return reinterpret_cast<Function*>(GetProcAddress(m_module, name));
    }

private:
    WideText m_file;
    HANDLE m_module;
};

void SetConditions(HANDLE library, const fake_radios::Conditions& conditions) {
    const HANDLE module = LoadLibraryW(L"fake_radios.dll");
    Expect(module != nullptr, "fake_radios.dll loads");
    reinterpret_cast<fake_radios::SetConditions>(GetProcAddress(module, "SetConditions"))(library,
                                                                                          conditions);
}

enum Class : unsigned char { Computer = 1, Phone = 2, Network = 3, Audio = 4, Toy = 8 };

const char* WordOf(unsigned char majorClass) {
    switch (majorClass) {
    case Computer:
        return "Computer;";
    case Phone:
        return "Phone;";
    case Network:
        return "LAN/NetWortk Access point;";
    case Audio:
        return "Audio/Video;";
    default:
        return "Toy;";
    }
}

struct Run {
    Class majorClass;
    unsigned count;
};

struct Case {
    const char* what;
    Run runs[3];
    unsigned phyType;
    bool noMemory;
    const char* phyMode;
    unsigned wordsLeft;     // of the list of devices; 0: all
    const char* fixedTypes; // in place of a list
};

constexpr Case Cases[] = {
    {"one device", {{Phone, 1}}, 10, false, "802.11ax", 0, nullptr},
    {"15 characters", {{Computer, 1}, {Phone, 1}}, 3, false, "IR baseband", 0, nullptr},
    {"16 characters", {{Toy, 4}}, 11, false, "Other", 0, nullptr},
    {"2600 characters", {{Network, 100}}, 0, false, "init_string", 0, nullptr},
    {"4094 characters", {{Network, 157}, {Audio, 1}}, 7, false, "802.11n", 0, nullptr},
    {"4095 characters", {{Network, 157}, {Computer, 1}, {Toy, 1}}, 7, false, "802.11n", 158, nullptr},
    {"10400 characters", {{Network, 400}}, 7, false, "802.11n", 157, nullptr},
    {"no memory", {{Network, 100}}, 8, true, "802.11ac", 0, "error_string"},
    {"no radios", {}, 0, false, "init_string", 0, "init_string"},
};

NarrowText TypesOf(const Case& one) {
    NarrowText types;
    unsigned words = 0;
    for (const Run& run : one.runs) {
        for (unsigned device = 0; device < run.count; ++device, ++words) {
            if (one.wordsLeft == 0 || words < one.wordsLeft) {
                types.Add(WordOf(run.majorClass));
            }
        }
    }
    return types;
}

NarrowText Plain(const char* characters) {
    NarrowText text;
    text.Add(characters);
    return text;
}

void CheckRadios(const Case& one) {
    Doing = one.what;
    unsigned char classes[512];
    unsigned devices = 0;
    for (const Run& run : one.runs) {
        for (unsigned device = 0; device < run.count; ++device, ++devices) {
            classes[devices] = run.majorClass;
        }
    }
    const LoadedCopy library(L"VeskSondrel64.dll");
    SetConditions(library.Module(), {true, one.phyType, classes, devices, one.noMemory});
    auto* const phyMode = library.Find<StringExport>("RF_PhyMode");
    auto* const types = library.Find<StringExport>("RF_BTConnectedType");
    for (int time = 0; time < 3; ++time) { // read, then cached
        Check(phyMode, Plain(one.phyMode));
        Check(types, one.fixedTypes != nullptr ? Plain(one.fixedTypes) : TypesOf(one));
    }
    CheckConvention(phyMode);
    CheckConvention(types);
    SetConditions(library.Module(), {});
}

void CheckFailedReads() {
    Doing = "failed reads";
    const LoadedCopy library(L"VeskSondrel64.dll");
    SetConditions(library.Module(), {true, fake_radios::Failing, nullptr, fake_radios::Failing, false});
    Check(library.Find<StringExport>("RF_PhyMode"), Plain("error_string"));
    Check(library.Find<StringExport>("RF_BTConnectedType"), Plain("error_string"));
    SetConditions(library.Module(), {});
}

/// Lengths that no radio's answer has, for both exports.
void CheckChosenStrings() {
    Doing = "chosen strings";
    const HANDLE library = LoadLibraryW(L"chosen_strings.dll");
    Expect(library != nullptr, "chosen_strings.dll loads");
    auto* const set = reinterpret_cast<void (*)(const char*, size_t)>(GetProcAddress(library, "SetText"));
    constexpr size_t Lengths[] = {0, 1, 14, 15, 16, 17, 31, 32, 33, 1000, 4093, 4094, 4095, 4096, 9000};
    constexpr const char* Names[] = {"RF_PhyMode", "RF_BTConnectedType"};
    for (const char* const name : Names) {
        auto* const call = reinterpret_cast<StringExport*>(GetProcAddress(library, name));
        for (const size_t length : Lengths) {
            NarrowText text;
            while (text.Size() < length) {
                text.Add("x");
            }
            set(text.Characters(), length);
            Check(call, length < 4095 ? text : NarrowText()); // a word too long for a block leaves nothing
        }
        set("twenty characters;..", 20);
        SetConditions(library, {false, 0, nullptr, 0, true});
        Check(call, Plain("error_string"));
        SetConditions(library, {});
        Check(call, Plain("twenty characters;.."));
    }
}

void CheckVersionResource() {
    Doing = "version resource";
    static unsigned char data[8192];
    void* layout = nullptr;
    unsigned size = 0;
    Expect(GetFileVersionInfoW(L"VeskSondrel64.dll", 0, sizeof data, data) != 0 &&
               VerQueryValueW(data, L"\\StringFileInfo\\040904B0\\StringLayout", &layout, &size) != 0,
           "the resource has the field StringLayout");
    const auto* text = static_cast<const wchar_t*>(layout);
    Expect(layout != nullptr && size == 5 && text[0] == 'm' && text[1] == 's' && text[2] == 'v' &&
               text[3] == 'c',
           "its value is msvc");
}

} // namespace

void operator delete(void* block, size_t) noexcept {
    ++BlocksReturned;
    Expect(HeapValidate(GetProcessHeap(), 0, block) != 0 && HeapFree(GetProcessHeap(), 0, block) != 0,
           "the heap takes the block back");
}

extern "C" void start() {
    Doing = "linked with the import library";
    Expect(GetIoDllVersion() == 0x00010001, "GetIoDllVersion");
    Check(&RF_PhyMode, Plain("init_string"));
    CheckVersionResource();
    for (const Case& one : Cases) {
        CheckRadios(one);
    }
    CheckFailedReads();
    CheckChosenStrings();
    Print(Failures == 0 ? "all strings are those of Visual C++\n" : "failed\n");
    ExitProcess(Failures == 0 ? 0 : 1);
}
