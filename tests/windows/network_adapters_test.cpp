// A list of network adapters that is not linked as it should be.
#include "import_patch.h"

#include "platform/network_adapters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <winsock2.h>

#include <iphlpapi.h>

#include <vector>

namespace {

using ::testing::ElementsAre;

using Link = std::uintptr_t (*)(const IP_ADAPTER_INFO* first);

Link Next; // what the first record points to

ULONG WINAPI ListTwo(IP_ADAPTER_INFO* buffer, ULONG*) {
    buffer[0].Index = 5;
    buffer[0].Next = reinterpret_cast<IP_ADAPTER_INFO*>(Next(buffer));
    buffer[1].Index = 6;
    return ERROR_SUCCESS;
}

std::uintptr_t AddressOf(const IP_ADAPTER_INFO* record) {
    return reinterpret_cast<std::uintptr_t>(record);
}

/// The indices that the back end takes from a list of two records, linked as said.
std::vector<std::uint32_t> IndicesLinkedBy(Link next) {
    // The library's own objects are part of this program.
    test::ImportPatch patch(::GetModuleHandleW(nullptr));
    patch.ReplaceRoutine("GetAdaptersInfo", &ListTwo);
    Next = next;
    std::uint32_t size = 2 * sizeof(IP_ADAPTER_INFO);
    std::vector<platform::NetworkAdapter> adapters;
    EXPECT_EQ(platform::GetAdaptersInfo(size, adapters), 0u);
    std::vector<std::uint32_t> indices;
    for (const platform::NetworkAdapter& adapter : adapters) {
        indices.push_back(adapter.index);
    }
    return indices;
}

TEST(NetworkAdaptersTest, KeepsWithinTheBufferHoweverTheListIsLinked) {
    EXPECT_THAT(IndicesLinkedBy([](auto* first) { return AddressOf(first + 1); }), ElementsAre(5, 6));
    EXPECT_THAT(IndicesLinkedBy([](auto*) { return std::uintptr_t{0}; }), ElementsAre(5));
    EXPECT_THAT(IndicesLinkedBy([](auto* first) { return AddressOf(first + 2); }), ElementsAre(5));
    EXPECT_THAT(IndicesLinkedBy([](auto* first) { return AddressOf(first + 3); }), ElementsAre(5));
    EXPECT_THAT(IndicesLinkedBy([](auto* first) { return AddressOf(first + 1) + 1; }), ElementsAre(5));
    EXPECT_THAT(IndicesLinkedBy([](auto* first) { return AddressOf(first) - 8; }), ElementsAre(5));
    EXPECT_THAT(IndicesLinkedBy([](auto* first) { return AddressOf(first); }),
                ElementsAre(5, 5)); // in a ring
}

} // namespace
