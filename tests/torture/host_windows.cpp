#include "host.h"

#include "import_patch.h"

#include <windows.h>

#include <process.h>

#include <cstdlib>
#include <stdexcept>

namespace torture {
namespace {

// Windows reads, writes and cuts a file in one step each. Under Wine it is a file of Linux, where a reader can get the
// new bytes with the old length: there, one process at a time makes such a call.
class OneCallAtATime {
public:
    OneCallAtATime() { ::WaitForSingleObject(Turn, INFINITE); } // also after one that was killed in its turn
    OneCallAtATime(const OneCallAtATime&) = delete;
    OneCallAtATime& operator=(const OneCallAtATime&) = delete;
    ~OneCallAtATime() { ::ReleaseMutex(Turn); }

    static inline HANDLE Turn = nullptr;
};

// The address of an imported function can be that of a jump through the import table, which is replaced.
template <class Function>
Function* RealFunction(Function*, const char* name) {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"kernel32.dll"), name)));
}

const auto RealReadFile = RealFunction(&::ReadFile, "ReadFile");
const auto RealWriteFile = RealFunction(&::WriteFile, "WriteFile");
const auto RealSetInformation = RealFunction(&::SetFileInformationByHandle, "SetFileInformationByHandle");

BOOL WINAPI Read(HANDLE file, void* buffer, DWORD size, DWORD* read, OVERLAPPED* place) {
    const OneCallAtATime turn;
    return RealReadFile(file, buffer, size, read, place);
}

BOOL WINAPI Write(HANDLE file, const void* data, DWORD size, DWORD* written, OVERLAPPED* place) {
    const OneCallAtATime turn;
    return RealWriteFile(file, data, size, written, place);
}

BOOL WINAPI SetInformation(HANDLE file, FILE_INFO_BY_HANDLE_CLASS kind, void* info, DWORD size) {
    const OneCallAtATime turn;
    return RealSetInformation(file, kind, info, size);
}

bool IsWine() {
    return ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

void MakeCallsInOneStep() {
    OneCallAtATime::Turn = ::CreateMutexW(nullptr, FALSE, L"VeskSettingsTorture");
    if (OneCallAtATime::Turn == nullptr) {
        throw std::runtime_error("a mutex could not be made");
    }
    static test::ImportPatch patch(::GetModuleHandleW(nullptr));
    patch.Replace("ReadFile", &Read);
    patch.Replace("WriteFile", &Write);
    patch.Replace("SetFileInformationByHandle", &SetInformation);
}

} // namespace

std::u16string Prepare(const std::filesystem::path& directory) {
    if (IsWine()) {
        MakeCallsInOneStep();
    }
    return FileOnDisk(directory).u16string();
}

std::filesystem::path FileOnDisk(const std::filesystem::path& directory) {
    std::filesystem::create_directories(directory / "settings");
    return directory / "settings" / "Setting.txt";
}

Child::Child(const std::vector<std::string>& arguments) {
    std::vector<const char*> values{_pgmptr};
    for (const std::string& argument : arguments) {
        values.push_back(argument.c_str()); // none needs quotes
    }
    values.push_back(nullptr);
    m_process = ::_spawnv(_P_NOWAIT, _pgmptr, values.data());
    if (m_process == -1) {
        throw std::runtime_error("a process could not be started");
    }
}

Child::~Child() {
    const auto process = reinterpret_cast<HANDLE>(m_process);
    ::TerminateProcess(process, 1);
    ::WaitForSingleObject(process, INFINITE);
    ::CloseHandle(process);
}

unsigned ProcessNumber() {
    return ::GetCurrentProcessId();
}

} // namespace torture
