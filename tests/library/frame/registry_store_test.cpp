#include "machine_fixture.h"

#include "frame/registry_store.h"
#include "machine/models/storage/registry_hive.h"

#include <span>

namespace {

using namespace testing;
using platform::Key;

const std::u16string Sentinel = u"ERROR_READREG";

using RegistryStoreTest = test::MachineTest;

TEST_F(RegistryStoreTest, NumbersAreDecimalAndTextsEndAtTheirFirstZeroAndFitTwoHundredAndFiftyFive) {
    struct Case {
        const char16_t* name;
        std::uint32_t type; // 1 and 2 are texts, 4 is a number
        std::u16string data;
        std::u16string dword;
        std::u16string text;
    };

    using namespace std::string_literals;
    const std::u16string longest(255, u'x');
    const Case cases[] = {
        {u"zero", 4, u"\0\0"s, u"0", Sentinel},
        {u"most", 4, u"\xFFFF\xFFFF"s, u"4294967295", Sentinel},
        {u"short number", 4, u"\x0105"s, u"261", Sentinel},
        {u"long number", 4, u"\1\0\0\0"s, Sentinel, Sentinel},
        {u"digits", 1, u"12\0"s, Sentinel, u"12"},
        {u"plain", 1, u"C:\\App\0"s, Sentinel, u"C:\\App"},
        {u"zero inside", 1, u"ab\0cd\0"s, Sentinel, u"ab"},
        {u"no terminator", 1, u"abc"s, Sentinel, u"abc"},
        {u"empty", 1, u""s, Sentinel, u""},
        {u"longest", 1, longest + u"\0"s, Sentinel, longest},
        {u"full without terminator", 1, longest + u"x", Sentinel, Sentinel},
        {u"full with a zero", 1, u"ab\0"s + std::u16string(253, u'x'), Sentinel, u"ab"},
        {u"too long", 1, longest + u"x\0"s, Sentinel, Sentinel},
        {u"expand", 2, u"abc\0"s, Sentinel, Sentinel},
    };
    auto& registry = *TheMachine()->storage.registry;
    const auto key = registry.Create(machine::RegistryHive::LocalMachine, u"Test");
    for (const Case& each : cases) {
        registry.Set(key, each.name, each.type, std::as_bytes(std::span(each.data)));
        EXPECT_EQ(sondrel::ReadRegDword(Key::LocalMachine, u"Test", each.name), each.dword);
        EXPECT_EQ(sondrel::ReadRegString(Key::LocalMachine, u"TEST", each.name), each.text);
    }
    registry.Set(key, u"odd", 1, std::as_bytes(std::span("a\0b")).first(3));
    EXPECT_EQ(sondrel::ReadRegString(Key::LocalMachine, u"Test", u"ODD"), u"ab");
    EXPECT_EQ(sondrel::ReadRegDword(Key::LocalMachine, u"Test", u"absent"), Sentinel);
    EXPECT_EQ(sondrel::ReadRegDword(Key::LocalMachine, u"Nowhere", u"zero"), Sentinel);
}

TEST_F(RegistryStoreTest, WritingMakesTheWholePathAndReplacesTheValue) {
    EXPECT_TRUE(sondrel::WriteRegDword(Key::LocalMachine, u"A\\B\\C", u"n", 7));
    EXPECT_EQ(sondrel::ReadRegDword(Key::LocalMachine, u"a\\b\\c", u"N"), u"7");
    EXPECT_TRUE(sondrel::WriteRegString(Key::LocalMachine, u"A\\B\\C", u"n", u"now a text"));
    EXPECT_EQ(sondrel::ReadRegString(Key::LocalMachine, u"A\\B\\C", u"n"), u"now a text");
    EXPECT_THAT(CallsOf(Operation::RegSetValueExW),
                ElementsAre("RegSetValueExW key=key#1 name=\"n\" type=4 data=07000000 -> 0",
                            HasSubstr("name=\"n\" type=1 data=6e006f007700200061002000740065007800740000")));
}

TEST_F(RegistryStoreTest, WritingFailsQuietlyWhereTheRegistryRefuses) {
    StartMachine(R"({"registry": {"keys": ["HKLM\\Closed"], "read_only": ["HKLM\\Closed"]}})");
    EXPECT_FALSE(sondrel::WriteRegDword(Key::LocalMachine, u"Closed", u"n", 7));
    EXPECT_FALSE(sondrel::WriteRegString(Key::LocalMachine, u"Closed\\Below", u"n", u"text"));
    // A key that refuses write access is opened again with all access before the write is given up.
    EXPECT_THAT(CallsOf(Operation::RegOpenKeyExW),
                ElementsAre(HasSubstr("Closed\" access=0x20006 -> 5"),
                            HasSubstr("Closed\\Below\" access=0x20006 -> 2")));
    EXPECT_THAT(CallsOf(Operation::RegCreateKeyExW),
                ElementsAre(HasSubstr("Closed\" access=0xf003f -> 5"),
                            HasSubstr("Closed\\Below\" access=0xf003f -> 5")));
}

} // namespace
