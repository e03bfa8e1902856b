// The two sinks, at the functions through which Windows takes them.
#include "import_patch.h"

#include "frame/diagnostics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <evntprov.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr GUID ProviderGuid{0xC72E452E, 0x6078, 0x4AC3, {0x82, 0xF2, 0xC0, 0x28, 0x2F, 0x99, 0xA5, 0x73}};
constexpr REGHANDLE Registration = 0x1122334455667788;

// EVENT_CONTROL_CODE_...
constexpr ULONG Disable = 0;
constexpr ULONG Enable = 1;
constexpr ULONG CaptureState = 2;

// Byte for byte: the size, the names with their terminators, the type of the field.
const std::string ProviderTraits("\x13\x00"
                                 "VeskWinDllLogger\x00",
                                 19);
const std::string EventMetadata("\x22\x00\x00"
                                "VeskWinDll\x00"
                                "String (wide char)\x00\x01",
                                34);
const std::string Text("c\0a\0f\0\xE9\0\0\0", 10);

/// An ETW of the test's own. Its functions are plain ones, so that it cannot be a member of the fixture.
struct TraceSession {
    PENABLECALLBACK callback = nullptr;
    void* context = nullptr;
    std::vector<std::string> traits;
    std::vector<std::vector<std::string>> events;
};

TraceSession Session;

ULONG WINAPI Register(const GUID* provider, PENABLECALLBACK callback, void* context,
                      REGHANDLE* registration) {
    EXPECT_EQ(std::memcmp(provider, &ProviderGuid, sizeof(GUID)), 0);
    Session.callback = callback;
    Session.context = context;
    *registration = Registration;
    return ERROR_SUCCESS;
}

ULONG WINAPI SetInformation(REGHANDLE registration, ULONG informationClass, void* information, ULONG size) {
    constexpr ULONG SetTraits = 2;
    EXPECT_EQ(registration, Registration);
    EXPECT_EQ(informationClass, SetTraits);
    Session.traits.emplace_back(static_cast<const char*>(information), size);
    return ERROR_SUCCESS;
}

ULONG WINAPI WriteTransfer(REGHANDLE registration, const EVENT_DESCRIPTOR* descriptor, const GUID* activity,
                           const GUID* related, ULONG count, EVENT_DATA_DESCRIPTOR* data) {
    EXPECT_EQ(registration, Registration);
    EXPECT_TRUE(activity == nullptr && related == nullptr);
    constexpr EVENT_DESCRIPTOR Descriptor{.Id = 0, .Version = 0, .Channel = 11, .Level = 5};
    EXPECT_EQ(std::memcmp(descriptor, &Descriptor, sizeof Descriptor), 0);
    constexpr ULONG Types[] = {2, 1, 0}; // provider's traits, event's metadata, plain data
    std::vector<std::string> parts;
    for (ULONG index = 0; index < count; ++index) {
        EXPECT_EQ(data[index].Reserved, Types[index]);
        parts.emplace_back(reinterpret_cast<const char*>(data[index].Ptr), data[index].Size);
    }
    Session.events.push_back(parts);
    return ERROR_SUCCESS;
}

class TraceTest : public ::testing::Test {
protected:
    TraceTest() {
        Session = {};
        sondrel::TraceProvider.TraceRegistered = false;
        sondrel::TraceProvider.TraceLevelPlus1 = 0;
        m_patch.Replace("EventRegister", &Register);
        m_patch.Replace("EventWriteTransfer", &WriteTransfer);
        m_patch.ReplaceRoutine("EventSetInformation", &SetInformation);
        sondrel::TraceProviderRegister();
    }

    ~TraceTest() override { sondrel::TraceProvider.TraceLevelPlus1 = 0; }

    /// What a consumer's coming or going makes ETW say.
    static void Say(ULONG controlCode, UCHAR level) {
        Session.callback(&ProviderGuid, controlCode, level, 0xA1, 0xA2, nullptr, Session.context);
    }

    // The library's own objects are part of this program.
    test::ImportPatch m_patch{::GetModuleHandleW(nullptr)};
};

TEST_F(TraceTest, ALineIsAnEventOfThreePartsForWhoListens) {
    EXPECT_THAT(Session.traits, ElementsAre(ProviderTraits));
    sondrel::TraceLine("no consumer");
    Say(Enable, 4);
    sondrel::TraceLine("not at this level");
    EXPECT_THAT(Session.events, IsEmpty());
    Say(Enable, 5);
    Say(CaptureState, 1); // changes nothing
    EXPECT_EQ(sondrel::TraceProvider.AnyKeyword, 0xA1u);
    EXPECT_EQ(sondrel::TraceProvider.AllKeyword, 0xA2u);
    sondrel::TraceLine("caf\xC3\xA9");
    EXPECT_THAT(Session.events, ElementsAre(ElementsAre(ProviderTraits, EventMetadata, Text)));
    Say(Disable, 0);
    sondrel::TraceLine("no consumer");
    EXPECT_THAT(Session.events, SizeIs(1));
}

TEST_F(TraceTest, WritesWithoutTraitsWhereWindowsCannotSetThem) {
    m_patch.ReplaceRoutine<decltype(SetInformation)>("EventSetInformation", nullptr);
    sondrel::TraceProviderRegister();
    EXPECT_THAT(Session.traits, SizeIs(1)) << "of the registration before";
    Say(Enable, 5);
    sondrel::TraceLine("line");
    EXPECT_THAT(Session.events, SizeIs(1));
}

const HANDLE Source = reinterpret_cast<HANDLE>(std::uintptr_t{0x51});

/// What reached the event log, in order.
std::vector<std::wstring> EventLog;

HANDLE WINAPI OpenSource(const wchar_t* server, const wchar_t* name) {
    EXPECT_EQ(server, nullptr);
    EventLog.push_back(std::wstring(L"open ") + name);
    return Source;
}

BOOL WINAPI Report(HANDLE source, WORD type, WORD category, DWORD id, void* user, WORD count, DWORD dataSize,
                   const wchar_t** strings, void* data) {
    EXPECT_EQ(source, Source);
    EXPECT_TRUE(type == EVENTLOG_WARNING_TYPE && category == 0 && id == 0);
    EXPECT_TRUE(user == nullptr && dataSize == 0 && data == nullptr);
    EventLog.insert(EventLog.end(), strings, strings + count);
    return TRUE;
}

BOOL WINAPI CloseSource(HANDLE source) {
    EXPECT_EQ(source, Source);
    EventLog.emplace_back(L"close");
    return TRUE;
}

TEST(EventLogTest, AWarningOpensReportsAndCloses) {
    test::ImportPatch patch(::GetModuleHandleW(nullptr));
    patch.Replace("RegisterEventSourceW", &OpenSource);
    patch.Replace("ReportEventW", &Report);
    patch.Replace("DeregisterEventSource", &CloseSource);
    sondrel::ReportWarningEvent(u"message", sondrel::WarningEvent);
    EXPECT_THAT(EventLog, ElementsAre(L"open VESKTessaly", L"VESKTessaly", L"message", L"close"));
}

} // namespace
