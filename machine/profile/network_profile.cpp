#include "machine/profile/network_profile.h"

#include "machine/profile/profile_reader.h"

namespace machine {
namespace {

std::vector<AdapterProfile> ReadAdapters(ProfileReader& reader, std::string_view name) {
    // Numbers of the interface type registry, in the order of their names below.
    constexpr std::uint32_t Types[] = {6, 23, 24, 71, 131, 243};
    std::vector<AdapterProfile> adapters;
    for (auto& adapter : reader.Objects(name)) {
        AdapterProfile row;
        row.index = adapter.Number<std::uint32_t>("index", 0);
        row.type =
            Types[adapter.Choice("type", {"ethernet", "ppp", "loopback", "wireless", "tunnel", "mobile"}, 0)];
        adapter.Finish();
        adapters.push_back(row);
    }
    return adapters;
}

} // namespace

NetworkProfile ReadNetwork(ProfileReader reader) {
    NetworkProfile network;
    network.adapters = ReadAdapters(reader, "adapters");
    network.arriving = ReadAdapters(reader, "arriving");
    reader.Finish();
    return network;
}

} // namespace machine
