// The WLAN library's answers at their edges: blocks of memory that are not what they say, null lists, routines that
// are not there. What good ones give is compared with the native library's.
#include "import_patch.h"
#include "library.h"

#include "platform/wlan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windot11.h>
#include <wlanapi.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

namespace {

using ::testing::Each;
using ::testing::Field;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// What every routine answers, and how many blocks are out. The routines are plain functions.
DWORD Status;
std::vector<std::byte> Block; // empty: a null pointer
int BlocksOut;

template <class Content>
DWORD Hand(Content** out) {
    if (Status == ERROR_SUCCESS && !Block.empty()) {
        *out = static_cast<Content*>(::HeapAlloc(::GetProcessHeap(), 0, Block.size()));
        std::ranges::copy(Block, reinterpret_cast<std::byte*>(*out));
        ++BlocksOut;
    }
    return Status;
}

DWORD WINAPI EnumInterfaces(HANDLE, PVOID, PWLAN_INTERFACE_INFO_LIST* list) {
    return Hand(list);
}

DWORD WINAPI QueryInterface(HANDLE, const GUID*, WLAN_INTF_OPCODE, PVOID, PDWORD size, PVOID* data,
                            PWLAN_OPCODE_VALUE_TYPE) {
    *size = static_cast<DWORD>(Block.size());
    return Hand(reinterpret_cast<std::byte**>(data));
}

DWORD WINAPI GetBssList(HANDLE, const GUID*, PDOT11_SSID ssid, DOT11_BSS_TYPE type, WINBOOL security, PVOID,
                        PWLAN_BSS_LIST* list) {
    EXPECT_TRUE(ssid == nullptr && type == dot11_BSS_type_infrastructure && security == TRUE);
    return Hand(list);
}

void WINAPI FreeMemory(PVOID block) {
    --BlocksOut;
    ::HeapFree(::GetProcessHeap(), 0, block);
}

template <class Value>
void Append(const Value& value) {
    const auto* bytes = reinterpret_cast<const std::byte*>(&value);
    Block.insert(Block.end(), bytes, bytes + sizeof value);
}

class WlanTest : public ::testing::Test {
protected:
    WlanTest() {
        Status = ERROR_SUCCESS;
        Block.clear();
        BlocksOut = 0;
        m_patch.ReplaceRoutine("WlanEnumInterfaces", &EnumInterfaces);
        m_patch.ReplaceRoutine("WlanQueryInterface", &QueryInterface);
        m_patch.ReplaceRoutine("WlanGetNetworkBssList", &GetBssList);
        m_patch.ReplaceRoutine("WlanFreeMemory", &FreeMemory);
    }

    ~WlanTest() override { EXPECT_EQ(BlocksOut, 0); }

    platform::SystemError ReadInterfaces() { return platform::WlanEnumInterfaces({}, m_interfaces); }

    platform::SystemError ReadConnection() {
        return platform::WlanQueryInterface({}, {}, platform::wlan::CurrentConnection, m_connection);
    }

    platform::SystemError ReadChannel() {
        return platform::WlanQueryInterface({}, {}, platform::wlan::ChannelNumber, m_channel);
    }

    platform::SystemError ReadPoints() { return platform::WlanGetNetworkBssList({}, {}, 1, true, m_points); }

