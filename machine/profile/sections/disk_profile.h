// What is on a profile's disk at the machine's first start: registry and files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace machine {

class ProfileReader;

struct RegistryValue {
    std::u16string key; // with the hive's short name in front: HKLM\SOFTWARE\...
    std::u16string name;
    std::uint32_t type = 0;
    std::vector<std::byte> data;
};

struct RegistryProfile {
    std::vector<std::u16string> keys; // keys without values
    std::vector<RegistryValue> values;
    std::vector<std::u16string> readOnly; // keys below which nothing may be written

    void AddString(std::u16string key, std::u16string name, const std::u16string& text);
    void AddNumber(std::u16string key, std::u16string name, std::uint32_t number);
};

struct FileProfile {
    std::u16string path;
    std::string text;
};

struct FilesProfile {
    std::vector<std::u16string> directories;
    std::vector<FileProfile> files;
    /// Files on which another process holds a lock: no lock on them is granted.
    std::vector<std::u16string> locked;
};

void ReadRegistry(ProfileReader& reader, RegistryProfile& registry);
void ReadFiles(ProfileReader& reader, FilesProfile& files);

} // namespace machine
