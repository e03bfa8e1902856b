// Somebody who is told when a boundary call begins and when it ends: a benchmark that has to know what the calls
// cost by themselves.
#pragma once

namespace machine {

/// Both are called with the machine held, calls within calls included.
struct CallObserver {
    void (*began)() = nullptr;
    void (*ended)() = nullptr;
};

/// An empty observer ends it.
void ObserveCalls(CallObserver observer);

} // namespace machine
