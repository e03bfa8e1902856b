#include "readings/examination.h"

#include "base/process_facts.h"
#include "base/text.h"
#include "causes/call_words.h"
#include "causes/deciding_call.h"
#include "terminal/interrupt.h"
#include "terminal/progress.h"

#include <algorithm>
#include <map>

namespace tool {
namespace {

/// What one reading returned and asked for.
struct Asked {
    std::string answer;
    std::vector<BoundaryCall> calls;
};

Cause RuleCause(std::string rule, std::string remedy) {
    return {.call = {}, .rule = std::move(rule), .remedy = std::move(remedy)};
}

PreconditionFinding Met(const Precondition& precondition, std::string value = {}) {
    return {.precondition = &precondition, .isMet = true, .value = std::move(value), .cause = {}};
}

PreconditionFinding NotMet(const Precondition& precondition, ReadingState state, Cause cause) {
    return {.precondition = &precondition,
            .isMet = false,
            .state = state,
            .value = {},
            .cause = std::move(cause)};
}

PreconditionFinding NotChecked(const Precondition& precondition, std::string rule) {
    return {.precondition = &precondition,
            .isMet = std::nullopt,
            .value = {},
            .cause = RuleCause(std::move(rule), {})};
}

bool Matches(const Precondition& precondition, std::string_view operation, std::string_view subject) {
    return subject.find(precondition.subject) != std::string_view::npos &&
           std::ranges::any_of(precondition.operations, [&](std::string_view beginning) {
               return !beginning.empty() && operation.starts_with(beginning);
           });
}

class Examination {
public:
    Examination(const Host& host, const ReadOptions& options)
        : m_host(host), m_options(options), m_log(&host.library) {
        if (options.session) {
            m_session.emplace(host.library);
        }
        m_asked["InitializeSondrel"] = {.answer = {}, .calls = m_log.Take()};
    }

    PreconditionFinding Examine(const Precondition& precondition) {
        if (precondition.check != OwnCheck::None) {
            return Checked(precondition);
        }
        const Export* const row = FindExport(precondition.reading);
        if (row == nullptr || m_host.library.Find(row->name) == nullptr) {
            return NotChecked(precondition,
                              "this library does not export " + std::string(precondition.reading));
        }
        if (!m_log.IsObserved()) {
            return NotChecked(precondition, "the library is not the observed one");
        }
        const bool isSession = row->report == InReport::Session;
        if ((isSession || row->needsSession) && !(m_session && m_session->IsOpen())) {
            return WithoutSession(precondition);
        }
        return isSession ? Met(precondition) : Judged(precondition, Ask(*row));
    }

private:
    const Asked& Ask(const Export& row) {
        const auto [at, isNew] = m_asked.try_emplace(row.name);
        if (isNew) {
            const Answer answer =
                Call(m_host.library.Find(row.name), row, {std::string(row.sample), m_options.initCom});
            at->second = {.answer = answer.text, .calls = m_log.Take()};
        }
        return at->second;
    }

    /// Everything that needs the session has the cause of the driver's device.
    PreconditionFinding WithoutSession(const Precondition& precondition) {
        if (!m_session) {
            return NotChecked(precondition, "--no-session: none was opened");
        }
        const auto decision = Decide(m_asked["InitializeSondrel"].calls);
        if (!decision) {
            return NotMet(precondition, ReadingState::NoSession, RuleCause("the session is not open", {}));
        }
        Cause cause = decision->cause;
        if (decision->state == ReadingState::Absent) {
            cause.remedy = "install the I/O driver";
        }
        const bool isDriver = precondition.reading == "InitializeSondrel";
        return NotMet(precondition, isDriver ? decision->state : ReadingState::NoSession, std::move(cause));
    }

    /// A decision of another operation is the cause if it prevented the reading from asking for this precondition.
    static PreconditionFinding Judged(const Precondition& precondition, const Asked& asked) {
        const auto decision = Decide(asked.calls);
        if (decision && decision->cause.call) {
            const DecidingCall& call = *decision->cause.call;
            const bool isOther = precondition.onlyCode != 0 && call.code != precondition.onlyCode &&
                                 decision->state != ReadingState::Denied;
            const bool isEmpty = precondition.emptyIsMet && !decision->isFailure;
            if (Matches(precondition, call.operation, call.subject) && !isOther && !isEmpty &&
                (precondition.absenceIsUnmet || !decision->isExpected)) {
                return NotMet(precondition, decision->state, decision->cause);
            }
        }
        for (std::size_t place = 0; place < asked.calls.size(); ++place) {
            const bool identifies = precondition.name == "ec-map" && IsIdentification(asked.calls[place]);
            if (!identifies &&
                Matches(precondition, asked.calls[place].row->name, SubjectOf(asked.calls, place))) {
                return Met(precondition, precondition.name == "driver-version" || precondition.name == "ec"
                                             ? asked.answer
                                             : std::string());
            }
        }
        if (decision) {
            return NotMet(precondition, decision->state, decision->cause);
        }
        return NotMet(
            precondition, ReadingState::Absent,
            precondition.name == "ec-map"
                ? RuleCause("the library has no map for this EC's revision code", "update the library")
                : RuleCause(std::string(precondition.reading) + " did not ask for it", {}));
    }

