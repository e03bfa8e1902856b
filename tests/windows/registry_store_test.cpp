// The registry operations on a real registry.
#include "import_patch.h"
#include "saved_registry_key.h"

#include "frame/registry_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace {

using platform::Key;
using test::TextValue;

constexpr std::u16string_view Sentinel = u"ERROR_READREG";
const std::u16string StoreKey = u"SOFTWARE\\Vesk Test\\Store";

class RegistryStoreTest : public ::testing::Test {
protected:
    static std::u16string ReadDword(std::u16string name) {
        return sondrel::ReadRegDword(Key::LocalMachine, StoreKey, std::move(name));
    }

    static std::u16string ReadString(std::u16string name) {
        return sondrel::ReadRegString(Key::LocalMachine, StoreKey, std::move(name));
    }

    void Set(const wchar_t* name, DWORD type, std::wstring_view text) {
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
        m_registry.Set(name, {type, {bytes, bytes + text.size() * sizeof(wchar_t)}});
    }

    test::SavedRegistryKey m_registry{L"SOFTWARE\\Vesk Test\\Store"};
};

TEST_F(RegistryStoreTest, NumbersAreUnsignedAndOfOneType) {
    m_registry.Set(L"zero", test::DwordValue(0));
    m_registry.Set(L"most", test::DwordValue(4294967295u));
    m_registry.Set(L"digits", TextValue(L"12"));
    m_registry.Set(L"short", {REG_DWORD, {5, 1}});
    m_registry.Set(L"long", {REG_DWORD, {5, 1, 0, 0, 0, 0, 0, 0}});
    EXPECT_EQ(ReadDword(u"zero"), u"0");
    EXPECT_EQ(ReadDword(u"MOST"), u"4294967295");
    EXPECT_EQ(ReadDword(u"digits"), Sentinel);
    EXPECT_EQ(ReadDword(u"short"), u"261");
    EXPECT_EQ(ReadDword(u"long"), Sentinel);
    EXPECT_EQ(ReadDword(u"absent"), Sentinel);
    EXPECT_EQ(sondrel::ReadRegDword(Key::LocalMachine, u"SOFTWARE\\Vesk Test\\Nowhere", u"zero"), Sentinel);
}

TEST_F(RegistryStoreTest, TextsStayWithinTheirBuffer) {
    const std::wstring longest(255, L'x');
    m_registry.Set(L"plain", TextValue(L"C:\\App"));
    m_registry.Set(L"expand", TextValue(L"C:\\App", REG_EXPAND_SZ));
    m_registry.Set(L"many", TextValue(L"C:\\App", REG_MULTI_SZ));
    m_registry.Set(L"longest", TextValue(longest));
    m_registry.Set(L"too long", TextValue(longest + L'x'));
    Set(L"zero inside", REG_SZ, std::wstring_view(L"ab\0cd", 5));
    Set(L"no terminator", REG_SZ, L"abc");
    Set(L"full without terminator", REG_SZ, longest + L'x');
    Set(L"empty", REG_SZ, L"");
    EXPECT_EQ(ReadString(u"plain"), u"C:\\App");
    EXPECT_EQ(ReadString(u"expand"), Sentinel);
    EXPECT_EQ(ReadString(u"many"), Sentinel);
    EXPECT_EQ(ReadString(u"longest"), std::u16string(255, u'x'));
    EXPECT_EQ(ReadString(u"too long"), Sentinel);
    EXPECT_EQ(ReadString(u"zero inside"), u"ab");
    EXPECT_EQ(ReadString(u"no terminator"), u"abc");
    EXPECT_EQ(ReadString(u"full without terminator"), Sentinel);
    EXPECT_EQ(ReadString(u"empty"), u"");
}

TEST_F(RegistryStoreTest, WritingMakesTheWholePath) {
    EXPECT_TRUE(sondrel::WriteRegDword(Key::LocalMachine, StoreKey + u"\\A\\B", u"number", 0xFFFFFFFF));
    EXPECT_TRUE(sondrel::WriteRegString(Key::LocalMachine, StoreKey + u"\\A\\B", u"text", u"caf\u00E9"));
    EXPECT_EQ(m_registry.Get(L"number", L"A\\B"), test::DwordValue(0xFFFFFFFF));
    EXPECT_EQ(m_registry.Get(L"text", L"A\\B"), TextValue(L"caf\u00E9"));
    EXPECT_TRUE(sondrel::WriteRegString(Key::LocalMachine, StoreKey + u"\\A\\B", u"number", u"now a text"));
    EXPECT_EQ(m_registry.Get(L"number", L"A\\B"), TextValue(L"now a text"));
}

std::vector<REGSAM> Rights;

LSTATUS WINAPI RefuseToOpen(HKEY, const wchar_t*, DWORD options, REGSAM rights, HKEY*) {
    EXPECT_EQ(options, 0u);
    Rights.push_back(rights);
    return ERROR_ACCESS_DENIED;
}

LSTATUS WINAPI RefuseToCreate(HKEY, const wchar_t*, DWORD, wchar_t*, DWORD options, REGSAM rights,
                              SECURITY_ATTRIBUTES*, HKEY*, DWORD*) {
    EXPECT_EQ(options, 0u); // persisted beyond a restart
    Rights.push_back(rights);
    return ERROR_ACCESS_DENIED;
}

// This Windows grants every right; another one does not give all of them to everybody.
TEST_F(RegistryStoreTest, AsksForTheRightsThatItNeeds) {
    test::ImportPatch patch(::GetModuleHandleW(nullptr));
    patch.Replace("RegOpenKeyExW", &RefuseToOpen);
    patch.Replace("RegCreateKeyExW", &RefuseToCreate);
    EXPECT_EQ(ReadDword(u"absent"), Sentinel);
    EXPECT_FALSE(sondrel::WriteRegDword(Key::LocalMachine, StoreKey, u"number", 1));
    EXPECT_THAT(Rights, ::testing::ElementsAre(REGSAM{KEY_READ}, REGSAM{KEY_WRITE}, REGSAM{KEY_ALL_ACCESS}));
}

} // namespace
