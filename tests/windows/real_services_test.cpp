// What the DLL reads from the services that Wine has itself, with nothing in their place.
#include "library.h"
#include "saved_registry_key.h"
#include "thread.h"

#include <gtest/gtest.h>

#include <cpuid.h>
#include <objbase.h>

#include <array>
#include <cstring>
#include <ctime>
#include <string>

namespace {

/// From the processor: not every Wine has it in the registry.
std::wstring ProcessorName() {
    std::array<unsigned, 12> words{};
    for (unsigned leaf = 0; leaf < 3; ++leaf) {
        unsigned* const part = words.data() + 4 * static_cast<std::size_t>(leaf);
        __cpuid(0x80000002 + leaf, part[0], part[1], part[2], part[3]);
    }
    const auto* const text = reinterpret_cast<const char*>(words.data());
    return std::wstring(text, text + ::strnlen(text, sizeof words));
}

class RealServicesTest : public ::testing::Test {
protected:
    std::wstring Text(const char* name, std::uint8_t initCom) {
        std::wstring out(65536, L'?');
        m_library.Export<void(VeskChar16*, std::uint8_t)>(name)(out.data(), initCom);
        return out.c_str();
    }

    test::Library m_library;
};

TEST_F(RealServicesTest, WmiAnswersInEitherApartmentAndRefusesTheOtherOne) {
    const std::wstring name = ProcessorName();
    ASSERT_FALSE(name.empty());
    EXPECT_EQ(Text("WMIGetCPUInfo", 1), name);
    test::Thread([&] {
        ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        EXPECT_EQ(Text("WMIGetCPUInfo", 1), L"") << "the thread is in an apartment of the other kind";
        EXPECT_EQ(Text("WMIGetCPUInfo", 0), name);
        // Left as often as it was entered: the thread is still in its apartment.
        EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_FALSE);
        ::CoUninitialize();
        ::CoUninitialize();
    });
}

TEST_F(RealServicesTest, TheVolumeIsThatOfTheDefaultEndpoint) {
    const auto level = VESK_CALL(m_library, System_Read_VolumeLevel);
    EXPECT_EQ(level(1), 100);
    EXPECT_EQ(level(0), -1) << "the apartment is not left";
}

TEST_F(RealServicesTest, TheCountryIsTheUsersOwn) {
    const GEOID former = ::GetUserGeoID(GEOCLASS_NATION);
    std::wstring out(16, L'?');
    ASSERT_TRUE(::SetUserGeoID(94));
    VESK_CALL(m_library, System_GetCountryCode_ISO2)(out.data());
    EXPECT_STREQ(out.c_str(), L"DE");
    ::SetUserGeoID(former);
}

TEST_F(RealServicesTest, TheLocalTimeIsNow) {
    const auto now = [] {
        char text[20];
        const std::time_t time = std::time(nullptr);
        std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", std::localtime(&time));
        return std::string(text);
    };
    char out[20];
    const std::string before = now();
    VESK_CALL(m_library, System_Read_LocalTime)(out);
    EXPECT_LE(before, out);
    EXPECT_LE(out, now());
}

} // namespace
