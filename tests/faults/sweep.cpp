#include "sweep.h"

#include <algorithm>
#include <ostream>

namespace sweep {
namespace {

using observer::Failure;
using observer::Operation;

struct Kind {
    Failure failure;
    std::string_view name;
};

constexpr Kind Kinds[] = {{Failure::Refused, "refused"},
                          {Failure::ShortAnswer, "short"},
                          {Failure::Nothing, "nothing"},
                          {Failure::Status, "status"}};

class Sweep {
public:
    Sweep(Stage& stage, const Subject& subject, Tally& tally)
        : m_stage(stage), m_subject(subject), m_tally(tally) {
        m_stage.Restart();
        m_good = m_stage.Play(m_subject.call);
        m_then = m_stage.Play(m_subject.call);
        for (const std::string& fault : {m_good.fault, m_then.fault}) {
            if (!fault.empty()) {
                Complain("a good run", fault, m_good.answer.text);
            }
        }
    }

    void FailCalls() {
        for (std::size_t place = 1; place <= m_good.calls.size(); ++place) {
            const Operation operation = m_good.calls[place - 1];
            const std::uint8_t ways = observer::RowOf(operation).failures;
            Reached(operation) += ways == 0 ? 1 : 0;
            for (const Kind& kind : Kinds) {
                for (const bool andLater : {false, true}) {
                    if ((ways & static_cast<std::uint8_t>(kind.failure)) != 0 && IsInSample()) {
                        FailCall(place, kind.name, {operation, kind.failure, andLater});
                    }
                }
            }
        }
    }

    void FailAllocations() {
        for (std::uint64_t place = 1; place <= m_good.allocations; ++place) {
            for (const bool andLater : {false, true}) {
                if (!IsInSample()) {
                    continue;
                }
                m_stage.Renew();
                const Run run = m_stage.Play(m_subject.call, {}, {place, andLater});
                ++m_tally.heapFaults;
                Check("allocation " + std::to_string(place) + (andLater ? " and later" : ""), {.heap = true},
                      run);
            }
        }
    }

private:
    bool IsInSample() { return m_tally.planned++ % m_tally.oneIn == 0; }

    std::uint64_t& Reached(Operation operation) {
        return m_tally.reached[static_cast<std::size_t>(operation)];
    }

    void FailCall(std::size_t place, std::string_view way, Fault fault) {
        const bool andLater = fault.andLater;
        fault.lacking = m_stage.Where().lacking;
        m_stage.Renew();
        const Run run =
            m_stage.Play(m_subject.call, {.nth = place, .andLater = andLater, .kind = fault.kind});
        if (run.injected == 0) {
            return; // this device's answers have no status
        }
        ++m_tally.callFaults;
        Reached(fault.operation) += 1;
        for (const Operation called : run.calls) {
            Reached(called) += andLater || observer::RowOf(called).failures == 0 ? 1 : 0;
        }
        Check("call " + std::to_string(place) + " " + std::string(observer::RowOf(fault.operation).name) +
                  " " + std::string(way) + (andLater ? " and later" : ""),
              fault, run);
    }

    /// The run itself, the next one without a fault, and what both have left.
    void Check(const std::string& where, const Fault& fault, const Run& run) {
        std::string problem = run.fault;
        if (problem.empty()) {
            problem =
                Objection(*m_subject.row, fault, run.answer.text, m_good.answer.text, m_stage.MachineText());
        }
        if (!problem.empty()) {
            Complain(where, problem, run.answer.text);
        }
        const Run next = m_stage.Play(m_subject.call);
        if (next.calls != m_good.calls || next.answer.text != m_good.answer.text) {
            m_stage.FoundChanged();
        }
        if (!next.fault.empty()) {
            Complain(where + ", the next run", next.fault, next.answer.text);
        } else if (!IsGood(next) && !MayStay(*m_subject.row, fault, next.answer.text, m_good.answer.text) &&
                   !IsGood(
                       m_stage.Play(m_subject.call))) { // the firmware goes on in its log where it was left
            Complain(where + ", the next run", "it is not right again", next.answer.text);
        }
        if (m_stage.LeakedBlocks() != 0) {
            Complain(where, "memory was not released", run.answer.text);
        }
    }

    [[nodiscard]] bool IsGood(const Run& run) const {
        return run.answer.text == m_good.answer.text || run.answer.text == m_then.answer.text;
    }

    void Complain(const std::string& where, const std::string& problem, const std::string& answer) {
        const Situation& here = m_stage.Where();
        m_tally.complaints.push_back(std::string(m_subject.row->name) + " on " + here.machine +
                                     (here.used ? ", used" : "") + (here.session ? "" : ", no session") +
                                     ": " + where + ": " + problem + ": " + answer.substr(0, 300));
    }

    Stage& m_stage;
    const Subject& m_subject;
    Tally& m_tally;
    Run m_good;
    Run m_then;
};

} // namespace

void SweepReading(Stage& stage, const Subject& subject, Tally& tally) {
    Sweep sweep(stage, subject, tally);
    sweep.FailCalls();
    sweep.FailAllocations();
}

bool FindsPlanted(Stage& stage, bool callsFail, std::ostream& out) {
    bool all = true;
    for (std::size_t place = 0; place < PlantedReadings().size(); ++place) {
        const Planted planted = PlantedReadings()[place];
        const auto call = [place] {
            return CallWide(PlantedReadings()[place].read, 512); // a DLL may have been loaded again
        };
        Tally tally;
        SweepReading(stage, {exports::FindExport("GetInfVersion"), call}, tally);
        const bool isFindable = !planted.complaint.empty() && (callsFail || !planted.needsFailedCall);
        const bool found = std::ranges::any_of(tally.complaints, [&](const std::string& complaint) {
            return complaint.find(planted.complaint) != std::string::npos;
        });
        const bool right = isFindable ? found : tally.complaints.empty();
        out << (right ? "right: " : "WRONG: ") << planted.fault << ": " << tally.complaints.size()
            << " complaints\n";
        all = all && right;
    }
    return all;
}

} // namespace sweep
