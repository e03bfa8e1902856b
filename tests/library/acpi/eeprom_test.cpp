#include "machine_fixture.h"

#include "acpi/acpi_device.h"
#include "acpi/eeprom_record.h"
#include "machine/profile/profile.h"
#include "unicode/utf.h"

#include <algorithm>
#include <array>

namespace {

using namespace testing;

constexpr std::uint32_t EventStore = 393305;

class EepromTest : public test::MachineTest {
protected:
    void TearDown() override {
        EXPECT_EQ(sondrel::ZrnAcpiHandle, platform::Handle::Null);
        MachineTest::TearDown();
    }

    static std::string Document() { return Text(GetEEPROM_Data); }

    static std::string Sensor() { return Text(GetSENSOR_WMI_Data); }

    /// The document of a machine whose firmware has these entries besides.
    std::string DocumentOf(const std::string& acpi) {
        StartMachine(R"({"acpi": {)" + acpi + "}}");
        return Document();
    }

    static std::size_t CountOf(std::string_view text, std::string_view part) {
        std::size_t count = 0;
        for (auto at = text.find(part); at != std::string_view::npos;
             at = text.find(part, at + part.size())) {
            ++count;
        }
        return count;
    }
};

TEST_F(EepromTest, WritesTheWholeStoreAndLeavesTheLogToTheFirmware) {
    const std::string expected =
        R"({"version":"0x12","register_count":"0x04","register":["0x05","0xabc","0x00","0x12345678"],"event":[)"
        R"("0x5a 0xa5 0x00 0x00 0x00 0x00 0x01 0x10 0x00 0x7f",)"
        R"("0x5a 0xa5 0x01 0x00 0x00 0x00 0x07 0x20 0x02 0x14 0x1a 0x01 0x1f 0x17 0x3b 0x3b",)"
        R"("0x5a 0xa5 0x02 0x00 0x00 0x00 0x00 0x30 0x07"]})";
    EXPECT_EQ(Document(), expected);
    EXPECT_EQ(Document(), expected) << "this firmware's log starts again";
    std::u16string record;
    EXPECT_TRUE(sondrel::ReadEepromRecord(EventStore, 0xE5, record));
    EXPECT_EQ(CountOf(Document(), "0x5a 0xa5"), 2u) << "one record was taken before";
    EXPECT_EQ(CountOf(DocumentOf(R"("log_end": "stays at its end")"), "0x5a 0xa5"), 3u);
    EXPECT_THAT(Document(), EndsWith(R"("event":[]})"));
}

TEST_F(EepromTest, OpensTheDeviceForEveryRequestAndSendsExactBytes) {
    DocumentOf(R"("registers": [5])");
    const std::string control = "0x22240c 4445565308000000"
                                "59000600";
    EXPECT_THAT(DriverRequests(),
                ElementsAre(control + "e0000000", control + "e3ff0000", control + "e3000000",
                            control + "e5000000", control + "e5000000", control + "e5000000",
                            control + "e5000000"));
    EXPECT_THAT(
        CallsOf(Operation::CreateFileW),
        AllOf(SizeIs(7), Each(StartsWith(R"(CreateFileW path="\\.\ZRNACPI" access=0xc0000000 share=0x3 )"))));
    EXPECT_THAT(CallsOf(Operation::CloseHandle), SizeIs(7));
    ForgetCalls();
    EXPECT_EQ(Sensor(), R"({"p_sensor":"0x10001"})");
    EXPECT_THAT(DriverRequests(), ElementsAre("0x22240c 445354530400000068000600"));
}

TEST_F(EepromTest, LogsEveryStep) {
    DocumentOf(R"("registers": [], "log": [{"payload": "7f"}])");
    EXPECT_THAT(DebugLines(),
                ElementsAre("GetEEPROM_Data start", "[ACPI_ZRN_DEVS] Arg0 = 0x60059, Arg1 = 0xe0",
                            "[ACPI_ZRN_DEVS] return = 0x12", "[ACPI_ZRN_DEVS] Arg0 = 0x60059, Arg1 = 0xffe3",
                            "[ACPI_ZRN_DEVS] return = 0x0", "[ACPI_ZRN_DEVS] Arg0 = 0x60059, Arg1 = 0xe5",
                            "InitializeZRNACPIDevice success", "UninitializeZRNACPIDevice success",
                            "[ACPI_ZRN_DEVS] Arg0 = 0x60059, Arg1 = 0xe5", "InitializeZRNACPIDevice success",
                            "UninitializeZRNACPIDevice success", "GetEEPROM_Data end"));
    Sensor();
    EXPECT_THAT(DebugLines(), ElementsAre("GetSENSOR_WMI_Data start", "[ACPI_ZRN_DSTS] Arg = 0x60068",
                                          "[ACPI_ZRN_DSTS] return = 0x10001", "GetSENSOR_WMI_Data end"));
    EXPECT_EQ(DocumentOf(R"("present": false)"),
              R"({"version":"","register_count":"","register":[""],"event":[]})");
    EXPECT_THAT(DebugLines(), ElementsAre("GetEEPROM_Data start", HasSubstr("0xe0"), HasSubstr("0xffe3"),
                                          HasSubstr("0xe5"), "GetEEPROM_Data end"));
    EXPECT_EQ(Sensor(), R"({"p_sensor":""})");
}

TEST_F(EepromTest, AFailureCostsItsOwnValueOnly) {
    const auto withFault = [this](int use, const std::string& kind) {
        return DocumentOf(R"("log": [{"payload": "7f"}], "faults": [{"use": )" + std::to_string(use) + ", " +
                          kind + "}]");
    };
    const std::string event = R"("event":["0x5a 0xa5 0x00 0x00 0x00 0x00 0x01 0x10 0x00 0x7f"]})";
    const std::string registers = R"("register":["0x05","0xabc","0x00","0x12345678"],)";
    const char* refused = R"("error": 31)";
    EXPECT_EQ(withFault(1, refused), R"({"version":"","register_count":"0x04",)" + registers + event);
    EXPECT_EQ(withFault(2, refused), R"({"version":"0x12","register_count":"","register":[""],)" + event);
    EXPECT_EQ(withFault(4, refused),
              R"({"version":"0x12","register_count":"0x04","register":["0x05","","0x00","0x12345678"],)" +
                  event);
    EXPECT_THAT(withFault(7, refused), EndsWith(registers + R"("event":[]})"));
    // Three bytes are no number, and no record.
    EXPECT_THAT(withFault(2, R"("reply_size": 3)"), HasSubstr(R"("register_count":"0x00","register":[""],)"));
    EXPECT_THAT(withFault(7, R"("reply_size": 1)"), EndsWith(R"("event":[]})"));
    EXPECT_EQ(DocumentOf(R"("faults": [{"reply_size": 0}])"),
              R"({"version":"0x00","register_count":"0x00","register":[""],"event":[]})");
    EXPECT_EQ(Sensor(), R"({"p_sensor":"0x00"})");
}

TEST_F(EepromTest, AnEndlessLogEndsByItsCharacters) {
    // Registers and version take 4 + 4 + 12 characters; a record of 256 tokens 1279.
    const auto events = [this](const std::string& registers, const std::string& record) {
        return CountOf(DocumentOf(R"("registers": [)" + registers +
                                  R"(], "log_end": "never ends", "log": [)" + record + "]"),
                       "0x5a 0xa5");
    };
    EXPECT_EQ(events("1, 2, 3", R"({"length": 255})"), 24u); // 31500 - 20 holds 24.6 of them
    EXPECT_EQ(CallsOf(Operation::DeviceIoControl).size(), 2u + 3 + 25)
        << "the record beyond the limit is the last one read";
    // A record of nine tokens has 44 characters: 4 + 4 + 8 x 4 + 715 x 44 is 31500, which still fits.
    EXPECT_EQ(events("1, 2, 3, 4, 5, 6, 7, 8", "{}"), 715u);
    EXPECT_EQ(events(R"("0x100", 2, 3, 4, 5, 6, 7, 8)", "{}"), 714u);
}

TEST_F(EepromTest, RegistersAreNotHeldBackAndTheirNumberIsTakenAtItsWord) {
    const std::string document = DocumentOf(R"("register_count": 9000, "log_end": "never ends")");
    EXPECT_THAT(document, HasSubstr(R"("register_count":"0x2328",)"));
    EXPECT_EQ(CountOf(document, R"("0x00")"), 9000u - 3 - 1); // three hold something, and 255 is none
    EXPECT_THAT(document, EndsWith(R"("event":[]})")) << "36,000 characters leave no capacity for an event";
    const auto requests = DriverRequests();
    EXPECT_THAT(requests[2 + 8999], EndsWith("59000600e3272300"));
    // Register 255 would be asked for with the number that asks for the count.
    EXPECT_EQ(requests[2 + 255], requests[1]);
    EXPECT_EQ(CountOf(document, "\"0x2328\""), 2u);
    EXPECT_THAT(DocumentOf(R"("register_count": 16777217, "log": [{}])"),
                HasSubstr(R"("register_count":"0x1000001","register":[""],"event":["0x5a)"));
    EXPECT_THAT(DriverRequests(), SizeIs(4));
}

TEST_F(EepromTest, ADeviceCallNeedsAnOpenDeviceAndStaysWithinTheBuffer) {
    const std::array<std::uint32_t, 2> next{EventStore, 0xE5};
    std::array<std::byte, 300> reply;
    reply.fill(std::byte{0xEE});
    std::uint32_t size = 77;
    const auto call = [&](std::size_t capacity) {
        return sondrel::ZrnAcpiCall(sondrel::acpi_method::Control, std::as_bytes(std::span(next)),
                                    std::span(reply).first(capacity), size);
    };
    EXPECT_FALSE(call(10));
    EXPECT_FALSE(sondrel::UninitializeZRNACPIDevice());
    EXPECT_THAT(Calls(), IsEmpty());
    ASSERT_TRUE(sondrel::InitializeZRNACPIDevice());
    FailCalls({.nth = 1});
    EXPECT_FALSE(call(10));
    EXPECT_EQ(size, 77u);
    EXPECT_THAT(reply, Each(std::byte{0xEE}));
    for (const auto& [capacity, given] : {std::pair(10u, 10u), std::pair(300u, 256u)}) {
        EXPECT_TRUE(call(capacity));
        EXPECT_EQ(size, given);
        EXPECT_NE(reply[given - 1], std::byte{0xEE});
        EXPECT_EQ(reply[given], std::byte{0xEE});
    }
    EXPECT_TRUE(sondrel::UninitializeZRNACPIDevice());
}

std::string Token(unsigned byte) {
    char token[8];
    std::snprintf(token, sizeof token, "0x%02x", byte);
    return token;
}

/// The rule once more, by its text: two digits, read from the left while they are decimal.
std::string DecodedToken(unsigned byte) {
    unsigned number = 0;
    std::sscanf(Token(byte).c_str() + 2, "%u", &number);
    return Token(number);
}

using Record = std::array<std::byte, sondrel::EepromRecordSize>;

/// What a record is to become; the empty text where it has no marks.
std::string Rendered(const Record& record) {
    std::string expected;
    const std::size_t length = std::to_integer<std::size_t>(record[6]) + 9;
    for (std::size_t at = 0; at < std::min(length, record.size()); ++at) {
        const auto byte = std::to_integer<unsigned>(record[at]);
        expected += at == 0 ? "" : " ";
        expected += record[7] == std::byte{0x20} && at >= 9 ? DecodedToken(byte) : Token(byte);
    }
    return record[0] == std::byte{0x5A} && record[1] == std::byte{0xA5} ? expected : "";
}

TEST(EepromRecord, RendersEveryKindLengthAndBcdByteAndKnowsTheMarks) {
    Record record{};
    for (unsigned round = 0; round < 256; ++round) {
        for (std::size_t at = 0; at < record.size(); ++at) {
            record[at] = static_cast<std::byte>(at * 37 + round);
        }
        record[0] = std::byte{0x5A};
        record[1] = std::byte{0xA5};
        for (const unsigned kind : {round, 0x20u}) {
            record[7] = static_cast<std::byte>(kind);
            std::u16string text = u"before";
            ASSERT_TRUE(sondrel::RenderEepromRecord(record, text));
            ASSERT_EQ(unicode::Utf8FromWide(text), Rendered(record)) << "kind " << kind << " round " << round;
        }
    }
    for (const std::size_t mark : {0U, 1U}) {
        Record broken = record;
        broken[mark] ^= std::byte{1};
        std::u16string text = u"before";
        EXPECT_FALSE(sondrel::RenderEepromRecord(broken, text));
        EXPECT_EQ(text, u"before");
    }
}

TEST_F(EepromTest, ARecordIsRenderedFromRepliesOfEverySize) {
    for (std::size_t size = 0; size <= 300; ++size) {
        StartMachine(R"({"acpi": {"log": [{"kind": "0x20", "payload": "59", "length": 255, "reply_size": )" +
                     std::to_string(size) + "}]}}");
        // What the device did not write reads as 0xff; a cut length byte claims 255 too.
        Record record;
        record.fill(std::byte{0xFF});
        const Record whole{std::byte{0x5A}, std::byte{0xA5}, std::byte{0},    std::byte{0}, std::byte{0},
                           std::byte{0},    std::byte{0xFF}, std::byte{0x20}, std::byte{0}, std::byte{0x59}};
        std::copy_n(whole.begin(), std::min(size, whole.size()), record.begin());
        std::u16string text = u"before";
        ASSERT_EQ(sondrel::ReadEepromRecord(EventStore, 0xE5, text), size >= 2);
        ASSERT_EQ(unicode::Utf8FromWide(text), Rendered(record)) << size;
    }
}

} // namespace
