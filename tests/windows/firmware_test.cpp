// The firmware's event store and P-sensor through the real DLL: what reaches the device.
#include "driver_stand.h"
#include "library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace {

using test::DriverRequest;
using test::FromHex;
using test::device::Acpi;
using ::testing::ElementsAreArray;

constexpr std::uint32_t CallMethod = 0x22240C;
const std::string Control = "444556530800000059000600";
const DriverRequest AcpiOpened{test::Opening, "03000000"};
const DriverRequest AcpiClosed{test::Closing, ""};

class EepromTest : public ::testing::Test {
protected:
    void Answer(const std::string& request, const test::Bytes& reply, std::uint32_t uses = 0,
                std::uint32_t status = test::nt_status::Success) {
        m_stand.Answer(Acpi, {.code = CallMethod,
                              .prefix = FromHex(request),
                              .output = reply,
                              .status = status,
                              .uses = uses});
    }

    std::wstring Document() {
        std::vector<wchar_t> out(100'000, L'#');
        VESK_CALL(m_library, GetEEPROM_Data)(out.data());
        return out.data();
    }

    std::wstring Sensor() {
        std::array<wchar_t, 26> out{};
        VESK_CALL(m_library, GetSENSOR_WMI_Data)(out.data());
        return out.data();
    }

    test::DriverStand m_stand;
    test::Library m_library;
};

TEST_F(EepromTest, ReadsTheStoreRequestByRequest) {
    m_stand.AddDevice(Acpi);
    Answer(Control + "e0000000", test::Words({0x12}));
    Answer(Control + "e3ff0000", test::Words({2}));
    Answer(Control + "e3000000", test::Words({5}));
    Answer(Control + "e3010000", test::Words({0xABC}));
    Answer(Control + "e5000000", FromHex("ffff"));
    Answer(Control + "e5000000", FromHex("5aa5 00000000 01 20 00 59"), 1);
    Answer(Control + "e5000000", FromHex("5aa5 00000000 01 10 00 7f"), 1);
    EXPECT_EQ(Document(),
              LR"({"version":"0x12","register_count":"0x02","register":["0x05","0xabc"],"event":[)"
              LR"("0x5a 0xa5 0x00 0x00 0x00 0x00 0x01 0x10 0x00 0x7f",)"
              LR"("0x5a 0xa5 0x00 0x00 0x00 0x00 0x01 0x20 0x00 0x3b"]})");
    std::vector<DriverRequest> expected;
    for (const char* what :
         {"e0000000", "e3ff0000", "e3000000", "e3010000", "e5000000", "e5000000", "e5000000"}) {
        expected.insert(expected.end(), {AcpiOpened, {CallMethod, Control + what, 1024}, AcpiClosed});
    }
    EXPECT_THAT(m_stand.Log(Acpi), ElementsAreArray(expected));
}

TEST_F(EepromTest, KeepsToWhatTheDeviceReports) {
    m_stand.AddDevice(Acpi);
    Answer(Control + "e0000000", FromHex("123456"));    // three bytes are no number
    Answer(Control + "e3ff0000", test::Bytes(1024, 0)); // the most there can be
    Answer(Control + "e5000000", {}, 1);                // nothing
    EXPECT_EQ(Document(), LR"({"version":"0x00","register_count":"0x00","register":[""],"event":[]})");
    // A record cut after its header, whose length claims more than there is: the rest reads as 0xff.
    Answer(Control + "e5000000", FromHex("0000"));
    Answer(Control + "e5000000", FromHex("5aa5 00000000 ff 10 00"), 1);
    std::wstring record = L"0x5a 0xa5 0x00 0x00 0x00 0x00 0xff 0x10 0x00";
    for (int byte = 9; byte < 256; ++byte) {
        record += L" 0xff";
    }
    EXPECT_EQ(Document(), LR"({"version":"0x00","register_count":"0x00","register":[""],"event":[")" +
                              record + LR"("]})");
}

TEST_F(EepromTest, AnswersWithoutTheDeviceOrWithOneThatRefuses) {
    const wchar_t* const nothing = LR"({"version":"","register_count":"","register":[""],"event":[]})";
    EXPECT_EQ(Document(), nothing);
    EXPECT_EQ(Sensor(), LR"({"p_sensor":""})");
    m_stand.AddDevice(Acpi);
    EXPECT_EQ(Document(), nothing);
    EXPECT_EQ(Sensor(), LR"({"p_sensor":""})");
    EXPECT_EQ(m_stand.Requests(Acpi).size(), 4u);
    EXPECT_EQ(std::ranges::count(m_stand.Log(Acpi), AcpiClosed), 4);
}

} // namespace
