// What a program in the same process asks of the observer: the records of the calls, faults, costs, what is open.
//
// The observer lies between the core and a back end: it defines the boundary's functions and calls those of
// `platform::back_end`. vesk_sondrel_observer.h is the same for programs that find it in the library's file.
#pragma once

#include "observer/export_record.h"
#include "observer/ledger.h"
#include "observer/record.h"

#include <chrono>
#include <cstdint>
#include <vector>

namespace observer {

/// Receives the records. One call of a sink at a time; what a sink itself calls across the boundary is not observed.
class Sink {
public:
    Sink() = default;
    Sink(const Sink&) = delete;
    Sink& operator=(const Sink&) = delete;
    virtual ~Sink() = default;

    /// A boundary call has ended. The record is gone when this returns.
    virtual void Ended(const Record& record) = 0;

    /// It begins: there is nothing but inputs yet.
    virtual void Began(const Record&) {}

    /// The host has called an export: there are only arguments yet.
    virtual void ExportBegan(const ExportRecord&) {}

    /// It returns.
    virtual void ExportEnded(const ExportRecord&) {}
};

/// A sink receives the calls that begin after this. Records are made only while there is a sink.
void AddSink(Sink& sink);

/// Returns when the sink is not called any more.
void RemoveSink(Sink& sink) noexcept;

/// Which calls fail: the n-th, from 1, of those since the last restart, over all operations or of one.
struct FaultPlan {
    std::uint64_t nth = 0; // 0: none
    bool andLater = false;
    Failure kind = Failure::Refused;
    const OperationRow* only = nullptr; // a row of the table; null: any operation counts
};

/// Starts counting again, with a plan or without one. A planned failure of a kind that the operation does not have is not
/// injected. What is open stays known.
void Restart(FaultPlan plan = {});

/// Since the last restart.
struct Costs {
    std::uint64_t calls = 0;
    std::uint64_t injected = 0;
    std::uint64_t recordsLost = 0;         // for lack of memory
    std::chrono::nanoseconds inBackEnd{0}; // all threads together
};

Costs CurrentCosts();

/// What is open, in the order of the operating system's numbers.
std::vector<OpenThing> OpenThings();

/// Forgets what is open, where the machine that it was open on has been replaced.
void ForgetOpenThings();

/// Whether the calling thread is below the boundary: in the observer or in a back end. What it allocates there is not the
/// core's.
bool IsBelowBoundary() noexcept;

/// Whether the calling thread is in an export and not below the boundary: what it allocates there is the core's.
bool IsInCore() noexcept;

} // namespace observer
