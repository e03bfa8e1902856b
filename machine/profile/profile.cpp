#include "machine/profile/profile.h"

#include "machine/profile/applications_profile.h"
#include "machine/profile/built_in_machines.h"
#include "machine/profile/profile_reader.h"
#include "machine/text/wide_text.h"
#include "platform/registry.h"

#include <nlohmann/json.hpp>

#include <fstream>
#include <iterator>

namespace machine {
namespace {

DriverProfile ReadDriver(ProfileReader reader) {
    DriverProfile driver;
    driver.present = reader.Flag("present", true);
    driver.heldBy = static_cast<DriverHolder>(reader.Choice("held_by_other", {"no", "shared", "alone"}, 0));
    driver.version = reader.Number<std::uint32_t>("version", 0);
    driver.refCount = reader.Number<std::uint32_t>("ref_count", 0);
    reader.Finish();
    return driver;
}

ProcessorProfile ReadProcessor(ProfileReader reader) {
    ProcessorProfile processor;
    processor.vendor = reader.Has("vendor") ? reader.FixedText("vendor", 12) : std::string(12, '\0');
    for (auto& leaf : reader.Objects("cpuid")) {
        const auto number = static_cast<std::uint32_t>(leaf.Number("leaf", 0, 0xFFFFFFFF));
        processor.leaves[number] = {
            leaf.Number<std::uint32_t>("eax", 0), leaf.Number<std::uint32_t>("ebx", 0),
            leaf.Number<std::uint32_t>("ecx", 0), leaf.Number<std::uint32_t>("edx", 0)};
        leaf.Finish();
    }
    processor.packagePower = reader.Number<std::uint32_t>("package_power", 0);
    processor.powerLimit1 = reader.Number<std::uint32_t>("power_limit_1", 0);
    processor.powerLimit2 = reader.Number<std::uint32_t>("power_limit_2", 0);
    reader.Finish();
    return processor;
}

/// A value's data in the form that its type has in a profile: a text, a number, a list of texts or bytes.
std::vector<std::byte> ReadRegistryData(ProfileReader& reader, std::uint32_t type) {
    if (reader.Raw("data").is_object()) {
        // {"bytes": "..."}: what a careless writer left there, whatever the type.
        ProfileReader raw = reader.Object("data");
        auto bytes = raw.Bytes("bytes");
        raw.Finish();
        return bytes;
    }
    switch (type) {
    case platform::value_type::Dword: {
        const auto number = static_cast<std::uint32_t>(reader.Number("data", 0, 0xFFFFFFFF));
        const auto bytes = std::as_bytes(std::span(&number, 1));
        return {bytes.begin(), bytes.end()};
    }
    case platform::value_type::MultiString: {
        std::u16string all;
        for (const std::string& text : reader.Texts("data")) {
            all += WideFromUtf8(text) + u'\0';
        }
        return TextData(all);
    }
    case platform::value_type::Binary:
        return reader.Bytes("data");
    default:
        return TextData(WideFromUtf8(reader.Text("data")));
    }
}

RegistryProfile ReadRegistry(ProfileReader reader) {
    constexpr std::uint32_t Types[] = {platform::value_type::String, platform::value_type::ExpandString,
                                       platform::value_type::Binary, platform::value_type::Dword,
                                       platform::value_type::MultiString};
    const auto keyPath = [](ProfileReader& at, std::string_view name, const std::string& path) {
        if (!path.starts_with("HKLM\\") && !path.starts_with("HKCU\\")) {
            at.Fail(name, "a key that begins with \"HKLM\\\" or \"HKCU\\\"");
        }
        return WideFromUtf8(path);
    };
    RegistryProfile registry;
    for (const std::string& key : reader.Texts("keys")) {
        registry.keys.push_back(keyPath(reader, "keys", key));
    }
    for (auto& value : reader.Objects("values")) {
        RegistryValue row;
        row.key = keyPath(value, "key", value.Text("key"));
        row.name = WideFromUtf8(value.Text("name"));
        row.type = Types[value.Choice(
            "type", {"REG_SZ", "REG_EXPAND_SZ", "REG_BINARY", "REG_DWORD", "REG_MULTI_SZ"}, 0)];
        row.data = ReadRegistryData(value, row.type);
        value.Finish();
        registry.values.push_back(std::move(row));
    }
    for (const std::string& key : reader.Texts("read_only")) {
        registry.readOnly.push_back(keyPath(reader, "read_only", key));
    }
    reader.Finish();
    return registry;
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

std::vector<std::byte> TextData(std::u16string text) {
    text.push_back(u'\0');
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

Profile ParseProfile(std::string_view text, const std::string& source) {
    try {
        const auto document = nlohmann::json::parse(text);
        ProfileReader reader(document, "");
        Profile profile;
        reader.Text("$schema", ""); // for the editor that the profile is written in
        profile.name = reader.Text("name");
        profile.description = reader.Text("description", "");
        profile.ec = ReadEc(reader.Object("ec"));
        profile.driver = ReadDriver(reader.Object("driver"));
        profile.processor = ReadProcessor(reader.Object("processor"));
        profile.batteries = ReadBatteries(reader);
        profile.systemPower = ReadSystemPower(reader.Object("system_power"));
        if (reader.Has("course")) {
            profile.course = ReadCourse(reader.Object("course"));
        }
        profile.registry = ReadRegistry(reader.Object("registry"));
        profile.network = ReadNetwork(reader.Object("network"));
        profile.wifi = ReadWifi(reader.Object("wifi"));
        profile.bluetooth = ReadBluetooth(reader.Object("bluetooth"));
        profile.acpi = ReadAcpi(reader.Object("acpi"));
        profile.firmwareVariables = ReadFirmwareVariables(reader.Object("firmware_variables"));
        profile.firmwareFeatures = ReadFirmwareFeatures(reader.Object("firmware_features"));
        profile.files = ReadFiles(reader.Object("files"));
        profile.wmi = ReadWmi(reader.Object("wmi"));
        ReadApplications(reader.Object("applications"), profile.registry);
        profile.packages = ReadPackages(reader.Object("packages"), profile.registry);
        profile.deviceNodes = ReadDeviceNodes(reader.Objects("pnp_devices"), profile.registry);
        profile.processes = ReadProcesses(reader.Objects("processes"));
        profile.windows = ReadWindows(reader.Objects("windows"));
        profile.system = ReadSystem(reader.Object("system"));
        profile.audio = ReadAudio(reader.Object("audio"));
        reader.Finish();
        profile.digest = DigestOf(text);
        return profile;
    } catch (const nlohmann::json::parse_error& problem) {
        throw ProfileError(source + ": not a JSON text: " + problem.what());
    } catch (const nlohmann::json::out_of_range& problem) { // a number that no double holds
        throw ProfileError(source + ": not a JSON text: " + problem.what());
    } catch (const ProfileError& problem) {
        throw ProfileError(source + ": " + problem.what());
    }
}

Profile LoadProfile(const std::string& nameOrFile) {
    for (const BuiltInMachine& builtIn : BuiltInMachineTexts()) {
        if (builtIn.name == nameOrFile) {
            return ParseProfile(builtIn.text, "built-in machine " + nameOrFile);
        }
    }
    std::ifstream file(nameOrFile, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || file.bad()) {
        throw ProfileError(nameOrFile +
                           ": expected the name of a built-in machine or a profile that can be read");
    }
    return ParseProfile(text, nameOrFile);
}

std::vector<std::string> BuiltInMachines() {
    std::vector<std::string> names;
    for (const BuiltInMachine& builtIn : BuiltInMachineTexts()) {
        names.emplace_back(builtIn.name);
    }
    return names;
}

} // namespace machine
