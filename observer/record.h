// One boundary call as data, and its printed form.
#pragma once

#include "observer/operations.h"
#include "observer/value.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace observer {

struct Record {
    Operation operation{};
    /// The export that the host called, from its name in the library; null outside an export call.
    const char* exportName = nullptr;
    std::uint64_t exportCall = 0; // numbered from 1; 0 outside
    std::uint64_t number = 0;     // of this call, from 1 since the last restart of the counts
    std::uint64_t identity = 0;   // of this call in its process
    std::uint32_t thread = 0;     // numbered in the order in which threads call
    std::chrono::nanoseconds start{0};
    std::chrono::nanoseconds duration{0}; // of the back end alone
    Structure inputs;
    Structure outputs;
    Value result; // nothing where the operation returns none
    bool succeeded = true;
    bool incomplete = false;                // there was no memory to note all of it
    bool outOfMemory = false;               // the back end raised it; there is no result then
    std::optional<std::uint32_t> lastError; // where the operation sets it
    Failure injected = Failure::None;

    /// The input or output of this name; null where there is none.
    [[nodiscard]] const Value* Input(std::string_view name) const;
    [[nodiscard]] const Value* Output(std::string_view name) const;
};

/// "RegOpenKeyExW root=HKLM path="SOFTWARE\Vesk" access=0x20019 -> 0 key=key#1": one line, without times.
std::string Printed(const Record& record);

/// The same without what it returned.
std::string PrintedInputs(Operation operation, const Structure& inputs);

/// Long strings, byte blocks and lists are cut, and their length is given.
std::string Printed(const Value& value);

} // namespace observer