    std::vector<platform::WlanInterface> m_interfaces{1};
    std::optional<platform::WlanConnection> m_connection{platform::WlanConnection{}};
    std::optional<std::uint32_t> m_channel{1};
    std::vector<platform::WlanBssEntry> m_points{1};
    // The library's own objects are part of this program.
    test::ImportPatch m_patch{::GetModuleHandleW(nullptr)};
};

TEST_F(WlanTest, NullListsAndFailuresGiveNothing) {
    for (const DWORD status : {DWORD{ERROR_SUCCESS}, DWORD{ERROR_ACCESS_DENIED}}) {
        Status = status;
        EXPECT_EQ(ReadInterfaces(), status);
        EXPECT_EQ(ReadConnection(), status);
        EXPECT_EQ(ReadChannel(), status);
        EXPECT_EQ(ReadPoints(), status);
        EXPECT_THAT(m_interfaces, IsEmpty());
        EXPECT_FALSE(m_connection || m_channel);
        EXPECT_THAT(m_points, IsEmpty());
    }
}

TEST_F(WlanTest, AWindowsWithoutARoutineOrTheLibrarySaysSo) {
    m_patch.ReplaceRoutine<decltype(GetBssList)>("WlanGetNetworkBssList", nullptr);
    EXPECT_EQ(ReadPoints(), ERROR_PROC_NOT_FOUND);
    m_patch.HideLibrary(L"wlanapi.dll");
    EXPECT_EQ(ReadInterfaces(), ERROR_MOD_NOT_FOUND);
    EXPECT_EQ(ReadChannel(), ERROR_MOD_NOT_FOUND);
}

TEST_F(WlanTest, AnswersTooSmallForTheirRecordCountAsNone) {
    Append(ULONG{44});
    EXPECT_EQ(ReadChannel(), ERROR_SUCCESS);
    EXPECT_EQ(m_channel, 44u);
    Block.pop_back();
    EXPECT_EQ(ReadChannel(), ERROR_SUCCESS);
    EXPECT_EQ(m_channel, std::nullopt);
    Block.resize(sizeof(WLAN_CONNECTION_ATTRIBUTES) - 1);
    EXPECT_EQ(ReadConnection(), ERROR_SUCCESS);
    EXPECT_FALSE(m_connection);
}

TEST_F(WlanTest, TakesADescriptionWithoutTerminator) {
    Append(std::array<DWORD, 2>{2, 0});
    WLAN_INTERFACE_INFO row{};
    std::ranges::fill(row.strInterfaceDescription, L'x');
    Append(row);
    Append(row);
    EXPECT_EQ(ReadInterfaces(), ERROR_SUCCESS);
    EXPECT_THAT(m_interfaces, SizeIs(2));
    EXPECT_THAT(m_interfaces, Each(Field(&platform::WlanInterface::description, std::u16string(256, u'x'))));
}

TEST_F(WlanTest, AListOfAccessPointsIsReadWithinItsBounds) {
    constexpr std::array<BYTE, 3> Elements{45, 1, 0};
    constexpr DWORD Whole = 8 + sizeof(WLAN_BSS_ENTRY) + Elements.size();
    const auto read = [&](DWORD count, DWORD totalSize, ULONG offset, ULONG size) {
        Block.clear();
        Append(std::array<DWORD, 2>{totalSize, count});
        Append(WLAN_BSS_ENTRY{.ulIeOffset = offset, .ulIeSize = size});
        Append(Elements);
        EXPECT_EQ(ReadPoints(), ERROR_SUCCESS);
        return m_points.size() * 10 + (m_points.empty() ? 0 : m_points[0].informationElements.size());
    };
    constexpr ULONG After = sizeof(WLAN_BSS_ENTRY);
    EXPECT_EQ(read(1, Whole, After, 3), 13u);
    EXPECT_EQ(read(1, Whole, After, 2), 12u);
    EXPECT_EQ(read(0, Whole, After, 3), 0u);
    EXPECT_EQ(read(0xFFFFFFFF, Whole, After, 3), 13u) << "more entries than it can hold";
    EXPECT_EQ(read(1, Whole - 4, After, 3), 0u) << "too short for an entry";
    EXPECT_EQ(read(1, 4, After, 3), 0u) << "not even a header";
    EXPECT_EQ(read(1, Whole, 0x10000, 3), 10u) << "elements after the list";
    EXPECT_EQ(read(1, Whole, 0xFFFFFFFF, 3), 10u) << "elements that wrap around";
    EXPECT_EQ(read(1, Whole, After, 4), 10u) << "one byte too many";
    EXPECT_EQ(read(1, Whole, After, 0xFFFFFFFF), 10u);
}

DWORD WINAPI OpenService(DWORD, PVOID, PDWORD negotiated, PHANDLE client) {
    *negotiated = 2;
    *client = reinterpret_cast<HANDLE>(1);
    return ERROR_SUCCESS;
}

DWORD WINAPI CloseService(HANDLE, PVOID) {
    return ERROR_SUCCESS;
}

DWORD WINAPI WithoutConsent(HANDLE, const GUID*, WLAN_INTF_OPCODE, PVOID, PDWORD, PVOID*,
                            PWLAN_OPCODE_VALUE_TYPE) {
    return ERROR_ACCESS_DENIED;
}

TEST(WlanConsentTest, WithoutConsentToItsLocationEveryReadingIsTheFailedOne) {
    Status = ERROR_SUCCESS;
    Block.clear();
    BlocksOut = 0;
    Append(std::array<DWORD, 2>{1, 0});
    Append(
        WLAN_INTERFACE_INFO{.strInterfaceDescription = L"A card", .isState = wlan_interface_state_connected});
    const test::Library library;
    test::ImportPatch patch(library.Module());
    patch.PretendLibrary(L"wlanapi.dll");
    patch.ReplaceRoutine("WlanOpenHandle", &OpenService);
    patch.ReplaceRoutine("WlanCloseHandle", &CloseService);
    patch.ReplaceRoutine("WlanEnumInterfaces", &EnumInterfaces);
    patch.ReplaceRoutine("WlanFreeMemory", &FreeMemory);
    patch.ReplaceRoutine("WlanQueryInterface", &WithoutConsent);
    constexpr std::int32_t Failed = 0x7FFFFFFF;
    EXPECT_EQ(VESK_CALL(library, RF_WiFiIsConnected)(), Failed);
    EXPECT_EQ(VESK_CALL(library, RF_WiFiRssi)(), Failed);
    EXPECT_EQ(VESK_CALL(library, RF_WiFiChannel)(), Failed);
    EXPECT_EQ(VESK_CALL(library, RF_WiFiMaxRate)(), Failed);
    EXPECT_EQ(VESK_CALL(library, RF_PhyMode)(), "error_string");
    std::array<char, 64> point{};
    VESK_CALL(library, RF_AP_MAC)(point.data());
    EXPECT_STREQ(point.data(), "error_string");
    std::array<VeskChar16, 512> card{};
    VESK_CALL(library, RF_WiFiCardName)(card.data());
    EXPECT_EQ(std::wstring(card.begin(), std::ranges::find(card, VeskChar16{})), L"error_string");
    EXPECT_EQ(BlocksOut, 0);
}

} // namespace
