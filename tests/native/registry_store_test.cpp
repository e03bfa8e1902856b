#include "machine_fixture.h"

#include "frame/registry_store.h"
#include "platform/simulated/registry_hive.h"

#include <cstring>

namespace {

using platform::Key;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr std::u16string_view Sentinel = u"ERROR_READREG";

class RegistryStoreTest : public test::MachineTest {
protected:
    /// Puts one value under HKLM\Test as its bytes stand, whatever its type says.
    static void Put(std::u16string_view name, std::uint32_t type, std::span<const std::byte> bytes) {
        auto& registry = TheMachine().registry;
        registry.Set(registry.Create(machine::RegistryHive::LocalMachine, u"Test"), name, type, bytes);
    }

    static void Put(std::u16string_view name, std::uint32_t type, std::u16string_view text) {
        Put(name, type, std::as_bytes(std::span(text)));
    }

    static void Put(std::u16string_view name, std::uint32_t type, std::uint32_t number) {
        Put(name, type, std::as_bytes(std::span(&number, 1)));
    }

    static std::u16string ReadDword(std::u16string name) {
        return sondrel::ReadRegDword(Key::LocalMachine, u"Test", std::move(name));
    }

    static std::u16string ReadString(std::u16string name) {
        return sondrel::ReadRegString(Key::LocalMachine, u"Test", std::move(name));
    }
};

constexpr std::uint32_t Text = 1;
constexpr std::uint32_t ExpandText = 2;
constexpr std::uint32_t Number = 4;

TEST_F(RegistryStoreTest, NumbersAreUnsignedDecimalAndOfOneTypeOnly) {
    Put(u"zero", Number, 0);
    Put(u"most", Number, 4294967295u);
    Put(u"digits", Text, std::u16string_view(u"12\0", 3));
    Put(u"short", Number, std::u16string_view(u"\x0105"));
    Put(u"long", Number, std::u16string_view(u"\x0001\x0000\x0000\x0000", 4));
    EXPECT_EQ(ReadDword(u"zero"), u"0");
    EXPECT_EQ(ReadDword(u"MOST"), u"4294967295");
    EXPECT_EQ(ReadDword(u"digits"), Sentinel);
    EXPECT_EQ(ReadDword(u"short"), u"261");
    EXPECT_EQ(ReadDword(u"long"), Sentinel);
    EXPECT_EQ(ReadDword(u"absent"), Sentinel);
    EXPECT_EQ(sondrel::ReadRegDword(Key::LocalMachine, u"Nowhere", u"zero"), Sentinel);
}

TEST_F(RegistryStoreTest, TextsEndAtTheirFirstZeroAndFitTwoHundredAndFiftyFiveCharacters) {
    const std::u16string longest(255, u'x');
    Put(u"plain", Text, std::u16string_view(u"C:\\App\0", 7));
    Put(u"zero inside", Text, std::u16string_view(u"ab\0cd\0", 6));
    Put(u"no terminator", Text, std::u16string_view(u"abc"));
    Put(u"odd", Text, std::as_bytes(std::span("a\0b")).first(3));
    Put(u"empty", Text, std::span<const std::byte>());
    Put(u"longest", Text, longest + std::u16string(1, u'\0'));
    Put(u"full without terminator", Text, longest + u'x');
    Put(u"too long", Text, longest + std::u16string(u"x\0", 2));
    Put(u"expand", ExpandText, std::u16string_view(u"abc\0", 4));
    EXPECT_EQ(ReadString(u"plain"), u"C:\\App");
    EXPECT_EQ(ReadString(u"zero inside"), u"ab");
    EXPECT_EQ(ReadString(u"no terminator"), u"abc");
    EXPECT_EQ(ReadString(u"odd"), u"ab");
    EXPECT_EQ(ReadString(u"empty"), u"");
    EXPECT_EQ(ReadString(u"longest"), longest);
    EXPECT_EQ(ReadString(u"full without terminator"), Sentinel);
    EXPECT_EQ(ReadString(u"too long"), Sentinel);
    EXPECT_EQ(ReadString(u"expand"), Sentinel);
}

TEST_F(RegistryStoreTest, WritingMakesTheWholePathAndReplacesWhatStood) {
    EXPECT_TRUE(sondrel::WriteRegDword(Key::LocalMachine, u"A\\B\\C", u"n", 7));
    EXPECT_EQ(sondrel::ReadRegDword(Key::LocalMachine, u"a\\b\\c", u"N"), u"7");
    EXPECT_TRUE(sondrel::WriteRegString(Key::LocalMachine, u"A\\B\\C", u"n", u"now a text"));
    EXPECT_EQ(sondrel::ReadRegDword(Key::LocalMachine, u"A\\B\\C", u"n"), Sentinel);
    EXPECT_EQ(sondrel::ReadRegString(Key::LocalMachine, u"A\\B\\C", u"n"), u"now a text");
    EXPECT_THAT(CallsOf("RegSetValueExW"),
                ElementsAre("RegSetValueExW n 4 bytes = 0", "RegSetValueExW n 22 bytes = 0"));
}

TEST_F(RegistryStoreTest, WritingFailsQuietlyWhereTheRegistryRefuses) {
    StartMachine(R"({"registry": {"keys": ["HKLM\\Closed"], "read_only": ["HKLM\\Closed"]}})");
    EXPECT_FALSE(sondrel::WriteRegDword(Key::LocalMachine, u"Closed", u"n", 7));
    EXPECT_FALSE(sondrel::WriteRegString(Key::LocalMachine, u"Closed\\Below", u"n", u"text"));
    // A key that refuses write access is opened anew with all access before the write is given up.
    EXPECT_THAT(CallsOf("RegOpenKeyExW"), ElementsAre(HasSubstr("Closed access 131078 = 5"),
                                                      HasSubstr("Closed\\Below access 131078 = 2")));
    EXPECT_THAT(CallsOf("RegCreateKeyExW"), ElementsAre(HasSubstr("Closed access 983103 = 5"),
                                                        HasSubstr("Closed\\Below access 983103 = 5")));
}

TEST_F(RegistryStoreTest, EveryFailingCallGivesTheSentinelAndClosesTheKey) {
    Put(u"n", Number, 7);
    constexpr std::uint64_t CallsOfOneRead = 4; // open, size, data, close
    for (std::uint64_t nth = 1; nth < CallsOfOneRead; ++nth) {
        TheMachine().gate.Restart({.nth = nth});
        EXPECT_EQ(ReadDword(u"n"), Sentinel) << "call " << nth;
        EXPECT_EQ(TheMachine().gate.Injected(), 1u);
        EXPECT_THAT(TheMachine().gate.OpenThings(), ::testing::IsEmpty());
    }
    TheMachine().gate.Restart();
    EXPECT_EQ(ReadDword(u"n"), u"7");
    EXPECT_EQ(TheMachine().gate.CallCount(), CallsOfOneRead);
}

} // namespace
