#include "causes.h"

#include "causes/explainer.h"

#include <algorithm>

namespace sweep {
namespace {

using observer::Failure;
using observer::Operation;

tool::Explanation ExplanationOf(const Stage& stage, const exports::Export& row, const Run& run) {
    tool::Answer answer{.text = run.answer.text};
    if (answer.text.starts_with(tool::BufferUntouched)) {
        answer.untouched = true;
        answer.code = answer.text.size() > tool::BufferUntouched.size() ? 1 : 0;
    }
    tool::Explainer explainer(true);
    explainer.SessionOpened(stage.Where().session, {});
    return explainer.Explain(row, answer, run.logged);
}

/// The system returns what it can return without a failure: a list that ends after an item, a shorter variable, file or
/// record, a word of 0, a window that is not visible.
bool IsUnseen(const tool::BoundaryCall& call, Failure kind) {
    const std::string_view name = call.row->name;
    constexpr std::string_view Sized[] = {"GetFirmwareEnvironmentVariableW", "ReadFile", "DeviceIoControl"};
    constexpr std::string_view Answers[] = {"IsWindow",      "IsWindowVisible", "IsWindowEnabled",
                                            "IsIconic",      "GetAncestor",     "GetLastActivePopup",
                                            "FindWindowExW", "GetTitleBarInfo"};
    switch (kind) {
    case Failure::Nothing:
        return name == "Next" || (name == "Get" && call.Output("value") != "-");
    case Failure::ShortAnswer:
        return std::ranges::count(Sized, name) != 0 && call.Output("returned").size() != 1;
    default:
        return name.starts_with("GetWindow") || std::ranges::count(Answers, name) != 0;
    }
}

/// The tool names one call: the failed one, or one that failed before on the machine itself and says as much.
bool IsNamed(const tool::Explanation& explained, const tool::Explanation& good, std::uint64_t place,
             bool andLater) {
    if (!explained.cause || !explained.cause->call) {
        return false;
    }
    const tool::DecidingCall& named = *explained.cause->call;
    return (andLater ? named.number >= place : named.number == place) ||
           (good.cause && good.cause->call && good.cause->call->number == named.number);
}

class CauseSweep {
public:
    CauseSweep(Stage& stage, const Subject& subject, Tally& tally)
        : m_stage(stage), m_subject(subject), m_tally(tally) {
        m_stage.Restart();
        m_good = m_stage.Play(m_subject.call);
        m_then = m_stage.Play(m_subject.call);
        m_goodOne = ExplanationOf(m_stage, *m_subject.row, m_good);
    }

    void FailCalls() {
        for (std::size_t place = 1; place <= m_good.calls.size(); ++place) {
            const observer::OperationRow& operation = observer::RowOf(m_good.calls[place - 1]);
            for (const Failure kind : Kinds) {
                for (const bool andLater : {false, true}) {
                    if (operation.CanFail(kind) && m_tally.planned++ % m_tally.oneIn == 0) {
                        FailCall({.nth = place, .andLater = andLater, .kind = kind});
                    }
                }
            }
        }
    }

private:
    static constexpr Failure Kinds[] = {Failure::Refused, Failure::ShortAnswer, Failure::Nothing,
                                        Failure::Status};

    void FailCall(const observer::FaultPlan& plan) {
        m_stage.Renew();
        const Run run = m_stage.Play(m_subject.call, plan);
        if (m_subject.row->group == exports::Group::FirmwareLog) {
            m_stage.FoundChanged(); // the firmware goes on in its log
        }
        const tool::BoundaryCall& failed = run.logged[plan.nth - 1];
        const bool isChanged = run.answer.text != m_good.answer.text && run.answer.text != m_then.answer.text;
        if (run.injected == 0 || (!isChanged && (!failed.row->reports || plan.andLater))) {
            return;
        }
        ++m_tally.callFaults;
        const tool::Explanation explained = ExplanationOf(m_stage, *m_subject.row, run);
        const bool isRight = isChanged ? IsNamed(explained, m_goodOne, plan.nth, plan.andLater)
                                       : explained.state == m_goodOne.state;
        if (!isRight && IsUnseen(failed, plan.kind)) {
            ++m_tally.unseen;
        } else if (!isRight) {
            Complain(failed, plan, run.answer.text, explained);
        }
    }

    void Complain(const tool::BoundaryCall& failed, const observer::FaultPlan& plan,
                  const std::string& answer, const tool::Explanation& explained) {
        const std::string cause = explained.cause ? TextWithRemedy(*explained.cause) : "nothing";
        m_tally.complaints.push_back(
            std::string(m_subject.row->name) + " on " + m_stage.Where().machine + ": call " +
            std::to_string(plan.nth) + " " + std::string(failed.row->name) + " kind " +
            std::to_string(static_cast<int>(plan.kind)) + (plan.andLater ? " and later" : "") + ": " +
            std::string(TextOf(explained.state)) + " because " + cause + ": " + answer.substr(0, 60) +
            ", not " + m_good.answer.text.substr(0, 60));
    }

    Stage& m_stage;
    const Subject& m_subject;
    Tally& m_tally;
    Run m_good;
    Run m_then;
    tool::Explanation m_goodOne;
};

} // namespace

void SweepCauses(Stage& stage, const Subject& subject, Tally& tally) {
    CauseSweep(stage, subject, tally).FailCalls();
}

} // namespace sweep
