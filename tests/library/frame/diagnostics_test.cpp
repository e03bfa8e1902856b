#include "machine_fixture.h"

#include "frame/diagnostics.h"
#include "machine/models/trace_sink.h"

#include <new>
#include <string>

namespace {

using namespace testing;

class DiagnosticsTest : public test::MachineTest {
public:
    DiagnosticsTest() { Unregister(); }

    ~DiagnosticsTest() override { Unregister(); }

protected:
    /// The provider's state as at load.
    static void Unregister() {
        sondrel::TraceProvider.TraceRegistered = false;
        sondrel::TraceProvider.TraceLevelPlus1 = 0;
        sondrel::TraceProvider.TraceRegHandle = 0;
        machine::Traces().Forget();
    }
};

TEST_F(DiagnosticsTest, LinesReachAConsumerAtLevelFiveOrAboveOrAtEveryLevel) {
    const std::pair<std::uint8_t, bool> levels[] = {
        {0, true}, {4, false}, {5, true}, {255, true}, {1, false}};
    for (const auto& [level, reached] : levels) {
        machine::Traces().Attach(level);
        sondrel::TraceLine("line");
        EXPECT_THAT(DebugLines(), SizeIs(reached ? 1 : 0)) << "level " << int{level};
    }
    machine::Traces().Detach();
    sondrel::TraceLine("no consumer");
    machine::Traces().Attach(5);
    EXPECT_THAT(DebugLines(), IsEmpty());
    EXPECT_THAT(CallsOf(Operation::EventRegister), SizeIs(1));
}

TEST_F(DiagnosticsTest, AnEventNamesProviderEventAndField) {
    sondrel::TraceLine("caf\xC3\xA9");
    sondrel::TraceWide(nullptr);
    const auto events = machine::Traces().Take();
    ASSERT_THAT(events, SizeIs(2));
    EXPECT_EQ(events[0].provider, "VeskWinDllLogger");
    EXPECT_EQ(events[0].event, "VeskWinDll");
    EXPECT_EQ(events[0].field, "String (wide char)");
    EXPECT_EQ(events[0].text, u"caf\u00E9");
    EXPECT_EQ(events[0].descriptor.channel, 11);
    EXPECT_EQ(events[0].descriptor.level, 5);
    EXPECT_EQ(events[1].text, u"");
    EXPECT_THAT(
        CallsOf(Operation::EventSetInformation),
        ElementsAre(StartsWith("EventSetInformation registration=provider class=2 information=1300")));
}

TEST_F(DiagnosticsTest, AFailedRegistrationIsNotTriedAgain) {
    FailCalls({.nth = 1});
    sondrel::TraceLine("first");
    EXPECT_EQ(observer::CurrentCosts().injected, 1u);
    sondrel::TraceLine("second");
    EXPECT_THAT(DebugLines(), IsEmpty());
    EXPECT_THAT(Calls(), SizeIs(1));
}

TEST_F(DiagnosticsTest, ALineThatThereIsNoMemoryForIsMissing) {
    sondrel::TraceLine([]() -> std::string { throw std::bad_alloc(); });
    sondrel::TraceLine([] { return std::string("cut\0off", 7); });
    const auto events = machine::Traces().Take();
    ASSERT_THAT(events, SizeIs(1));
    EXPECT_EQ(events[0].text, u"cut");
}

TEST_F(DiagnosticsTest, AWarningCarriesTheSourceNameAndTheMessage) {
    sondrel::ReportWarningEvent(u"message", sondrel::WarningEvent);
    ASSERT_THAT(TheMachine()->eventLog, SizeIs(1));
    const machine::LoggedEvent& event = TheMachine()->eventLog.front();
    EXPECT_EQ(event.type, 2);
    EXPECT_EQ(event.source, u"VESKTessaly");
    EXPECT_THAT(event.strings, ElementsAre(u"VESKTessaly", u"message"));
    EXPECT_THAT(CallsOf(Operation::DeregisterEventSource), SizeIs(1));
    FailCalls({.nth = 1, .andLater = true});
    sondrel::ReportWarningEvent(u"lost", sondrel::WarningEvent);
    EXPECT_THAT(TheMachine()->eventLog, SizeIs(1));
}

} // namespace
