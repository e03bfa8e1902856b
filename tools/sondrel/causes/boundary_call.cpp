#include "causes/boundary_call.h"

#include "observer/operations.h"

#include <algorithm>
#include <span>

namespace tool {
namespace {

std::string_view ValueIn(const std::vector<BoundaryCall::Argument>& arguments, std::string_view name,
                         bool output) {
    const auto found = std::ranges::find_if(arguments, [&](const BoundaryCall::Argument& argument) {
        return argument.name == name && argument.output == output;
    });
    return found == arguments.end() ? std::string_view() : found->value;
}

} // namespace

std::string_view BoundaryCall::Input(std::string_view name) const {
    return ValueIn(arguments, name, false);
}

std::string_view BoundaryCall::Output(std::string_view name) const {
    return ValueIn(arguments, name, true);
}

std::optional<BoundaryCall> BoundaryCallOf(const VeskObserver_Call& call) {
    const auto* const row = std::ranges::find(observer::OperationTable, std::string_view(call.operation),
                                              &observer::OperationRow::name);
    if (row == std::end(observer::OperationTable)) {
        return std::nullopt;
    }
    BoundaryCall logged{.row = row,
                        .number = call.number,
                        .arguments = {},
                        .result = call.result,
                        .succeeded = call.succeeded != 0,
                        .lastError = call.hasLastError != 0 ? std::optional(call.lastError) : std::nullopt};
    logged.arguments.reserve(call.argumentCount);
    for (const VeskObserver_Argument& argument : std::span(call.arguments, call.argumentCount)) {
        logged.arguments.push_back({argument.name, argument.value, argument.output != 0});
    }
    return logged;
}

} // namespace tool
