// The library's own use of the heap: its allocations are counted, and one of them can be made to fail.
//
// What the observer and the simulated machine allocate below the boundary is not counted and never fails.
#pragma once

#include <cstdint>

namespace heap {

/// Which allocations fail, counted from 1. 0: none.
struct Plan {
    std::uint64_t nth = 0;
    bool andLater = false;
};

/// Starts counting again, with a plan or without one.
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

/// The library's allocations, and those that failed, since the last restart.
std::uint64_t Count();
std::uint64_t Injected();

/// How many blocks the library has allocated and not released.
std::int64_t Live();

} // namespace heap
