#include "host.h"

#include <windows.h>

#include <process.h>

#include <cstdlib>
#include <stdexcept>

namespace torture {

std::u16string Prepare(const std::filesystem::path& directory) {
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
