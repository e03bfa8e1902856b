// Calls exports by their signatures.
#pragma once

#include "exports/answer.h"
#include "terminal/system.h"

#include <cstdint>
#include <string>
#include <typeinfo>

namespace tool {

/// What the command line gives to a call.
struct CallInputs {
    std::string argument;
    std::uint8_t initCom = 1;
};

/// Throws Trouble where the argument does not suit the export.
Answer Call(Address address, const Export& row, const CallInputs& inputs);

/// The type of a pointer to an export that is called in this way.
const std::type_info& TypeOf(Signature signature);

} // namespace tool
