// Wi-Fi through the real DLL, against routines of the test in the place of the WLAN library's: what fails, and
// blocks of memory that are not what they say. What good ones give is compared with the native library's.
#include "import_patch.h"
#include "library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windot11.h>
#include <wlanapi.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace {

using ::testing::IsEmpty;

constexpr int NoWifi = 0x7FFFFFFF;
const HANDLE TheClient = reinterpret_cast<HANDLE>(0x77);

/// What the replaced routines answer, and what they have handed out.
struct Service {
    std::map<std::string, DWORD> status; // by routine; good where nothing stands
    bool giveNull = false;               // good status, and a null pointer

    std::vector<std::byte> interfaces;
    std::vector<std::byte> connection;
    std::vector<std::byte> channel;
    std::vector<std::byte> accessPoints;

    std::vector<void*> blocks; // handed out and not given back
    int openHandles = 0;
};

Service Wlan;

/// Gives a block of exactly these bytes, unless the test wants it otherwise.
DWORD Hand(const std::string& routine, const std::vector<std::byte>& bytes, void** out) {
    if (Wlan.status.contains(routine)) {
        return Wlan.status[routine];
    }
    if (Wlan.giveNull) {
        *out = nullptr;
        return ERROR_SUCCESS;
    }
    *out = ::HeapAlloc(::GetProcessHeap(), 0, bytes.size());
    std::ranges::copy(bytes, static_cast<std::byte*>(*out));
    Wlan.blocks.push_back(*out);
    return ERROR_SUCCESS;
}

DWORD WINAPI OpenHandle(DWORD version, PVOID, PDWORD negotiated, PHANDLE handle) {
    EXPECT_EQ(version, 2u);
    if (Wlan.status.contains("open")) {
        return Wlan.status["open"];
    }
    *negotiated = 2;
    *handle = TheClient;
    ++Wlan.openHandles;
    return ERROR_SUCCESS;
}

DWORD WINAPI CloseClient(HANDLE handle, PVOID) {
    EXPECT_EQ(handle, TheClient);
    --Wlan.openHandles;
    return ERROR_SUCCESS;
}

DWORD WINAPI EnumInterfaces(HANDLE handle, PVOID, PWLAN_INTERFACE_INFO_LIST* list) {
    EXPECT_EQ(handle, TheClient);
    return Hand("list", Wlan.interfaces, reinterpret_cast<void**>(list));
}

DWORD WINAPI QueryInterface(HANDLE, const GUID* guid, WLAN_INTF_OPCODE opcode, PVOID, PDWORD size,
                            PVOID* data, PWLAN_OPCODE_VALUE_TYPE) {
    EXPECT_EQ(guid->Data1, 0x11223344u);
    const bool isConnection = opcode == wlan_intf_opcode_current_connection;
    const auto& bytes = isConnection ? Wlan.connection : Wlan.channel;
    *size = static_cast<DWORD>(bytes.size());
    return Hand(isConnection ? "connection" : "channel", bytes, data);
}

DWORD WINAPI GetBssList(HANDLE, const GUID*, PDOT11_SSID ssid, DOT11_BSS_TYPE type, WINBOOL security, PVOID,
                        PWLAN_BSS_LIST* list) {
    EXPECT_TRUE(ssid == nullptr && type == dot11_BSS_type_infrastructure && security == TRUE);
    return Hand("points", Wlan.accessPoints, reinterpret_cast<void**>(list));
}

void WINAPI FreeMemory(PVOID block) {
    EXPECT_EQ(std::erase(Wlan.blocks, block), 1u) << "given back twice, or never handed out";
    ::HeapFree(::GetProcessHeap(), 0, block);
}

template <class Value>
std::vector<std::byte> BytesOf(const Value& value) {
    const auto bytes = std::as_bytes(std::span(&value, 1));
    return {bytes.begin(), bytes.end()};
}

template <class Value>
void Append(std::vector<std::byte>& bytes, const Value& value) {
    const auto more = BytesOf(value);
    bytes.insert(bytes.end(), more.begin(), more.end());
}

DOT11_SSID Ssid(std::string_view name) {
    DOT11_SSID ssid{.uSSIDLength = static_cast<ULONG>(name.size())};
    std::ranges::copy(name, ssid.ucSSID);
    return ssid;
}

