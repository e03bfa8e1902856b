// The heap as the library sees it: its allocations are counted, and one of them can be made to fail.
//
// What the simulated machine allocates behind a boundary call is its own affair and never fails: whoever counts makes
// these the observer of its calls.
#pragma once

#include <cstdint>

namespace heap {

/// Which allocations fail, counted from 1. 0: none.
struct Plan {
    std::uint64_t nth = 0;
    bool andLater = false;
};

/// Starts counting anew, with a plan or without one.
void Restart(Plan plan = {});

/// The library runs from here to the end of the scope; elsewhere nothing is counted.
class InLibrary {
public:
    InLibrary();
    InLibrary(const InLibrary&) = delete;
    InLibrary& operator=(const InLibrary&) = delete;
    ~InLibrary();

private:
    bool m_before;
};

/// The library has called the machine, or has its answer.
void EnterMachine();
void LeaveMachine();

/// The library's allocations, and those that failed, since the last restart.
std::uint64_t Count();
std::uint64_t Injected();

/// How many blocks the library has allocated and not given back.
std::int64_t Live();

} // namespace heap
