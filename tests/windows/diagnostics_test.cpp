// The two sinks, at the functions through which Windows takes them.
#include "import_patch.h"
#include "library.h"

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

// Byte for byte: the size, the names with their terminators, the type of the field.
const std::string ProviderTraits("\x13\x00"
                                 "VeskWinDllLogger\x00",
                                 19);
const std::string EventMetadata("\x22\x00\x00"
                                "VeskWinDll\x00"
                                "String (wide char)\x00\x01",
                                34);

struct WrittenEvent {
    REGHANDLE registration = 0;
    EVENT_DESCRIPTOR descriptor{};
    std::vector<ULONG> types;
    std::vector<std::string> parts;
};

/// An ETW of the test's own. Its functions are plain ones, so that it cannot be a member of the fixture.
struct TraceSession {
    ULONG registerResult = ERROR_SUCCESS;
    int registrations = 0;
    GUID provider{};
    PENABLECALLBACK callback = nullptr;
    void* context = nullptr;
    std::vector<std::string> traits;
    std::vector<WrittenEvent> events;
};

TraceSession Session;

ULONG WINAPI Register(const GUID* provider, PENABLECALLBACK callback, void* context,
                      REGHANDLE* registration) {
    ++Session.registrations;
    Session.provider = *provider;
    Session.callback = callback;
    Session.context = context;
    if (Session.registerResult == ERROR_SUCCESS) {
        *registration = Registration;
    }
    return Session.registerResult;
}

ULONG WINAPI SetInformation(REGHANDLE registration, ULONG informationClass, void* information, ULONG size) {
    constexpr ULONG SetTraits = 2;
    if (registration == Registration && informationClass == SetTraits) {
        Session.traits.emplace_back(static_cast<const char*>(information), size);
    }
    return ERROR_SUCCESS;
}

ULONG WINAPI WriteTransfer(REGHANDLE registration, const EVENT_DESCRIPTOR* descriptor, const GUID* activity,
                           const GUID* related, ULONG count, EVENT_DATA_DESCRIPTOR* data) {
    EXPECT_EQ(activity, nullptr);
    EXPECT_EQ(related, nullptr);
    WrittenEvent event{.registration = registration, .descriptor = *descriptor};
    for (ULONG index = 0; index < count; ++index) {
        event.types.push_back(data[index].Reserved);
        event.parts.emplace_back(reinterpret_cast<const char*>(data[index].Ptr), data[index].Size);
    }
    Session.events.push_back(event);
    return ERROR_SUCCESS;
}