constexpr std::array<std::uint8_t, 6> Address{0x02, 0x1A, 0x2B, 0x3C, 0x4D, 0x5E};

// HT capabilities of 40 MHz with the short guard interval and two streams: 300 Mbit/s.
constexpr std::array<std::uint8_t, 9> Elements{45, 7, 0x22, 0, 0, 0xFF, 0xFF, 0, 0};

std::vector<std::byte> InterfaceList(DWORD count, WLAN_INTERFACE_STATE state, std::wstring_view name) {
    std::vector<std::byte> list;
    Append(list, std::array<DWORD, 2>{count, 0});
    for (DWORD index = 0; index < count; ++index) {
        WLAN_INTERFACE_INFO row{.InterfaceGuid = {.Data1 = 0x11223344}, .isState = state};
        std::ranges::copy(name, row.strInterfaceDescription);
        Append(list, row);
    }
    return list;
}

struct PointShape {
    DWORD count = 1;
    ULONG offset = sizeof(WLAN_BSS_ENTRY);
    ULONG size = Elements.size();
    DWORD totalSize = 0; // 0: as it is
};

/// A list with one entry and its elements behind it, which may say something else of itself.
std::vector<std::byte> PointList(const PointShape& shape) {
    WLAN_BSS_ENTRY entry{
        .dot11Ssid = Ssid("Net"), .lRssi = -48, .ulIeOffset = shape.offset, .ulIeSize = shape.size};
    std::ranges::copy(Address, entry.dot11Bssid);
    const DWORD whole = offsetof(WLAN_BSS_LIST, wlanBssEntries) + sizeof entry + Elements.size();
    std::vector<std::byte> list;
    Append(list, std::array<DWORD, 2>{shape.totalSize != 0 ? shape.totalSize : whole, shape.count});
    Append(list, entry);
    Append(list, Elements);
    return list;
}

class WifiTest : public ::testing::Test {
protected:
    WifiTest() {
        Wlan = {};
        Wlan.interfaces = InterfaceList(1, wlan_interface_state_connected, L"Norvik Wireless");
        WLAN_CONNECTION_ATTRIBUTES connection{};
        connection.wlanAssociationAttributes.dot11Ssid = Ssid("Net");
        std::ranges::copy(Address, connection.wlanAssociationAttributes.dot11Bssid);
        connection.wlanAssociationAttributes.dot11PhyType = static_cast<DOT11_PHY_TYPE>(7);
        Wlan.connection = BytesOf(connection);
        Wlan.channel = BytesOf(ULONG{44});
        Wlan.accessPoints = PointList({});
    }

    ~WifiTest() override {
        EXPECT_THAT(Wlan.blocks, IsEmpty());
        EXPECT_EQ(Wlan.openHandles, 0);
    }

    /// Puts the test's routines in the place of the WLAN library's.
    static void Substitute(test::ImportPatch& patch) {
        patch.ReplaceRoutine("WlanOpenHandle", &OpenHandle);
        patch.ReplaceRoutine("WlanCloseHandle", &CloseClient);
        patch.ReplaceRoutine("WlanEnumInterfaces", &EnumInterfaces);
        patch.ReplaceRoutine("WlanQueryInterface", &QueryInterface);
        patch.ReplaceRoutine("WlanGetNetworkBssList", &GetBssList);
        patch.ReplaceRoutine("WlanFreeMemory", &FreeMemory);
    }

    std::wstring CardName() {
        std::array<wchar_t, 257> name{};
        VESK_CALL(m_library, RF_WiFiCardName)(name.data());
        return name.data();
    }

    /// Signal and rate, which are what a list of access points is read for.
    std::pair<int, int> SignalAndRate() {
        return {VESK_CALL(m_library, RF_WiFiRssi)(), VESK_CALL(m_library, RF_WiFiMaxRate)()};
    }

    test::Library m_library;
    test::ImportPatch m_patch{m_library.Module()};
};

