// The decorator of a boundary function, written once for all of them.
#pragma once

#include "observer/arguments.h"
#include "observer/back_end.h"
#include "observer/buffers/out_buffers.h"
#include "observer/recording/recording.h"

#include <array>
#include <type_traits>
#include <utility>

namespace observer {

/// Whether the result says that the call succeeded.
template <class Result>
bool Succeeded(const OperationRow& row, const Result& result) {
    if constexpr (std::is_same_v<Result, bool>) {
        return result;
    } else if constexpr (std::is_enum_v<Result> || std::is_integral_v<Result>) {
        switch (row.returns) {
        case Returns::Error:
            return result == Result{};
        case Returns::HResult:
            return static_cast<std::int64_t>(result) >= 0;
        case Returns::Handle:
        case Returns::Count:
            return result != static_cast<Result>(row.failureValue);
        default:
            return true;
        }
    } else {
        return true;
    }
}

/// What a refused call returns: its code, or the failure value of its kind.
template <class Result>
Result Refusal(const OperationRow& row) {
    if constexpr (std::is_enum_v<Result>) {
        return static_cast<Result>(row.failureValue);
    } else if constexpr (std::is_integral_v<Result>) {
        const bool isCode = row.returns == Returns::Error || row.returns == Returns::HResult;
        return isCode ? static_cast<Result>(row.refusal) : static_cast<Result>(row.failureValue);
    } else {
        return Result{};
    }
}

/// What a call returns that succeeds with nothing.
template <class Result>
Result EmptyResult(const OperationRow& row) {
    if constexpr (std::is_same_v<Result, bool>) {
        return true;
    } else if constexpr (std::is_integral_v<Result>) {
        return static_cast<Result>(row.emptyResult);
    } else {
        return Result{};
    }
}

template <class Result>
Value ResultValue(Call& call, const OperationRow& row, const Result& result) {
    if constexpr (std::is_integral_v<Result> && !std::is_same_v<Result, bool>) {
        if (row.returns == Returns::HResult && result < 0) {
            return {Number{static_cast<std::uint32_t>(result), true}};
        }
    }
    return ValueOf(call, result);
}

/// The handle that an operation returns is none that it opens.
struct OpensNothing {
    template <class Result>
    void operator()(Call&, const Result&) const {}
};

/// It is one, of this kind, opened on this.
struct OpensResult {
    HandleKind kind;
    std::u16string_view openedOn;

    template <class Result>
    void operator()(Call& call, Result handle) const {
        call.Opened(kind, static_cast<std::uintptr_t>(handle), openedOn);
    }
};

/// A process is named by its number.
class DecimalText {
public:
    explicit DecimalText(std::uint32_t number) {
        do {
            m_digits[--m_first] = static_cast<char16_t>(u'0' + number % 10);
            number /= 10;
        } while (number != 0);
    }

