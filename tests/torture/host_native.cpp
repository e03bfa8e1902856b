// The simulated machine: each process has its own, on one store.
#include "host.h"

#include "machine/machine.h"
#include "machine/models/storage/file_system.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

extern char** environ;

namespace torture {
namespace {

constexpr const char16_t* SettingsFile = u"C:\\Settings\\Setting.txt";

} // namespace

std::u16string Prepare(const std::filesystem::path& directory) {
    machine::Start(machine::ParseProfile(R"({"name": "torture", "ec": {"revision": "KL", "chip_name": "KC01"},
                                             "files": {"directories": ["C:\\Settings"]}})",
                                         "torture"),
                   (directory / "store").string());
    machine::Current()->clock.TieToRealTime(true);
    return SettingsFile;
}

std::filesystem::path FileOnDisk(const std::filesystem::path&) {
    return *machine::Current()->storage.files->HostPath(SettingsFile);
}

Child::Child(const std::vector<std::string>& arguments) {
    std::string self = std::filesystem::read_symlink("/proc/self/exe").string();
    std::vector<std::string> texts(arguments);
    std::vector<char*> values{self.data()};
    for (std::string& text : texts) {
        values.push_back(text.data());
    }
    values.push_back(nullptr);
    pid_t process = 0;
    if (::posix_spawn(&process, self.c_str(), nullptr, nullptr, values.data(), environ) != 0) {
        throw std::runtime_error("a process could not be started");
    }
    m_process = process;
}

Child::~Child() {
    const auto process = static_cast<pid_t>(m_process);
    ::kill(process, SIGKILL);
    ::waitpid(process, nullptr, 0);
}

unsigned ProcessNumber() {
    return static_cast<unsigned>(::getpid());
}

} // namespace torture
