// A path of the library to the machine, and how it is measured.
#pragma once

#include "machine/machine.h"
#include "machine/profile/profile.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace bench {

struct Case {
    std::string name;
    std::function<machine::Profile(std::size_t items)> machine; // the machine to go to, with so many items
    std::function<void()> go;
    double aim = 0; // times the bare calls, 0: none
};

/// Cases over lists of 1,000, 10,000 and 100,000 items.
std::vector<Case> ListCases();
/// Cases that are always as long.
std::vector<Case> SingleCases();

/// Registers the case as a benchmark. The observer measures in each run what the calls cost by themselves; the rest is the
/// library's. Of all iterations of a repetition the one that was disturbed least counts. The counters:
///
///   seconds       for one item
///   ratio         of the whole to the platform calls alone
///   allocations   of the heap for one item, without those below the boundary
///   calls         that crossed the boundary for one item
void Register(const Case& measured, bool grows);

/// The table of all that was registered and chosen. False when the arguments were not understood.
bool PrintTable(int argc, char** argv, const std::vector<Case>& cases);

} // namespace bench
