// The application lists over a real registry.
#include "library.h"
#include "registry_stand.h"

#include <gtest/gtest.h>

namespace {

using test::Bytes;
using test::DwordValue;
using test::TextValue;

constexpr const wchar_t* NativeKey = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall";
constexpr const wchar_t* Wow64Key = L"SOFTWARE\\WOW6432Node\\Microsoft\\Windows\\CurrentVersion\\Uninstall";
constexpr const wchar_t* StoreKey =
    L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Appx\\AppxAllUserStore\\Applications";

class InstalledAppsTest : public ::testing::Test {
protected:
    std::wstring Answer(const char* name) {
        std::wstring buffer(1 << 16, L'?');
        m_library.Export<void(wchar_t*)>(name)(buffer.data());
        return buffer.c_str();
    }

    static Bytes WideBytes(std::wstring_view text) {
        const auto* first = reinterpret_cast<const std::uint8_t*>(text.data());
        return {first, first + text.size() * sizeof(wchar_t)};
    }

    test::RegistryStand m_native{NativeKey};
    test::RegistryStand m_wow64{Wow64Key};
    test::RegistryStand m_user{NativeKey, HKEY_CURRENT_USER};
    test::RegistryStand m_store{StoreKey};
    test::Library m_library;
};

TEST_F(InstalledAppsTest, NothingIsThereWithoutTheKeys) {
    EXPECT_EQ(Answer("GetApplist_x64"), LR"([{"machine":[]},{"user":[]}])");
    EXPECT_EQ(Answer("GetApplist_x86"), LR"([{"machine":[]},{"user":[]}])");
    EXPECT_EQ(Answer("GetApplist_UWP"), L"[]");
    EXPECT_EQ(Answer("App_Get_Win32App"), L"");
    EXPECT_EQ(Answer("App_Get_Win32WOW6432App"), L"");
    EXPECT_EQ(Answer("App_Get_UWPApp"), L"");
}

TEST_F(InstalledAppsTest, EachListReadsItsOwnKeys) {
    m_native.Set(L"DisplayName", TextValue(L"Tool \"Pro\" \u00FC"), L"a");
    m_native.Set(L"DisplayVersion", TextValue(L"1\\2"), L"a");
    m_native.Set(L"DisplayName", TextValue(L"Shown in one"), L"b");
    m_native.Set(L"SystemComponent", DwordValue(0), L"b");
    m_native.Set(L"DisplayName", TextValue(L"Hidden"), L"c");
    m_native.Set(L"SystemComponent", DwordValue(1), L"c");
    m_native.Set(L"DisplayVersion", TextValue(L"nameless"), L"d");
    m_wow64.Set(L"DisplayName", TextValue(L"Old"), L"a");
    m_user.Set(L"DisplayName", TextValue(L"Mine"), L"a");
    EXPECT_EQ(Answer("GetApplist_x64"), L"[{\"machine\":[{\"name\":\"Tool Pro \u00FC\",\"version\":\"1\\2\"},"
                                        L"{\"name\":\"Shown in one\",\"version\":\"\"}]},"
                                        L"{\"user\":[{\"name\":\"Mine\",\"version\":\"\"}]}]");
    EXPECT_EQ(Answer("GetApplist_x86"), LR"([{"machine":[{"name":"Old","version":""}]},{"user":[]}])");
    EXPECT_EQ(Answer("App_Get_Win32App"), L"Tool \"Pro\" \u00FC;");
    EXPECT_EQ(Answer("App_Get_Win32WOW6432App"), L"Old;");
}

TEST_F(InstalledAppsTest, TextsAreTakenUpToWhatCame) {
    const std::wstring longest(1023, L'x');
    m_native.Set(L"DisplayName", {REG_SZ, WideBytes(L"No end")}, L"a");
    m_native.Set(L"DisplayName", {REG_BINARY, test::FromHex("4f0064006400")}, L"b");
    m_native.Set(L"DisplayVersion", {REG_BINARY, test::FromHex("310032")}, L"b");
    m_native.Set(L"DisplayName", TextValue(longest), L"c");
    m_native.Set(L"DisplayName", TextValue(longest + L'x'), L"d");
    m_native.Set(L"DisplayName", {REG_SZ, WideBytes(longest + L'x')}, L"e");
    m_native.Set(L"DisplayName", DwordValue(0x0072004E), L"f");
    m_native.Set(L"DisplayVersion", TextValue(longest + L'x'), L"f");
    EXPECT_EQ(Answer("GetApplist_x64"), LR"([{"machine":[{"name":"No end","version":""},)"
                                        LR"({"name":"Odd","version":"12"},{"name":")" +
                                            longest +
                                            LR"(","version":""},{"name":"Nr","version":""}]},)"
                                            LR"({"user":[]}])");
}

TEST_F(InstalledAppsTest, PackagesAreListedOnAWindowsThatHasNone) {
    m_store.Set(L"", TextValue(L""), L"Vendor.App_1.2.3.0_x64__abcdefghijklm");
    m_store.Set(L"", TextValue(L""), L"Whole");
    EXPECT_EQ(Answer("App_Get_UWPApp"), L"Vendor.App;Whole;");
    EXPECT_EQ(Answer("GetApplist_UWP"),
              LR"([{"application":"Vendor.App_1.2.3.0_x64__abcdefghijklm","display_name":""},)"
              LR"({"application":"Whole","display_name":""}])");
    EXPECT_EQ(Answer("GetUWPVersion").substr(0, 3), L"???");
}

} // namespace
