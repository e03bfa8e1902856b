// The observer's C interface.
#include "vesk_sondrel_observer.h"

#include "observer/lock.h"
#include "observer/observer.h"
#include "observer/recording/start.h"

#include <algorithm>
#include <new>
#include <string_view>

namespace {

using namespace observer;

static_assert(VESK_OBSERVER_REFUSED == Bit(Failure::Refused) &&
              VESK_OBSERVER_SHORT == Bit(Failure::ShortAnswer) &&
              VESK_OBSERVER_EMPTY == Bit(Failure::Nothing) && VESK_OBSERVER_STATUS == Bit(Failure::Status));
static_assert(VESK_OBSERVER_CALL_DIFFERS == static_cast<unsigned>(Difference::Kind::Call) &&
              VESK_OBSERVER_ANSWER_DIFFERS == static_cast<unsigned>(Difference::Kind::Answer) &&
              VESK_OBSERVER_NOT_ASKED == static_cast<unsigned>(Difference::Kind::NotAsked));

/// The one sink that a program sets through this interface.
class ProgramsSink final : public Sink {
public:
    int32_t Set(VeskObserver_Sink sink, void* context) {
        const std::lock_guard lock(m_setting);
        RemoveSink(*this);
        m_sink = sink;
        m_context = context;
        if (sink != nullptr) {
            try {
                AddSink(*this);
            } catch (const std::bad_alloc&) {
                return 0;
            }
        }
        return 1;
    }

    void Ended(const Record& record) override {
        const OperationRow& row = RowOf(record.operation);
        std::vector<std::string> values;
        std::vector<VeskObserver_Argument> arguments;
        values.reserve(record.inputs.size() + record.outputs.size());
        for (const Structure* fields : {&record.inputs, &record.outputs}) {
            for (const Field& field : *fields) {
                values.push_back(Printed(field.value));
                arguments.push_back({field.name.data(), values.back().c_str(), fields == &record.outputs});
            }
        }
        const std::string result = Printed(record.result);
        const std::string line = Printed(record);
        const auto nanoseconds = [](std::chrono::nanoseconds time) {
            return static_cast<std::uint64_t>(time.count());
        };
        const VeskObserver_Call call{.size = sizeof call,
                                     .exportName = record.exportName,
                                     .exportCall = record.exportCall,
                                     .number = record.number,
                                     .thread = record.thread,
                                     .operation = row.name.data(),
                                     .startNanoseconds = nanoseconds(record.start),
                                     .nanoseconds = nanoseconds(record.duration),
                                     .arguments = arguments.data(),
                                     .argumentCount = arguments.size(),
                                     .result = result.c_str(),
                                     .succeeded = record.succeeded,
                                     .hasLastError = record.lastError.has_value(),
                                     .lastError = record.lastError.value_or(0),
                                     .injected = Bit(record.injected),
                                     .line = line.c_str()};
        m_sink(m_context, &call);
    }

private:
    SinkLock m_setting;
    VeskObserver_Sink m_sink = nullptr;
    void* m_context = nullptr;
};

ProgramsSink TheSink;

} // namespace

int32_t VeskObserver_SetSink(VeskObserver_Sink sink, void* context) {
    return TheSink.Set(sink, context);
}

int32_t VeskObserver_InjectFault(const VeskObserver_Fault* fault) {
    if (fault == nullptr) {
        Restart();
        return 1;
    }
    constexpr Failure Kinds[] = {Failure::Refused, Failure::ShortAnswer, Failure::Nothing, Failure::Status};
    const auto* const kind = std::ranges::find(Kinds, fault->kind, Bit);
    if (fault->size < sizeof *fault || kind == std::end(Kinds)) {
        return 0;
    }
    FaultPlan plan{.nth = fault->nth, .andLater = fault->andLater != 0, .kind = *kind};
    if (fault->operation != nullptr) {
        const auto* const row =
            std::ranges::find(OperationTable, std::string_view(fault->operation), &OperationRow::name);
        if (row == std::end(OperationTable)) {
            return 0;
        }
        plan.only = row;
    }
    Restart(plan);
    return 1;
}

int32_t VeskObserver_GetCosts(VeskObserver_Costs* costs) {
    if (costs == nullptr || costs->size < sizeof *costs) {
        return 0;
    }
    const Costs now = CurrentCosts();
    costs->calls = now.calls;
    costs->injected = now.injected;
    costs->recordsLost = now.recordsLost;
    costs->backEndNanoseconds = static_cast<std::uint64_t>(now.inBackEnd.count());
    return 1;
}

size_t VeskObserver_ListOpen(VeskObserver_OpenSink sink, void* context) {
    try {
        const std::vector<OpenThing> things = OpenThings();
        for (const OpenThing& thing : things) {
            if (sink != nullptr) {
                sink(context, Printed(thing).c_str());
            }
        }
        return things.size();
    } catch (const std::bad_alloc&) {
        return 0;
    }
}

int32_t VeskObserver_Replay(const char* file, size_t part, VeskObserver_DifferenceSink sink, void* context,
                            char* problem, size_t size) {
    MachineIsChosen();
    if (file == nullptr) {
        SetReplay(nullptr);
        return 1;
    }
    const auto pass = [sink, context](const Difference& difference) {
        const VeskObserver_Difference passed{.size = sizeof passed,
                                             .kind = static_cast<uint32_t>(difference.kind),
                                             .exportName = difference.exportName,
                                             .line = difference.line,
                                             .text = difference.text.c_str()};
        sink(context, &passed);
    };
    try {
        StartReplay(file, part, sink == nullptr ? Replay::Report() : pass);
        return 1;
    } catch (const std::exception& failure) {
        if (problem != nullptr && size != 0) {
            const std::string_view reason(failure.what());
            *std::ranges::copy(reason.substr(0, size - 1), problem).out = '\0';
        }
        return 0;
    }
}

const char* VeskObserver_Operation(size_t index, uint32_t* kinds) {
    if (index >= OperationCount) {
        return nullptr;
    }
    if (kinds != nullptr) {
        *kinds = OperationTable[index].failures;
    }
    return OperationTable[index].name.data();
}
