// The highest link rate that an access point offers, computed from its beacon.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace sondrel {

// Rates in units of 500 kbit/s. They are the rates of 802.11n and 802.11ac, rounded to the unit, except these, which
// hosts rely on:
//   VHT, 20 MHz, MCS 9, 1 and 2 streams: not a rate of the standard, repeats MCS 8 (1 and 2 streams, both guards)
//   VHT, 20 MHz, MCS 9, 4 streams: not a rate of the standard, 0
//   20 MHz, short guard, 4 streams: MCS 2, 3, 4 and VHT MCS 8 are one unit off (174, 232, 346, 694)
//   VHT, 80 MHz, short guard, MCS 9: one unit off for 2 and 4 streams (1734, 3466)

/// 802.11ac: [streams - 1][width: 20, 40, 80 MHz][short guard interval][MCS].
inline constexpr std::uint16_t VhtRateTable[4][3][2][10] = {
    {{{13, 26, 39, 52, 78, 104, 117, 130, 156, 156}, {14, 29, 43, 58, 87, 116, 130, 144, 173, 173}},
     {{27, 54, 81, 108, 162, 216, 243, 270, 324, 360}, {30, 60, 90, 120, 180, 240, 270, 300, 360, 400}},
     {{59, 117, 176, 234, 351, 468, 527, 585, 702, 780}, {65, 130, 195, 260, 390, 520, 585, 650, 780, 867}}},
    {{{26, 52, 78, 104, 156, 208, 234, 260, 312, 312}, {29, 58, 87, 116, 173, 231, 260, 289, 347, 347}},
     {{54, 108, 162, 216, 324, 432, 486, 540, 648, 720}, {60, 120, 180, 240, 360, 480, 540, 600, 720, 800}},
     {{117, 234, 351, 468, 702, 936, 1053, 1170, 1404, 1560},
      {130, 260, 390, 520, 780, 1040, 1170, 1300, 1560, 1734}}},
    {{{39, 78, 117, 156, 234, 312, 351, 390, 468, 520}, {43, 87, 130, 173, 260, 347, 390, 433, 520, 578}},
     {{81, 162, 243, 324, 486, 648, 729, 810, 972, 1080},
      {90, 180, 270, 360, 540, 720, 810, 900, 1080, 1200}},
     {{176, 351, 527, 702, 1053, 1404, 1580, 1755, 2106, 2340},
      {195, 390, 585, 780, 1170, 1560, 1755, 1950, 2340, 2600}}},
    {{{52, 104, 156, 208, 312, 416, 468, 520, 624, 0}, {58, 116, 174, 232, 346, 462, 520, 578, 694, 0}},
     {{108, 216, 324, 432, 648, 864, 972, 1080, 1296, 1440},
      {120, 240, 360, 480, 720, 960, 1080, 1200, 1440, 1600}},
     {{234, 468, 702, 936, 1404, 1872, 2106, 2340, 2808, 3120},
      {260, 520, 780, 1040, 1560, 2080, 2340, 2600, 3120, 3466}}}};

/// 802.11n: [width: 20, 40 MHz][short guard interval][MCS], eight MCS for each number of streams from 1 to 4.
inline constexpr std::uint16_t HtRateTable[2][2][32] = {
    {{13, 26, 39,  52,  78,  104, 117, 130, 26, 52,  78,  104, 156, 208, 234, 260,
      39, 78, 117, 156, 234, 312, 351, 390, 52, 104, 156, 208, 312, 416, 468, 520},
     {14, 29, 43,  58,  87,  116, 130, 144, 29, 58,  87,  116, 173, 231, 260, 289,
      43, 87, 130, 173, 260, 347, 390, 433, 58, 116, 174, 232, 346, 462, 520, 578}},
    {{27, 54,  81,  108, 162, 216, 243, 270, 54,  108, 162, 216, 324, 432, 486, 540,
      81, 162, 243, 324, 486, 648, 729, 810, 108, 216, 324, 432, 648, 864, 972, 1080},
     {30, 60,  90,  120, 180, 240, 270, 300, 60,  120, 180, 240, 360, 480, 540,  600,
      90, 180, 270, 360, 540, 720, 810, 900, 120, 240, 360, 480, 720, 960, 1080, 1200}}};

/// The highest rate in Mbit/s of a block of information elements, rounded down. 0 without an HT or VHT element,
/// for VHT at 160 and 80+80 MHz and for HT above 40 MHz, which have no rates here.
///
/// The block is received data and not trusted: an element that is longer than the rest of the block ends the
/// walk, and an element that is too short for the fields that are read counts as absent.
std::int32_t LinkRate(std::span<const std::byte> elements);

} // namespace sondrel
