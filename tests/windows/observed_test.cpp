// The observed DLL: the same exports, and what they ask of Windows.
#include "library.h"
#include "vesk_sondrel_observer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace {

using namespace testing;

struct Seen {
    std::string exportName;
    std::string line;
    bool hasLastError;
};

class ObservedTest : public ::testing::Test {
protected:
    ~ObservedTest() override { VESK_CALL(m_library, VeskObserver_SetSink)(nullptr, nullptr); }

    void Listen() {
        const auto sink = [](void* context, const VeskObserver_Call* call) {
            static_cast<ObservedTest*>(context)->m_calls.push_back(
                {call->exportName == nullptr ? "" : call->exportName, call->line, call->hasLastError != 0});
        };
        ASSERT_EQ(VESK_CALL(m_library, VeskObserver_SetSink)(sink, this), 1);
    }

    [[nodiscard]] std::vector<std::string> Open() const {
        std::vector<std::string> open;
        const auto sink = [](void* context, const char* what) {
            static_cast<std::vector<std::string>*>(context)->emplace_back(what);
        };
        VESK_CALL(m_library, VeskObserver_ListOpen)(sink, &open);
        return open;
    }

    static bool Has(const test::Library& library, const char* name) {
        return ::GetProcAddress(library.Module(), name) != nullptr;
    }

    test::Library m_library{L"observed\\VeskSondrel64.dll"};
    std::vector<Seen> m_calls;
};

TEST_F(ObservedTest, TheShippedDllHasNothingOfTheObserver) {
    const test::Library shipped;
    EXPECT_FALSE(Has(shipped, "VeskObserver_SetSink"));
    EXPECT_TRUE(Has(m_library, "VeskObserver_SetSink"));
    EXPECT_NE(shipped.Module(), m_library.Module());
    for (const auto* name : {"WMIGetOSInfo", "RF_PhyMode", "wmiadd"}) {
        EXPECT_TRUE(Has(m_library, name)) << name;
    }
}

TEST_F(ObservedTest, ShowsWhatAnExportAsksOfWindowsAndAnswersAsTheShippedOne) {
    Listen();
    std::array<VeskChar16, 64> observed{};
    VESK_CALL(m_library, System_GetCountryCode_ISO2)(observed.data());
    ASSERT_FALSE(m_calls.empty());
    for (const Seen& call : m_calls) {
        EXPECT_EQ(call.exportName, "System_GetCountryCode_ISO2");
    }
    EXPECT_THAT(m_calls, Contains(Field(&Seen::line, StartsWith("GetUserGeoID class=16 -> "))));
    const test::Library shipped;
    std::array<VeskChar16, 64> usual{};
    VESK_CALL(shipped, System_GetCountryCode_ISO2)(usual.data());
    EXPECT_STREQ(observed.data(), usual.data());
    EXPECT_EQ(VESK_CALL(m_library, RF_PhyMode)(), VESK_CALL(shipped, RF_PhyMode)()) << "a string of C++";
}

TEST_F(ObservedTest, AFailedOpenCarriesTheLastErrorOfWindows) {
    Listen();
    ASSERT_EQ(VESK_CALL(m_library, InitializeSondrel)(), 0) << "no driver here";
    EXPECT_THAT(m_calls,
                Contains(AllOf(Field(&Seen::line, AllOf(StartsWith(R"(CreateFileW path="\\.\VESKHWIO")"),
                                                        EndsWith(" -> invalid error=2"))),
                               Field(&Seen::hasLastError, true))));
}

TEST_F(ObservedTest, ACallOfWindowsFailsAsAskedAndNothingStaysOpen) {
    std::array<VeskChar16, 4096> text{};
    VESK_CALL(m_library, WMIGetOSInfo)(text.data(), 1);
    EXPECT_NE(text[0], L'\0');
    EXPECT_THAT(Open(), IsEmpty());
    VeskObserver_Fault fault{
        .size = sizeof fault, .operation = "ExecQuery", .nth = 1, .kind = VESK_OBSERVER_REFUSED};
    ASSERT_EQ(VESK_CALL(m_library, VeskObserver_InjectFault)(&fault), 1);
    Listen();
    text = {};
    VESK_CALL(m_library, WMIGetBiosVersion)(text.data(), 1);
    EXPECT_EQ(text[0], L'\0');
    EXPECT_THAT(m_calls, Contains(Field(&Seen::line, AllOf(StartsWith("ExecQuery services=IWbemServices#"),
                                                           EndsWith(" -> 0x80041003 (injected)")))));
    EXPECT_THAT(Open(), IsEmpty());
    VeskObserver_Costs costs{.size = sizeof costs};
    ASSERT_EQ(VESK_CALL(m_library, VeskObserver_GetCosts)(&costs), 1);
    EXPECT_EQ(costs.injected, 1u);
    EXPECT_GE(costs.calls, m_calls.size());
    EXPECT_EQ(VESK_CALL(m_library, VeskObserver_InjectFault)(nullptr), 1);
}

} // namespace
