#include "machine_fixture.h"

#include "acpi/acpi_device.h"
#include "acpi/eeprom_record.h"
#include "platform/simulated/profile.h"
#include "platform/simulated/wide_text.h"
#include "vesk_sondrel.h"

#include <algorithm>
#include <array>
#include <sstream>

namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

constexpr std::uint32_t EventStore = 393305;

class EepromTest : public test::MachineTest {
protected:
    void TearDown() override {
        EXPECT_EQ(sondrel::ZrnAcpiHandle, platform::Handle::Null);
        MachineTest::TearDown();
    }

    static std::string Document() {
        std::vector<char16_t> room(100'000, u'#');
        GetEEPROM_Data(room.data());
        const auto end = std::ranges::find(room, u'\0');
        EXPECT_TRUE(std::all_of(end + 1, room.end(), [](char16_t unit) { return unit == u'#'; }));
        return machine::Utf8FromWide({room.begin(), end});
    }

    static std::string Sensor() {
        std::array<char16_t, 26> room{};
        GetSENSOR_WMI_Data(room.data());
        return machine::Utf8FromWide(room.data());
    }

    static std::string Repeated(std::string_view text, std::size_t times) {
        std::string all;
        for (; times != 0; --times) {
            all += text;
        }
        return all;
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
    StartMachine(R"({"acpi": {"log_end": "stays at its end"}})");
    EXPECT_EQ(CountOf(Document(), "0x5a 0xa5"), 3u);
    EXPECT_THAT(Document(), EndsWith(R"("event":[]})"));
}

TEST_F(EepromTest, OpensTheDeviceForEveryRequestAndSendsExactBytes) {
    StartMachine(R"({"acpi": {"registers": [5]}})");
    Document();
    std::vector<std::string> requests;
    for (const test::DriverRequest& request : DriverRequests()) {
        EXPECT_EQ(request.code, 0x22240Cu);
        requests.push_back(request.in);
    }
    const std::string control = "4445565308000000"
                                "59000600";
    EXPECT_THAT(requests, ElementsAre(control + "e0000000", control + "e3ff0000", control + "e3000000",
                                      control + "e5000000", control + "e5000000", control + "e5000000",
                                      control + "e5000000"));
    EXPECT_THAT(
        CallsOf("CreateFileW"),
        AllOf(SizeIs(7), Each(StartsWith("CreateFileW \\\\.\\ZRNACPI access 0xc0000000 share 0x3 ="))));
    EXPECT_THAT(CallsOf("CloseHandle"), SizeIs(7));
    ForgetCalls();
    EXPECT_EQ(Sensor(), R"({"p_sensor":"0x10001"})");
    EXPECT_THAT(DriverRequests(), ElementsAre(test::DriverRequest{0x22240C, "445354530400000068000600"}));
}

TEST_F(EepromTest, LogsEveryStep) {
    StartMachine(R"({"acpi": {"registers": [], "log": [{"payload": "7f"}]}})");
    DebugLines();
    Document();
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
    StartMachine(R"({"acpi": {"present": false}})");
    EXPECT_EQ(Document(), R"({"version":"","register_count":"","register":[""],"event":[]})");
    EXPECT_THAT(DebugLines(), ElementsAre("GetEEPROM_Data start", HasSubstr("0xe0"), HasSubstr("0xffe3"),
                                          HasSubstr("0xe5"), "GetEEPROM_Data end"));
    EXPECT_EQ(Sensor(), R"({"p_sensor":""})");
}

TEST_F(EepromTest, AFailureCostsItsOwnValueOnly) {
    const auto withFault = [this](int use, const char* kind) {
        StartMachine(R"({"acpi": {"log": [{"payload": "7f"}], "faults": [{"use": )" + std::to_string(use) +
                     ", " + kind + "}]}}");
        return Document();
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
    StartMachine(R"({"acpi": {"faults": [{"reply_size": 0}]}})");
    EXPECT_EQ(Document(), R"({"version":"0x00","register_count":"0x00","register":[""],"event":[]})");
    EXPECT_EQ(Sensor(), R"({"p_sensor":"0x00"})");
}

TEST_F(EepromTest, AnEndlessLogEndsByItsCharacters) {
    // Registers and version take 4 + 6 + 12 characters; a record of 256 tokens 1279.
    const char* machine =
        R"({"acpi": {"registers": [1, 2, 3], "log_end": "never ends", "log": [{"length": 255}]}})";
    StartMachine(machine);
    const std::string document = Document();
    EXPECT_EQ(CountOf(document, "0x5a 0xa5"), 24u); // 31500 - 20 holds 24.6 of them
    EXPECT_EQ(CallsOf("DeviceIoControl").size(), 2u + 3 + 25)
        << "the record beyond the limit is the last one read";

    // A record of nine tokens has 44 characters: 4 + 4 + 8 x 4 + 715 x 44 is 31500, which is still kept.
    StartMachine(
        R"({"acpi": {"registers": [1, 2, 3, 4, 5, 6, 7, 8], "log_end": "never ends", "log": [{}]}})");
    EXPECT_EQ(CountOf(Document(), "0x5a 0xa5"), 715u);
    StartMachine(
        R"({"acpi": {"registers": ["0x100", 2, 3, 4, 5, 6, 7, 8], "log_end": "never ends", "log": [{}]}})");
    EXPECT_EQ(CountOf(Document(), "0x5a 0xa5"), 714u);
}

TEST_F(EepromTest, TheBuiltInMachinesOfAwkwardFirmwareAnswer) {
    machine::Start(machine::LoadProfile("bare-firmware"), ":memory:");
    EXPECT_EQ(Document(), R"({"version":"","register_count":"","register":[""],"event":[]})");
    EXPECT_EQ(Sensor(), R"({"p_sensor":""})");
    machine::Start(machine::LoadProfile("wild-event-store"), ":memory:");
    const std::string document = Document();
    // The fourth request is refused, the fifth answered with three bytes.
    EXPECT_THAT(document, StartsWith(R"({"version":"0x30000","register_count":"0x1f4",)"
                                     R"("register":["0xffffffff","","0x00","0x00",)"));
    EXPECT_THAT(document, HasSubstr("0x20 0x00 0x13 0x09 0x00 0x00 0x00")) << "a BCD payload that is none";
    EXPECT_THAT(document, HasSubstr("0xc8 0x10 0x00 0xca 0xfe 0xff 0xff")) << "a cut record";
    EXPECT_THAT(document, EndsWith("]}"));
    EXPECT_LT(document.size(), 43'000u);
}

TEST_F(EepromTest, RegistersAreNotHeldBackAndTheirNumberIsTakenAtItsWord) {
    StartMachine(R"({"acpi": {"register_count": 9000, "log_end": "never ends"}})");
    const std::string document = Document();
    EXPECT_THAT(document, HasSubstr(R"("register_count":"0x2328",)"));
    EXPECT_EQ(CountOf(document, R"("0x00")"), 9000u - 3 - 1); // three hold something, and 255 is none
    EXPECT_THAT(document, EndsWith(R"("event":[]})")) << "36,000 characters leave no room for an event";
    const auto requests = DriverRequests();
    EXPECT_EQ(requests[2 + 8999].in, "444556530800000059000600e3272300");
    // Register 255 would be asked for with the number that asks for the count.
    EXPECT_EQ(requests[2 + 255].in, requests[1].in);
    EXPECT_EQ(CountOf(document, "\"0x2328\""), 2u);

    ForgetCalls();
    StartMachine(R"({"acpi": {"register_count": 16777217, "log": [{}]}})");
    EXPECT_THAT(Document(), HasSubstr(R"("register_count":"0x1000001","register":[""],"event":["0x5a)"));
    EXPECT_THAT(DriverRequests(), SizeIs(4));
}

TEST_F(EepromTest, ADeviceCallNeedsAnOpenDeviceAndKeepsToTheRoomGiven) {
    const std::array<std::uint32_t, 2> next{EventStore, 0xE5};
    std::array<std::byte, 300> reply;
    reply.fill(std::byte{0xEE});
    std::uint32_t size = 77;
    const auto call = [&](std::size_t room) {
        return sondrel::ZrnAcpiCall(sondrel::acpi_method::Control, std::as_bytes(std::span(next)),
                                    std::span(reply).first(room), size);
    };
    EXPECT_FALSE(call(10));
    EXPECT_FALSE(sondrel::UninitializeZRNACPIDevice());
    EXPECT_THAT(Calls(), IsEmpty());
    ASSERT_TRUE(sondrel::InitializeZRNACPIDevice());
    TheMachine().gate.Restart({.nth = 1});
    EXPECT_FALSE(call(10));
    EXPECT_EQ(size, 77u);
    EXPECT_THAT(reply, Each(std::byte{0xEE}));
    TheMachine().gate.Restart();
    EXPECT_TRUE(call(10));
    EXPECT_EQ(size, 10u);
    EXPECT_EQ(reply[9], std::byte{0x7F});
    EXPECT_EQ(reply[10], std::byte{0xEE});
    EXPECT_TRUE(call(reply.size()));
    EXPECT_EQ(size, 256u);
    EXPECT_EQ(reply[256], std::byte{0xEE});
    EXPECT_TRUE(sondrel::UninitializeZRNACPIDevice());
}

/// The rule once more, by its text: two digits, read from the left while they are decimal.
unsigned ReadAsDecimal(unsigned byte) {
    char digits[3];
    std::snprintf(digits, sizeof digits, "%02x", byte);
    unsigned number = 0;
    std::sscanf(digits, "%u", &number);
    return number;
}

std::string Token(unsigned byte) {
    char token[8];
    std::snprintf(token, sizeof token, "0x%02x", byte);
    return token;
}

TEST(EepromRecord, RendersEveryLengthAndKind) {
    std::array<std::byte, sondrel::EepromRecordSize> record{};
    std::array<std::string, 256> plain;
    std::array<std::string, 256> decoded;
    for (std::size_t at = 0; at < record.size(); ++at) {
        const auto byte = static_cast<std::uint8_t>(at * 37 + 11);
        record[at] = std::byte{byte};
        plain[at] = ' ' + Token(byte);
        decoded[at] = ' ' + Token(ReadAsDecimal(byte));
    }
    record[0] = std::byte{0x5A};
    record[1] = std::byte{0xA5};
    plain[1] = " 0xa5";
    for (unsigned kind = 0; kind < 256; ++kind) {
        record[7] = static_cast<std::byte>(kind);
        plain[7] = ' ' + Token(kind);
        for (unsigned length = 0; length < 256; ++length) {
            record[6] = static_cast<std::byte>(length);
            plain[6] = ' ' + Token(length);
            std::string expected = "0x5a";
            for (std::size_t at = 1; at < std::min<std::size_t>(length + 9, 256); ++at) {
                expected += kind == 0x20 && at >= 9 ? decoded[at] : plain[at];
            }
            std::u16string text = u"before";
            ASSERT_TRUE(sondrel::RenderEepromRecord(record, text));
            ASSERT_TRUE(std::ranges::equal(text, expected)) << "kind " << kind << " length " << length;
        }
    }
}

TEST(EepromRecord, DecodesEveryBcdByteAndKnowsTheMarks) {
    std::array<std::byte, sondrel::EepromRecordSize> record{std::byte{0x5A}, std::byte{0xA5}};
    record[6] = std::byte{1};
    record[7] = std::byte{0x20};
    for (unsigned byte = 0; byte < 256; ++byte) {
        record[9] = static_cast<std::byte>(byte);
        std::u16string text;
        ASSERT_TRUE(sondrel::RenderEepromRecord(record, text));
        ASSERT_THAT(machine::Utf8FromWide(text), EndsWith(Token(ReadAsDecimal(byte)))) << byte;
    }
    for (const std::size_t mark : {0, 1}) {
        auto broken = record;
        broken[mark] ^= std::byte{1};
        std::u16string text = u"before";
        EXPECT_FALSE(sondrel::RenderEepromRecord(broken, text));
        EXPECT_EQ(text, u"before");
    }
}

TEST_F(EepromTest, ARecordIsRenderedFromRepliesOfEverySize) {
    for (std::size_t size = 0; size <= 1024; ++size) {
        StartMachine(R"({"acpi": {"log": [{"kind": "0x20", "payload": "59", "length": 255, "reply_size": )" +
                     std::to_string(size) + "}]}}");
        std::u16string text = u"before";
        ASSERT_EQ(sondrel::ReadEepromRecord(EventStore, 0xE5, text), size >= 2);
        if (size < 2) {
            ASSERT_EQ(text, u"");
            continue;
        }
        // What the device did not write reads as 0xff: in the BCD payload as 0. A cut length byte claims 255 too.
        std::string expected;
        const std::array<unsigned, 10> written{0x5A, 0xA5, 0, 0, 0, 0, 0xFF, 0x20, 0, 0x3B};
        const bool bcd = size >= 8;
        for (std::size_t at = 0; at < 256; ++at) {
            const unsigned unwritten = bcd && at >= 9 ? 0 : 0xFF;
            const unsigned byte = at < std::min<std::size_t>(size, 10) ? written[at]
                                  : at < size && at < 256              ? 0
                                                                       : unwritten;
            expected += (at == 0 ? "" : " ") + Token(byte);
        }
        ASSERT_EQ(machine::Utf8FromWide(text), expected) << size;
    }
}

} // namespace
