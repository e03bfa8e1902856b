// The battery as the DLL finds and asks it.
#include "battery_stand.h"
#include "host_test.h"
#include "import_patch.h"

namespace {

HANDLE WINAPI RefuseToOpen(const wchar_t*, DWORD, DWORD, LPSECURITY_ATTRIBUTES, DWORD, DWORD, HANDLE) {
    ::SetLastError(ERROR_ACCESS_DENIED);
    return INVALID_HANDLE_VALUE;
}

class BatteryTelemetryTest : public test::HostTest {
protected:
    std::uint32_t Designed() { return VESK_CALL(m_library, Battery_Read_DesignedCapacity)(); }

    std::uint32_t Voltage() { return VESK_CALL(m_library, Battery_Read_DesignVoltage)(); }
};

TEST_F(BatteryTelemetryTest, TheDeviceIsAskedInThreeRequests) {
    test::BatteryStand battery(m_stand);
    battery.Answer({.designedCapacity = 57000,
                    .fullChargedCapacity = 51300,
                    .cycleCount = 212,
                    .capacity = 43700,
                    .voltage = 11700});
    EXPECT_EQ(Designed(), 57000u);
    EXPECT_EQ(VESK_CALL(m_library, Battery_Read_FullChargedCapcity)(), 51300u);
    EXPECT_EQ(VESK_CALL(m_library, Battery_Read_Capacity)(), 43700u);
    EXPECT_EQ(Voltage(), 11700u);
    EXPECT_EQ(VESK_CALL(m_library, Battery_Read_ASOC)(), 51300.0F / 57000.0F);
    m_stand.ForgetLog();
    EXPECT_EQ(VESK_CALL(m_library, Battery_Read_CapacityPercentage)(), 90u); // 85.2
    const auto log = m_stand.Log(test::BatteryStand::Device);
    ASSERT_EQ(log.size(), 5u);
    EXPECT_EQ(log[0], (test::DriverRequest{test::Opening, "03000000", 0, 0}));
    EXPECT_EQ(log[1], (test::DriverRequest{0x294040, "00000000", 4, 0}));
    EXPECT_EQ(log[2], (test::DriverRequest{0x294044, "070000000000000000000000", 36, 0}));
    EXPECT_EQ(log[3], (test::DriverRequest{0x29404C, "0700000000000000000000000000000000000000", 16, 0}));
    EXPECT_EQ(log[4].code, test::Closing);
}

TEST_F(BatteryTelemetryTest, WhatFailsLeavesZerosAndNothingOpen) {
    EXPECT_EQ(Designed(), 0u); // no battery at all
    EXPECT_EQ(VESK_CALL(m_library, Battery_Read_CapacityPercentage)(), 0u);
    test::BatteryStand battery(m_stand);
    const test::BatteryAnswers answers{.designedCapacity = 57000, .capacity = 43700, .voltage = 11700};
    battery.Answer(answers);
    battery.SetPresent(false);
    EXPECT_EQ(Designed(), 0u);
    battery.SetPresent(true);
    {
        test::ImportPatch patch(m_library.Module());
        patch.Replace("CreateFileW", &RefuseToOpen);
        EXPECT_EQ(Designed(), 0u);
    }
    EXPECT_EQ(Designed(), 57000u);
    const auto refuse = [this](std::uint32_t code) {
        m_stand.Answer(test::BatteryStand::Device,
                       {.code = code, .status = test::nt_status::Unsuccessful, .uses = 1});
    };
    m_stand.ForgetLog();
    refuse(test::battery_request::QueryTag);
    EXPECT_EQ(Designed(), 0u);
    refuse(test::battery_request::QueryInformation);
    EXPECT_EQ(Designed(), 0u);
    refuse(test::battery_request::QueryStatus);
    EXPECT_EQ(Voltage(), 0u);
    m_stand.Answer(test::BatteryStand::Device,
                   {.code = test::battery_request::QueryTag, .output = test::Words({0}), .uses = 1});
    EXPECT_EQ(Designed(), 0u);
    int opened = 0;
    for (const test::DriverRequest& request : m_stand.Log(test::BatteryStand::Device)) {
        opened += request.code == test::Opening ? 1 : request.code == test::Closing ? -1 : 0;
    }
    EXPECT_EQ(opened, 0);
    battery.Answer(
        {.capabilities = 0x60000000, .designedCapacity = 57000, .capacity = 43700, .voltage = 11700});
    EXPECT_EQ(Designed(), 57000u);
    EXPECT_EQ(Voltage(), 0u); // no battery of the system itself
}

} // namespace
