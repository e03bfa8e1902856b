#include "radio/link_rate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

using namespace testing;
using sondrel::LinkRate;
using Block = std::vector<std::byte>;

Block Bytes(std::initializer_list<int> bytes) {
    Block block;
    for (const int byte : bytes) {
        block.push_back(static_cast<std::byte>(byte));
    }
    return block;
}

Block operator+(Block left, const Block& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

Block HtCapabilities(int information, std::uint32_t mcsSet) {
    Block block = Bytes({45, 26, information, 0, 0});
    for (unsigned shift = 0; shift < 32; shift += 8) {
        block.push_back(static_cast<std::byte>(mcsSet >> shift));
    }
    block.resize(28);
    return block;
}

Block HtOperation(int primaryChannel) {
    return Bytes({61, 1, primaryChannel});
}

Block VhtCapabilities(int information, unsigned mcsMap) {
    return Bytes({191, 12, information, 0, 0, 0, static_cast<int>(mcsMap & 0xFF),
                  static_cast<int>(mcsMap >> 8), 0, 0, 0, 0, 0, 0});
}

Block VhtOperation(int channelWidth) {
    return Bytes({192, 5, channelWidth, 0, 0, 0, 0});
}

/// The rate of IEEE 802.11 in units of 500 kbit/s, rounded: data subcarriers x bits per subcarrier x coding rate x
/// streams over the symbol's time, 4 us or 3.6 us.
int PublishedRate(int streams, int width, bool shortGuard, int mcs) {
    constexpr int Bits[] = {1, 2, 2, 4, 4, 6, 6, 6, 8, 8};
    constexpr double Coding[] = {1. / 2, 1. / 2, 3. / 4, 1. / 2, 3. / 4,
                                 2. / 3, 3. / 4, 5. / 6, 3. / 4, 5. / 6};
    const int subcarriers = width == 20 ? 52 : width == 40 ? 108 : 234;
    const double megabits = subcarriers * Bits[mcs] * Coding[mcs] * streams / (shortGuard ? 3.6 : 4.0);
    return static_cast<int>(std::floor(megabits * 2 + 0.5 + 1e-9));
}

TEST(LinkRateTable, HasThePublishedRatesExceptTheseRows) {
    std::vector<std::string> deviations;
    const auto compare = [&](const std::string& standard, int streams, int width, bool shortGuard, int mcs,
                             int rate) {
        if (rate != PublishedRate(streams, width, shortGuard, mcs)) {
            deviations.push_back(standard + std::to_string(streams) + "x" + std::to_string(width) +
                                 (shortGuard ? " short MCS " : " long MCS ") + std::to_string(mcs) + " = " +
                                 std::to_string(rate));
        }
    };
    constexpr int Widths[] = {20, 40, 80};
    for (int streams = 1; streams <= 4; ++streams) {
        for (std::size_t width = 0; width < 3; ++width) {
            for (const bool guard : {false, true}) {
                for (int mcs = 0; mcs < 10; ++mcs) {
                    compare("VHT ", streams, Widths[width], guard, mcs,
                            sondrel::VhtRateTable[streams - 1][width][guard][mcs]);
                }
                for (int mcs = 0; mcs < 8 && width < 2; ++mcs) {
                    compare("HT ", streams, Widths[width], guard, mcs,
                            sondrel::HtRateTable[width][guard][8 * (streams - 1) + mcs]);
                }
            }
        }
    }
    EXPECT_THAT(
        deviations,
        ElementsAre("VHT 1x20 long MCS 9 = 156", "VHT 1x20 short MCS 9 = 173", "VHT 2x20 long MCS 9 = 312",
                    "VHT 2x20 short MCS 9 = 347", "VHT 2x80 short MCS 9 = 1734", "VHT 4x20 long MCS 9 = 0",
                    "VHT 4x20 short MCS 2 = 174", "VHT 4x20 short MCS 3 = 232", "VHT 4x20 short MCS 4 = 346",
                    "VHT 4x20 short MCS 8 = 694", "VHT 4x20 short MCS 9 = 0", "HT 4x20 short MCS 2 = 174",
                    "HT 4x20 short MCS 3 = 232", "HT 4x20 short MCS 4 = 346", "VHT 4x80 short MCS 9 = 3466"));
}

TEST(LinkRate, FindsEveryHtRate) {
    for (unsigned width = 0; width < 2; ++width) {
        for (const unsigned guard : {0u, 1u}) {
            const int guardBit = guard == 0 ? 0 : width == 0 ? 0x10 : 0x20;
            for (unsigned mcs = 0; mcs < 32; ++mcs) {
                const Block block = HtCapabilities(guardBit | (width == 0 ? 0 : 0x02), 1u << mcs);
                EXPECT_EQ(LinkRate(block), sondrel::HtRateTable[width][guard][mcs] / 2) << mcs;
            }
        }
    }
}

TEST(LinkRate, UsesTheElementsInTheirOrder) {
    struct RateCase {
        const char* why;
        int rate;
        Block block;
    };

    const Block ht20 = HtCapabilities(0x00, 0xFF), ht40 = HtCapabilities(0x02, 0xFF);
    const Block vht = VhtCapabilities(0x20, 0xFFFA), vht80 = VhtOperation(1),
                map = VhtCapabilities(0, 0xFFFE);
    Block longest = Bytes({45, 255, 0x02, 0, 0, 0xFF, 0, 0, 0});
    longest.resize(2 + 255);
    const Block cut(longest.begin(), longest.end() - 1);
    const RateCase cases[] = {
        {"the highest candidate", 300, HtCapabilities(0x22, 0xFFFF)},
        {"one stream of MCS 7", 65, VhtCapabilities(0x00, 0xFFFC)},
        {"of MCS 8", 78, VhtCapabilities(0x00, 0xFFFD)},
        {"two at 40 MHz", 360, ht40 + VhtCapabilities(0x00, 0xFFFA)},
        {"three at 80 MHz", 1170, ht40 + VhtCapabilities(0x00, 0xFFEA) + vht80},
        {"four with a short guard", 1733, ht40 + VhtCapabilities(0x20, 0xFFAA) + vht80},
        {"four, the first ones slow", 1560, ht40 + VhtCapabilities(0x00, 0xFF80) + vht80},
        {"four streams of MCS 9 have no rate at 20 MHz: three count", 260, VhtCapabilities(0, 0xFFAA)},
        {"nor has a missing fourth", 260, VhtCapabilities(0, 0xFFEA)},
        {"no first stream, whatever the others say", 0, VhtCapabilities(0, 0xFFAB)},
        {"no stream at all", 0, HtCapabilities(0, 0)},
        {"VHT decides, even with less to offer", 150,
         HtCapabilities(0x22, 0xFFFF) + VhtCapabilities(0, 0xFFFC)},
        {"40 MHz widened to 80", 867, ht40 + vht + vht80},
        {"before there is anything to widen", 400, vht80 + ht40 + vht},
        {"20 MHz are not widened to 80", 173, ht20 + vht + vht80},
        {"unless HT operation has made 40 of them", 867, ht20 + HtOperation(0x02) + vht + vht80},
        {"a later 40 narrows 80", 400, vht + vht80 + HtOperation(0x06)},
        {"HT operation of 20 MHz", 65, ht20 + HtOperation(0x24)},
        {"a second operation finds no 40 any more", 867, ht40 + vht + vht80 + VhtOperation(2)},
        {"unless it is set again", 867, ht40 + vht + VhtOperation(2) + HtOperation(0x02) + vht80},
        {"no operation of width 0", 400, ht40 + vht + VhtOperation(0)},
        {"nor 4", 400, ht40 + vht + VhtOperation(4)},
        {"nor 255", 400, ht40 + vht + VhtOperation(255)},
        {"160 MHz have no rate", 0, ht40 + vht + VhtOperation(2)},
        {"nor 80 + 80", 0, ht40 + vht + VhtOperation(3)},
        {"nor has HT at 80", 0, ht40 + vht80},
        {"nor at 160", 0, ht40 + VhtOperation(2)},
        {"40 MHz, long guard", 135, HtCapabilities(0x02, 0x80)},
        {"40 MHz, short guard", 150, HtCapabilities(0x22, 0x80)},
        {"40 MHz, the bit of 20", 135, HtCapabilities(0x12, 0x80)},
        {"20 MHz, short guard", 72, HtCapabilities(0x10, 0x80)},
        {"20 MHz, the bit of 40", 65, HtCapabilities(0x20, 0x80)},
        {"VHT, the bit of HT's 20", 86, VhtCapabilities(0x10, 0xFFFE)},
        {"VHT, short guard", 86, VhtCapabilities(0x20, 0xFFFE)},
        {"VHT, a bit of 160 MHz", 78, VhtCapabilities(0x40, 0xFFFE)},
        {"HT's short guard serves VHT", 86, HtCapabilities(0x10, 0) + map},
        {"HT capabilities too short for the rates", 0, Bytes({45, 6, 0x02, 0, 0, 0xFF, 0, 0})},
        {"and just long enough", 135, Bytes({45, 7, 0x02, 0, 0, 0xFF, 0, 0, 0})},
        {"VHT capabilities too short", 0, Bytes({191, 5, 0, 0, 0, 0, 0xFE})},
        {"and just long enough", 78, Bytes({191, 6, 0, 0, 0, 0, 0xFE, 0xFF})},
        {"an element of the largest length", 135, longest},
        {"and the element after it", 180, longest + map},
        {"cut by one byte", 0, cut},
        {"half a header at the end", 135, ht40 + Bytes({45})},
        {"an element that claims more than there is", 135, ht40 + Bytes({191, 255, 0, 0, 0, 0, 0xFE, 0xFF})},
    };
    for (const RateCase& each : cases) {
        EXPECT_EQ(LinkRate(each.block), each.rate) << each.why;
    }
    for (const int id : {45, 61, 191, 192, 0, 221}) {
        const Block empty = Bytes({id, 0});
        EXPECT_EQ(LinkRate(empty), 0);
        EXPECT_EQ(LinkRate(empty + ht40 + empty + vht + empty + vht80 + empty), 867) << "empty elements";
    }
}

} // namespace
