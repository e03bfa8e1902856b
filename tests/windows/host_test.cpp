#include "host_test.h"

namespace test {

Rule EcRule(std::string_view sent, std::uint8_t byte, std::uint32_t status) {
    constexpr std::size_t ResultAt = 11;
    Bytes prefix = FromHex(sent);
    // The number of data bytes stands between the command and the data.
    prefix.insert(prefix.begin() + 1, static_cast<std::uint8_t>(prefix.size() - 1));
    Bytes output = prefix;
    output.resize(ResultAt);
    output.push_back(byte);
    const Bytes word = Words({status});
    output.insert(output.end(), word.begin(), word.end());
    return {.code = driver_request::EcCommand, .prefix = prefix, .output = output};
}

HostTest::HostTest() {
    m_stand.AddDevice(device::IoDriver);
}

std::vector<std::string> HostTest::EcCommands() const {
    std::vector<std::string> commands;
    for (const DriverRequest& request : m_stand.Requests(device::IoDriver)) {
        if (request.code != driver_request::EcCommand) {
            continue;
        }
        const auto count = std::stoul(request.in.substr(2, 2), nullptr, 16);
        const bool reads = request.in.substr(20, 2) != "00";
        std::string command = (reads ? "" : "w ") + request.in.substr(0, 2);
        if (count != 0) {
            command += ' ' + request.in.substr(4, count * 2);
        }
        commands.push_back(command);
    }
    return commands;
}

} // namespace test
