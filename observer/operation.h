// How one operation of the boundary answers and fails.
#pragma once

#include <cstdint>
#include <string_view>

namespace observer {

/// How a call can be made to fail. Each operation has the kinds that exist for it.
enum class Failure : std::uint8_t {
    None = 0,
    Refused = 1,     // the call fails with its error code; the back end is not called
    ShortAnswer = 2, // success, with less than was asked for
    Nothing =
        4,      // success, with nothing: an empty list, a null object, zero bytes; the back end is not called
    Status = 8, // success, with an answer whose own status says that the device failed
};

constexpr std::uint8_t Bit(Failure failure) {
    return static_cast<std::uint8_t>(failure);
}

/// What an operation returns, and with it how a failure is recognised and made.
enum class Returns : std::uint8_t {
    Nothing,
    Error,   // a code; 0 is success
    HResult, // negative is a failure
    Flag,    // false is a failure
    Handle,  // the operation's own failure value: null or invalid
    Count,   // the operation's own failure value: 0 or -1
    Value,   // cannot fail
};

/// Whether an operation sets the thread's last error. Elsewhere that is whatever was left there, and is not recorded.
enum class LastError : std::uint8_t { NotSet, SetOnFailure, SetAlways };

/// What a short answer leaves out.
enum class Shortening : std::uint8_t {
    None,
    BufferOfOneByte, // the caller's buffer counts as one byte
    HalfOfInput,     // half of the data reaches the back end: what is left out must not be written
    HalfOfAnswer,    // half of the bytes that were returned reach the caller
    HalfOfCount,     // half of the count is returned
};

struct OperationRow {
    std::string_view name;
    Returns returns = Returns::Nothing;
    std::uint32_t refusal = 0;     // the code of a refused call
    std::int64_t failureValue = 0; // of a handle or a count
    LastError lastError = LastError::NotSet;
    std::uint8_t failures = 0; // which kinds exist, as bits
    Shortening shortening = Shortening::None;
    std::int32_t emptyResult = 0; // of a call that succeeds with nothing
    bool reports = false;         // it reports what the library does; a replay passes it on
    bool returnsSize = false;     // the result is the size of what is asked for next

    [[nodiscard]] constexpr bool CanFail(Failure failure) const { return (failures & Bit(failure)) != 0; }

    [[nodiscard]] constexpr OperationRow Shortened(Shortening how) const {
        OperationRow row = *this;
        row.failures |= Bit(Failure::ShortAnswer);
        row.shortening = how;
        return row;
    }

    [[nodiscard]] constexpr OperationRow Emptied(std::int32_t result = 0) const {
        OperationRow row = *this;
        row.failures |= Bit(Failure::Nothing);
        row.emptyResult = result;
        return row;
    }

    [[nodiscard]] constexpr OperationRow WithStatus() const {
        OperationRow row = *this;
        row.failures |= Bit(Failure::Status);
        return row;
    }

    [[nodiscard]] constexpr OperationRow Reporting() const {
        OperationRow row = *this;
        row.reports = true;
        return row;
    }

    [[nodiscard]] constexpr OperationRow ReturningSize() const {
        OperationRow row = *this;
        row.returnsSize = true;
        return row;
    }

    [[nodiscard]] constexpr OperationRow Named(std::string_view newName) const {
        OperationRow row = *this;
        row.name = newName;
        return row;
    }
};

namespace row {

constexpr OperationRow Void{};
constexpr OperationRow Value{.returns = Returns::Value};

constexpr OperationRow Refusable(Returns returns, std::uint32_t refusal, LastError lastError,
                                 std::int64_t failureValue = 0) {
    return {.returns = returns,
            .refusal = refusal,
            .failureValue = failureValue,
            .lastError = lastError,
            .failures = Bit(Failure::Refused)};
}

constexpr OperationRow Error(std::uint32_t code) {
    return Refusable(Returns::Error, code, LastError::NotSet);
}

constexpr OperationRow HResult(std::uint32_t code) {
    return Refusable(Returns::HResult, code, LastError::NotSet);
}

constexpr OperationRow Flag(std::uint32_t code, LastError lastError = LastError::SetOnFailure) {
    return Refusable(Returns::Flag, code, lastError);
}

constexpr OperationRow Handle(std::uint32_t code, std::int64_t failureValue = 0,
                              LastError lastError = LastError::SetOnFailure) {
    return Refusable(Returns::Handle, code, lastError, failureValue);
}

constexpr OperationRow Count(std::uint32_t code, std::int64_t failureValue = 0,
                             LastError lastError = LastError::SetOnFailure) {
    return Refusable(Returns::Count, code, lastError, failureValue);
}

} // namespace row
} // namespace observer
