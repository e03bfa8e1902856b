// The observer itself, over the simulated machine.
#include "machine_fixture.h"

#include "observer/ledger.h"
#include "platform/files.h"
#include "platform/time.h"
#include "vesk_sondrel_observer.h"

#include <array>
#include <new>
#include <set>

namespace {

using namespace testing;
using observer::HandleKind;
using observer::Value;

class ObserverTest : public test::MachineTest {
protected:
    static platform::Handle OpenDriver() {
        return platform::CreateFileW(u"\\\\.\\VESKHWIO", platform::access::GenericReadWrite,
                                     platform::share::None, platform::OpenExisting, 0);
    }

    [[nodiscard]] std::string LastCall() const { return Printed(Records().back()); }
};

TEST_F(ObserverTest, AHandleIsNumberedWithinItsExportCallAndNamedByItsObjectLater) {
    InitializeSondrel();
    EXPECT_THAT(LastCall(), EndsWith(" -> file#1"));
    GetDriverVersion();
    EXPECT_THAT(LastCall(), StartsWith(R"(DeviceIoControl device=file:\\.\VESKHWIO code=0x80102040 )"));
    const auto numbersOf = [this] {
        ForgetCalls();
        Text(WMIGetSN);
        return Calls();
    };
    EXPECT_EQ(numbersOf(), numbersOf()) << "whatever was called before";
}

TEST_F(ObserverTest, ACallBelongsToItsExportAndAnExportsOwnCallsDoNot) {
    Text(AppList_HardwareConfig); // reads what other exports read too
    std::set<std::string> names;
    std::set<std::uint64_t> numbers;
    for (const CallRecord& record : Records()) {
        names.emplace(record.exportName);
        numbers.insert(record.exportCall);
    }
    EXPECT_THAT(names, ElementsAre("AppList_HardwareConfig"));
    EXPECT_THAT(numbers, SizeIs(1));
    platform::Sleep(1);
    EXPECT_EQ(Records().back().exportName, nullptr);
}

TEST_F(ObserverTest, TheLastErrorIsThatOfTheCallWhateverHappensAfterIt) {
    AfterCalls(
        [](const CallRecord&) { platform::GetFileAttributesW(u"C:\\nowhere\\at all"); }); // sets another one
    platform::CreateFileW(u"\\\\.\\NOTHING", 0, 0, platform::OpenExisting, 0);
    EXPECT_EQ(platform::GetLastError(), platform::error::FileNotFound);
    EXPECT_THAT(Records(), SizeIs(1)) << "what a sink calls is not observed";
    FailCalls({.nth = 1});
    OpenDriver();
    EXPECT_EQ(platform::GetLastError(), platform::error::AccessDenied);
    EXPECT_THAT(LastCall(), EndsWith(" -> invalid error=5 (injected)"));
}

TEST_F(ObserverTest, ACallIsMadeEvenWhereItCannotBeNoted) {
    const platform::Handle driver = OpenDriver();
    AfterCalls([](const CallRecord&) { throw std::bad_alloc(); });
    observer::Restart();
    platform::CloseHandle(driver);
    AfterCalls({});
    EXPECT_EQ(observer::CurrentCosts().recordsLost, 1u);
    EXPECT_THAT(OpenThings(), IsEmpty());
    const platform::Handle again = OpenDriver(); // alone, as it could not while the other is open
    EXPECT_NE(again, platform::Handle::Invalid);
    platform::CloseHandle(again);
}

/// What is left out of a short write must not be in the file, and of a short answer not in the buffer.
TEST_F(ObserverTest, AShortAnswerLeavesOutWhatItSays) {
    const platform::Handle file = platform::CreateFileW(u"C:\\short.txt", platform::access::GenericReadWrite,
                                                        0, platform::CreateAlways, 0);
    std::uint32_t count = 0;
    FailCalls({.nth = 1, .kind = Failure::ShortAnswer});
    EXPECT_TRUE(platform::WriteFile(file, std::as_bytes(std::span("123456", 6)), count));
    EXPECT_EQ(count, 3u);
    platform::CloseHandle(file);
    const platform::Handle driver = OpenDriver();
    std::array<std::byte, 8> version;
    version.fill(std::byte{0xEE});
    FailCalls({.nth = 1, .kind = Failure::ShortAnswer});
    EXPECT_TRUE(platform::DeviceIoControl(driver, 0x80102040, {}, version, count));
    EXPECT_EQ(count, 2u);
    EXPECT_THAT(version, ElementsAre(std::byte{3}, std::byte{2}, std::byte{0xEE}, std::byte{0xEE},
                                     std::byte{0xEE}, std::byte{0xEE}, std::byte{0xEE}, std::byte{0xEE}));
    FailCalls({.nth = 1, .kind = Failure::Status}); // this answer has no status
    EXPECT_TRUE(platform::DeviceIoControl(driver, 0x80102040, {}, version, count));
    EXPECT_EQ(observer::CurrentCosts().injected, 0u);
    platform::CloseHandle(driver);
}

TEST_F(ObserverTest, AFailureOfOneOperationCountsOnlyItsCalls) {
    FailCalls({.nth = 2, .only = &RowOf(Operation::Sleep)}); // cannot fail
    for (int time = 0; time < 3; ++time) {
        platform::Sleep(1);
    }
    EXPECT_EQ(observer::CurrentCosts().injected, 0u);
    FailCalls({.nth = 2, .andLater = true, .only = &RowOf(Operation::GetFileAttributesW)});
    for (const bool fails : {false, true, true}) {
        platform::Sleep(1);
        platform::GetFileAttributesW(u"C:\\");
        EXPECT_EQ(Records().back().injected == Failure::Refused, fails);
    }
}

TEST(Ledger, ObjectsAreCountedAndOtherHandlesReplaced) {
    observer::Ledger ledger;
    EXPECT_TRUE(ledger.Open(HandleKind::WbemLocator, 0x40, u"", 1, 1));
    EXPECT_FALSE(ledger.Open(HandleKind::WbemServices, 0x40, u"", 1, 2))
        << "the same object, handed out again";
    ledger.Close(HandleKind::Object, 0x40);
    EXPECT_THAT(ledger.Open(), SizeIs(1));
    ledger.Close(HandleKind::Object, 0x40);
    ledger.Close(HandleKind::Object, 0x40); // one too many
    EXPECT_THAT(ledger.Open(), IsEmpty());
    EXPECT_TRUE(ledger.Open(HandleKind::File, 4, u"a", 1, 1));
    EXPECT_TRUE(ledger.Open(HandleKind::File, 4, u"b", 2, 1)) << "closed without the observer's knowledge";
    EXPECT_TRUE(ledger.Open(HandleKind::RegistryKey, 4, u"c", 2, 2)) << "another kind of number";
    ledger.Close(HandleKind::Token, 4);
    ASSERT_THAT(ledger.Open(), SizeIs(1));
    EXPECT_EQ(Printed(ledger.Open().front()), "key c");
}

TEST(Printed, AValueTakesOneLineOfUtf8) {
    const std::pair<Value, std::string> values[] = {
        {{std::u16string(u"caf\u00E9 \U0001F600")}, "\"caf\xC3\xA9 \xF0\x9F\x98\x80\""},
        {{std::u16string{0xD83D, u'x', 0xDC00, u'\n', u'\0'}}, R"("\ud83dx\udc00\u000a\u0000")"},
        {{std::u16string(201, u'a')}, '"' + std::string(200, 'a') + "\"... (201 characters)"},
        {{observer::Bytes{std::byte{0xA0}, std::byte{7}}}, "a007"},
        {{observer::Bytes{}}, "-"},
        {{observer::Number{-1}}, "-1"},
        {{observer::Number{0x80041003, true}}, "0x80041003"},
        {{0.35F}, "0.35"},
        {{observer::List(9, Value{true})}, "[true, true, true, true, true, true, true, true... (9 items)]"},
        {{observer::HandleName{.kind = HandleKind::File, .openedOn = u"C:\\a\tb"}}, "file:C:\\a\\u0009b"},
        {{observer::HandleName{.kind = HandleKind::File, .platforms = 7}}, "file"},
    };
    for (const auto& [value, text] : values) {
        EXPECT_EQ(Printed(value), text);
    }
    EXPECT_THAT(Printed(Value{observer::Bytes(65)}), EndsWith("00... (65 bytes)"));
}

/// Through the interface that a program finds in the library.
TEST_F(ObserverTest, TheProgramsInterfacePassesCallsFailuresAndCosts) {
    struct Seen {
        std::string line;
        std::string inputs;
        int calls = 0;
    } seen;

    const auto sink = [](void* context, const VeskObserver_Call* call) {
        auto& all = *static_cast<Seen*>(context);
        ++all.calls;
        all.line = call->line;
        all.inputs.clear();
        for (std::size_t place = 0; place < call->argumentCount; ++place) {
            all.inputs +=
                call->arguments[place].output == 0 ? call->arguments[place].name + std::string(" ") : "";
        }
    };
    VeskObserver_Fault fault{
        .size = sizeof fault, .operation = "CreateFileW", .nth = 1, .kind = VESK_OBSERVER_REFUSED};
    EXPECT_EQ(VeskObserver_InjectFault(&fault), 1);
    EXPECT_EQ(VeskObserver_SetSink(sink, &seen), 1);
    const platform::Handle driver = OpenDriver();
    EXPECT_EQ(driver, platform::Handle::Invalid);
    EXPECT_EQ(seen.line, LastCall());
    EXPECT_EQ(seen.inputs, "path access share disposition flags ");
    VeskObserver_Costs costs{.size = sizeof costs};
    EXPECT_EQ(VeskObserver_GetCosts(&costs), 1);
    EXPECT_EQ(costs.calls, 1u);
    EXPECT_EQ(costs.injected, 1u);
    VeskObserver_SetSink(nullptr, nullptr);
    InitializeSondrel();
    EXPECT_EQ(seen.calls, 1);
    std::string open;
    const auto add = [](void* context, const char* what) {
        *static_cast<std::string*>(context) += what;
    };
    EXPECT_EQ(VeskObserver_ListOpen(add, &open), 1u);
    EXPECT_EQ(open, R"(file \\.\VESKHWIO)");
}

TEST_F(ObserverTest, TheProgramsInterfaceRefusesWhatDoesNotExist) {
    const VeskObserver_Fault good{
        .size = sizeof good, .operation = "Get", .nth = 1, .kind = VESK_OBSERVER_EMPTY};
    VeskObserver_Fault fault = good;
    fault.operation = "get";
    EXPECT_EQ(VeskObserver_InjectFault(&fault), 0);
    fault = good;
    fault.kind = VESK_OBSERVER_REFUSED | VESK_OBSERVER_EMPTY;
    EXPECT_EQ(VeskObserver_InjectFault(&fault), 0);
    fault = good;
    fault.size = sizeof fault - 1;
    EXPECT_EQ(VeskObserver_InjectFault(&fault), 0);
    VeskObserver_Costs costs{};
    EXPECT_EQ(VeskObserver_GetCosts(&costs), 0);
    EXPECT_EQ(VeskObserver_GetCosts(nullptr), 0);
    std::size_t count = 0;
    std::uint32_t kinds = 0;
    while (VeskObserver_Operation(count, &kinds) != nullptr) {
        ++count;
    }
    EXPECT_EQ(count, observer::OperationCount);
    EXPECT_EQ(VeskObserver_Operation(count, nullptr), nullptr);
}

} // namespace
