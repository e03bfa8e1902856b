#include "radio/link_rate.h"

#include "platform/simulated/beacon.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

using sondrel::LinkRate;
using ::testing::ElementsAre;
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

std::string Named(const char* standard, int streams, int width, bool shortGuard, int mcs, int rate) {
    return std::string(standard) + " " + std::to_string(streams) + "x" + std::to_string(width) +
           (shortGuard ? " short MCS " : " long MCS ") + std::to_string(mcs) + " = " + std::to_string(rate);
}

TEST(LinkRateTable, HoldsThePublishedRatesButForTheseRows) {
    std::vector<std::string> deviations;
    const auto compare = [&](const char* standard, int streams, int width, bool shortGuard, int mcs,
                             int rate) {
        if (rate != PublishedRate(streams, width, shortGuard, mcs)) {
            deviations.push_back(Named(standard, streams, width, shortGuard, mcs, rate));
        }
    };
    constexpr int Widths[] = {20, 40, 80};
    for (int streams = 1; streams <= 4; ++streams) {
        for (std::size_t width = 0; width < 3; ++width) {
            for (const bool guard : {false, true}) {
                for (int mcs = 0; mcs < 10; ++mcs) {
                    compare("VHT", streams, Widths[width], guard, mcs,
                            sondrel::VhtRateTable[streams - 1][width][guard][mcs]);
                }
                for (int mcs = 0; mcs < 8 && width < 2; ++mcs) {
                    compare("HT", streams, Widths[width], guard, mcs,
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

TEST(LinkRate, FindsEveryVhtRateThatAMapCanName) {
    for (unsigned streams = 1; streams <= 4; ++streams) {
        for (unsigned width = 0; width < 3; ++width) {
            for (const unsigned guard : {0u, 1u}) {
                for (unsigned entry = 0; entry < 3; ++entry) {
                    // The highest stream alone decides, if those below it are the slowest there are.
                    const unsigned map = (0xFFFFu << (2 * streams) & 0xFFFFu) | entry << (2 * (streams - 1));
                    const Block block = HtCapabilities(width == 0 ? 0x00 : 0x02, 0) +
                                        VhtCapabilities(guard != 0 ? 0x20 : 0x00, map) +
                                        VhtOperation(width == 2 ? 1 : 0);
                    int highest = 0;
                    for (unsigned stream = 0; stream < streams; ++stream) {
                        const unsigned mcs = 7 + (stream + 1 == streams ? entry : 0);
                        highest = std::max<int>(highest, sondrel::VhtRateTable[stream][width][guard][mcs]);
                    }
                    EXPECT_EQ(LinkRate(block), highest / 2)
                        << Named("VHT", static_cast<int>(streams), 20 << width, guard != 0,
                                 7 + static_cast<int>(entry), highest);
                }
            }
        }
    }
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

TEST(LinkRate, TakesTheHighestCandidate) {
    EXPECT_EQ(LinkRate(HtCapabilities(0x22, 0xFFFF)), 300);
    // The last stream's MCS 9 has no rate at 20 MHz: three streams of MCS 9 stand.
    EXPECT_EQ(LinkRate(VhtCapabilities(0, 0xFFAA)), 260);
    EXPECT_EQ(LinkRate(VhtCapabilities(0, 0xFFEA)), 260);
    EXPECT_EQ(LinkRate(VhtCapabilities(0, 0xFFAB)), 0); // no first stream, whatever the others say
    EXPECT_EQ(LinkRate(HtCapabilities(0, 0)), 0);
    // VHT decides where both are there, even if it has less to offer.
    EXPECT_EQ(LinkRate(HtCapabilities(0x22, 0xFFFF) + VhtCapabilities(0, 0xFFFC)), 150);
}

TEST(LinkRate, WidensInTheOrderOfTheElements) {
    const Block ht20 = HtCapabilities(0x00, 0xFF);
    const Block ht40 = HtCapabilities(0x02, 0xFF);
    const Block vht = VhtCapabilities(0x20, 0xFFFA);
    EXPECT_EQ(LinkRate(ht40 + vht + VhtOperation(1)), 867);
    EXPECT_EQ(LinkRate(VhtOperation(1) + ht40 + vht), 400); // came before there was anything to widen
    EXPECT_EQ(LinkRate(ht20 + vht + VhtOperation(1)), 173);
    EXPECT_EQ(LinkRate(ht20 + HtOperation(0x02) + vht + VhtOperation(1)), 867);
    EXPECT_EQ(LinkRate(vht + VhtOperation(1) + HtOperation(0x06)), 400);
    EXPECT_EQ(LinkRate(ht20 + HtOperation(0x24)), 65);
    // A second operation element no longer finds 40 MHz; a later 40 MHz element narrows it again.
    EXPECT_EQ(LinkRate(ht40 + vht + VhtOperation(1) + VhtOperation(2)), 867);
    EXPECT_EQ(LinkRate(ht40 + vht + VhtOperation(2) + HtOperation(0x02) + VhtOperation(1)), 867);
    for (const int unknown : {0, 4, 255}) {
        EXPECT_EQ(LinkRate(ht40 + vht + VhtOperation(unknown)), 400);
    }
}

TEST(LinkRate, HasNoRateForTheWidestChannels) {
    for (const int width : {2, 3}) {
        EXPECT_EQ(LinkRate(HtCapabilities(0x02, 0xFF) + VhtCapabilities(0x20, 0xFFFA) + VhtOperation(width)),
                  0);
        EXPECT_EQ(LinkRate(HtCapabilities(0x02, 0xFF) + VhtOperation(width)), 0);
    }
    EXPECT_EQ(LinkRate(HtCapabilities(0x02, 0xFF) + VhtOperation(1)), 0); // nor for HT at 80 MHz
}

TEST(LinkRate, KnowsTheFourGuardBits) {
    const Block map = VhtCapabilities(0x00, 0xFFFE);
    EXPECT_EQ(LinkRate(HtCapabilities(0x02, 0x80)), 135);
    EXPECT_EQ(LinkRate(HtCapabilities(0x22, 0x80)), 150);
    EXPECT_EQ(LinkRate(HtCapabilities(0x12, 0x80)), 135); // counts only at 20 MHz
    EXPECT_EQ(LinkRate(HtCapabilities(0x10, 0x80)), 72);
    EXPECT_EQ(LinkRate(HtCapabilities(0x20, 0x80)), 65); // counts only at 40 MHz
    EXPECT_EQ(LinkRate(VhtCapabilities(0x10, 0xFFFE)), 86);
    EXPECT_EQ(LinkRate(VhtCapabilities(0x20, 0xFFFE)), 86);
    EXPECT_EQ(LinkRate(VhtCapabilities(0x40, 0xFFFE)), 78);
    EXPECT_EQ(LinkRate(HtCapabilities(0x10, 0) + map), 86);
}

/// What the walk may see of a block: its whole elements.
Block WholeElements(const Block& block) {
    std::size_t end = 0;
    while (end + 2 <= block.size() &&
           end + 2 + std::to_integer<std::size_t>(block[end + 1]) <= block.size()) {
        end += 2 + std::to_integer<std::size_t>(block[end + 1]);
    }
    return {block.begin(), block.begin() + static_cast<std::ptrdiff_t>(end)};
}

TEST(LinkRate, ACutBlockIsItsWholeElements) {
    machine::Beacon beacon{.ssid = "A name of thirty-two characters.", .channel = 36};
    beacon.ht = {.present = true, .forty = true, .shortGuard20 = true, .shortGuard40 = true, .rates = 0xFFFF};
    beacon.vht = {
        .present = true, .width = machine::VhtWidth::Mhz80, .shortGuard80 = true, .highestMcs = {9, 9}};
    const Block whole = machine::EncodeElements(beacon);
    ASSERT_EQ(LinkRate(whole), 867);
    std::vector<int> rates;
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        // A copy of exactly this size, so that a sanitizer sees a read behind it.
        const Block cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        const int rate = LinkRate(cut);
        EXPECT_EQ(rate, LinkRate(WholeElements(cut))) << size;
        if (rates.empty() || rates.back() != rate) {
            rates.push_back(rate);
        }
    }
    EXPECT_THAT(rates, ElementsAre(0, 300, 400, 867));
}

TEST(LinkRate, PassesOverElementsTooShortForWhatIsReadOfThem) {
    const Block ht40 = HtCapabilities(0x02, 0xFF);
    const Block vht = VhtCapabilities(0x20, 0xFFFA);
    for (const int id : {45, 61, 191, 192, 0, 221}) {
        const Block empty = Bytes({id, 0});
        EXPECT_EQ(LinkRate(empty), 0);
        EXPECT_EQ(LinkRate(empty + ht40 + empty + vht + empty + VhtOperation(1) + empty), 867);
    }
    EXPECT_EQ(LinkRate(Bytes({45, 6, 0x02, 0, 0, 0xFF, 0, 0})), 0);
    EXPECT_EQ(LinkRate(Bytes({45, 7, 0x02, 0, 0, 0xFF, 0, 0, 0})), 135);
    EXPECT_EQ(LinkRate(Bytes({191, 5, 0, 0, 0, 0, 0xFE})), 0);
    EXPECT_EQ(LinkRate(Bytes({191, 6, 0, 0, 0, 0, 0xFE, 0xFF})), 78);
}

TEST(LinkRate, TakesElementsOfTheLargestLength) {
    Block longest = Bytes({45, 255, 0x02, 0, 0, 0xFF, 0, 0, 0});
    longest.resize(2 + 255);
    EXPECT_EQ(LinkRate(longest), 135);
    EXPECT_EQ(LinkRate(longest + VhtCapabilities(0, 0xFFFE)), 180);
    longest.pop_back();
    EXPECT_EQ(LinkRate(longest), 0);
    EXPECT_EQ(LinkRate(HtCapabilities(0x02, 0xFF) + Bytes({191, 255, 0, 0, 0, 0, 0xFE, 0xFF})), 135);
}

} // namespace