    [[nodiscard]] std::u16string_view Text() const {
        return std::u16string_view(m_digits.data(), m_digits.size()).substr(m_first);
    }

private:
    std::array<char16_t, 10> m_digits{};
    std::size_t m_first = 10;
};

/// Makes the call fail without the back end.
template <class Result, class... Arguments>
Result Refused(const OperationRow& row, Arguments&... arguments) {
    (arguments.Refuse(), ...);
    if (row.lastError != LastError::NotSet) {
        SetLastErrorOfThread(row.refusal);
    }
    return Refusal<Result>(row);
}

/// Whether the recorded answer was written to the arguments and the result. It is limited by the caller's buffers.
template <class Result, class... Arguments>
bool Answered(Call& call, const OperationRow& row, const RecordedCall& recorded, Result& result,
              Arguments&... arguments) {
    if (!Assign(call, recorded.result, result) || !(arguments.Replay(call, recorded.outputs) && ...)) {
        return false;
    }
    if constexpr (std::is_integral_v<Result> && !std::is_same_v<Result, bool>) {
        const auto count = static_cast<std::int64_t>(result);
        if ((row.returns == Returns::Count && !(arguments.Holds(count) && ...)) ||
            (row.returnsSize && count > LargestReplayedCount)) {
            return false;
        }
    }
    return !Succeeded(row, result) || (arguments.IsConsistent() && ...);
}

/// Answers from the recording.
template <class Result, class... Arguments>
Result Replayed(Call& call, const OperationRow& row, Arguments&... arguments) {
    const RecordedCall* const recorded = call.Recorded();
    if (recorded == nullptr) {
        return Refused<Result>(row, arguments...);
    }
    if (recorded->outOfMemory) {
        throw std::bad_alloc();
    }
    Result result{};
    if (!Answered(call, row, *recorded, result, arguments...)) {
        call.CannotAnswer(*recorded);
        return Refused<Result>(row, arguments...);
    }
    if (recorded->lastError) {
        SetLastErrorOfThread(*recorded->lastError);
    }
    return result;
}

/// Calls the back end with the arguments, or makes the call fail as it has been asked for.
template <class Result, class BackEnd, class... Arguments>
Result Answer(Call& call, const OperationRow& row, const BackEnd& backEnd, Arguments&... arguments) {
    if (call.Injected() == Failure::Refused) {
        return Refused<Result>(row, arguments...);
    }
    if (call.Injected() == Failure::Nothing) {
        (arguments.Empty(), ...);
        return EmptyResult<Result>(row);
    }
    if (call.IsReplayed()) {
        return Replayed<Result>(call, row, arguments...);
    }
    const bool isShort = call.Injected() == Failure::ShortAnswer;
    if (isShort) {
        (arguments.Shorten(row.shortening), ...);
    }
    call.Entered();
    Result result = backEnd(arguments.Argument()...);
    call.Left();
    if (isShort) {
        (arguments.Halve(row.shortening), ...);
        if constexpr (std::is_integral_v<Result>) {
            if (row.shortening == Shortening::HalfOfCount) {
                result = static_cast<Result>(result / 2);
            }
        }
    }
    if (call.Injected() == Failure::Status && !(Succeeded(row, result) && (arguments.SayFailed() || ...))) {
        call.Withdraw(); // this device's answers have no status
    }
    return result;
}

/// The whole decorator. `opening` notes a handle that the operation returns, or what one without a result closes.
template <Operation Which, class Opening, class BackEnd, class... Arguments>
auto ObserveOpening(const Opening& opening, const BackEnd& backEnd, Arguments... arguments) {
    using Result = decltype(backEnd(arguments.Argument()...));
    constexpr const OperationRow& Row = RowOf(Which);
    Call call(Which);
    if (call.IsNested()) {
        return backEnd(arguments.Argument()...);
    }
    call.Note([&] { (arguments.Before(call), ...); });
    call.Began();
    if constexpr (std::is_void_v<Result>) {
        static_assert(Row.returns == Returns::Nothing && Row.failures == 0);
        if constexpr (std::is_invocable_v<Opening, Call&>) {
            opening(call);
        }
        if (call.IsReplayed()) {
            call.Recorded();
        } else {
            call.Entered();
            backEnd(arguments.Argument()...);
            call.Left();
        }
        call.Answered(true, false);
    } else {
        static_assert(Row.returns != Returns::Nothing);
        auto result = Answer<Result>(call, Row, backEnd, arguments...);
        const bool succeeded = Succeeded(Row, result);
        if (succeeded) {
            call.Note([&] { opening(call, result); });
        }
        call.Note([&] { (arguments.After(call, succeeded), ...); });
        call.Note([&] {
            if (Record* const record = call.TheRecord(); record != nullptr) {
                record->result = ResultValue(call, Row, result);
            }
        });
        call.Answered(succeeded, Row.lastError == LastError::SetAlways ||
                                     (Row.lastError == LastError::SetOnFailure && !succeeded));
        return result;
    }
}

template <Operation Which, class BackEnd, class... Arguments>
auto Observe(const BackEnd& backEnd, Arguments... arguments) {
    return ObserveOpening<Which>(OpensNothing{}, backEnd, std::move(arguments)...);
}

/// What the decorators are written with.
namespace decorators {

using observer::Closes;
using observer::DecimalText;
using observer::HandleKind;
using observer::Hex;
using observer::In;
using observer::InBytes;
using observer::InHandle;
using observer::InOut;
using observer::Observe;
using observer::ObserveOpening;
using observer::Opens;
using observer::OpensResult;
using observer::Operation;
using observer::Out;
using observer::OutAlways;
using observer::OutBytes;
using observer::OutBytesAt;
using observer::OutCount;
using observer::OutHandle;
using observer::OutPlaces;
using observer::OutSize;
using observer::OutText;
using observer::OutTexts;
using observer::OutTextSpan;
using observer::OutVariant;

} // namespace decorators
} // namespace observer
