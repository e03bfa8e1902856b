#include "usage/open_window_record.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(OpenWindowRecordTest, CpuUsageHasOneDigitBehindThePoint) {
    EXPECT_EQ(sondrel::CpuUsageText(0.0F), u"0.0");
    EXPECT_EQ(sondrel::CpuUsageText(3.7F), u"3.7");
    EXPECT_EQ(sondrel::CpuUsageText(-1.0F), u"-1.0");
    EXPECT_EQ(sondrel::CpuUsageText(12.46F), u"12.5");
    EXPECT_EQ(sondrel::CpuUsageText(99.96F), u"100.0");
    EXPECT_EQ(sondrel::CpuUsageText(0.25F), u"0.2");
    EXPECT_EQ(sondrel::CpuUsageText(std::numeric_limits<float>::lowest()),
              u"-340282346638528859811704183484516925440.0");
    EXPECT_EQ(sondrel::CpuUsageText(std::numeric_limits<float>::infinity()), u"inf");
}

} // namespace
