// The list of network adapters on a real Windows: the back end by itself against lists that a test dictates, and
// the two exports that use it.
#include "import_patch.h"
#include "library.h"

#include "platform/network_adapters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <winsock2.h>

#include <iphlpapi.h>

#include <array>
#include <functional>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What GetAdaptersInfo answers.
std::function<ULONG(IP_ADAPTER_INFO*, ULONG&)> AdapterList;
std::vector<ULONG> AskedSizes;

ULONG WINAPI ListAdapters(IP_ADAPTER_INFO* buffer, ULONG* size) {
    AskedSizes.push_back(*size);
    return AdapterList(buffer, *size);
}

std::uintptr_t AddressOf(const IP_ADAPTER_INFO* record) {
    return reinterpret_cast<std::uintptr_t>(record);
}

/// Two records, the second one behind the place that `next` gives for it.
auto TwoRecords(const std::function<std::uintptr_t(const IP_ADAPTER_INFO*)>& next) {
    return [next](IP_ADAPTER_INFO* buffer, ULONG&) -> ULONG {
        buffer[0].Index = 5;
        buffer[0].Type = IF_TYPE_IEEE80211;
        buffer[0].Next = reinterpret_cast<IP_ADAPTER_INFO*>(next(buffer));
        buffer[1].Index = 6;
        buffer[1].Type = MIB_IF_TYPE_ETHERNET;
        return ERROR_SUCCESS;
    };
}

class NetworkAdaptersTest : public ::testing::Test {
protected:
    NetworkAdaptersTest() { AskedSizes.clear(); }

    /// The indices that the back end takes from a list of two records, linked as said.
    static std::vector<std::uint32_t>
    IndicesLinkedBy(const std::function<std::uintptr_t(const IP_ADAPTER_INFO*)>& next) {
        test::ImportPatch patch(::GetModuleHandleW(nullptr));
        patch.Replace("GetAdaptersInfo", &ListAdapters);
        AdapterList = TwoRecords(next);
        std::uint32_t size = 2 * sizeof(IP_ADAPTER_INFO);
        std::vector<platform::NetworkAdapter> adapters;
        EXPECT_EQ(platform::GetAdaptersInfo(size, adapters), 0u);
        std::vector<std::uint32_t> indices;
        for (const platform::NetworkAdapter& adapter : adapters) {
            indices.push_back(adapter.index);
        }
        return indices;
    }

    template <class Export>
    static std::wstring TextOf(Export* reading) {
        std::array<wchar_t, 1024> out{L"untouched"};
        reading(out.data(), 1);
        return out.data();
    }

    test::Library m_library;
};

TEST_F(NetworkAdaptersTest, KeepsWithinTheBufferHoweverTheListIsLinked) {
    EXPECT_THAT(IndicesLinkedBy([](auto* first) { return AddressOf(first + 1); }), ElementsAre(5, 6));
    EXPECT_THAT(IndicesLinkedBy([](auto*) { return std::uintptr_t{0}; }), ElementsAre(5));
    EXPECT_THAT(IndicesLinkedBy([](auto* first) { return AddressOf(first + 2); }), ElementsAre(5));
    EXPECT_THAT(IndicesLinkedBy([](auto* first) { return AddressOf(first + 1) + 1; }), ElementsAre(5));
    EXPECT_THAT(IndicesLinkedBy([](auto* first) { return AddressOf(first) - 8; }), ElementsAre(5));
    EXPECT_THAT(IndicesLinkedBy([](auto* first) { return AddressOf(first); }),
                ElementsAre(5, 5)); // in a ring
}

TEST_F(NetworkAdaptersTest, GivesTheSizeThatALongerListTakes) {
    test::ImportPatch patch(::GetModuleHandleW(nullptr));
    patch.Replace("GetAdaptersInfo", &ListAdapters);
    AdapterList = [](IP_ADAPTER_INFO*, ULONG& size) -> ULONG {
        size = 4000;
        return ERROR_BUFFER_OVERFLOW;
    };
    std::uint32_t size = 704;
    std::vector<platform::NetworkAdapter> adapters;
    EXPECT_EQ(platform::GetAdaptersInfo(size, adapters), platform::error::BufferOverflow);
    EXPECT_EQ(size, 4000u);
    EXPECT_THAT(adapters, IsEmpty());
}

TEST_F(NetworkAdaptersTest, AsksTwiceAtMostAndLeavesTheBufferWithoutAList) {
    test::ImportPatch patch(m_library.Module());
    patch.Replace("GetAdaptersInfo", &ListAdapters);
    AdapterList = [](IP_ADAPTER_INFO*, ULONG& size) -> ULONG {
        size += 704;
        return ERROR_BUFFER_OVERFLOW;
    };
    EXPECT_EQ(TextOf(VESK_CALL(m_library, WMIGetWiFiCardName)), L"untouched");
    EXPECT_THAT(AskedSizes, ElementsAre(704, 1408));
    AdapterList = [](IP_ADAPTER_INFO*, ULONG&) -> ULONG {
        return ERROR_NO_DATA;
    };
    EXPECT_EQ(TextOf(VESK_CALL(m_library, WMIGetWiFiCardName)), L"untouched");
    AdapterList = [](IP_ADAPTER_INFO* buffer, ULONG&) -> ULONG {
        buffer->Type = MIB_IF_TYPE_ETHERNET;
        return ERROR_SUCCESS;
    };
    EXPECT_EQ(TextOf(VESK_CALL(m_library, WMIGetWiFiCardName)), L"");
}

} // namespace
