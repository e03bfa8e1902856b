#include "machine/profile/profile.h"

#include "machine/profile/built_in_machines.h"
#include "machine/profile/profile_document.h"
#include "unicode/utf.h"

#include <algorithm>

namespace machine {
namespace {

/// The name is a part of the name of the machine's files.
bool IsFileName(const std::string& name) {
    constexpr std::size_t Longest = 100;
    const bool isPlain = std::ranges::none_of(unicode::WideFromUtf8(name), [](char16_t each) {
        return each < 0x20 || (each >= 0x7F && each < 0xA0) || each == u'/' || each == u'\\';
    });
    return isPlain && name.size() <= Longest && !name.starts_with('.') && !name.empty();
}

void ReadSections(ProfileReader& reader, Profile& profile) {
    std::string ignored;
    reader.String("$schema", ignored); // for the editor that the profile is written in
    reader.String(
        "name", profile.name, Presence::Required,
        {"a string of 1 to 100 bytes without slashes, backslashes and control characters that does not "
         "begin with a point",
         IsFileName});
    reader.String("description", profile.description);
    reader.Object(
        "ec", [&](ProfileReader& ec) { ReadEc(ec, profile.ec); }, Presence::Required);
    reader.Object("driver", profile.driver, ReadDriver);
    reader.Object("processor", profile.processor, ReadProcessor);
    reader.Objects("batteries", profile.batteries, ReadBattery);
    reader.Object("system_power", profile.systemPower, ReadSystemPower);
    reader.Object("course", profile.course, ReadCourse);
    reader.Object("registry", profile.registry, ReadRegistry);
    reader.Object("network", profile.network, ReadNetwork);
    reader.Object("wifi", profile.wifi, ReadWifi);
    reader.Object("bluetooth", profile.bluetooth, ReadBluetooth);
    reader.Object("acpi", profile.acpi, ReadAcpi);
    reader.Object("firmware_variables", profile.firmwareVariables, ReadFirmwareVariables);
    reader.Object("firmware_features", profile.firmwareFeatures, ReadFirmwareFeatures);
    reader.Object("files", profile.files, ReadFiles);
    reader.Object("wmi", profile.wmi, ReadWmi);
    reader.Object("applications", profile.registry, ReadApplications);
    reader.Object("packages", [&](ProfileReader& packages) {
        ReadPackages(packages, profile.packages, profile.registry);
    });
    reader.Objects("pnp_devices", [&](ProfileReader& device) {
        ReadDeviceNode(device, profile.deviceNodes.emplace_back(), profile.registry);
    });
    reader.Objects("processes", profile.processes, ReadProcess);
    reader.Objects("windows", profile.windows, ReadWindow);
    reader.Object("system", profile.system, ReadSystem);
    reader.Object("audio", profile.audio, ReadAudio);
}

/// FNV-1a: small, and the same on every build.
std::uint64_t DigestOf(std::string_view text) {
    std::uint64_t digest = 0xCBF29CE484222325;
    for (const char byte : text) {
        digest = (digest ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
    }
    return digest;
}

} // namespace

Profile ReadProfile(std::string_view text, ProfileIssues& issues) {
    Profile profile;
    if (const auto document = ReadDocument(text, issues)) {
        ProfileReader::Read(*document, "", issues,
                            [&](ProfileReader& reader) { ReadSections(reader, profile); });
    }
    profile.digest = DigestOf(text);
    return profile;
}

Profile ParseProfile(std::string_view text, const std::string& source) {
    ProfileIssues issues;
    Profile profile = ReadProfile(text, issues);
    if (!issues.empty()) {
        const ProfileIssue& first = issues.front();
        const std::string place = first.byte ? "" : (first.pointer.empty() ? "/" : first.pointer) + ": ";
        const std::string others =
            issues.size() > 1 ? " (and " + std::to_string(issues.size() - 1) + " more)" : "";
        throw ProfileError(source + ": " + place + first.message + others);
    }
    return profile;
}

Profile LoadProfile(const std::string& nameOrFile) {
    for (const BuiltInMachine& builtIn : BuiltInMachineTexts()) {
        if (builtIn.name == nameOrFile) {
            return ParseProfile(builtIn.text, "built-in machine " + nameOrFile);
        }
    }
    std::string text;
    try {
        text = ReadProfileFile(nameOrFile);
    } catch (const std::runtime_error& problem) {
        throw ProfileError(nameOrFile + ": " + problem.what() +
                           "; expected the name of a built-in machine or a profile that can be read");
    }
    return ParseProfile(text, nameOrFile);
}

} // namespace machine