TEST_F(WifiTest, AWindowsWithoutTheLibraryOrARoutineIsAFailedRead) {
    {
        test::ImportPatch without(m_library.Module());
        without.HideLibrary(L"wlanapi.dll");
        EXPECT_EQ(VESK_CALL(m_library, RF_WiFiIsConnected)(), NoWifi);
        EXPECT_EQ(VESK_CALL(m_library, RF_PhyMode)(), "error_string");
    }
    Substitute(m_patch);
    m_patch.ReplaceRoutine("WlanGetNetworkBssList", static_cast<decltype(&GetBssList)>(nullptr));
    EXPECT_EQ(VESK_CALL(m_library, RF_WiFiRssi)(), NoWifi);
    m_patch.ReplaceRoutine("WlanGetNetworkBssList", &GetBssList);
    EXPECT_EQ(VESK_CALL(m_library, RF_WiFiRssi)(), -48); // and is tried again
}

TEST_F(WifiTest, EveryRoutineThatFailsClosesTheClient) {
    Substitute(m_patch);
    for (const char* routine : {"open", "list", "connection", "points"}) {
        Wlan.status = {{routine, 5}};
        EXPECT_EQ(VESK_CALL(m_library, RF_WiFiIsConnected)(), NoWifi) << routine;
        EXPECT_THAT(Wlan.blocks, IsEmpty());
        EXPECT_EQ(Wlan.openHandles, 0);
    }
    Wlan.status = {{"channel", 50}};
    EXPECT_EQ(SignalAndRate(), std::pair(-48, 300));
    EXPECT_EQ(VESK_CALL(m_library, RF_WiFiChannel)(), NoWifi); // as the failed read left it
}

TEST_F(WifiTest, ANullListWithGoodStatusIsAnEmptyOne) {
    Substitute(m_patch);
    Wlan.giveNull = true;
    EXPECT_EQ(VESK_CALL(m_library, RF_WiFiIsConnected)(), -1000);
}

TEST_F(WifiTest, AnswersTooSmallForTheirRecordCountAsNone) {
    Substitute(m_patch);
    Wlan.channel.pop_back();
    const auto connection = Wlan.connection;
    Wlan.connection.pop_back();
    EXPECT_EQ(VESK_CALL(m_library, RF_WiFiChannel)(), NoWifi);
    Wlan.connection = connection;
    EXPECT_EQ(VESK_CALL(m_library, RF_PhyMode)(), "802.11n");
    EXPECT_EQ(VESK_CALL(m_library, RF_WiFiChannel)(), NoWifi); // nothing was given for it
}

TEST_F(WifiTest, TakesADescriptionWithoutTerminator) {
    Substitute(m_patch);
    const std::wstring longest(256, L'x');
    Wlan.interfaces = InterfaceList(2, wlan_interface_state_disconnected, longest);
    EXPECT_EQ(CardName(), longest);
    EXPECT_EQ(VESK_CALL(m_library, RF_WiFiIsConnected)(), 0);
}

struct ListCase {
    const char* what;
    PointShape shape;
    std::pair<int, int> expected;
};

void PrintTo(const ListCase& each, std::ostream* out) {
    *out << each.what;
}

class WifiAccessPointListTest : public WifiTest, public ::testing::WithParamInterface<ListCase> {};

TEST_P(WifiAccessPointListTest, IsReadWithinItsBounds) {
    Wlan.accessPoints = PointList(GetParam().shape);
    Substitute(m_patch);
    EXPECT_EQ(SignalAndRate(), GetParam().expected);
}

constexpr std::pair NoMatch{-1000, -1000};
constexpr std::pair NoElements{-48, 0};

INSTANTIATE_TEST_SUITE_P(
    Shapes, WifiAccessPointListTest,
    ::testing::Values(ListCase{"no entries", {.count = 0}, NoMatch},
                      ListCase{"more entries than it has room for", {.count = 0xFFFFFFFF}, {-48, 300}},
                      ListCase{
                          "no room for an entry", {.totalSize = 8 + sizeof(WLAN_BSS_ENTRY) - 1}, NoMatch},
                      ListCase{"not even a header", {.totalSize = 4}, NoMatch},
                      ListCase{"elements behind the list", {.offset = 0x10000}, NoElements},
                      ListCase{"elements that wrap around", {.offset = 0xFFFFFFFF}, NoElements},
                      ListCase{"elements of one byte too many", {.size = Elements.size() + 1}, NoElements},
                      ListCase{"elements of the largest size", {.size = 0xFFFFFFFF}, NoElements},
                      ListCase{"elements cut short", {.size = Elements.size() - 1}, NoElements}));

} // namespace
