// A boundary call of the library as the tool logs it: the observer's record with its printed values.
#pragma once

#include "observer/operation.h"

#include "vesk_sondrel_observer.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

struct BoundaryCall {
    struct Argument {
        std::string name;
        std::string value; // as the observer prints it
        bool output = false;
    };

    const observer::OperationRow* row = nullptr;
    std::uint64_t number = 0;
    std::vector<Argument> arguments;
    std::string result;
    bool succeeded = true;
    std::optional<std::uint32_t> lastError;

    /// The printed value; empty where the call has no such argument.
    [[nodiscard]] std::string_view Input(std::string_view name) const;
    [[nodiscard]] std::string_view Output(std::string_view name) const;
};

/// Nothing for an operation that this tool does not know.
std::optional<BoundaryCall> BoundaryCallOf(const VeskObserver_Call& call);

} // namespace tool
