// What settings_torture needs of the system that it runs on.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace torture {

/// Makes the system ready in a directory of the test's own. Returns the settings file's name as the library takes it.
std::u16string Prepare(const std::filesystem::path& directory);

/// The settings file as other programs see it.
std::filesystem::path FileOnDisk(const std::filesystem::path& directory);

/// Another process of this program. Killed at the end.
class Child {
public:
    explicit Child(const std::vector<std::string>& arguments);
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child();

private:
    std::intptr_t m_process;
};

unsigned ProcessNumber();

} // namespace torture