std::string BytesOf(std::wstring_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

class TraceTest : public ::testing::Test {
protected:
    TraceTest() : m_patch(m_library.Module()) {
        Session = {};
        m_patch.Replace("EventRegister", &Register);
        m_patch.Replace("EventWriteTransfer", &WriteTransfer);
        m_patch.ReplaceRoutine("EventSetInformation", &SetInformation);
    }

    /// Makes the library write one line: an EC command that cannot be sent is logged all the same.
    void WriteALine() { VESK_CALL(m_library, System_Read_TabletMode)(); }

    static void Attach(UCHAR level) {
        Session.callback(&ProviderGuid, 1, level, 0, 0, nullptr, Session.context);
    }

    static void Detach() { Session.callback(&ProviderGuid, 0, 0, 0, 0, nullptr, Session.context); }

    test::Library m_library;
    test::ImportPatch m_patch;
};

TEST_F(TraceTest, ALineIsAnEventOfThreeParts) {
    WriteALine(); // registers the provider
    EXPECT_EQ(std::memcmp(&Session.provider, &ProviderGuid, sizeof(GUID)), 0);
    EXPECT_THAT(Session.traits, ElementsAre(ProviderTraits));
    EXPECT_THAT(Session.events, IsEmpty());
    Attach(5);
    WriteALine();
    ASSERT_THAT(Session.events, SizeIs(1));
    const WrittenEvent& event = Session.events.front();
    EXPECT_EQ(event.registration, Registration);
    constexpr EVENT_DESCRIPTOR Descriptor{.Id = 0, .Version = 0, .Channel = 11, .Level = 5};
    EXPECT_EQ(std::memcmp(&event.descriptor, &Descriptor, sizeof Descriptor), 0);
    EXPECT_THAT(event.types, ElementsAre(2u, 1u, 0u));
    EXPECT_THAT(event.parts,
                ElementsAre(ProviderTraits, EventMetadata,
                            BytesOf({L"[RwEcCmd] cmd: 0x8e DataList: 0x33 0x0 ReadData\0", 48})));
}

TEST_F(TraceTest, ConsumersGetLinesFromLevelFiveOnOrAtEveryLevel) {
    WriteALine();
    for (const UCHAR level : {UCHAR{1}, UCHAR{4}}) {
        Attach(level);
        WriteALine();
    }
    EXPECT_THAT(Session.events, IsEmpty());
    for (const UCHAR level : {UCHAR{5}, UCHAR{255}, UCHAR{0}}) {
        Attach(level);
        WriteALine();
    }
    EXPECT_THAT(Session.events, SizeIs(3));
    constexpr ULONG CaptureState = 2; // a control code that changes nothing
    Session.callback(&ProviderGuid, CaptureState, 1, 0, 0, nullptr, Session.context);
    WriteALine();
    EXPECT_THAT(Session.events, SizeIs(4));
    Detach();
    WriteALine();
    EXPECT_THAT(Session.events, SizeIs(4));
    EXPECT_EQ(Session.registrations, 1);
}

TEST_F(TraceTest, AFailedRegistrationIsNotTriedAgain) {
    Session.registerResult = ERROR_NOT_ENOUGH_MEMORY;
    WriteALine();
    WriteALine();
    EXPECT_EQ(Session.registrations, 1);
    EXPECT_THAT(Session.traits, IsEmpty());
    EXPECT_THAT(Session.events, IsEmpty());
}

TEST_F(TraceTest, WritesWithoutTraitsWhereWindowsCannotSetThem) {
    m_patch.ReplaceRoutine<decltype(SetInformation)>("EventSetInformation", nullptr);
    WriteALine();
    EXPECT_THAT(Session.traits, IsEmpty());
    Attach(5);
    WriteALine();
    EXPECT_THAT(Session.events, SizeIs(1));
}

/// What reached the event log, in order.
std::vector<std::wstring> EventLog;
bool EventLogRefuses;

HANDLE WINAPI OpenSource(const wchar_t* server, const wchar_t* name) {
    EXPECT_EQ(server, nullptr);
    EventLog.push_back(std::wstring(L"open ") + name);
    return EventLogRefuses ? nullptr : reinterpret_cast<HANDLE>(std::uintptr_t{0x51});
}

BOOL WINAPI Report(HANDLE source, WORD type, WORD category, DWORD id, void* user, WORD count, DWORD dataSize,
                   const wchar_t** strings, void* data) {
    EXPECT_EQ(source, reinterpret_cast<HANDLE>(std::uintptr_t{0x51}));
    EXPECT_EQ(type, EVENTLOG_WARNING_TYPE);
    EXPECT_EQ(category, 0);
    EXPECT_EQ(id, 0u);
    EXPECT_EQ(user, nullptr);
    EXPECT_EQ(dataSize, 0u);
    EXPECT_EQ(data, nullptr);
    for (WORD index = 0; index < count; ++index) {
        EventLog.push_back(std::wstring(L"string ") + strings[index]);
    }
    return TRUE;
}

BOOL WINAPI CloseSource(HANDLE source) {
    EXPECT_EQ(source, reinterpret_cast<HANDLE>(std::uintptr_t{0x51}));
    EventLog.emplace_back(L"close");
    return TRUE;
}

TEST(EventLogTest, AWarningOpensReportsAndCloses) {
    // The library's own objects are part of this program.
    test::ImportPatch patch(::GetModuleHandleW(nullptr));
    patch.Replace("RegisterEventSourceW", &OpenSource);
    patch.Replace("ReportEventW", &Report);
    patch.Replace("DeregisterEventSource", &CloseSource);
    EventLog.clear();
    EventLogRefuses = false;
    sondrel::ReportWarningEvent(u"message", sondrel::WarningEvent);
    EXPECT_THAT(EventLog,
                ElementsAre(L"open VESKTessaly", L"string VESKTessaly", L"string message", L"close"));
    EventLog.clear();
    EventLogRefuses = true;
    sondrel::ReportWarningEvent(u"lost", sondrel::WarningEvent);
    EXPECT_THAT(EventLog, ElementsAre(L"open VESKTessaly"));
}

} // namespace