    static bool IsIdentification(const BoundaryCall& call) {
        const auto command = EcCommandOf(call);
        return command && command->bytes.starts_with("bb");
    }

    PreconditionFinding Checked(const Precondition& precondition) {
        const host_system::ProcessFacts facts = host_system::FactsOfProcess();
        switch (precondition.check) {
        case OwnCheck::Library:
            return LibraryVersion(precondition);
        case OwnCheck::Exports:
            return Exports(precondition);
        case OwnCheck::AppPathWritable:
            return AppPathWritable(precondition);
        case OwnCheck::User:
            return facts.user.empty() ? NotMet(precondition, ReadingState::Failed,
                                               RuleCause("the system does not name the user", {}))
                                      : Met(precondition, facts.user);
        case OwnCheck::Session:
            return facts.isInteractive ? Met(precondition, facts.session)
                                       : NotMet(precondition, ReadingState::Denied,
                                                RuleCause("this process runs in the session of services",
                                                          "run in a user's session"));
        case OwnCheck::Elevation:
        case OwnCheck::None:
            break;
        }
        if (m_host.machine || m_host.recorded) {
            return NotChecked(precondition, NotThisComputer());
        }
        return facts.isElevated ? Met(precondition)
                                : NotMet(precondition, ReadingState::Denied,
                                         RuleCause("this process is not elevated", "run elevated"));
    }

    [[nodiscard]] std::string NotThisComputer() const {
        return m_host.recorded ? "the machine is a recording" : "the machine is simulated";
    }

    [[nodiscard]] PreconditionFinding LibraryVersion(const Precondition& precondition) const {
        std::string version = host_system::VersionOf(m_host.library.File());
        return version.empty()
                   ? NotMet(precondition, ReadingState::Failed,
                            RuleCause("the library's file has no version", "reinstall the library"))
                   : Met(precondition, std::move(version));
    }

    [[nodiscard]] PreconditionFinding Exports(const Precondition& precondition) const {
        std::string missing;
        for (const Export& row : AllExports()) {
            if (m_host.library.Find(row.name) == nullptr) {
                missing.append(missing.empty() ? "" : ", ").append(row.name);
            }
        }
        return missing.empty() ? Met(precondition, std::to_string(AllExports().size()))
                               : NotMet(precondition, ReadingState::Absent,
                                        RuleCause("the library does not export " + missing,
                                                  "use the library of this kit"));
    }

    PreconditionFinding AppPathWritable(const Precondition& precondition) {
        if (m_host.machine || m_host.recorded) {
            return NotChecked(precondition, NotThisComputer());
        }
        const auto& calls = m_asked["WMIGetBatteryHealth"].calls;
        const auto asks = [](const BoundaryCall& call) {
            return call.row->name == "GetFileAttributesW" && call.succeeded;
        };
        const auto found = std::ranges::find_if(calls, asks);
        if (found == calls.end()) {
            return NotChecked(precondition, "the app path is not known");
        }
        const std::string path = SubjectOf(calls, static_cast<std::size_t>(&*found - calls.data()));
        return host_system::IsWritableDirectory(PathOf(path))
                   ? Met(precondition, path)
                   : NotMet(precondition, ReadingState::Denied,
                            RuleCause("this user may not create files in " + path,
                                      "give the user the right to write there"));
    }

    const Host& m_host;
    const ReadOptions& m_options;
    CallLog m_log;
    std::optional<Session> m_session;
    std::map<std::string_view, Asked> m_asked;
};

} // namespace

std::vector<PreconditionFinding> ExaminePreconditions(const Host& host, const ReadOptions& options) {
    Examination examination(host, options);
    Progress progress;
    std::vector<PreconditionFinding> findings;
    for (const Precondition& precondition : AllPreconditions()) {
        interrupt::Check();
        progress.Begin("checking " + std::string(precondition.name));
        findings.push_back(examination.Examine(precondition));
        progress.Clear();
    }
    return findings;
}

} // namespace tool
